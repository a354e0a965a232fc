"""What the library exports and what it leaves to its host, against the lists beside this file.

UPDATE_EXPECT=1 rewrites the lists; the reader of the change decides whether that was meant."""

import os
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).parent


def symbols(library, which):
    run = subprocess.run(["nm", "--dynamic", "--demangle", which, library], capture_output=True, text=True, check=True)
    return [line.split(maxsplit=2 if which == "--defined-only" else 1) for line in run.stdout.splitlines()]


def shortened(name):
    """Signatures as people write them."""
    for long, short in (
        ("std::__cxx11::basic_string<char16_t, std::char_traits<char16_t>, std::allocator<char16_t> >", "u16string"),
        ("std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >", "string"),
        ("std::basic_string_view<char16_t, std::char_traits<char16_t> >", "u16string_view"),
        ("std::basic_string_view<char, std::char_traits<char> >", "string_view"),
        ("std::vector<u16string, std::allocator<u16string > >", "vector<u16string>"),
        ("std::vector<u16string, std::allocator<u16string> >", "vector<u16string>"),
        ("zelk::COSInternedBase<zelk::internal::IdEmptyPolicy>", "zelk::COSInternedID"),
        ("[abi:cxx11]", ""),
    ):
        name = name.replace(long, short)
    return name


def exported(library):
    return sorted({shortened(fields[2]) for fields in symbols(library, "--defined-only")})


def left_to_the_host(library):
    """Undefined symbols that no versioned system library provides."""
    names = {shortened(fields[1]) for fields in symbols(library, "--undefined-only")}
    weak_hooks = {"__gmon_start__", "_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable"}
    return sorted(name for name in names - weak_hooks if "@" not in name)


# The library never prints, exits, starts a thread, takes a lock, or reads a file or the environment.
FORBIDDEN = re.compile(r"^(v?f?printf|f?puts|putchar|f?write|f?open(64|at)?|f?read|getenv|secure_getenv|exit|_exit|abort|"
                       r"quick_exit|pthread_\w+|thrd_\w+|mtx_\w+|std::thread\b.*|std::mutex\b.*|"
                       r"std::basic_[a-z]*stream\b.*|std::terminate\(\))(@.*)?$")


def clang_terminates(library):
    """Clang puts a helper of its own behind every noexcept, and that one refers to std::terminate."""
    run = subprocess.run(["nm", library], capture_output=True, text=True, check=True)
    return "__clang_call_terminate" in run.stdout


def forbidden(library):
    found = sorted(fields[1] for fields in symbols(library, "--undefined-only") if FORBIDDEN.match(fields[1]))
    if clang_terminates(library):
        found = [name for name in found if not name.startswith("std::terminate()")]
    return found


def check(title, found, golden):
    text = "".join(line + "\n" for line in found)
    if os.environ.get("UPDATE_EXPECT"):
        golden.write_text(text)
    expected = golden.read_text() if golden.exists() else ""
    if text == expected:
        print(f"{title}: {len(found)} symbols, as listed")
        return True
    before, after = set(expected.splitlines()), set(found)
    print(f"{title} differ from {golden.name} (UPDATE_EXPECT=1 rewrites it):")
    print("".join(f"  gone: {name}\n" for name in sorted(before - after)), end="")
    print("".join(f"  new:  {name}\n" for name in sorted(after - before)), end="")
    return False


def main():
    library = sys.argv[1]
    good = check("exported symbols", exported(library), HERE / "exported_symbols.golden")
    good &= check("symbols left to the host", left_to_the_host(library), HERE / "host_symbols.golden")
    for name in forbidden(library):
        print(f"the library must not call {name}")
        good = False
    sys.exit(not good)


if __name__ == "__main__":
    main()
