#!/usr/bin/env bash
# Installs the Debian packages the build needs, when any is missing and we run as root, and
# configures and builds the given targets in build/.
set -euo pipefail
cd "$(dirname "$0")/.."

needed=(g++ cmake ninja-build libgtest-dev libbenchmark-dev python3-dev libxml2-utils)
missing=()
for package in "${needed[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" = 0 ]; then
    echo "installing: ${missing[*]}" >&2
    apt-get update -qq >/dev/null
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
  else
    echo "missing Debian packages (install them as root): ${missing[*]}" >&2
  fi
fi

build_dir=${CINDREL_BUILD_DIR:-build}
cmake -S . -B "$build_dir" -G Ninja ${CINDREL_CMAKE_ARGS:-} >/dev/null
cmake --build "$build_dir" -- "$@"
