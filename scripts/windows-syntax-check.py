#!/usr/bin/python3
"""Compiles every library source that the Windows build compiles, as Windows code.

    windows-syntax-check.py <Linux build folder> <scratch folder>

The portable files are built only for Linux here, so a Linux-only call or header in
them would reach the product's home platform unnoticed. This runs the mingw-w64
compiler with -fsyntax-only over the library's sources as the Linux build lists them
(compile_commands.json), with platform/linux swapped for platform/win, Qt's headers,
and the generated form and moc headers of that build. The logger module's spdlog and
fmt come from their Debian folders; zlib is mingw-w64's own.

mingw-w64 brings POSIX headers that the product's Windows compiler lacks, so an
include of one of them by a file of this tree is reported too.
"""
import json
import os
import shlex
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TARGETS = ("/UtilsDll.dir/", "/LoggerDllvrcv3.dir/")
WINDOWS_DEFINES = ["-DUNICODE", "-D_UNICODE", "-DWIN32_LEAN_AND_MEAN", "-DNOMINMAX"]
# Header-only libraries of the logger module, taken alone: the rest of /usr/include
# is Linux's and must stay out of reach.
THIRD_PARTY = [Path("/usr/include/spdlog"), Path("/usr/include/fmt")]
# What the Linux build adds that the Windows build does not have: Qt's Linux mkspec and
# D-Bus, which only platform/linux uses.
LINUX_ONLY = ("/mkspecs/linux-", "QtDBus", "QT_DBUS_LIB")
POSIX_ONLY = {"unistd.h", "dirent.h", "pthread.h", "sched.h", "semaphore.h", "strings.h", "libgen.h",
              "getopt.h", "utime.h", "sys/time.h", "sys/param.h", "sys/file.h", "sys/unistd.h", "sys/cdefs.h"}


def compiler():
    for name in ("x86_64-w64-mingw32-g++-posix", "x86_64-w64-mingw32-g++"):
        for folder in os.environ.get("PATH", "").split(os.pathsep):
            if os.access(os.path.join(folder, name), os.X_OK):
                return name
    sys.exit("windows-syntax-check: no mingw-w64 C++ compiler (g++-mingw-w64-x86-64)")


def windows_sources(entries):
    """Each library source with its flags; platform/linux gives way to platform/win."""
    sources, flags, platform_folders = [], None, set()
    for entry in entries:
        arguments = shlex.split(entry["command"])
        output = arguments[arguments.index("-o") + 1] if "-o" in arguments else ""
        if not any(target in "/" + output for target in TARGETS):
            continue
        source = Path(entry["directory"], entry["file"]).resolve()
        kept, system_folder = [], False
        for argument in arguments[1:]:
            if system_folder:
                system_folder = False
                if not any(part in argument for part in LINUX_ONLY):
                    kept += ["-isystem", argument]
            elif argument == "-isystem":
                system_folder = True
            elif argument.startswith(("-D", "-I", "-std=")) and not any(part in argument for part in LINUX_ONLY):
                kept.append(argument)
        if "platform" in source.parts and source.parent.name == "linux":
            platform_folders.add(source.parent.parent / "win")
            continue
        sources.append((source, kept))
        if flags is None or "/UtilsDll.dir/" in output:
            flags = kept
    for folder in sorted(platform_folders):
        sources += [(path, flags) for path in sorted(folder.glob("*.cpp"))]
    return sources


def posix_includes(source, tree):
    """Headers of POSIX_ONLY that a file of this tree includes, from the -H listing."""
    found, stack = [], [str(source)]
    for line in tree.splitlines():
        dots, _, header = line.partition(" ")
        if not dots or set(dots) != {"."} or not header:
            continue
        depth = len(dots)
        del stack[depth:]
        includer = stack[-1]
        stack.append(header)
        name = os.path.normpath(header)
        if includer.startswith(str(ROOT) + "/") and any(name.endswith("/include/" + h) for h in POSIX_ONLY):
            found.append(f"{includer}: includes {name}, which the Windows compiler of the product lacks")
    return found


def check(job):
    command, source = job
    result = subprocess.run(command, capture_output=True, text=True)
    problems = posix_includes(source, result.stderr)
    # What is left of -H's listing once the tree is gone: the advice on include guards.
    messages = [line for line in result.stderr.splitlines()
                if not line.startswith((".", "Multiple include")) and not (line.startswith("/") and ":" not in line)]
    return source, result.returncode == 0 and not problems, "\n".join(messages + problems)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    build, scratch = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    database = build / "compile_commands.json"
    if not database.exists():
        sys.exit(f"windows-syntax-check: {database} is missing: configure and build the Linux tree first")
    sources = windows_sources(json.loads(database.read_text()))
    if not sources:
        sys.exit("windows-syntax-check: the Linux build lists no library source")

    third_party = scratch / "third-party"
    third_party.mkdir(parents=True, exist_ok=True)
    for folder in THIRD_PARTY:
        link = third_party / folder.name
        if not link.exists():
            link.symlink_to(folder)
    cxx = compiler()
    jobs = [([cxx, "-fsyntax-only", "-H", "-Wall", "-Wextra", *WINDOWS_DEFINES, *flags,
              "-isystem", str(third_party), str(source)], source) for source, flags in sources]

    started = time.monotonic()
    with ThreadPoolExecutor(max_workers=os.cpu_count() or 1) as pool:
        results = list(pool.map(check, jobs))
    failed = [(source, report) for source, ok, report in results if not ok]
    for source, report in failed:
        print(f"FAILED {source.relative_to(ROOT) if ROOT in source.parents else source}\n{report}\n")
    print(f"windows syntax check: {len(results) - len(failed)} of {len(results)} library sources compile "
          f"as Windows code ({cxx}, {time.monotonic() - started:.0f} s)")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
