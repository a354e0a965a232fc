"""The layouts of all types that the public headers declare, as the compiler sees them, and as text."""

import pathlib
import re
import subprocess

ENTRY = re.compile(r"^ <(\d+)><[0-9a-f]+>: Abbrev Number: \d+ \((DW_TAG_\w+)\)")
ATTRIBUTE = re.compile(r"^    <[0-9a-f]+>\s+(DW_AT_\w+)\s*: (.*)$")
DECLARED = re.compile(r"\b(?:class|struct|enum(?: class| struct)?) (?:[A-Z][A-Z_]+ )?(?:\w+::)*(\w+)")
COMMENT = re.compile(r"//.*")
TYPES = ("DW_TAG_class_type", "DW_TAG_structure_type", "DW_TAG_enumeration_type")
PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent
FILE = "layouts.txt"
FOREIGN = ("std", "boost", "__gnu_cxx", "__cxxabiv1")


def headers():
    return sorted(file for folder in ("host", "contextdata") for file in (PROJECT / folder).glob("*.h"))


def debug_information(folder):
    """What a compiler writes for a debugger about the public headers; `folder` is for its files."""
    folder.mkdir(parents=True, exist_ok=True)
    source, built = folder / "all.cpp", folder / "all.o"
    source.write_text("".join(f'#include "{header.relative_to(PROJECT).as_posix()}"\n' for header in headers()))
    subprocess.run(["g++", "-std=c++20", "-g", "-fno-eliminate-unused-debug-types", "-femit-class-debug-always",
                    "-I", PROJECT, "-c", source, "-o", built], check=True)
    return subprocess.run(["readelf", "--debug-dump=info", "--wide", built], capture_output=True, text=True,
                          check=True).stdout


def entries(text):
    """(depth, tag, attributes) of each entry, in order."""
    depth, tag, attributes = 0, "", {}
    for line in text.splitlines():
        if entry := ENTRY.match(line):
            if tag:
                yield depth, tag, attributes
            depth, tag, attributes = int(entry[1]), entry[2], {}
        elif attribute := ATTRIBUTE.match(line):
            attributes.setdefault(attribute[1], attribute[2].strip())
    if tag:
        yield depth, tag, attributes


def last_word(value):
    """What stands behind the form in which it is stored, which readers of debug information print in front of it."""
    return re.sub(r"^\(\w+\) ", "", value).rsplit(": ", 1)[-1].strip()


def number(value):
    return last_word(value).split()[-1].rstrip(")")


def name_of(attributes):
    if "DW_AT_name" in attributes:
        return last_word(attributes["DW_AT_name"])
    # A nested class that is defined outside of its class refers to its declaration.
    return attributes.get("DW_AT_specification", "<0>, <unnamed>").split(", ", 1)[-1]


def fact_of(tag, attributes):
    """What an entry inside of a type says about its layout, or nothing."""
    if tag == "DW_TAG_inheritance":
        return f"base {name_of({'DW_AT_specification': attributes['DW_AT_type']})} at " \
               f"{number(attributes.get('DW_AT_data_member_location', '0'))}"
    if tag == "DW_TAG_member" and "DW_AT_data_member_location" in attributes:
        return f"{name_of(attributes)} at {number(attributes['DW_AT_data_member_location'])}"
    if tag == "DW_TAG_subprogram" and "DW_AT_vtable_elem_location" in attributes:
        return f"virtual {number(attributes['DW_AT_vtable_elem_location'])} " \
               f"{last_word(attributes.get('DW_AT_linkage_name', name_of(attributes)))}"
    if tag == "DW_TAG_enumerator":
        return f"{name_of(attributes)} = {number(attributes['DW_AT_const_value'])}"
    return None


def layouts(folder):
    """Type -> its size and what lies in it, in order."""
    ours = {name for header in headers() for name in DECLARED.findall(COMMENT.sub("", header.read_text()))}
    found, path = {}, {}
    for depth, tag, attributes in entries(debug_information(folder)):
        path = {level: name for level, name in path.items() if level < depth}
        if tag == "DW_TAG_namespace" or tag in TYPES:
            path[depth] = name_of(attributes)
        owner = "::".join(path[level] for level in sorted(path))
        if tag in TYPES and "DW_AT_byte_size" in attributes and path[depth].split("<")[0] in ours \
                and owner.split("::")[0] not in FOREIGN:
            found[owner] = [f"{number(attributes['DW_AT_byte_size'])} bytes"]
        elif owner in found and depth - 1 in path and (fact := fact_of(tag, attributes)):
            found[owner].append(fact)
    return found


def write(file, found):
    """A paragraph a type: its name, and what is known of it."""
    file.write_text("\n".join("\n    ".join([name, *facts]) + "\n" for name, facts in sorted(found.items())))


def read(file):
    paragraphs = (paragraph.splitlines() for paragraph in file.read_text().split("\n\n"))
    return {name: [fact.strip() for fact in facts] for name, *facts in paragraphs}
