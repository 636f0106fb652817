#!/usr/bin/env bash
# fuzz.sh [name...]: builds the libFuzzer targets (tests/fuzz/<name>.cpp) with
# clang in build/fuzz and runs each, or the ones named, for PARAM_FUZZ_SECONDS
# seconds (default 20; 0 skips). Each run starts from the checked-in corpus
# tests/fuzz/corpus/<name>/ and keeps what it learns in build/fuzz/corpus/<name>/.
# An input that fails is saved as build/fuzz/failures/<name>-crash-...: fix the
# fault, then add the input to tests/fuzz/corpus/<name>/ so that it replays as a test.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${PARAM_FUZZ_SECONDS:-20}
if [ "$seconds" = "0" ]; then
  echo "fuzzing skipped (PARAM_FUZZ_SECONDS=0)"
  exit 0
fi
if ! command -v clang++ >/dev/null; then
  echo "fuzzing skipped: clang++ is not installed (scripts/deps.sh installs it)"
  exit 0
fi

names=("$@")
if [ ${#names[@]} -eq 0 ]; then
  for source in tests/fuzz/*.cpp; do
    name=$(basename "$source" .cpp)
    [ "$name" = "replayMain" ] || names+=("$name")
  done
fi

mkdir -p build/fuzz/failures
if ! scripts/build.sh fuzz fuzz_targets >build/fuzz/build.log 2>&1; then
  tail -n 60 build/fuzz/build.log
  echo "building the fuzz targets failed (log: build/fuzz/build.log)"
  exit 1
fi
failed=0
passed=0
for name in "${names[@]}"; do
  work=build/fuzz/corpus/$name
  log=build/fuzz/$name.log
  mkdir -p "$work"
  if build/fuzz/tests/fuzz/fuzz_"$name" "$work" "tests/fuzz/corpus/$name" \
      -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
      -artifact_prefix="build/fuzz/failures/$name-" >"$log" 2>&1; then
    echo "fuzz_$name: $(grep -o 'Done [0-9]* runs in [0-9]* second(s)' "$log" | tail -1)," \
         "$(grep -o 'cov: [0-9]*' "$log" | tail -1)"
    passed=$((passed + 1))
  else
    tail -n 40 "$log"
    echo "fuzz_$name FAILED (log: $log); the input is in build/fuzz/failures/"
    failed=$((failed + 1))
  fi
done
echo "fuzz: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
