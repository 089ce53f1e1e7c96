#!/usr/bin/env bash
# Builds the Windows DLL: the Windows SDK once per machine (scripts/windows-sdk.sh),
# then the whole tree cross-built with mingw-w64 against it (UtilsDll.dll,
# LoggerDllvrcv3.dll, the showcase and the tests, Qt's DLLs and plug-ins beside
# them), then its CTest suite under Wine, headless, in a throwaway Wine prefix.
# Usage: windows-dll.sh [build dir]   (default build-dll; SDK folder: $UTILSDLL_WIN_SDK)
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-${UTILSDLL_WIN_DLL_BUILD_DIR:-$root/build-dll}}
sdk=${UTILSDLL_WIN_SDK:-/var/cache/utilsdll-win-sdk}
. "$root/scripts/common.sh"
start=$SECONDS

# The Linux side's packages too: Wine, the fonts, spyne, Debian's own Qt tools.
bash "$root/scripts/deps.sh"
bash "$root/scripts/windows-sdk.sh"

# lrelease and lupdate run on the build machine: Debian's own, of the same Qt version.
echo "== windows-dll: configuring and building in $build"
configureAndBuild "$build" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-qt.cmake" \
    -DUTILSDLL_WIN_SDK_PREFIX="$sdk/qt5" \
    -DQt5LinguistTools_DIR=/usr/lib/x86_64-linux-gnu/cmake/Qt5LinguistTools \
    -DUTILSDLL_WINE_LAUNCHER="$root/scripts/wine-fresh-prefix.sh" \
    -DUTILSDLL_BUILD_BENCHMARKS=OFF
echo "== windows-dll: $(stat -c '%s bytes' "$build/bin/UtilsDll.dll") UtilsDll.dll," \
    "$(stat -c '%s bytes' "$build/bin/LoggerDllvrcv3.dll") LoggerDllvrcv3.dll, built in $((SECONDS - start)) s"

scratch=$(mktemp -d "${TMPDIR:-/tmp}/utilsdll-dll.XXXXXX")
spyne=
stopAll() {
    [[ -n $spyne ]] && kill "$spyne" 2> /dev/null
    stopWine
    rm -rf "$scratch"
}
trap stopAll EXIT

# The SOAP interop tests call the spyne service, which runs on the Linux side; it
# serves as long as its input stays open.
mkfifo "$scratch/spyne.in"
/usr/bin/python3 "$root/tests/soap/spyne_server.py" < "$scratch/spyne.in" > "$scratch/spyne.out" &
spyne=$!
exec {spyneInput}> "$scratch/spyne.in"
for _ in $(seq 600); do
    grep -q '^PORT ' "$scratch/spyne.out" 2> /dev/null && break
    sleep 0.1
done
UTILSDLL_SPYNE_PORT=$(sed -n 's/^PORT //p' "$scratch/spyne.out")
[[ -n $UTILSDLL_SPYNE_PORT ]] || { echo "the spyne service did not start" >&2; exit 1; }
export UTILSDLL_SPYNE_PORT

# Qt's offscreen plug-in on Windows draws text with the fonts of one folder only,
# which a Wine prefix does not have: Debian's Latin and CJK fonts serve. Sans only, as
# on Linux: a family it lacks falls back to whatever the folder holds.
mkdir -p "$scratch/fonts"
ln -s /usr/share/fonts/truetype/dejavu/DejaVuSans*.ttf /usr/share/fonts/truetype/wqy/*.ttc "$scratch/fonts/"
export QT_QPA_FONTDIR=$scratch/fonts

# Wine as scripts/wine-tests.sh sets it up. This prefix is the template that every test
# copies (scripts/wine-fresh-prefix.sh), so that no test sees another's registry or folders.
# Without a console window Qt sends its messages, QtTest's report among them, to the
# debugger, and CTest reads the standard streams.
export QT_FORCE_STDERR_LOGGING=1
echo "== windows-dll: preparing the Wine prefix"
prepareWinePrefix "$scratch"
export UTILSDLL_WINE_TEMPLATE=$WINEPREFIX

# The showcase's headless run: its pictures, texts drawn, stay in the build folder.
echo "== windows-dll: the showcase's pictures in $build/showcase-pictures"
rm -rf "$build/showcase-pictures"
(cd "$build" && QT_QPA_PLATFORM=offscreen "$root/scripts/wine-fresh-prefix.sh" \
    bin/utilsdll-showcase.exe --screenshots showcase-pictures < /dev/null > showcase.log 2>&1) ||
    echo "== windows-dll: the showcase failed, see $build/showcase.log"
echo "== windows-dll: $(find "$build/showcase-pictures" -name '*.png' 2> /dev/null | wc -l) pictures written"

summary="$build/wine-summary.log"
runSuite "$build" | tee "$summary" || true
# QtTest's skips inside a test program, with their reasons.
grep -h '^SKIP ' "$build/Testing/Temporary/LastTest.log" | sed 's/^/== windows-dll: /' || true
echo "== windows-dll: done in $((SECONDS - start)) s"
closingLine "$summary" "tests under Wine"
