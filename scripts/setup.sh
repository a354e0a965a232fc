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
  mkdir -p build
  shown_on_failure build/packages.log "${as_root[@]}" apt-get update -q
  shown_on_failure build/packages.log "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
}

build_packages=(g++ cmake ninja-build libboost-dev python3 python3-dev python3-numpy pybind11-dev)
session_packages=(python3-pandas)
ipython_packages=(ipython3)
# What the tests of kernels and of notebooks in a browser talk to; the second takes about 520 MB of disk.
kernel_packages=(python3-ipykernel python3-jupyter-client)
browser_packages=(jupyter-notebook chromium chromium-driver python3-selenium)
# What packages of our own are made and checked with.
package_packages=(dpkg-dev file pkgconf)

# What completion is compared with, on which objects, and what draws the comparison.
bench_packages=(python3-jedi python3-scipy python3-matplotlib)

# Configures, when that has not been done, and builds one preset, or the targets named after it. Silent when there is
# nothing to do.
build_preset() {
  local preset=$1
  shift
  local folder=build/$preset
  mkdir -p build
  if [ ! -e "$folder/build.ninja" ]; then
    say "configuring preset $preset"
    shown_on_failure "$folder.configure.log" cmake --preset "$preset"
  fi
  if ninja -C "$folder" -n "$@" 2>/dev/null | grep -q 'no work to do'; then
    return 0
  fi
  say "building preset $preset"
  shown_on_failure "$folder.build.log" ninja -C "$folder" "$@"
}

# Runs a command, keeps what it prints in a file, and shows the end of that when it fails.
shown_on_failure() {
  local log=$1
  shift
  "$@" >"$log" 2>&1 && return 0
  tail -n 40 "$log" >&2
  echo "failed: $*; the lines above say why, all of it is in $log" >&2
  return 1
}
