#!/usr/bin/env bash
# Cross-builds the Windows side of the platform seam with mingw-w64 and runs its tests
# under Wine, headless, in a throwaway Wine prefix. (The whole library is compiled as
# Windows code by scripts/windows-dll.sh, and, without the SDK, by
# scripts/windows-syntax-check.py.) Usage: wine-tests.sh [build dir]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-${UTILSDLL_WIN_BUILD_DIR:-$root/build-win}}
. "$root/scripts/common.sh"

cmake -S "$root/platform-tests/win" -B "$build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake"
cmake --build "$build" -j "$(nproc)"

scratch=$(mktemp -d "${TMPDIR:-/tmp}/utilsdll-wine.XXXXXX")
trap 'stopWine; rm -rf "$scratch"' EXIT
prepareWinePrefix "$scratch"
startWine

runSuite "$build"
