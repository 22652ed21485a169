#!/usr/bin/env bash
# Installs the Debian packages that are missing for what the arguments name: run, test, check,
# coverage, libcxx, cross. Says nothing and returns at once when all are there.
set -euo pipefail

run='cmake ninja-build g++ make pkg-config qt6-base-dev libopenal-dev libsndfile1-dev libxcb1-dev
     fonts-dejavu-core'
test="$run libgtest-dev libbenchmark-dev xvfb xauth openbox i3-wm xdotool xclip x11-xkb-utils
      x11-utils imagemagick libfreetype-dev libpng-dev procps unicode-data"
coverage='gcovr'
check="$test clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev git"

libcxx='cmake ninja-build make clang-14 libc++-14-dev libc++abi-14-dev googletest'
cross='cmake ninja-build make g++-i686-linux-gnu g++-aarch64-linux-gnu'

missing=()
for group in "$@"; do
    for package in ${!group}; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2> /dev/null | grep -qx installed ||
            missing+=("$package")
    done
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" != 0 ]; then
    command -v sudo > /dev/null || {
        echo "Missing packages: ${missing[*]}. Install them as root, or install sudo." >&2
        exit 1
    }
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
