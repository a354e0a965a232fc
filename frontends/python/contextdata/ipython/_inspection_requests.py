"""`name?` and the kernel's requests to inspect, answered in a shell."""

import warnings

from IPython.core import page

from contextdata._replacing import Replaced
from contextdata.ipython import _inspection_forms as forms
from contextdata.ipython import _plain_reading as reading
from contextdata.ipython._inspection import Inspection, inspect_name

_NOT_FOUND = "not found"


def put_into(shell, replaced: Replaced, failures) -> None:
    """Puts our answers into a shell. What we know nothing of, such as commands, IPython answers itself; so it does
    when the source is asked for of what may have one."""
    of_mime, of_question = shell.object_inspect_mime, shell._inspect

    def object_inspect_mime(oname, detail_level=0, omit_sections=()):
        try:
            found = _inspection(shell, oname, detail_level, None)
        except ValueError as error:
            raise KeyError(oname) from error
        except Exception:
            failures.record()
            found = None
        if found is None:
            return of_mime(oname, detail_level, omit_sections)
        return {"text/plain": forms.text(found), "text/html": forms.html(found)}

    def _inspect(meth, oname, namespaces=None, **options):
        try:
            found = _inspection(shell, oname, options.get("detail_level", 0), namespaces) if meth == "pinfo" else None
        except ValueError as error:
            print(f"Object `{oname}` not found: {error}")
            return _NOT_FOUND
        except Exception:
            failures.record()
            found = None
        if found is None:
            return of_question(meth, oname, namespaces, **options)
        answer = {"text/plain": forms.text(found)}
        if _is_of_kernel(shell):
            answer["text/html"] = forms.html(found)
        page.page(answer)
        return None

    replaced.set(shell, "object_inspect_mime", object_inspect_mime)
    replaced.set(shell, "_inspect", _inspect)
    if _is_of_kernel(shell) and not shell.enable_html_pager:
        _show_pages(shell, replaced)


def _inspection(shell, name: str, detail_level: int, namespaces) -> Inspection | None:
    given = tuple(each for _, each in namespaces) if namespaces else (shell.user_ns, shell.user_global_ns)
    found = inspect_name(name, tuple(each if type(each) is dict else dict.copy(each) for each in given))
    has_source = found is not None and found.kind in ("function", "method", "class", "module")
    return None if detail_level and has_source else found


def _is_of_kernel(shell) -> bool:
    return hasattr(shell, "kernel")


def _show_pages(shell, replaced: Replaced) -> None:
    """Lets a kernel send pages; without that it cuts them out of every answer."""
    with warnings.catch_warnings():
        # IPython warns that the name of the setting may change.
        warnings.simplefilter("ignore")
        replaced.set_trait(shell, "enable_html_pager", True)
