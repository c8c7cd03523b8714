#!/usr/bin/env bash
# Builds everything and runs the whole test suite: unit tests, golden documents and the Python module.
set -euo pipefail
cd "$(dirname "$0")/.."
echo "run-tests: building everything" >&2
scripts/setup.sh >/dev/null
echo "run-tests: running the test suite (a skipped test is listed at the end, with its reason above)" >&2
cd "${CINDREL_BUILD_DIR:-build}"
ctest --output-on-failure -j2
