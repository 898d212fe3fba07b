"""One fault: what is known of it, what it makes of the library, and which test catches it."""
import collections
import json
import os
import re
import shlex
import shutil
import sys
import tempfile
import threading
from pathlib import Path

from mutate_build import MIRROR, OUT, ROOT, WORK, Stop
from mutate_tests import TIME_FACTOR, TIME_MORE, environment_of

JOURNAL = WORK / "journal.jsonl"
EQUAL = ROOT / "tools" / "mutate_equal.txt"


class Journal:
    """What is known of each fault; one line of JSON each, written as soon as it is known."""

    def __init__(self, digests, tests, fresh):
        self.digests, self.tests = digests, tests  # of each file; of the folder's tests
        self.known, self.kills = {}, collections.defaultdict(list)
        self.lock = threading.Lock()
        if JOURNAL.is_file() and not fresh:
            for line in JOURNAL.read_text(encoding="utf-8").split("\n"):
                try:
                    self.take(json.loads(line))
                except (ValueError, KeyError):
                    continue  # the last line of a run that was killed

    @staticmethod
    def key(fault):
        return f"{fault.file}:{fault.line}\n{fault.before}\n{fault.after}"

    def take(self, entry):
        if entry["result"] == "caught":
            kills = self.kills[entry["file"]]
            if entry["by"] in kills:
                kills.remove(entry["by"])
            kills.insert(0, entry["by"])
        if entry["source"] == self.digests.get(entry["file"]) and (
                entry["tests"] == self.tests or entry["result"] == "no code"):
            self.known[entry["key"]] = entry

    def add(self, fault, result, by, scope):
        entry = {"key": self.key(fault), "file": fault.file, "result": result, "by": by, "scope": scope,
                 "source": self.digests[fault.file], "tests": self.tests}
        with self.lock:
            self.take(entry)
            with JOURNAL.open("a", encoding="utf-8") as out:
                out.write(json.dumps(entry) + "\n")

    def result_of(self, fault, scope):
        """(result, test) or None. A survivor of other tests than these is unknown."""
        entry = self.known.get(self.key(fault))
        if not entry or entry["result"] == "survived" and entry["scope"] != scope:
            return None
        return entry["result"], entry["by"]


def read_equal():
    """The faults that change nothing: blocks of a file, "- line", "+ line" and why."""
    listed = {}
    for block in re.split(r"\n\s*\n", EQUAL.read_text(encoding="utf-8")) if EQUAL.is_file() else []:
        lines = [line for line in block.strip().split("\n") if line and not line.startswith("#")]
        if not lines:
            continue
        if len(lines) < 4 or lines[1][:2] != "- " or lines[2][:2] != "+ ":
            raise Stop(f"{EQUAL}: a block is file, \"- line\", \"+ line\", why; here:\n{block}")
        file = lines[0].split(":")[0]
        if not (ROOT / file).is_file() or lines[1][2:] not in {
                line.strip() for line in (ROOT / file).read_text(encoding="utf-8").split("\n")}:
            print(f"{EQUAL.name}: {file} no longer holds: {lines[1][2:]}", file=sys.stderr)
        listed[(file, lines[1][2:].strip(), lines[2][2:].strip())] = " ".join(lines[3:])
    return listed


class Worker:
    """A folder with the one faulty file, its objects and what was linked from them."""

    def __init__(self, number, builder, tests, first_binary, runner, journal):
        self.folder = WORK / f"worker-{number}"
        self.builder, self.tests, self.first_binary = builder, tests, first_binary
        self.runner, self.journal = runner, journal

    def compile(self, fault):
        """False where it does not compile. Leaves the library, and for a header the first tests, in the folder."""
        shutil.rmtree(self.folder, ignore_errors=True)
        faulty = self.folder / "overlay" / fault.file.removeprefix("src/")
        faulty.parent.mkdir(parents=True)
        lines = (MIRROR / fault.file).read_text(encoding="utf-8").split("\n")
        lines[fault.line - 1] = fault.after
        faulty.write_text("\n".join(lines), encoding="utf-8")
        made = {}
        for source in self.builder.sources_of(fault.file, self.first_binary):
            target = self.folder / f"{len(made)}.o"
            words = [word for word in self.builder.compiles[source] if not word.endswith("ccache")]
            place = words.index("-o")
            compiled = faulty if source == fault.file else MIRROR / source
            command = words[:place] + ["-w", "-iquote", str(self.folder / "overlay"), "-iquote",
                                       str((MIRROR / source).parent), "-o", str(target), "-c", str(compiled)]
            command = [word for word in command if word not in ("-MD", "-MT", "-MF")
                       and not word.endswith((".o.d", self.builder.objects[source]))]
            if self.runner.run(command, dict(os.environ), 300) != 0:
                return False
            made[self.builder.objects[source]] = str(target)
        return self.link(made, "libtarvane.so") and (
            fault.file.endswith(".cpp") or self.link(made, f"tests/{self.first_binary}"))

    def link(self, made, target):
        words = shlex.split(self.builder.link_of(target).removeprefix(": && ").removesuffix(" && :"))
        output = str(self.folder / Path(target).name)
        words = [made.get(word, output if word == target else word) for word in words]
        return self.runner.run(words, dict(os.environ), 300) == 0

    def ordered(self, fault):
        """The likely killers first: those of this file so far, those named like it, then by time."""
        kills = self.journal.kills.get(fault.file, [])[:6]
        stem = Path(fault.file).stem

        def rank(test):
            likely = kills.index(test.full_name()) if test.full_name() in kills else len(kills)
            resembles = stem in test.file or Path(test.file).stem.removesuffix("_test") in stem
            return likely, not resembles and test.seconds > 0.5, test.seconds

        return sorted(self.tests, key=rank)

    def run(self, fault):
        """("caught", test), ("survived", "") or ("no code", "")."""
        if not self.compile(fault):
            return "no code", ""
        for test in self.ordered(fault):
            own = self.folder / test.binary
            command = [str(own if own.is_file() else OUT / "tests" / test.binary), f"--gtest_filter={test.name}"]
            with tempfile.TemporaryDirectory(prefix="tarvane-mutate-", ignore_cleanup_errors=True) as folder:
                status = self.runner.run(command, environment_of(folder, self.folder),
                                         TIME_FACTOR * test.seconds + TIME_MORE)
            if status != 0:
                return "caught", test.full_name()
        return "survived", ""
