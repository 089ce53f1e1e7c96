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


def parse_arguments():
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
    return parser.parse_args()


def list_faults(faults):
    for fault in faults:
        print("%-5s %-22s %-48s %s" % (fault["id"], ",".join(fault["labels"]), fault["file"], fault["what"]))
    print("%d faults" % len(faults))


def new_counts():
    return {"killed": 0, "survived": 0, "not-applicable": 0, "build-failed": 0}


def time_limits(build_dir, faults, jobs, out):
    """Runs every label the faults name on the unchanged tree, which must pass; four
    times its time bounds the mutated runs, so that a fault that makes a test hang
    counts as caught without waiting for CTest's own limit."""
    limits = {}
    for labels in sorted({tuple(fault["labels"]) for fault in faults}):
        passed, _, seconds, output = ctest(build_dir, labels, jobs, None)
        if not passed:  # once more, in case a busy machine made a timing test miss
            passed, _, seconds, output = ctest(build_dir, labels, jobs, None)
        if not passed:
            print(output[-3000:])
            sys.exit("label(s) %s fail unchanged in %s" % (",".join(labels), build_dir))
        limits[labels] = max(120.0, 4 * seconds)
        print("# unchanged %-22s passes in %.0f s" % (",".join(labels), seconds), file=out, flush=True)
    return limits


class SecondBuild:
    """Another version of the tests, asked about the same compiled faults."""

    def __init__(self, args, faults):
        self.dir = os.path.abspath(args.second_build)
        self.filter = args.second_filter
        self.out = open(args.second_output or os.devnull, "w", encoding="utf-8")
        self.counts = new_counts()
        self.jobs = args.jobs
        self.limits = time_limits(self.dir, [f for f in faults if selected(f, self.filter)], args.jobs, self.out)

    def asks_about(self, fault):
        return selected(fault, self.filter)

    def record(self, fault, result, seconds=0.0, detail=""):
        self.counts[result] += 1
        print(fault_line(fault, result, seconds, detail), file=self.out, flush=True)

    def test(self, fault):
        started = time.time()
        passed, timed_out, _, output = ctest(self.dir, fault["labels"], self.jobs,
                                             self.limits[tuple(fault["labels"])])
        self.record(fault, "survived" if passed else "killed", time.time() - started,
                    "hang" if timed_out else first_failure(output))


class AppliedFault:
    """The fault written into its file, and the file put back on leaving, also on an
    interruption; the pending file lets the next run restore it after a hard kill."""

    def __init__(self, path, text, fault, pending_path):
        self.path, self.text, self.fault, self.pending_path = path, text, fault, pending_path

    def __enter__(self):
        with open(self.pending_path, "w", encoding="utf-8") as stream:
            json.dump({"file": self.path, "text": self.text}, stream)
        self.write(self.text.replace(self.fault["original"], self.fault["replacement"], 1))

    def __exit__(self, *exception):
        self.write(self.text)
        os.remove(self.pending_path)

    def write(self, text):
        with open(self.path, "w", encoding="utf-8", newline="") as stream:
            stream.write(text)


def try_fault(fault, args, build_dir, limits, second):
    """Applies, builds and tests one fault; returns its result and a detail."""
    path = os.path.join(ROOT, fault["file"])
    with open(path, encoding="utf-8", newline="") as stream:
        text = stream.read()
    if text.count(fault["original"]) != 1:  # gone, or no longer says which place
        return "not-applicable", ""
    with AppliedFault(path, text, fault, os.path.join(build_dir, PENDING)):
        built, output = build(build_dir, args.jobs)
        if not built:
            return "build-failed", ""
        passed, timed_out, _, output = ctest(build_dir, fault["labels"], args.jobs,
                                             limits[tuple(fault["labels"])])
        if second and second.asks_about(fault):
            second.test(fault)
        if args.verbose and passed:
            print(output[-4000:])
        return ("survived" if passed else "killed"), ("hang" if timed_out else first_failure(output))


def check_faults(faults, args, build_dir, limits, second):
    counts = new_counts()
    try:
        for fault in faults:
            started = time.time()
            result, detail = try_fault(fault, args, build_dir, limits, second)
            counts[result] += 1
            if second and result in ("not-applicable", "build-failed") and second.asks_about(fault):
                second.record(fault, result)
            print(fault_line(fault, result, time.time() - started, detail), flush=True)
    except Interrupted:
        print("interrupted; the source file is restored", flush=True)
    finally:
        build(build_dir, args.jobs)  # leaves the build matching the restored sources
    return counts


def main():
    args = parse_arguments()
    faults = [fault for fault in load_faults(args.faults) if selected(fault, args.filter)]
    TARGETS.extend(args.target)
    if args.list:
        list_faults(faults)
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
    limits = time_limits(build_dir, faults, args.jobs, sys.stdout)
    second = SecondBuild(args, faults) if args.second_build else None

    counts = check_faults(faults, args, build_dir, limits, second)
    minutes = (time.time() - started) / 60
    print_summary(counts, minutes, sys.stdout)
    if second:
        print_summary(second.counts, minutes, second.out)
        second.out.close()
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
