#!/usr/bin/env bash
# Installs the Debian packages that building and testing need, if any is missing.
# Idempotent: when everything is present it only asks dpkg and returns.
set -euo pipefail

packages=(
  g++ cmake ninja-build ccache
  libboost-json1.81-dev liblzma-dev libssl-dev
  libgtest-dev libbenchmark-dev libcli11-dev
  xz-utils openssl coreutils
  g++-mingw-w64-x86-64-posix
  python3 python3-pytest python3-numpy
  clang libclang-rt-dev
  # Benchmark only: the JSON libraries bench_peers measures the library against.
  nlohmann-json3-dev rapidjson-dev libsimdjson-dev
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "need root or sudo to install ${missing[*]}" >&2; exit 1; }
  sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
log=$(mktemp)
if ! { "${sudo_cmd[@]}" apt-get update -qq &&
       "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
  cat "$log" >&2
  rm -f "$log"
  echo "package installation failed" >&2
  exit 1
fi
rm -f "$log"
