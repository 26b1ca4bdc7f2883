#!/bin/bash
# Makes the packages of the release preset twice, in two folders: the same bytes. Then lintian, and a fresh minimal
# Debian in which the package is installed, used and removed. As root, for debootstrap and chroot.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh --check test-package.sh g++=g++ cmake=cmake ninja=ninja-build git=git lintian=lintian \
  debootstrap=debootstrap
[ "$(id -u)" -eq 0 ] || { echo "test-package.sh: only root can make a Debian root" >&2; exit 1; }
work=$(mktemp -d)
root=$work/root
clean() {
  umount "$root/proc" "$root/sys" 2>/dev/null || :  # sys when debootstrap was interrupted
  rm -rf --one-file-system "$work"
}
trap clean EXIT
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH

echo "== packages, twice"
# make_packages TREE BUILD_FOLDER FOLDER [OPTION]; the umask must not matter.
make_packages() {
  (cd "$1" && cmake --preset release -B "$2" "${@:4}" >/dev/null)
  cmake --build "$2" --target kelvra kelvra-image
  (umask 077; cpack --config "$2/CPackConfig.cmake" -B "$3" >/dev/null)
}
build=$PWD/build/${KELVRA_BUILD_FOLDER-}release
make_packages . "$build" "$work/packages"
mkdir "$work/copy"
git ls-files --cached --others --exclude-standard -z | xargs -0 cp --parents -t "$work/copy"
make_packages "$work/copy" "$work/other build" "$work/others" -DKELVRA_TESTS=OFF
for program in kelvra kelvra-image; do cmp "$build/$program" "$work/other build/$program"; done
for package in "$work"/packages/kelvra*.tar.gz "$work"/packages/kelvra*.deb; do
  cmp "$package" "$work/others/${package##*/}"
done

echo "== lintian"
lintian --fail-on error,warning "$package"

echo "== a Debian root"
eval "$(apt-config shell http_proxy Acquire::http::Proxy)"
[ -z "${http_proxy-}" ] || export http_proxy
# shellcheck disable=SC2016 # apt-get puts in what the names stand for
mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' 'Label: Debian' |
  sed -n 1p)
[ -n "$mirror" ] || { echo "test-package.sh: apt knows no Debian mirror; apt-get update reads its lists" >&2; exit 1; }
debootstrap --variant=minbase --include=man-db,bash-completion bookworm "$root" "$mirror" >"$work/log" ||
  { tail "$work/log"; exit 1; }
mount -t proc proc "$root/proc"
cp "$package" "$root/kelvra.deb"
in_root() { env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM=dumb HISTFILE=/dev/null chroot "$root" "$@"; }
# man-db keeps its own books below /var/cache.
files() { (cd "$root" && find . \( -path ./tmp -o -path ./proc -o -path ./var/cache \) -prune -o -print | sort); }
files >"$work/before"

echo "== install, use, remove"
in_root dpkg --install /kelvra.deb
in_root sh -euxc 'cp -r /usr/share/doc/kelvra/examples /tmp/try
  cd /tmp/try
  kelvra -l part.kesp
  kelvra-image verify part.ruhx -l part.kesp -r part.lidhdr
  man -w 1 kelvra 1 kelvra-image 5 kelvra'
export -f in_root
export root
printf '%s\n' 'cd /tmp/try' $'kelvra-image ver\tpart.ruhx && touch completed' exit |
  SHELL=/bin/bash script --quiet --command 'in_root bash --login -i' "$work/session" >/dev/null
[ -e "$root/tmp/try/completed" ] || { cat "$work/session"; echo "bash completed nothing" >&2; exit 1; }
in_root dpkg --remove kelvra
files | diff "$work/before" - || { echo "the package's removal leaves something" >&2; exit 1; }
