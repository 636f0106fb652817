#!/usr/bin/env bash
# build.sh <preset> [targets...]: configures (once) and builds one CMake preset in build/<preset>.
set -euo pipefail
cd "$(dirname "$0")/.."
# Lets checkouts in different folders share ccache hits.
export CCACHE_BASEDIR="$PWD"
preset=$1
shift
if [ ! -f "build/$preset/CMakeCache.txt" ]; then
  launcher=()
  command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake --preset "$preset" "${launcher[@]}" >/dev/null
fi
if [ $# -gt 0 ]; then
  cmake --build --preset "$preset" --target "$@"
else
  cmake --build --preset "$preset"
fi
