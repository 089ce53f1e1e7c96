#!/usr/bin/env bash
# Builds the whole tree and runs every test: an install with a consumer project built
# against the installed package, the CTest suite, the suite again in a sanitizer build,
# then the Windows side of the platform seam under Wine.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=${UTILSDLL_BUILD_DIR:-$root/build}
jobs=$(nproc)

bash "$root/scripts/deps.sh"

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
# CMake 3.25's Ninja AUTOMOC step does not notice headers added to a target since
# the last build; dropping its stamps makes it look again (it only redoes what changed).
find "$build" -path '*_autogen/timestamp' -delete 2>/dev/null || true
cmake --build "$build" -j "$jobs"

# The installed package must be usable by a project outside this tree.
stage="$build/stage"
rm -rf "$stage"
cmake --install "$build" --prefix "$stage" > /dev/null
cmake -S "$root/examples/consumer" -B "$build/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$stage"
cmake --build "$build/consumer"
LD_LIBRARY_PATH="$stage/lib" QT_QPA_PLATFORM=offscreen "$build/consumer/utilsdll-consumer"
echo "consumer: built and ran against the installed package"

summary="$build/test-summary.log"
(cd "$build" && ctest --output-on-failure -j "$jobs") | tee "$summary"

# The concurrency stress test once more under ThreadSanitizer, in a build of its own
# that makes only what that test needs. The test sets its own TSAN_OPTIONS.
tsan="$build-tsan"
cmake -S "$root" -B "$tsan" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DUTILSDLL_SANITIZE=thread \
    -DUTILSDLL_BUILD_BENCHMARKS=OFF -DUTILSDLL_BUILD_SHOWCASE=OFF
cmake --build "$tsan" -j "$jobs" --target tst_concurrency
(cd "$tsan" && ctest --output-on-failure -L stress) | tee -a "$summary"

# The whole suite once more, built with AddressSanitizer and UndefinedBehaviorSanitizer:
# a leak, a use after free or undefined behaviour in our code fails its test. Every
# test carries its own sanitizer options (cmake/UtilsDllSanitizers.cmake), so nothing
# is set here.
asan=${UTILSDLL_ASAN_BUILD_DIR:-$build-asan}
cmake -S "$root" -B "$asan" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DUTILSDLL_SANITIZE=address,undefined -DUTILSDLL_BUILD_BENCHMARKS=OFF -DUTILSDLL_BUILD_SHOWCASE=ON
find "$asan" -path '*_autogen/timestamp' -delete 2>/dev/null || true
cmake --build "$asan" -j "$jobs"
(cd "$asan" && ctest --output-on-failure -j "$jobs") | tee -a "$summary"

# The Windows side of the platform seam: cross-built with mingw-w64, run under Wine.
bash "$root/scripts/wine-tests.sh" "${UTILSDLL_WIN_BUILD_DIR:-$build-win}" | tee -a "$summary"

# One closing line for every suite that ran.
awk '/tests passed, [0-9]+ tests failed out of [0-9]+/ { failed += $4; total += $NF }
     /^[[:space:]]+[0-9]+ - .*\(Skipped\)$/ { skipped += 1 }
     END { printf "tests: %d passed, %d failed, %d skipped\n", total - failed - skipped, failed, skipped }' "$summary"
