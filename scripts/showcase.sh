#!/usr/bin/env bash
# Builds and runs the showcase program, the library's main job.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${UTILSDLL_BUILD_DIR:-$root/build}

bash "$root/scripts/deps.sh"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
# CMake 3.25's Ninja AUTOMOC step does not notice headers added to a target since
# the last build; dropping its stamps makes it look again (it only redoes what changed).
find "$build" -path '*_autogen/timestamp' -delete 2>/dev/null || true
cmake --build "$build" -j "$(nproc)" --target utilsdll-showcase LoggerDllvrcv3
if [[ -z "${DISPLAY:-}" && -z "${WAYLAND_DISPLAY:-}" ]]; then
    export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
fi
exec "$build/bin/utilsdll-showcase" "$@"
