#!/usr/bin/env python3
"""Mutation check: how many realistic faults does the test suite catch?

Applies one fault of scripts/mutation-faults.json at a time to the library's
sources, rebuilds the given build folder incrementally, runs the CTest labels
the fault names and puts the file back. One line per fault, then
"killed K of N (P%)". Faults whose text is gone are "not-applicable", faults
that do not compile are "build-failed"; neither is counted in N.

    python3 scripts/mutation-check.py --build build
    python3 scripts/mutation-check.py --build build --filter 'soap|S0[1-3]'
    python3 scripts/mutation-check.py --list

To compare two versions of the tests on the same faults, --second-build names a
build of the other version's tests that loads this build's library (a small project
that imports this build's libUtilsDll.so as the UtilsDll target and adds the other
version's test folders): each fault is then compiled once and tested by both, and the
second version's lines go to --second-output.

Standard library only. The source file is always restored, also on Ctrl-C or
SIGTERM; a run killed harder leaves <build>/mutation-check.pending.json, from
which the next run restores the file before it starts.
"""

import argparse
import json
import os
import re
import signal
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DEFAULT_FAULTS = os.path.join(ROOT, "scripts", "mutation-faults.json")
PENDING = "mutation-check.pending.json"


class Interrupted(Exception):
    pass


def on_signal(signum, frame):
    raise Interrupted()


def load_faults(path):
    with open(path, encoding="utf-8") as stream:
        faults = json.load(stream)["faults"]
    seen = set()
    for fault in faults:
        for key in ("id", "file", "original", "replacement", "labels", "what"):
            if key not in fault:
                sys.exit("fault %s lacks '%s'" % (fault.get("id", "?"), key))
        if fault["id"] in seen:
            sys.exit("fault id %s is used twice" % fault["id"])
        seen.add(fault["id"])
    return faults


def selected(fault, pattern):
    if not pattern:
        return True
    names = [fault["id"]] + fault["labels"]
    return any(re.fullmatch(pattern, name) for name in names)


def restore_pending(build):
    path = os.path.join(build, PENDING)
    if not os.path.exists(path):
        return
    with open(path, encoding="utf-8") as stream:
        pending = json.load(stream)
    with open(pending["file"], "w", encoding="utf-8", newline="") as stream:
        stream.write(pending["text"])
    os.remove(path)
    print("restored %s from an interrupted run" % pending["file"], flush=True)


def run(command, cwd, timeout=None):
    """Runs a command in its own process group; returns (exit code, output, timed out)."""
    process = subprocess.Popen(command, cwd=cwd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               start_new_session=True)
    try:
        output, _ = process.communicate(timeout=timeout)
        return process.returncode, output.decode(errors="replace"), False
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        output, _ = process.communicate()
        return -1, output.decode(errors="replace"), True
    except BaseException:
        os.killpg(process.pid, signal.SIGKILL)
        process.communicate()
        raise


TARGETS = []


def build(build_dir, jobs):
    targets = ["--target"] + TARGETS if TARGETS else []
    code, output, _ = run(["cmake", "--build", build_dir, "-j%d" % jobs] + targets, ROOT)
    return code == 0, output


def ctest(build_dir, labels, jobs, timeout):
    command = ["ctest", "-L", "^(%s)$" % "|".join(labels), "-j%d" % jobs, "--stop-on-failure",
               "--output-on-failure"]
    started = time.time()
    code, output, timed_out = run(command, build_dir, timeout)
    if "No tests were found" in output:
        sys.exit("no test carries the label(s) %s in %s" % (",".join(labels), build_dir))
    return code == 0, timed_out, time.time() - started, output


def first_failure(output):
    for line in output.splitlines():
        match = re.search(r"\d+/\d+ Test\s+#\d+: (\S+) .*(Failed|Timeout|Exception|Not Run)", line)
        if match:
            return match.group(1)
    return ""


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--build", default=os.path.join(ROOT, "build"), help="configured build folder")
    parser.add_argument("--faults", default=DEFAULT_FAULTS, help="fault list (JSON)")
    parser.add_argument("--filter", default="", help="regular expression on fault ids or labels")
    parser.add_argument("--jobs", type=int, default=2, help="build and ctest jobs (default 2)")
    parser.add_argument("--list", action="store_true", help="list the faults and exit")
    parser.add_argument("--target", action="append", default=[],
                        help="build only this target (repeatable; default: everything)")
    parser.add_argument("--verbose", action="store_true", help="print build and test output of survivors")
    parser.add_argument("--second-build", help="another version of the tests, loading this build's library")
    parser.add_argument("--second-output", help="file for the second version's lines")
    parser.add_argument("--second-filter", default="", help="faults the second version is asked about")
    args = parser.parse_args()

    faults = [fault for fault in load_faults(args.faults) if selected(fault, args.filter)]
    TARGETS.extend(args.target)
    if args.list:
        for fault in faults:
            print("%-5s %-22s %-48s %s" % (fault["id"], ",".join(fault["labels"]), fault["file"], fault["what"]))
        print("%d faults" % len(faults))
        return 0
    if not faults:
        sys.exit("no fault matches '%s'" % args.filter)

    build_dir = os.path.abspath(args.build)
    if not os.path.exists(os.path.join(build_dir, "CMakeCache.txt")):
        sys.exit("%s is not a configured build folder" % build_dir)
    signal.signal(signal.SIGINT, on_signal)
    signal.signal(signal.SIGTERM, on_signal)
    restore_pending(build_dir)

    started = time.time()
    ok, output = build(build_dir, args.jobs)
    if not ok:
        print(output[-3000:])
        sys.exit("the unchanged tree does not build")
    # Every label must pass unchanged; its time bounds the mutated runs, so that a
    # fault that makes a test hang counts as caught without waiting for CTest's limit.
    limits = {}
    for labels in sorted({tuple(fault["labels"]) for fault in faults}):
        passed, _, seconds, output = ctest(build_dir, labels, args.jobs, None)
        if not passed:  # once more, in case a busy machine made a timing test miss
            passed, _, seconds, output = ctest(build_dir, labels, args.jobs, None)
        if not passed:
            print(output[-3000:])
            sys.exit("label(s) %s fail on the unchanged tree" % ",".join(labels))
        limits[labels] = max(120.0, 4 * seconds)
        print("# unchanged %-22s passes in %.0f s" % (",".join(labels), seconds), flush=True)

    second = None
    if args.second_build:
        second = {"dir": os.path.abspath(args.second_build), "limits": {},
                  "out": open(args.second_output or os.devnull, "w", encoding="utf-8"),
                  "counts": {"killed": 0, "survived": 0, "not-applicable": 0, "build-failed": 0}}
        for labels in sorted({tuple(f["labels"]) for f in faults if selected(f, args.second_filter)}):
            passed, _, seconds, output = ctest(second["dir"], labels, args.jobs, None)
            if not passed:
                passed, _, seconds, output = ctest(second["dir"], labels, args.jobs, None)
            if not passed:
                print(output[-3000:])
                sys.exit("label(s) %s fail unchanged in %s" % (",".join(labels), second["dir"]))
            second["limits"][labels] = max(120.0, 4 * seconds)
            line = "# unchanged %-22s passes in %.0f s" % (",".join(labels), seconds)
            print(line, file=second["out"], flush=True)

    counts = {"killed": 0, "survived": 0, "not-applicable": 0, "build-failed": 0}
    pending_path = os.path.join(build_dir, PENDING)
    try:
        for fault in faults:
            path = os.path.join(ROOT, fault["file"])
            with open(path, encoding="utf-8", newline="") as stream:
                text = stream.read()
            seconds_start = time.time()
            detail = ""
            if text.count(fault["original"]) != 1:  # gone, or no longer says which place
                result = "not-applicable"
            else:
                with open(pending_path, "w", encoding="utf-8") as stream:
                    json.dump({"file": path, "text": text}, stream)
                try:
                    with open(path, "w", encoding="utf-8", newline="") as stream:
                        stream.write(text.replace(fault["original"], fault["replacement"], 1))
                    built, output = build(build_dir, args.jobs)
                    if not built:
                        result = "build-failed"
                    else:
                        passed, timed_out, _, output = ctest(build_dir, fault["labels"], args.jobs,
                                                             limits[tuple(fault["labels"])])
                        result = "survived" if passed else "killed"
                        detail = "hang" if timed_out else first_failure(output)
                        if second and selected(fault, args.second_filter):
                            started_second = time.time()
                            passed2, timed_out2, _, output2 = ctest(
                                second["dir"], fault["labels"], args.jobs, second["limits"][tuple(fault["labels"])])
                            result2 = "survived" if passed2 else "killed"
                            second["counts"][result2] += 1
                            print(fault_line(fault, result2, time.time() - started_second,
                                             "hang" if timed_out2 else first_failure(output2)),
                                  file=second["out"], flush=True)
                    if args.verbose and result != "killed":
                        print(output[-4000:])
                finally:
                    with open(path, "w", encoding="utf-8", newline="") as stream:
                        stream.write(text)
                    os.remove(pending_path)
            counts[result] += 1
            if second and result != "killed" and result != "survived" and selected(fault, args.second_filter):
                second["counts"][result] += 1
                print(fault_line(fault, result, 0, ""), file=second["out"], flush=True)
            print(fault_line(fault, result, time.time() - seconds_start, detail), flush=True)
    except Interrupted:
        print("interrupted; the source file is restored", flush=True)
    finally:
        # Leaves the build matching the restored sources.
        build(build_dir, args.jobs)

    minutes = (time.time() - started) / 60
    print_summary(counts, minutes, sys.stdout)
    if second:
        print_summary(second["counts"], minutes, second["out"])
        second["out"].close()
    return 0


def fault_line(fault, result, seconds, detail):
    return "%-5s %-14s %-20s %4.0fs  %s: %s%s" % (fault["id"], result, ",".join(fault["labels"]), seconds,
                                                fault["file"], fault["what"], "  [%s]" % detail if detail else "")


def print_summary(counts, minutes, stream):
    counted = counts["killed"] + counts["survived"]
    print("# %d not applicable, %d did not build; %.0f minutes" % (
        counts["not-applicable"], counts["build-failed"], minutes), file=stream)
    print("killed %d of %d (%.0f%%)" % (counts["killed"], counted,
                                        100.0 * counts["killed"] / counted if counted else 0.0),
          file=stream, flush=True)


if __name__ == "__main__":
    sys.exit(main())
