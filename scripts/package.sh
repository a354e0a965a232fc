#!/usr/bin/env bash
# Makes the distribution's packages (build/package/packages/*.deb).
#   scripts/package.sh            builds them
#   scripts/package.sh --check    then installs them, uses them, removes them, and compares the files before and after
# The check works on a copy of the machine's file tree that is thrown away, where the kernel lets it, else on the machine
# itself; it needs root, or sudo.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/setup.sh

need_packages "${build_packages[@]}" "${package_packages[@]}"
build_preset package
rm -rf build/package/packages
say "making packages"
shown_on_failure build/package.cpack.log cpack -G DEB --config build/package/CPackConfig.cmake
ls build/package/packages/*.deb
[ "${1:-}" = --check ] || exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
if dpkg-query -W -f='${Status}\n' '*contextdata*' 2>/dev/null | grep -q 'install ok installed'; then
  echo "contextdata is installed here already, and the check would remove it" >&2
  exit 1
fi
# What the check needs, in one folder that can be carried to where it runs.
carried=$(mktemp -d /var/tmp/contextdata-check.XXXXXX)
trap '"${as_root[@]}" rm -rf "$carried"' EXIT
cp build/package/packages/*.deb scripts/check_packages.sh "$carried"
cp -r tests/install/consumer "$carried"

# The machine's tree with a layer above it that takes all changes, in a mount namespace of its own.
in_a_copy() {
  "${as_root[@]}" unshare --mount bash -euo pipefail -c '
    layers=$1/layers
    mkdir "$layers"
    mount -t tmpfs tmpfs "$layers"
    mkdir "$layers/changes" "$layers/work" "$layers/tree"
    mount -t overlay overlay -o "lowerdir=/,upperdir=$layers/changes,workdir=$layers/work" "$layers/tree"
    mkdir -p "$layers/tree$1"
    cp -r "$1"/*.deb "$1/check_packages.sh" "$1/consumer" "$layers/tree$1"
    mount --rbind /dev "$layers/tree/dev"
    mount -t proc proc "$layers/tree/proc"
    if [ "$2" = try ]; then exit 0; fi
    exec chroot "$layers/tree" "$1/check_packages.sh" "$1"
  ' bash "$carried" "$1"
}
if in_a_copy try >/dev/null 2>&1; then
  "${as_root[@]}" rmdir "$carried/layers"
  say "checking the packages in a copy of this machine's files"
  in_a_copy run
else
  "${as_root[@]}" rm -rf "$carried/layers"
  say "checking the packages on this machine"
  "${as_root[@]}" "$carried/check_packages.sh" "$carried"
fi
