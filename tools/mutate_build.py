"""A mirror of the tree, its build, and what a fault makes of them.

The mirror is built once with the library as a shared object. A faulty file stands in a worker's own folder and is
compiled in the place of the mirror's, by the mirror's own command; neither tree nor mirror is touched.
"""
import collections
import hashlib
import json
import os
import shlex
import shutil
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
WORK = ROOT / "build-mutate"
MIRROR, OUT = WORK / "source", WORK / "out"
# What the tests of a folder start, beside themselves.
NEEDS = {"test_app": ["tarvane"], "test_aircraft": ["acf_dump", "acf_make"], "test_tools": ["all"],
         "test_content": ["all"]}


class Stop(Exception):
    """Ends the run with a word to the user."""


def run_quietly(command, what, cwd=None):
    result = subprocess.run(command, cwd=cwd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode:
        raise Stop(f"{what} failed:\n{result.stdout[-4000:]}")
    return result.stdout


def tree_files():
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"], cwd=ROOT, check=True,
                            stdout=subprocess.PIPE, text=True).stdout.split("\n")
    return sorted(name for name in listed if name and (ROOT / name).is_file())


def mirror():
    """Brings the mirror to the tree's contents; what is the same keeps its time, so that nothing is built twice.
    Gives a digest of each file."""
    digests = {}
    names = tree_files()
    for name in names:
        data = (ROOT / name).read_bytes()
        target = MIRROR / name
        if not target.is_file() or target.read_bytes() != data:
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(ROOT / name, target)
            shutil.copymode(ROOT / name, target)
        digests[name] = hashlib.sha1(data).hexdigest()[:16]
    for path in MIRROR.rglob("*"):
        if path.is_file() and path.relative_to(MIRROR).as_posix() not in digests:
            path.unlink()
    return digests


def digest_of(digests, folders):
    """One digest of all files of some folders."""
    lines = [f"{name} {digest}" for name, digest in sorted(digests.items()) if name.startswith(tuple(folders))]
    return hashlib.sha1("\n".join(lines).encode()).hexdigest()[:16]


def test_folders(binaries):
    return ["tests/support/", "tests/data/"] + [f"tests/{binary.removeprefix('test_')}/" for binary in binaries]


def build(binaries, jobs):
    if not (OUT / "build.ninja").is_file():
        run_quietly(["cmake", "-S", str(MIRROR), "-B", str(OUT), "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                     "-DCMAKE_CXX_FLAGS=-O1", "-DBUILD_SHARED_LIBS=ON", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON",
                     "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld -Wl,--enable-new-dtags",
                     "-DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=lld", "-DTARVANE_TESTS=ON"], "cmake")
    targets = binaries + sorted({need for binary in binaries for need in NEEDS.get(binary, [])})
    run_quietly(["ninja", f"-j{jobs}", "libtarvane.so", *targets], "the build", OUT)


class Build:
    """How the mirror's objects and links are made."""

    def __init__(self):
        self.compiles = {}  # source in the mirror, from its root: command
        self.objects = {}   # the same: object from OUT
        for entry in json.loads(run_quietly(["ninja", "-t", "compdb"], "ninja", OUT)):
            words = entry["command"]
            if " -c " not in words or not entry["file"].endswith(".cpp"):
                continue
            source = Path(os.path.normpath(OUT / entry["file"]))
            if source.is_relative_to(MIRROR):
                name = source.relative_to(MIRROR).as_posix()
                self.compiles[name] = shlex.split(words)
                self.objects[name] = entry["output"]
        self.links = {}
        self.deps = self.read_deps()

    def read_deps(self):
        """Of each object the files of the mirror that it was compiled from."""
        deps, current = collections.defaultdict(set), None
        for line in run_quietly(["ninja", "-t", "deps"], "ninja", OUT).split("\n"):
            if line.startswith("    "):
                path = Path(os.path.normpath(OUT / line.strip()))
                if path.is_relative_to(MIRROR):
                    deps[current].add(path.relative_to(MIRROR).as_posix())
            elif ":" in line:
                current = line.split(":")[0]
        return deps

    def link_of(self, target):
        """The command that links a target."""
        if target not in self.links:
            commands = run_quietly(["ninja", "-t", "commands", target], "ninja", OUT)
            self.links[target] = commands.strip().split("\n")[-1]
        return self.links[target]

    def sources_of(self, file, first_binary):
        """The sources that are compiled again for a fault in a file."""
        if file.endswith(".cpp"):
            return [file]
        own = Path(file).parent.as_posix() + "/"
        tests = f"tests/{first_binary.removeprefix('test_')}/"
        return [name for name, made in self.objects.items()
                if name.startswith((own, tests)) and file in self.deps[made]]
