#!/usr/bin/env bash
# windows-check.sh: compiles the platform layer and the library for 64-bit
# Windows with the mingw-w64 cross compiler, compile only. The Windows builds of
# Boost.JSON, liblzma and OpenSSL are not available here, so their headers are
# taken from the Debian packages and nothing is linked: this catches broken
# Windows branches (wide paths, file mapping, rename, export macros), not link
# errors. Does nothing (and says so) when the cross compiler is missing.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h|--help) sed -n '2,7p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
esac

cxx=$(command -v x86_64-w64-mingw32-g++-posix || command -v x86_64-w64-mingw32-g++ || true)
if [ -z "$cxx" ]; then
  echo "windows check skipped: no mingw-w64 cross compiler (Debian: g++-mingw-w64-x86-64-posix)"
  exit 0
fi

# Only the dependencies' own headers, never the Linux system headers.
inc=build/windows/include
mkdir -p "$inc/openssl"
ln -sfn /usr/include/boost "$inc/boost"
ln -sf /usr/include/lzma.h "$inc/lzma.h"
ln -sfn /usr/include/lzma "$inc/lzma"
for h in /usr/include/openssl/*.h /usr/include/x86_64-linux-gnu/openssl/*.h; do
  ln -sf "$h" "$inc/openssl/$(basename "$h")"
done

version=$(sed -n 's/^project(param VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
IFS=. read -r major minor patch tweak <<<"$version"
flags=(-std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Werror -Wno-restrict -I. -I"$inc"
       -Ibindings/c
       -DUTILS_VERSION_MAJOR="$major" -DUTILS_VERSION_MINOR="$minor"
       -DUTILS_VERSION_PATCH="$patch" -DUTILS_VERSION_TWEAK="${tweak:-0}")

# The libraries as they are built (exporting), the C interface as a user of
# their DLLs (importing), which is how their export macros must work.
lib_sources=$(find utils param -name '*.cpp' | sort)
c_sources=$(find bindings/c -name '*.cpp' | sort)
count=$(echo "$lib_sources $c_sources" | wc -w)
echo "== windows compile check: $count sources with $(basename "$cxx") =="
jobs=$(nproc 2>/dev/null || echo 2)
if ! echo "$lib_sources" | xargs -P "$jobs" -n 4 "$cxx" "${flags[@]}" -DUTILS_BUILDING -DPARAM_BUILDING ||
   ! echo "$c_sources" | xargs -P "$jobs" -n 4 "$cxx" "${flags[@]}" -DPARAM_C_BUILDING; then
  echo "windows compile check failed" >&2
  exit 1
fi
echo "windows compile check passed ($count sources)"
