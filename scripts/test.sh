#!/usr/bin/env bash
# Builds the whole tree and runs every test: an install with a consumer project built
# against the installed package, the CTest suite, the same against Qt 6, the suite again
# in sanitizer builds, the Windows side of the platform seam under Wine, then the real
# Windows DLL and its suite under Wine. Prints each stage's time and one closing line for every suite.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/common.sh"
build=${UTILSDLL_BUILD_DIR:-$root/build}
mkdir -p "$build"
stageLog="$build/test-summary.log"
: > "$stageLog"
trap stageTimes EXIT

stage deps bash "$root/scripts/deps.sh"

qt6=$build-qt6
prefix="$build/stage"

plainBuild() {
    configureAndBuild "$1" -DCMAKE_BUILD_TYPE=RelWithDebInfo "${@:2}"
}

# consumer <build> <package>: the installed package must be usable by a project outside
# this tree: with CMake, run as it is installed (no LD_LIBRARY_PATH: the logger module is
# found beside it), and with pkg-config. Both Qt builds install into one prefix.
consumer() {
    local folder=$1 package=$2
    cmake --install "$folder" --prefix "$prefix" > /dev/null
    cmake -S "$root/examples/consumer" -B "$folder/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
        -DUTILSDLL_PACKAGE="$package"
    cmake --build "$folder/consumer"
    QT_QPA_PLATFORM=offscreen "$folder/consumer/utilsdll-consumer"
    echo "consumer: built with CMake and ran against the installed $package"
    # shellcheck disable=SC2046 # pkg-config's answer is a list of flags
    c++ -std=c++17 -fPIC "$root/examples/consumer/main.cpp" -o "$folder/consumer/utilsdll-consumer-pc" \
        $(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --cflags --libs "$package")
    LD_LIBRARY_PATH="$prefix/lib" QT_QPA_PLATFORM=offscreen "$folder/consumer/utilsdll-consumer-pc"
    echo "consumer: built with pkg-config and ran against the installed $package"
}

# Side by side: the two installs share no file but the licence texts, which are the same.
sideBySide() {
    local shared
    shared=$(comm -12 <(sort "$build/install_manifest.txt") <(sort "$qt6/install_manifest.txt") | grep -v '/Licenses/' || true)
    [[ -z $shared ]] || { printf 'both Qt builds install:\n%s\n' "$shared"; return 1; }
    echo "side by side: the Qt 5 and Qt 6 packages share no file in $prefix"
}

qt6Consumer() {
    consumer "$qt6" UtilsDll-qt6
    sideBySide
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

rm -rf "$prefix"
stage build plainBuild "$build"
stage consumer consumer "$build" UtilsDll
stage docs documentation
stage suite runSuite "$build"
# The whole tree once more against Qt 6, in a folder of its own.
stage qt6-build plainBuild "$qt6" -DUTILSDLL_QT_MAJOR_VERSION=6
stage qt6-consumer qt6Consumer
stage qt6-suite runSuite "$qt6"
stage thread-sanitizer threadSanitizer
stage address-sanitizer addressSanitizer
# The Windows side of the platform seam: cross-built with mingw-w64, run under Wine.
stage windows-seam bash "$root/scripts/wine-tests.sh" "${UTILSDLL_WIN_BUILD_DIR:-$build-win}"
# The real Windows DLL and its whole suite under Wine; the Windows SDK is built once per
# machine and cached (scripts/windows-sdk.sh).
stage windows-dll bash "$root/scripts/windows-dll.sh" "${UTILSDLL_WIN_DLL_BUILD_DIR:-$build-dll}"

closingLine "$stageLog"
