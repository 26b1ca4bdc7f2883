#!/bin/sh
# Installs what building and testing needs, where it is missing: compiler, CMake, Ninja, GoogleTest, and the commands
# or files given as "needed=package" words. Says and does nothing when all is there. Debian's apt-get.
set -eu

packages=
for need in g++=g++ cmake=cmake ninja=ninja-build /usr/include/gtest/gtest.h=libgtest-dev "$@"; do
  what=${need%%=*}
  case $what in
    /*) [ -e "$what" ] || packages="$packages ${need#*=}" ;;
    *) command -v "$what" >/dev/null 2>&1 || packages="$packages ${need#*=}" ;;
  esac
done
[ -n "$packages" ] || exit 0

echo "Installing:$packages"
as_root=
[ "$(id -u)" -eq 0 ] || as_root=sudo
export DEBIAN_FRONTEND=noninteractive
$as_root apt-get update -qq
# shellcheck disable=SC2086 # a list of words
$as_root apt-get install -y -qq --no-install-recommends $packages >/dev/null
