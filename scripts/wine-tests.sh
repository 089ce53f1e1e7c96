#!/usr/bin/env bash
# Compiles the library as Windows code, then cross-builds the Windows side of the
# platform seam with mingw-w64 and runs its tests under Wine, headless, in a throwaway
# Wine prefix. Usage: wine-tests.sh [build dir]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-${UTILSDLL_WIN_BUILD_DIR:-$root/build-win}}
jobs=$(nproc)

# Every library source compiled as Windows code, with the generated headers of the
# Linux build (which scripts/test.sh has built by now).
/usr/bin/python3 "$root/scripts/windows-syntax-check.py" "${UTILSDLL_BUILD_DIR:-$root/build}" "$build/syntax-check"

cmake -S "$root/platform-tests/win" -B "$build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake"
cmake --build "$build" -j "$jobs"

# Wine gets its own HOME and prefix, and no display: nothing of the user's is touched.
scratch=$(mktemp -d "${TMPDIR:-/tmp}/utilsdll-wine.XXXXXX")
export HOME="$scratch/home" WINEPREFIX="$scratch/prefix"
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
export WINEARCH=win64
unset DISPLAY WAYLAND_DISPLAY
mkdir -p "$HOME" "$WINEPREFIX"

stopWine() {
    wineserver -k > /dev/null 2>&1 || true
    wineserver -w > /dev/null 2>&1 || true
    rm -rf "$scratch"
}
trap stopWine EXIT

startWine() {
    wineserver -p < /dev/null > /dev/null 2>&1
    wine cmd /c exit < /dev/null > /dev/null 2>&1
}
# The server and the prefix are set up here, away from CTest's pipes: a server that
# CTest's first child started would keep the pipe of the test listing open.
startWine
# Without a display, hidden top-level windows need Wine's null graphics driver. The
# desktop process reads the choice when it starts, so Wine is started once more.
wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f < /dev/null > /dev/null 2>&1
wineserver -k
wineserver -w
startWine

(cd "$build" && ctest --output-on-failure -j "$jobs" < /dev/null)
