#!/usr/bin/env bash
# Installs the Debian packages the build needs, when any is missing and we run as root, and
# configures and builds the given targets in build/. It says what it is doing on standard error:
# each step, and the build's progress in tenths.
set -euo pipefail
cd "$(dirname "$0")/.."

needed=(g++ cmake ninja-build libgtest-dev libbenchmark-dev python3-dev libxml2-utils
        python3-setuptools python3-wheel python3-pip python3-dask python3-distributed
        libcli11-dev nlohmann-json3-dev)
missing=()
for package in "${needed[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" = 0 ]; then
    echo "setup: installing Debian packages: ${missing[*]}" >&2
    apt-get update -qq >/dev/null
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
  else
    echo "setup: missing Debian packages (install them as root): ${missing[*]}" >&2
  fi
fi

build_dir=${CINDREL_BUILD_DIR:-build}
if [ -f "$build_dir/CMakeCache.txt" ]; then
  echo "setup: configuring $build_dir/" >&2
else
  echo "setup: configuring $build_dir/ (the first time takes a minute or two)" >&2
fi
cmake -S . -B "$build_dir" -G Ninja ${CINDREL_CMAKE_ARGS:-} >/dev/null
echo "setup: building ${*:-everything} in $build_dir/" >&2
# Ninja's lines are condensed to one at each tenth of the build; any other line (a compiler's
# message) passes whole, and the build's status is the script's.
NINJA_STATUS="[%f/%t] " cmake --build "$build_dir" -- "$@" | awk '
  /^\[[0-9]+\/[0-9]+\] / {
    split(substr($1, 2, length($1) - 2), n, "/")
    tenth = int(10 * n[1] / n[2])
    if (tenth > shown) { shown = tenth; printf "setup: built %d of %d steps\n", n[1], n[2] > "/dev/stderr"; fflush("/dev/stderr") }
    next
  }
  /^ninja: (Entering|no work)/ { next }
  { print > "/dev/stderr"; fflush("/dev/stderr") }'
echo "setup: $build_dir/ is ready" >&2
