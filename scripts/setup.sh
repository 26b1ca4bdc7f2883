#!/bin/sh
# Installs what building and testing needs, where it is missing: compiler, CMake, Ninja, GoogleTest, the libraries of
# kelvra-image, and the commands or files given as "needed=package" words. Says and does nothing when all is there.
# Debian's apt-get.
# With --check CALLER in front it installs nothing: it names what is missing of the words alone, and then fails.
set -eu

caller=
if [ "${1-}" = --check ]; then
  caller=$2
  shift 2
else
  set -- g++=g++ cmake=cmake ninja=ninja-build /usr/include/gtest/gtest.h=libgtest-dev \
    /usr/include/CLI/CLI.hpp=libcli11-dev /usr/include/nlohmann/json.hpp=nlohmann-json3-dev \
    /usr/include/fmt/format.h=libfmt-dev "$@"
fi

missing=
names=
packages=
it=it
is=is
for need; do
  what=${need%%=*}
  case $what in
    /*) [ ! -e "$what" ] || continue ;;
    *) ! command -v "$what" >/dev/null 2>&1 || continue ;;
  esac
  [ -z "$missing" ] || it=them is=are
  missing="$missing $need"
  names="${names:+$names, }$what"
  packages="$packages ${need#*=}"
done
[ -n "$missing" ] || exit 0

if [ -n "$caller" ]; then
  echo "$caller: $names $is missing; scripts/setup.sh$missing installs $it" >&2
  exit 1
fi
echo "Installing:$packages"
as_root=
[ "$(id -u)" -eq 0 ] || as_root=sudo
export DEBIAN_FRONTEND=noninteractive
$as_root apt-get update -qq
# shellcheck disable=SC2086 # a list of words
$as_root apt-get install -y -qq --no-install-recommends $packages >/dev/null
