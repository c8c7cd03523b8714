#!/usr/bin/env bash
# Builds the command-line tool and converts every file in examples/ to XML in out/.
set -euo pipefail
cd "$(dirname "$0")/.."
echo "convert-examples: building the cindrel command" >&2
scripts/setup.sh cindrel >/dev/null
mkdir -p out
echo "convert-examples: converting examples/ into out/" >&2
build/cindrel -o out examples
