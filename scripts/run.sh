#!/usr/bin/env bash
# Installs what is missing, builds the release configuration and runs the demo.
# Arguments are passed to the demo (try --help).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
scripts/build.sh release param-demo >/dev/null
exec build/release/tools/param-demo "$@"
