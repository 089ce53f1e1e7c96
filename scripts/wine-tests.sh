#!/usr/bin/env bash
# Compiles the library as Windows code, then cross-builds the Windows side of the
# platform seam with mingw-w64 and runs its tests under Wine, headless, in a throwaway
# Wine prefix. Usage: wine-tests.sh [build dir]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-${UTILSDLL_WIN_BUILD_DIR:-$root/build-win}}
. "$root/scripts/common.sh"

# Every library source compiled as Windows code, with the generated headers of the
# Linux build (which scripts/test.sh has built by now).
/usr/bin/python3 "$root/scripts/windows-syntax-check.py" "${UTILSDLL_BUILD_DIR:-$root/build}" "$build/syntax-check"

cmake -S "$root/platform-tests/win" -B "$build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake"
cmake --build "$build" -j "$(nproc)"

scratch=$(mktemp -d "${TMPDIR:-/tmp}/utilsdll-wine.XXXXXX")
trap 'stopWine; rm -rf "$scratch"' EXIT
prepareWinePrefix "$scratch"
startWine

runSuite "$build"
