#!/usr/bin/env bash
# stress-writers.sh [seconds] [dir]: a longer run of what the document tests
# check briefly. Writers of one document are started in every encoding, two at
# a time, and killed with SIGKILL at random moments, while a reader checks the
# document over and over. Every read must find a whole document, and once the
# writers are gone no temporary file may be left beside it.
#
# Runs for 60 seconds by default, in a fresh directory under /tmp (or `dir`, to
# try another file system: a small tmpfs, a network share...).
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h|--help) sed -n '2,10p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
esac
seconds=${1:-60}
scripts/build.sh release paramdoc >/dev/null
tool=$PWD/build/release/tools/paramdoc
work=$(mktemp -d "${2:-/tmp}/param-stress.XXXXXX")
trap 'rm -rf "$work"' EXIT

# A document of a few hundred kilobytes: big enough for a kill to land mid-write.
{
  printf '{"pens":{"params":['
  for i in $(seq 1 2000); do
    [ "$i" -gt 1 ] && printf ','
    printf '{"penId":%d,"laserPower":%d,"penName":"pen %d"}' "$i" $((i % 100)) "$i"
  done
  printf ']}}'
} >"$work/doc.json"
target=$work/job.cfg
"$tool" pack "$work/doc.json" "$target" >/dev/null

encodings=(base64 xor lzma aes)
reads=0 bad=0 kills=0
end=$((SECONDS + seconds))
while [ $SECONDS -lt $end ]; do
  pids=()
  for _ in 1 2; do
    "$tool" pack -e "${encodings[RANDOM % 4]}" "$work/doc.json" "$target" >/dev/null 2>&1 &
    pids+=($!)
  done
  # Kill at a random moment within the first 30 ms, reading meanwhile.
  sleep "0.0$((RANDOM % 3))$((RANDOM % 10))"
  for pid in "${pids[@]}"; do kill -KILL "$pid" 2>/dev/null && kills=$((kills + 1)) || true; done
  for pid in "${pids[@]}"; do wait "$pid" 2>/dev/null || true; done
  reads=$((reads + 1))
  if ! "$tool" check "$target" >/dev/null 2>&1; then
    bad=$((bad + 1))
    echo "torn document after round $reads" >&2
  fi
done

"$tool" pack "$work/doc.json" "$target" >/dev/null
left=$(find "$work" -name '*.tmp*' | wc -l)
echo "$reads rounds, $kills writers killed, $bad torn reads, $left temporary files left"
[ "$bad" -eq 0 ] && [ "$left" -eq 0 ]
