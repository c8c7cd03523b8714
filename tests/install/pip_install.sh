#!/usr/bin/env bash
# `pip install --no-build-isolation .` into a fresh folder, reusing the CMake build folder, then
# the module and the scale-out package import from another folder.
# usage: pip_install.sh PYTHON SOURCE_DIR BUILD_DIR
set -euo pipefail
python=$1
source_dir=$2
build_dir=$3
for needed in setuptools wheel pip; do
  if ! "$python" -c "import $needed" 2>/dev/null; then
    echo "SKIPPED: $needed is missing for $python"
    exit 77
  fi
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

CINDREL_BUILD_DIR=$build_dir "$python" -m pip install --quiet --no-build-isolation --no-deps \
  --no-index --disable-pip-version-check --root-user-action=ignore --target "$work/site" "$source_dir"
cd "$work"
PYTHONPATH="$work/site" "$python" - "$source_dir/examples/wood_floor.talmat" <<'PY'
import sys
import Cindrel
import cindrel_cluster
assert Cindrel.getTalmatXml(sys.argv[1]).startswith("<"), "no XML from the installed module"
print("pip installed Cindrel %s from %s" % (getattr(Cindrel, "__version__", "?"), Cindrel.__file__))
PY
