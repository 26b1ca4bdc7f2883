#!/bin/bash
# What cmake --install puts where: every file of share/ and of the documents, and nothing else, below DESTDIR and below
# a prefix that is moved afterwards, where the tools run. Usage: tests/install.sh BUILD_FOLDER
set -euo pipefail
build=$(realpath -e -- "${1:?BUILD_FOLDER}")
cd "$(dirname "$0")/.."
git ls-files >/dev/null 2>&1 || { echo "skipped: git does not tell here what belongs to the project"; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
umask 022
fail() { echo "$*" >&2; exit 1; }

{
  printf '%s\n' bin/kelvra bin/kelvra-image share/cmake/kelvra/kelvraConfigVersion.cmake \
    share/kelvra/bazel/kelvra-image
  git ls-files --cached --others --exclude-standard -- share README.md CHANGELOG.md CONTRIBUTING.md docs examples |
    sed -E '/\/CMakeLists.txt$/ { /^share/ d }; /^share\/debian\// d
      s,^share/man/(.*)\.([15])$,share/man/man\2/\1.\2,
      s,^share/completions/_,share/zsh/site-functions/_,
      s,^share/completions/(.*)\.bash$,share/bash-completion/completions/\1,
      s,^share/cmake/,share/cmake/kelvra/,
      /^share\// ! s,^,share/doc/kelvra/,'
} | sort >"$work/wanted"

DESTDIR=$work/stage cmake --install "$build" --prefix /opt/kelvra >/dev/null
cmake --install "$build" --prefix "$work/first" >/dev/null
moved="$work/moved here"
mv "$work/first" "$moved"
(cd "$work/stage" && find . ! -type d -printf '%P\n') | sed 's,^opt/kelvra/,,' | sort >"$work/staged"
(cd "$moved" && find . ! -type d -printf '%P\n') | sort >"$work/installed"
for found in staged installed; do
  diff "$work/wanted" "$work/$found" || fail "$found: < is wanted, > is there"
done

[ -z "$(find "$moved" -type f ! -path '*/bin/*' ! -perm 644)" ] || fail "odd modes"
if grep -rlF -e "$work" -e "$build" -e "$PWD" "$moved"; then fail "these hold a folder of this machine"; fi

cp examples/part.* examples/controller.vpdinfo "$work"
cd "$work"
PATH="$moved/bin:$PATH"
kelvra -l part.kesp 2>/dev/null
kelvra-image verify part.ruhx -l part.kesp -r part.lidhdr
version=$(kelvra-image --version)
grep -qxF "set(PACKAGE_VERSION \"${version#kelvra-image }\")" "$moved/share/cmake/kelvra/kelvraConfigVersion.cmake" ||
  fail "the CMake package is not of $version"
if command -v man >/dev/null; then
  man -w -M "$moved/share/man" 1 kelvra 1 kelvra-image 5 kelvra >/dev/null
fi
