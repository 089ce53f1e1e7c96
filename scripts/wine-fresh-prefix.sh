#!/usr/bin/env bash
# Runs one Windows program under Wine in a fresh copy of a prepared Wine prefix
# ($UTILSDLL_WINE_TEMPLATE), removed afterwards: each test gets a registry, a user
# profile and known folders of its own, as each Linux test gets its own HOME.
# The test command of the Windows build (its CMAKE_CROSSCOMPILING_EMULATOR).
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
template=${UTILSDLL_WINE_TEMPLATE:?"the prepared Wine prefix"}
export WINEPREFIX
WINEPREFIX=$(mktemp -d "${TMPDIR:-/tmp}/utilsdll-wineprefix.XXXXXX")
trap 'stopWine; rm -rf "$WINEPREFIX"' EXIT
# A prefix is hundreds of megabytes, nearly all of it Wine's own DLLs that no test
# writes: the copy links the files, and copies only the registry, which Wine rewrites.
cp -al "$template/." "$WINEPREFIX/"
cp --remove-destination "$template"/*.reg "$WINEPREFIX/"
# Wine hands no QT_ variable of the Linux side to Windows programs: the ones this run
# was given (the test's platform plug-in, hash seed, font folder...) go into the copy's
# own environment, imported before the program starts.
{
    printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Environment]\n'
    env | grep '^QT_' | while IFS='=' read -r name value; do
        value=${value//\\/\\\\}
        printf '"%s"="%s"\n' "$name" "${value//\"/\\\"}"
    done
} > "$WINEPREFIX/qt-environment.reg"
startWine
wine regedit /S "$(winepath -w "$WINEPREFIX/qt-environment.reg" 2> /dev/null)" < /dev/null > /dev/null 2>&1
wine "$@"
