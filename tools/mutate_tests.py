"""The tests that faults meet: their list and times without a fault, and how one runs."""
import concurrent.futures
import json
import os
import re
import resource
import signal
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

from mutate_build import OUT, WORK, Stop, digest_of, run_quietly, test_folders

MEMORY = 8 << 30  # of a test, in bytes of address space
CPU_SECONDS = 1200
TIME_FACTOR, TIME_MORE = 5.0, 10.0


class Test:
    def __init__(self, binary, name, file, seconds):
        self.binary, self.name, self.file, self.seconds = binary, name, file, seconds

    def full_name(self):
        return f"{self.binary}.{self.name}"


def limits():
    os.setsid()
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CPU, (CPU_SECONDS, CPU_SECONDS))  # should this script be killed
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Runner:
    """Runs tests, each in a process of its own, and ends them with their children."""

    def __init__(self):
        self.lock, self.running, self.stopped = threading.Lock(), set(), False

    def run(self, command, environment, seconds):
        """Exit status, None when the time was up."""
        with self.lock:
            if self.stopped:
                raise KeyboardInterrupt
            process = subprocess.Popen(command, env=environment, cwd=OUT, stdin=subprocess.DEVNULL,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=limits)
            self.running.add(process)
        try:
            return process.wait(seconds)
        except subprocess.TimeoutExpired:
            return None
        finally:
            self.end(process)
            with self.lock:
                self.running.discard(process)

    @staticmethod
    def end(process):
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()

    def stop(self):
        with self.lock:
            self.stopped = True
            for process in self.running:
                self.end(process)


def environment_of(folder, library):
    environment = dict(os.environ, LIBGL_ALWAYS_SOFTWARE="1", GTEST_FAIL_FAST="1", LD_LIBRARY_PATH=str(library),
                       TMPDIR=str(folder))
    for name in ("GTEST_FILTER", "GTEST_OUTPUT", "GTEST_SHUFFLE"):
        environment.pop(name, None)
    return environment


def baseline(binaries, asked, digests, runner):
    """The tests of the binaries with their times, those that were asked for. They must pass without a fault."""
    kept = WORK / "baseline.json"
    known = json.loads(kept.read_text()) if kept.is_file() else {}
    for binary in binaries:
        digest = digest_of(digests, ["src/", "content/", *test_folders([binary])])
        if known.get(binary, {}).get("digest") == digest:
            continue
        listing = WORK / "list.json"
        run_quietly([str(OUT / "tests" / binary), "--gtest_list_tests", f"--gtest_output=json:{listing}"], binary)
        found = []
        for suite in json.loads(listing.read_text())["testsuites"]:
            for test in suite["testsuite"]:
                file = Path(test.get("file", "")).name
                if not test["name"].startswith("DISABLED_"):
                    found.append([f"{suite['name']}.{test['name']}", file])
        print(f"{binary}: {len(found)} tests without a fault", file=sys.stderr)

        def timed(entry):
            with tempfile.TemporaryDirectory(prefix="tarvane-mutate-") as folder:
                start = time.monotonic()
                status = runner.run([str(OUT / "tests" / binary), f"--gtest_filter={entry[0]}"],
                                    environment_of(folder, OUT), 600)
                return entry + [time.monotonic() - start, status]

        with concurrent.futures.ThreadPoolExecutor(asked.jobs) as pool:
            results = list(pool.map(timed, found))
        results = [entry if entry[3] == 0 else timed(entry[:2]) for entry in results]  # a busy machine's second try
        failed = [name for name, _, _, status in results if status != 0]
        if failed:
            raise Stop(f"{binary} fails without a fault: {', '.join(failed)}")
        known[binary] = {"digest": digest, "tests": [entry[:3] for entry in results]}
        kept.write_text(json.dumps(known))
    tests = [Test(binary, *entry) for binary in binaries for entry in known[binary]["tests"]]
    tests = [test for test in tests if re.search(asked.tests, test.full_name())]
    quick = [test for test in tests if test.seconds <= asked.slow]
    print(f"{len(quick)} tests, {sum(test.seconds for test in quick):.0f} s; {len(tests) - len(quick)} longer than "
          f"{asked.slow:g} s are left out", file=sys.stderr)
    return quick
