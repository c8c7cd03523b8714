#!/usr/bin/env bash
# Builds the command-line tool and converts every file in examples/ to XML in out/.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh cindrel >/dev/null
mkdir -p out
build/cindrel -o out examples
