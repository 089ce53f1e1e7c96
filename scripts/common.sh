# Shell pieces that the build and test scripts share; sourced, never run.

# configureAndBuild <build dir> [cmake option...] [-- build option...]
# Configures the tree with Ninja into the folder and builds it.
configureAndBuild() {
    local folder=$1
    shift
    local configure=() buildOptions=()
    while (($#)) && [[ $1 != -- ]]; do configure+=("$1"); shift; done
    (($#)) && shift
    buildOptions=("$@")
    cmake -S "$root" -B "$folder" -G Ninja "${configure[@]}"
    # CMake 3.25's Ninja AUTOMOC step does not notice headers added to a target since
    # the last build; dropping its stamps makes it look again (it only redoes what changed).
    find "$folder" -path '*_autogen/timestamp' -delete 2> /dev/null || true
    cmake --build "$folder" -j "$(nproc)" "${buildOptions[@]}"
}

# runSuite <build dir> [ctest option...]: the CTest suite of a build folder.
runSuite() {
    local folder=$1
    shift
    (cd "$folder" && ctest --output-on-failure -j "$(nproc)" "$@" < /dev/null)
}

# closingLine <log> [label]: one line that counts every CTest run the log holds.
closingLine() {
    awk -v label="${2:-tests}" '
        /tests passed, [0-9]+ tests failed out of [0-9]+/ { failed += $4; total += $NF }
        /^[[:space:]]+[0-9]+ - .*\(Skipped\)$/ { skipped += 1 }
        END { printf "%s: %d passed, %d failed, %d skipped\n", label, total - failed - skipped, failed, skipped
              exit failed > 0 }' "$1"
}

# stage <name> <command...>: runs one stage of a script, its output kept in $stageLog
# too, and records its time; stageTimes prints them all, a failed stage's included.
stageRecords=()
currentStage=
currentStageStart=0
stage() {
    currentStage=$1
    currentStageStart=$SECONDS
    shift
    printf '== %s\n' "$currentStage"
    "$@" 2>&1 | tee -a "$stageLog"
    stageRecords+=("$(printf '%-18s %5d s' "$currentStage" $((SECONDS - currentStageStart)))")
    currentStage=
}
stageTimes() {
    printf '== stage times\n'
    ((${#stageRecords[@]} == 0)) || printf '   %s\n' "${stageRecords[@]}"
    [[ -z $currentStage ]] ||
        printf '   %-18s %5d s (failed)\n' "$currentStage" $((SECONDS - currentStageStart))
    printf '   %-18s %5d s\n' total "$SECONDS"
}

# prepareWinePrefix <scratch folder>: Wine with its own HOME and 64-bit prefix under the
# folder, no display and the null graphics driver, so that nothing of the user's is
# touched and hidden top-level windows work headless. The server is stopped again: the
# desktop process reads the driver when it starts.
prepareWinePrefix() {
    export HOME="$1/home" WINEPREFIX="$1/prefix"
    export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
    export WINEARCH=win64
    unset DISPLAY WAYLAND_DISPLAY
    mkdir -p "$HOME" "$WINEPREFIX"
    startWine
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f < /dev/null > /dev/null 2>&1
    stopWine
}

# The server and Wine's own processes start away from the caller's pipes, which they
# would otherwise keep open (CTest waits for them).
startWine() {
    wineserver -p < /dev/null > /dev/null 2>&1
    wine cmd /c exit < /dev/null > /dev/null 2>&1
}

stopWine() {
    [[ -n ${WINEPREFIX:-} ]] || return 0 # never the user's own prefix
    wineserver -k > /dev/null 2>&1 || true
    wineserver -w > /dev/null 2>&1 || true
}
