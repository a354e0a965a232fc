# What run.sh and test.sh share: the machine's packages and the build. Sourced, from the project's root.

say() { printf '== %s\n' "$*"; }

# Installs those of the named distribution packages that are missing; says nothing when all are there.
need_packages() {
  local missing=()
  local package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ "${#missing[@]}" -eq 0 ] && return 0
  say "installing packages: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "packages are missing (${missing[*]}): run this as root, or install sudo" >&2; return 1; }
    as_root=(sudo)
  fi
  # Output is kept for the case that something goes wrong.
  local log
  log=$(mktemp)
  if ! { "${as_root[@]}" apt-get update -q && \
         "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"; } \
       >"$log" 2>&1; then
    tail -n 20 "$log" >&2
    echo "the packages could not be installed; the lines above say why" >&2
    return 1
  fi
  rm -f "$log"
}

build_packages=(g++ cmake ninja-build libboost-dev python3 python3-dev python3-numpy pybind11-dev)
session_packages=(python3-pandas)

# Configures, when that has not been done, and builds one preset. Anything after its name goes to the build: --target
# and the like.
build_preset() {
  local preset=$1
  shift
  mkdir -p build
  if [ ! -e "build/$preset/build.ninja" ]; then
    say "configuring preset $preset"
    cmake --preset "$preset" >"build/$preset.configure.log" 2>&1 || {
      tail -n 30 "build/$preset.configure.log" >&2
      echo "the preset $preset could not be configured; the lines above say why" >&2
      return 1
    }
  fi
  say "building preset $preset"
  cmake --build --preset "$preset" "$@" -- --quiet
}
