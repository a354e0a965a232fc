#!/usr/bin/env bash
# Builds the reference pages of the C++ interfaces; fails when something public is not documented.
#   scripts/reference.sh           into build/reference, and installs what that takes
#   scripts/reference.sh FOLDER    into another folder, with what is installed; ends with status 77 without Doxygen
set -euo pipefail
asked_for=${1:+$(realpath -m "$1")}
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/setup.sh

if [ -z "$asked_for" ]; then
  need_packages doxygen
elif ! command -v doxygen >/dev/null; then
  echo "there is no doxygen here"
  exit 77
fi

export CONTEXTDATA_REFERENCE=${asked_for:-$PWD/build/reference}
rm -rf "${CONTEXTDATA_REFERENCE:?}/html"
mkdir -p "$CONTEXTDATA_REFERENCE"
doxygen docs/reference/Doxyfile
say "the reference begins at $CONTEXTDATA_REFERENCE/html/index.html"
