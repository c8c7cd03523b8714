#!/usr/bin/env bash
# Builds everything and runs the whole test suite: unit tests, golden documents and the Python module.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh >/dev/null
cd "${CINDREL_BUILD_DIR:-build}"
ctest --output-on-failure -j2
