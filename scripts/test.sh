#!/usr/bin/env bash
# Builds the whole tree and runs every test: an install with a consumer project built
# against the installed package, the CTest suite, the suite again in sanitizer builds,
# the Windows side of the platform seam under Wine, then the real Windows DLL and its
# suite under Wine. Prints each stage's time and one closing line for every suite.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"
build=${UTILSDLL_BUILD_DIR:-$root/build}
mkdir -p "$build"
stageLog="$build/test-summary.log"
: > "$stageLog"
trap stageTimes EXIT

stage deps bash "$root/scripts/deps.sh"

plainBuild() {
    configureAndBuild "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo
}

# The installed package must be usable by a project outside this tree: with CMake, run
# as it is installed (no LD_LIBRARY_PATH: the logger module is found beside it), and
# with pkg-config.
consumer() {
    local stage="$build/stage"
    rm -rf "$stage"
    cmake --install "$build" --prefix "$stage" > /dev/null
    cmake -S "$root/examples/consumer" -B "$build/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$stage"
    cmake --build "$build/consumer"
    QT_QPA_PLATFORM=offscreen "$build/consumer/utilsdll-consumer"
    echo "consumer: built with CMake and ran against the installed package"
    # shellcheck disable=SC2046 # pkg-config's answer is a list of flags
    c++ -std=c++17 -fPIC "$root/examples/consumer/main.cpp" -o "$build/consumer/utilsdll-consumer-pc" \
        $(PKG_CONFIG_PATH="$stage/lib/pkgconfig" pkg-config --cflags --libs UtilsDll)
    LD_LIBRARY_PATH="$stage/lib" QT_QPA_PLATFORM=offscreen "$build/consumer/utilsdll-consumer-pc"
    echo "consumer: built with pkg-config and ran against the installed package"
}

# The reference documentation from the public headers: any Doxygen warning (an
# undocumented public class or function, a broken reference) fails it. A folder of its
# own, configured without tests: the target compiles nothing.
documentation() {
    configureAndBuild "$build-docs" -DBUILD_TESTING=OFF -DUTILSDLL_BUILD_SHOWCASE=OFF \
        -DUTILSDLL_BUILD_DOCS=ON -- --target docs
}

# The concurrency stress test once more under ThreadSanitizer, in a build of its own
# that makes only what that test needs. The build gives it its TSAN_OPTIONS.
threadSanitizer() {
    local tsan="$build-tsan"
    configureAndBuild "$tsan" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DUTILSDLL_SANITIZE=thread \
        -DUTILSDLL_BUILD_BENCHMARKS=OFF -DUTILSDLL_BUILD_SHOWCASE=OFF -- --target tst_concurrency
    runSuite "$tsan" -R '^tst_concurrency$'
}

# The whole suite once more, built with AddressSanitizer and UndefinedBehaviorSanitizer:
# a leak, a use after free or undefined behaviour in our code fails its test. Every
# test carries its own sanitizer options (cmake/UtilsDllSanitizers.cmake).
addressSanitizer() {
    local asan=${UTILSDLL_ASAN_BUILD_DIR:-$build-asan}
    configureAndBuild "$asan" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DUTILSDLL_SANITIZE=address,undefined -DUTILSDLL_BUILD_BENCHMARKS=OFF
    runSuite "$asan"
}

stage build plainBuild
stage consumer consumer
stage docs documentation
stage suite runSuite "$build"
stage thread-sanitizer threadSanitizer
stage address-sanitizer addressSanitizer
# The Windows side of the platform seam: cross-built with mingw-w64, run under Wine.
stage windows-seam bash "$root/scripts/wine-tests.sh" "${UTILSDLL_WIN_BUILD_DIR:-$build-win}"
# The real Windows DLL and its whole suite under Wine; the Windows SDK is built once per
# machine and cached (scripts/windows-sdk.sh).
stage windows-dll bash "$root/scripts/windows-dll.sh" "${UTILSDLL_WIN_DLL_BUILD_DIR:-$build-dll}"

closingLine "$stageLog"
