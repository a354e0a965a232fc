"""A matcher for IPythons in which completion is a matter of matchers alone, as their interface of 8.6 has them."""

from collections.abc import Callable, Mapping

from contextdata.ipython._kinds import type_of

_NAME = "contextdata"
_FIRST = 1_000

# Those of IPython's own that evaluate what stands before a dot, import modules, or know less than we do.
_SUPPRESSED = frozenset(
    f"IPCompleter.{name}_matcher" for name in ("jedi", "python", "dict_key", "python_func_kw", "file")
)


def put_into(completer, extension) -> None:
    """Adds our matcher to a completer's."""
    completer.custom_matchers.append(matcher_for(extension, completer))


def take_out_of(completer, extension) -> None:
    """Takes our matcher away; nothing where there is none."""
    others = (each for each in completer.custom_matchers if getattr(each, "extension", None) is not extension)
    completer.custom_matchers[:] = others


def matcher_for(extension, completer) -> Callable:
    """The matcher of an extension for a completer.

    What it offers silences IPython's own matchers for Python. They are heard where it offers nothing: the interface has
    no way to say that nothing is the answer.
    """

    def contextdata_matcher(context):
        try:
            return _result(extension, completer, context)
        except KeyboardInterrupt:
            extension.interrupted()
        except BaseException:
            extension.failures.record()
        return {"completions": []}

    contextdata_matcher.extension = extension
    contextdata_matcher.matcher_api_version = 2
    contextdata_matcher.matcher_priority = _FIRST
    contextdata_matcher.matcher_identifier = _NAME
    return contextdata_matcher


def _result(extension, completer, context) -> Mapping:
    text = context.full_text
    lines = text.split("\n")[: context.cursor_line]
    cursor = sum(len(line) + 1 for line in lines) + context.cursor_position
    answer = extension.answer(completer, text, cursor)
    if answer is None:
        return {"completions": []}
    return {
        "completions": [_completion(item.name, type_of(item.kind)) for item in answer.items],
        "suppress": set(_SUPPRESSED),
        "ordered": True,
        "matched_fragment": text[answer.start : cursor],
    }


def _completion(text: str, kind: str):
    from IPython.core.completer import SimpleCompletion

    return SimpleCompletion(text, type=kind)
