#!/usr/bin/env bash
# Builds, once per machine, the Windows SDK the cross-built library needs: Qt 5.15.8
# (qtbase, qtsvg) and QuaZip 1.4 from Debian's own source packages, cross-compiled for
# 64-bit Windows with Debian's mingw-w64 (posix thread model). spdlog and fmt are used
# header-only from Debian's headers, so they need no Windows build.
# Usage: windows-sdk.sh   (cache folder: $UTILSDLL_WIN_SDK, default /var/cache/utilsdll-win-sdk)
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
sdk=${UTILSDLL_WIN_SDK:-/var/cache/utilsdll-win-sdk}
prefix=$sdk/qt5
src=$sdk/src
jobs=$(nproc)
triple=x86_64-w64-mingw32
stamp=$prefix/.complete

step() { printf '== windows-sdk: %s\n' "$*"; }

# Two runs at once (two clones on one machine) would build into the same folders: the
# second waits for the first, and then finds the SDK complete.
mkdir -p "$sdk"
exec {lock}> "$sdk/.lock"
if ! flock -n "$lock"; then
    step "another run is building the SDK in $sdk: waiting for it"
    flock "$lock"
fi

if [[ -f $stamp ]]; then
    step "complete in $prefix, nothing to do"
    exit 0
fi

sudo=
if [[ $(id -u) -ne 0 ]]; then sudo=sudo; fi

# apt-get source needs dpkg-dev; SQLite's single file is made with tclsh.
missing=""
for package in dpkg-dev g++-mingw-w64-x86-64-posix libz-mingw-w64-dev libspdlog-dev libfmt-dev \
    cmake ninja-build make perl python3 tcl; do
    dpkg-query -W -f '${Status}' "$package" 2> /dev/null | grep -q 'ok installed' ||
        missing="$missing $package"
done
if [[ -n $missing ]]; then
    step "installing$missing"
    $sudo apt-get install -y --no-install-recommends $missing > /dev/null
fi

# The source packages come from the archive the machine already installs from: the
# deb-src entries are derived from its own deb822 file, written once.
list=/etc/apt/sources.list.d/debian.sources
srcList=/etc/apt/sources.list.d/utilsdll-deb-src.sources
if ! grep -qs '^Types:.*deb-src' "$list" "$srcList"; then
    step "deb-src entries for the archive in $list"
    sed 's/^Types:.*/Types: deb-src/' "$list" | $sudo tee "$srcList" > /dev/null
    $sudo apt-get update > /dev/null
fi

mkdir -p "$src"
fetch() { # package version directory
    if [[ -d $src/$3 ]]; then
        step "source package $1 $2: already in $src"
    else
        step "source package $1 $2: fetching into $src"
        (cd "$src" && apt-get source -q "$1=$2" > "$src/$1.log" 2>&1) ||
            { cat "$src/$1.log"; exit 1; }
    fi
}
fetch qtbase-opensource-src 5.15.8+dfsg-11+deb12u3 qtbase-opensource-src-5.15.8+dfsg
fetch qtsvg-opensource-src 5.15.8-3 qtsvg-opensource-src-5.15.8
fetch libquazip1-qt5 1.4-1 libquazip1-qt5-1.4
fetch sqlite3 3.40.1-2+deb12u2 sqlite3-3.40.1

# Qt's mkspec calls the compilers by their plain names; these links give it the posix
# thread model, whose std::thread and std::mutex the library and GoogleTest need.
tools=$sdk/mingw-posix
mkdir -p "$tools"
ln -sf "/usr/bin/$triple-gcc-posix" "$tools/$triple-gcc"
ln -sf "/usr/bin/$triple-g++-posix" "$tools/$triple-g++"
export PATH=$tools:$PATH

build=$sdk/build
mkdir -p "$build/qtbase"

# A build killed outright (not stopped by make) leaves empty or cut-off objects that
# make then takes as up to date, and the link fails much later.
dropInterrupted() { # build folder
    # (An empty moc output is normal: moc writes nothing for a header without a class.)
    find "$1" -name '*.o' -size 0 -print -delete | sed 's/^/   dropped (empty): /'
    find "$1" -name '*.o' -print0 | while IFS= read -r -d '' object; do
        $triple-nm "$object" > /dev/null 2>&1 || { echo "   dropped (unreadable): $object"; rm -f "$object"; }
    done
}

# Qt's SQLite driver compiles SQLite in, from the single-file form that Debian's
# qtbase source leaves out: it is generated from Debian's sqlite3 source.
qtbaseSrc=$src/qtbase-opensource-src-5.15.8+dfsg
if [[ ! -f $qtbaseSrc/src/3rdparty/sqlite/sqlite3.c ]]; then
    step "generating sqlite3.c from the sqlite3 source package"
    mkdir -p "$build/sqlite" "$qtbaseSrc/src/3rdparty/sqlite"
    (cd "$build/sqlite" && "$src/sqlite3-3.40.1/configure" --disable-tcl && make sqlite3.c) \
        > "$build/sqlite.log" 2>&1 || { tail -20 "$build/sqlite.log"; exit 1; }
    cp "$build/sqlite/sqlite3.c" "$build/sqlite/sqlite3.h" "$qtbaseSrc/src/3rdparty/sqlite/"
fi
if [[ ! -f $build/qtbase/.installed ]]; then
    if [[ ! -f $build/qtbase/Makefile ]]; then
        step "configuring qtbase for $triple (a few minutes)"
        # Only what the library and its tests use: no OpenGL, D-Bus, ICU, printing,
        # tablets (the Windows plugin's tablet support needs wintab.h, which Debian's
        # source leaves out) or SQL drivers but SQLite's; third-party libraries bundled.
        (cd "$build/qtbase" && "$qtbaseSrc/configure" \
            -prefix "$prefix" -opensource -confirm-license -release -shared \
            -xplatform win32-g++ -device-option CROSS_COMPILE=$triple- \
            -nomake examples -nomake tests \
            -no-opengl -no-dbus -no-icu -no-openssl -no-fontconfig -no-direct2d -no-vulkan \
            -qt-zlib -qt-libpng -qt-libjpeg -qt-pcre -qt-freetype -qt-harfbuzz \
            -sql-sqlite -qt-sqlite -no-sql-mysql -no-sql-psql -no-sql-odbc -no-sql-db2 \
            -no-sql-ibase -no-sql-oci -no-sql-tds -no-sql-sqlite2 \
            -no-feature-tabletevent -no-feature-printer -no-feature-concurrent \
            > "$build/qtbase-configure.log" 2>&1) ||
            { tail -40 "$build/qtbase-configure.log"; exit 1; }
    fi
    if [[ -f $build/qtbase/.building ]]; then
        step "resuming the qtbase build: dropping what the interrupted run left half written"
        dropInterrupted "$build/qtbase"
    fi
    touch "$build/qtbase/.building"
    step "building qtbase (about half an hour on two cores)"
    make -C "$build/qtbase" -j "$jobs" > "$build/qtbase-build.log" 2>&1 ||
        { grep -m5 -B5 -i 'error' "$build/qtbase-build.log"; exit 1; }
    step "installing qtbase into $prefix"
    make -C "$build/qtbase" install > "$build/qtbase-install.log" 2>&1 ||
        { tail -20 "$build/qtbase-install.log"; exit 1; }
    touch "$build/qtbase/.installed"
    rm -f "$build/qtbase/.building"
fi

if [[ ! -f $build/qtsvg/.installed ]]; then
    step "building and installing qtsvg"
    mkdir -p "$build/qtsvg"
    (cd "$build/qtsvg" && "$prefix/bin/qmake" "$src/qtsvg-opensource-src-5.15.8/qtsvg.pro" &&
        make -j "$jobs" && make install) > "$build/qtsvg.log" 2>&1 ||
        { grep -m5 -B5 -i 'error' "$build/qtsvg.log"; exit 1; }
    touch "$build/qtsvg/.installed"
fi

# spdlog and fmt header-only: Debian's headers (spdlog already set to the external fmt)
# and a package file that asks fmt for its header-only form.
step "spdlog and fmt headers"
rm -rf "$prefix/include/spdlog" "$prefix/include/fmt"
cp -r /usr/include/spdlog /usr/include/fmt "$prefix/include/"
mkdir -p "$prefix/lib/cmake/spdlog"
cat > "$prefix/lib/cmake/spdlog/spdlogConfig.cmake" <<'CONFIG'
# spdlog and fmt, header-only, for the Windows build.
if(NOT TARGET spdlog::spdlog)
    get_filename_component(_spdlogPrefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
    add_library(spdlog::spdlog INTERFACE IMPORTED)
    set_target_properties(spdlog::spdlog PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${_spdlogPrefix}/include"
        INTERFACE_COMPILE_DEFINITIONS "SPDLOG_FMT_EXTERNAL;FMT_HEADER_ONLY")
    unset(_spdlogPrefix)
endif()
CONFIG
printf 'set(PACKAGE_VERSION %s)\nset(PACKAGE_VERSION_COMPATIBLE TRUE)\n' \
    "$(dpkg-query -W -f '${Version}' libspdlog-dev | sed 's/^[0-9]*://; s/[+~-].*//')" \
    > "$prefix/lib/cmake/spdlog/spdlogConfigVersion.cmake"

if [[ ! -f $build/quazip/.installed ]]; then
    step "building and installing QuaZip (zlib from Debian's mingw-w64 package)"
    # No bzip2 and nothing fetched from the network: zip archives need only zlib.
    cmake -S "$src/libquazip1-qt5-1.4" -B "$build/quazip" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-qt.cmake" \
        -DUTILSDLL_WIN_SDK_PREFIX="$prefix" -DCMAKE_INSTALL_PREFIX="$prefix" \
        -DCMAKE_BUILD_TYPE=Release -DQUAZIP_QT_MAJOR_VERSION=5 -DBUILD_SHARED_LIBS=ON \
        -DQUAZIP_BZIP2=OFF -DQUAZIP_FETCH_LIBS=OFF -DQUAZIP_ENABLE_TESTS=OFF \
        > "$build/quazip.log" 2>&1 &&
        cmake --build "$build/quazip" -j "$jobs" >> "$build/quazip.log" 2>&1 &&
        cmake --install "$build/quazip" >> "$build/quazip.log" 2>&1 ||
        { tail -30 "$build/quazip.log"; exit 1; }
    cp /usr/$triple/lib/zlib1.dll "$prefix/bin/"
    touch "$build/quazip/.installed"
fi

touch "$stamp"
step "complete in $prefix"
