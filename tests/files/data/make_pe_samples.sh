#!/usr/bin/env bash
# Regenerates the small Windows executables that the version reader is tested on.
# Needs Debian's g++-mingw-w64-x86-64 and binutils-mingw-w64-x86-64; the outputs are
# committed so that the tests themselves need no cross compiler.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat > "$work/main.c" <<'SOURCE'
int start(void) { return 0; }
SOURCE

cat > "$work/version.rc" <<'SOURCE'
1 VERSIONINFO
FILEVERSION 3,2,17,254
PRODUCTVERSION 9,8,7,6
FILEFLAGSMASK 0x3fL
FILEFLAGS 0x0L
FILEOS 0x40004L
FILETYPE 0x1L
FILESUBTYPE 0x0L
BEGIN
    BLOCK "StringFileInfo"
    BEGIN
        BLOCK "040904b0"
        BEGIN
            VALUE "FileDescription", "Version reader sample"
            VALUE "FileVersion", "3.2.17.254"
        END
    END
    BLOCK "VarFileInfo"
    BEGIN
        VALUE "Translation", 0x409, 1200
    END
END
SOURCE

# A version resource under another name than 1 is not the one the reader looks for.
sed 's/^1 VERSIONINFO/2 VERSIONINFO/' "$work/version.rc" > "$work/othername.rc"

link() { # output, extra objects...
    local output=$1
    shift
    x86_64-w64-mingw32-gcc -O2 -s -nostdlib -Wl,--entry=start -o "$output" "$work/main.c" "$@"
}

x86_64-w64-mingw32-windres "$work/version.rc" -O coff -o "$work/version.o"
x86_64-w64-mingw32-windres "$work/othername.rc" -O coff -o "$work/othername.o"
link versioned.exe "$work/version.o"
link unversioned.exe
link othername.exe "$work/othername.o"
