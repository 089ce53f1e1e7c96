#!/usr/bin/env bash
# Builds and runs the showcase program, the library's main job.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"
build=${UTILSDLL_BUILD_DIR:-$root/build}

bash "$root/scripts/deps.sh"
configureAndBuild "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -- --target utilsdll-showcase LoggerDllvrcv3
if [[ -z "${DISPLAY:-}" && -z "${WAYLAND_DISPLAY:-}" ]]; then
    export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
fi
exec "$build/bin/utilsdll-showcase" "$@"
