"""Who may include whom: every quoted or Boost include is checked against the layers and, inside the library, against
the one direction in which its folders call each other."""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)

# Layer -> the project paths that it may include. A path ending in .h is that header alone.
LAYERS = {
    "host/": ["host/"],
    "contextdata/": ["host/", "contextdata/"],
    "hosts/memory/": ["host/", "hosts/memory/"],
    "hosts/python/": ["host/", "hosts/python/"],
    "frontends/completion/": ["host/", "contextdata/", "frontends/completion/"],
    "frontends/python/": ["host/", "contextdata/", "frontends/completion/", "frontends/python/",
                          "hosts/python/python_host.h"],
}

# Folder of the library -> the folders that it may call. Each may call itself.
LIBRARY = {
    "identity": [],
    "introspection": ["identity", "values"],
    "values": ["identity", "introspection", "workspace"],
    "visitors": ["identity", "classinfo"],
    "classinfo": ["identity", "introspection", "visitors"],
    "namelists": ["identity", "introspection", "values", "visitors", "classinfo"],
    "workspace": ["identity", "introspection", "values"],
}

# Which folder answers for a public header of the library.
PUBLIC = {
    "export.h": None,
    "resolved_class_id.h": "identity",
    "introspection.h": "introspection",
    "member_names.h": "introspection",
    "exclusion_tables.h": None,  # fixed names, which call nobody
    "attribute_info.h": "classinfo",
    "class_info.h": "classinfo",
    "method_info.h": "visitors",
    "method_visitor.h": "visitors",
    "property_info.h": "visitors",
    "property_visitor.h": "visitors",
    "argument_block_metadata.h": "namelists",
    "class_member_names.h": "namelists",
    "namespace_names.h": "namelists",
    "other_object_systems.h": "values",
    "what_list.h": "values",
    "workspace.h": "workspace",
    "values.h": "values",
    "workspace_methods.h": "values",
}

# Nothing of the operating system, of Python or of another library behind these layers' backs.
STANDARD_ONLY = ("host/", "contextdata/", "frontends/completion/")
STANDARD = re.compile(r"^(boost/.*|[a-z_]+)$")  # the standard library's headers have no dot and no slash


def layer_of(path):
    return next((layer for layer in LAYERS if path.startswith(layer)), None)


def folder_of(include):
    """The library folder behind a path below contextdata/."""
    parts = include.split("/")[1:]
    if len(parts) > 1:
        return parts[0]
    if parts[0] not in PUBLIC:
        raise KeyError(f"{include}: a public header that this check does not know; add it to PUBLIC")
    return PUBLIC[parts[0]]


def complaints(root):
    for file in sorted(root.rglob("*")):
        path = file.relative_to(root).as_posix()
        layer = layer_of(path)
        if layer is None or file.suffix not in (".h", ".cpp"):
            continue
        for quoted, angled in INCLUDE.findall(file.read_text()):
            if angled:
                if layer in STANDARD_ONLY and not STANDARD.match(angled):
                    yield f"{path} includes <{angled}>: {layer} knows Boost and the standard library only"
                continue
            allowed = LAYERS[layer]
            if not any(quoted == entry or entry.endswith("/") and quoted.startswith(entry) for entry in allowed):
                yield f"{path} includes {quoted}: {layer} may include {', '.join(allowed)}"
            elif layer == "contextdata/" and quoted.startswith("contextdata/"):
                mine, theirs = folder_of(path), folder_of(quoted)
                if theirs not in (None, mine) and mine is not None and theirs not in LIBRARY[mine]:
                    yield f"{path} includes {quoted}: {mine} must not call {theirs}"


def main():
    found = list(complaints(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "every include keeps to its layer")
    sys.exit(bool(found))


if __name__ == "__main__":
    main()
