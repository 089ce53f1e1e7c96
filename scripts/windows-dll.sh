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
jobs=$(nproc)
start=$SECONDS

# The Linux side's packages too: Wine, the fonts, spyne, Debian's own Qt tools.
bash "$root/scripts/deps.sh"
bash "$root/scripts/windows-sdk.sh"

# lrelease and lupdate run on the build machine: Debian's own, of the same Qt version.
echo "== windows-dll: configuring and building in $build"
mkdir -p "$build"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-qt.cmake" \
    -DUTILSDLL_WIN_SDK_PREFIX="$sdk/qt5" \
    -DQt5LinguistTools_DIR=/usr/lib/x86_64-linux-gnu/cmake/Qt5LinguistTools \
    -DUTILSDLL_WINE_LAUNCHER="$root/scripts/wine-fresh-prefix.sh" \
    -DUTILSDLL_BUILD_BENCHMARKS=OFF > "$build/configure.log" 2>&1 ||
    { cat "$build/configure.log"; exit 1; }
# CMake 3.25's Ninja AUTOMOC step does not notice headers added to a target since
# the last build; dropping its stamps makes it look again (it only redoes what changed).
find "$build" -path '*_autogen/timestamp' -delete 2>/dev/null || true
cmake --build "$build" -j "$jobs"
echo "== windows-dll: $(stat -c '%s bytes' "$build/bin/UtilsDll.dll") UtilsDll.dll," \
    "$(stat -c '%s bytes' "$build/bin/LoggerDllvrcv3.dll") LoggerDllvrcv3.dll, built in $((SECONDS - start)) s"

scratch=$(mktemp -d "${TMPDIR:-/tmp}/utilsdll-dll.XXXXXX")
spyne=
stopAll() {
    [[ -n $spyne ]] && kill "$spyne" 2> /dev/null
    wineserver -k > /dev/null 2>&1 || true
    wineserver -w > /dev/null 2>&1 || true
    rm -rf "$scratch"
}
trap stopAll EXIT

# The SOAP interop tests call the spyne service, which runs on the Linux side; it
# serves as long as its input stays open.
mkfifo "$scratch/spyne.in"
/usr/bin/python3 "$root/tests/soapClient/spyne_server.py" < "$scratch/spyne.in" > "$scratch/spyne.out" &
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

# Wine as scripts/wine-tests.sh sets it up: its own HOME and prefix, no display,
# the null graphics driver. This prefix is the template that every test copies
# (scripts/wine-fresh-prefix.sh), so that no test sees another's registry or folders.
export HOME="$scratch/home" WINEPREFIX="$scratch/prefix"
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
export WINEARCH=win64
# Without a console window Qt sends its messages, QtTest's report among them, to the
# debugger, and CTest reads the standard streams.
export QT_FORCE_STDERR_LOGGING=1
unset DISPLAY WAYLAND_DISPLAY
mkdir -p "$HOME" "$WINEPREFIX"
echo "== windows-dll: preparing the Wine prefix"
wineserver -p < /dev/null > /dev/null 2>&1
wine cmd /c exit < /dev/null > /dev/null 2>&1
wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f < /dev/null > /dev/null 2>&1
wineserver -k
wineserver -w
export UTILSDLL_WINE_TEMPLATE=$WINEPREFIX

# The showcase's headless run: its pictures, texts drawn, stay in the build folder.
echo "== windows-dll: the showcase's pictures in $build/showcase-pictures"
rm -rf "$build/showcase-pictures"
(cd "$build" && QT_QPA_PLATFORM=offscreen "$root/scripts/wine-fresh-prefix.sh" \
    bin/utilsdll-showcase.exe --screenshots showcase-pictures < /dev/null > showcase.log 2>&1) ||
    echo "== windows-dll: the showcase failed, see $build/showcase.log"
echo "== windows-dll: $(find "$build/showcase-pictures" -name '*.png' 2> /dev/null | wc -l) pictures written"

summary="$build/wine-summary.log"
(cd "$build" && ctest --output-on-failure -j "$jobs" < /dev/null) | tee "$summary" || true
# QtTest's skips inside a test program, with their reasons.
grep -h '^SKIP ' "$build/Testing/Temporary/LastTest.log" | sed 's/^/== windows-dll: /' || true
echo "== windows-dll: done in $((SECONDS - start)) s"
awk '/tests passed, [0-9]+ tests failed out of [0-9]+/ { failed += $4; total += $NF }
     /^[[:space:]]+[0-9]+ - .*\(Skipped\)$/ { skipped += 1 }
     END { printf "tests under Wine: %d passed, %d failed, %d skipped\n", total - failed - skipped, failed, skipped
           exit failed > 0 }' "$summary"
