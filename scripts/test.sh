#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test through ctest: first the
# release build, then a compile-only check of the Windows branches (with the
# mingw-w64 cross compiler), then the Debug build with AddressSanitizer and UBSan,
# then each libFuzzer target for a short while (scripts/fuzz.sh).
# PARAM_SKIP_ASAN=1 runs the release build only; PARAM_FUZZ_SECONDS sets the
# seconds per fuzz target (default 20, 0 skips fuzzing).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh

jobs=$(nproc 2>/dev/null || echo 2)

echo "== release build =="
scripts/build.sh release
ctest --preset release -j "$jobs"

# The Windows branches of the platform layer and the library still compile.
scripts/windows-check.sh

if [ "${PARAM_SKIP_ASAN:-0}" != "1" ]; then
  echo "== asan build (AddressSanitizer + UndefinedBehaviorSanitizer) =="
  scripts/build.sh asan
  ctest --preset asan -j "$jobs"
fi

echo "== fuzz targets (clang, libFuzzer) =="
scripts/fuzz.sh
