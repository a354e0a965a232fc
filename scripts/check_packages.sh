#!/usr/bin/env bash
# Installs the packages that lie in a folder, uses them as their users do, removes them, and fails when anything is left
# behind or gone that was there. `scripts/package.sh --check` runs it, as root.
#   check_packages.sh FOLDER
set -euo pipefail
folder=$1
cd /
unset PYTHONPATH LD_LIBRARY_PATH CMAKE_PREFIX_PATH PKG_CONFIG_PATH PYTHONDONTWRITEBYTECODE

say() { printf '== %s\n' "$*"; }

# Everything but what keeps books of its own, and what is nobody's.
files() {
  find /usr /etc /var /opt -xdev \( -path /var/tmp -o -path /var/log -o -path /var/lib/dpkg -o -path /var/cache/ldconfig \) \
    -prune -o -print | sort
}

remove() { dpkg --purge python3-contextdata libcontextdata-dev libcontextdata0 >"$folder/remove.log" 2>&1; }
trap 'remove || true' ERR

files >"$folder/before"
say "installing"
dpkg --install "$folder"/*.deb >"$folder/install.log" 2>&1 || { cat "$folder/install.log" >&2; false; }
ldconfig -p | grep -q 'libcontextdata\.so\.0 '

say "completing in Python"
/usr/bin/python3 -c '
import fractions, contextdata
items = contextdata.complete("x.limit", namespace={"x": fractions.Fraction(1, 2)})
assert [item.name for item in items] == ["limit_denominator"], items
assert contextdata.__file__.startswith("/usr/lib/python3/dist-packages/"), contextdata.__file__
'
/usr/bin/python3 -m contextdata members decimal.Decimal | grep quantize

say "a program by pkg-config"
# Word splitting is what pkg-config's answer is for.
# shellcheck disable=SC2046
g++ -std=c++20 "$folder/consumer/main.cpp" -o "$folder/program" \
  $(pkg-config --cflags --libs contextdata contextdata-memory-host)
"$folder/program"

say "a program by CMake"
cmake -S "$folder/consumer" -B "$folder/built" -G Ninja -DCONTEXTDATA_VERSION=0.1 >"$folder/cmake.log"
cmake --build "$folder/built" >>"$folder/cmake.log"
"$folder/built/consumer"

say "removing"
trap - ERR
remove || { cat "$folder/remove.log" >&2; exit 1; }
files >"$folder/after"
if ! diff "$folder/before" "$folder/after"; then
  echo "removing the packages did not leave the files as they were (< before, > after)" >&2
  exit 1
fi
say "the packages install, work, and leave nothing behind"
