#!/usr/bin/env bash
# Installs the build tree into a fresh prefix, then builds and runs a program of a user's own
# against it through find_package(Cindrel).
# usage: install_and_consume.sh SOURCE_DIR BUILD_DIR [PYTHON]
# With PYTHON, the interpreter of the module, the installed module and package import too.
set -euo pipefail
source_dir=$1
build_dir=$2
python=${3:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build_dir" --prefix "$work/prefix" >/dev/null
for installed in bin/cindrel include/cindrel/module/material_conversion.h; do
  [ -e "$work/prefix/$installed" ] || { echo "not installed: $installed"; exit 1; }
done

cmake -S "$source_dir/tests/install/consumer" -B "$work/consumer" -G Ninja \
  -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/consumer" >/dev/null
for program in "$work/consumer/consumer" "$work/prefix/bin/cindrel"; do
  xml=$("$program" "$source_dir/examples/wood_floor.talmat")
  [[ $xml == *"<talmat"* ]] || { echo "no XML from $program"; exit 1; }
done
if [ -n "$python" ]; then
  module=$(ls "$work"/prefix/lib*/python*/site-packages/Cindrel* | head -n 1)
  (cd "$work" && PYTHONPATH=$(dirname "$module") "$python" -c "import Cindrel, cindrel_cluster")
fi
echo "installed prefix: a consumer built with find_package(Cindrel) converts a material file"
