#!/usr/bin/env python3
"""Makes small faults in the code, one at a time, and tells which of them no test notices.

Works on clones of the last commit in a temporary folder. The same commit, seed and count give the same faults. A fault
that does not compile, or from which the optimising compiler makes the same programs as without it, is replaced by the
next. docs/reliability.md may name faults whose effect nobody can see, one to a line (- `file`: `line` -> `faulty
line`: why); they are counted apart.
"""
import argparse
import bisect
import collections
import concurrent.futures
import filecmp
import itertools
import os
import pathlib
import queue
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("foundation", "headers", "source", "builder", "driver", "image")
PROGRAMS = ["kelvra", "tests/kelvra_tests"]
COMPANION = "kelvra-image"
SKIPPED = 77  # a test's exit status where it cannot run
# Faults may ask for any amount of memory or file.
LIMITS = {resource.RLIMIT_AS: 4 << 30, resource.RLIMIT_FSIZE: 16 << 30, resource.RLIMIT_CORE: 0}

TURNED = {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
          "+": ["-"], "-": ["+"], "+=": ["-="], "-=": ["+="], "++": ["--"], "--": ["++"], "&&": ["||"], "||": ["&&"],
          "&": ["|"], "|": ["&"], "<<": [">>"], ">>": ["<<"], "true": ["false"], "false": ["true"]}
# Comments, texts, directives and static_asserts stay without faults.
HIDDEN = re.compile(r"""//[^\n]* | /\*.*?\*/ | "(?:\\.|[^"\\\n])*" | (?<!\w)'(?:\\.|[^'\\\n])+' | ^[ ]*\#[^\n]* |
                    \bstatic_assert\b[^;]*;""", re.X | re.S | re.M)
# Blanks tell binary operators from the brackets of templates, from signs and from references.
OPERATOR = re.compile(r"(?<= )(?:[=!<>+-]=|<<|>>|&&|\|\||[<>+&|-])(?=\s)|(?<!operator)(?:\+\+|--)|\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9a-fA-F]+|[1-9]\d*|0)(?=[uUlL]*(?![\w.]))")
CONTROL = re.compile(r"\b(if|while|for)(?: constexpr)? \(")
CHOICE = re.compile(r"(?:\breturn|(?<= )=) ([^?;=\n]+) \? ")
# An expression statement of one line: no jump, no declaration.
STATEMENT = re.compile(r"""(?!(?:if|for|while|switch|else|case|default|return|break|continue|virtual|explicit)\b)
                       (?!(?!throw|delete)[\w:]+(?:<.*>)?[&*]*[ ]+\w) (?!\w+[ ]\(|\w+\(const[ ]|.*=[ ](?:delete|default);)
                       [\w*(+-][^;{}\n]*;""", re.X)
STATEMENT_PLACE = re.compile(r"[;{}]\s*\n\s*|\{ |\belse ")
NAMED = re.compile(r"- `([^`]+)`: `(.+?)` -> `(.+?)`: ")

Fault = collections.namedtuple("Fault", "file line start end text before after")


def closing(code, opening):
    """The index of the bracket that closes the one at `opening`."""
    depth = 0
    for bracket in re.compile(r"[()]").finditer(code, opening):
        depth += 1 if bracket[0] == "(" else -1
        if depth == 0:
            return bracket.start()
    return len(code)


def negated(condition):
    """The condition turned round; a declaration in it is kept and its variable turned round."""
    declaration = re.match(r"[^(]*?(\w+) = ", condition)
    return f"{condition}; !{declaration[1]}" if declaration else f"!({condition})"


def replacements(text):
    """Yields start, end and replacement of every fault of a text."""
    code = HIDDEN.sub(lambda m: re.sub(r"[^\n]", "." if m[0][0] in "\"'" else " ", m[0]), text)
    for m in OPERATOR.finditer(code):
        yield from ((m.start(), m.end(), other) for other in TURNED[m[0]])
    for m in NUMBER.finditer(code):
        for value in (int(m[1], 0) + 1, int(m[1], 0) - 1):
            if value >= 0:
                yield m.start(), m.end(), f"0x{value:0{len(m[1]) - 2}X}" if m[1][1:2] in ("x", "X") else str(value)
    places = [m.end() for m in STATEMENT_PLACE.finditer(code)]
    for m in CONTROL.finditer(code):
        start, end = m.end(), closing(code, m.end() - 1)
        places.append(end + 2)
        if m[1] == "for":
            middle = re.match(r"[^;]*; ([^;]+);", code[start:end])
            start, end = (start + middle.start(1), start + middle.end(1)) if middle else (end, end)
        if code[start:end] and "\n" not in code[start:end]:
            yield start, end, negated(text[start:end])
    for m in CHOICE.finditer(code):
        if m[1].count("(") == m[1].count(")"):
            yield m.start(1), m.end(1), negated(text[m.start(1):m.end(1)])
    for statement in filter(None, (STATEMENT.match(code, place) for place in places)):
        yield statement.start(), statement.end(), ";"
        yield statement.start(), statement.start(), "return; "


def faults_of(tree, folders, only, seed):
    """All faults in the order in which they are tried: one of each line, in random order, then a second of each."""
    rounds = []
    choose = random.Random(seed)
    for path in sorted(path for folder in folders for path in (tree / folder).iterdir()):
        file = str(path.relative_to(tree))
        if path.suffix not in (".h", ".cpp") or only not in (None, file):
            continue
        text = path.read_text()
        line_starts = [0] + [m.end() for m in re.finditer("\n", text)]
        lines = collections.defaultdict(list)
        for start, end, new in replacements(text):
            line = bisect.bisect_right(line_starts, start)
            begin, stop = line_starts[line - 1], text.index("\n", end)
            after = text[begin:start] + new + text[end:stop]
            lines[line].append(Fault(file, line, start, end, new, text[begin:stop].strip(), after.strip()))
        for faults in lines.values():
            choose.shuffle(faults)
            rounds += [(turn, choose.random(), fault) for turn, fault in enumerate(faults)]
    return [fault for _, _, fault in sorted(rounds)]


def clone(tree):
    subprocess.run(["git", "clone", "--quiet", "--shared", ROOT, tree], check=True)


class Worker:
    """A clone with a build folder of its own. The build without a fault is kept and put back after each fault."""

    def __init__(self, folder, build_jobs, with_image):
        self.tree, self.build, self.clean, self.temporary = (folder / n for n in ("tree", "build", "clean", "tmp"))
        self.programs = PROGRAMS + [COMPANION] * with_image
        targets = [pathlib.Path(program).name for program in self.programs]
        self.make = ["cmake", "--build", self.build, "--target", *targets, "-j", str(build_jobs)]
        clone(self.tree)
        subprocess.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_CXX_FLAGS=-w",
                        "-DCMAKE_BUILD_TYPE=Release", f"-DKELVRA_IMAGE={'ON' if with_image else 'OFF'}",
                        "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"], check=True, stdout=sys.stderr)
        subprocess.run(self.make, check=True, stdout=sys.stderr)
        shutil.copytree(self.build, self.clean)
        begin = time.monotonic()
        if self.test("image/" if with_image else "", 600) != "survived":
            sys.exit("mutants.py: a test fails without a fault")
        self.time_limit = 10 + 10 * (time.monotonic() - begin)

    def test(self, file, time_limit):
        kelvra, tests, image = (self.build / program for program in (*PROGRAMS, COMPANION))
        commands = [[tests, "--gtest_fail_fast"], [self.tree / "tests/kept.sh", kelvra]]
        if file.startswith("image/"):
            commands += [[self.tree / "tests/image.py", kelvra, image], [self.tree / "tests/build.sh", kelvra, image]]
        for command in commands:
            result = self.result_of(command, time_limit)
            if result != "survived":
                break
        return result

    def result_of(self, command, time_limit):
        self.temporary.mkdir()
        with subprocess.Popen(command, cwd=self.temporary, env=os.environ | {"TMPDIR": str(self.temporary)},
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              start_new_session=True) as tests:
            try:
                result = "survived" if tests.wait(time_limit) in (0, SKIPPED) else "seen"
            except subprocess.TimeoutExpired:
                result = "too long"
                os.killpg(tests.pid, signal.SIGKILL)
        shutil.rmtree(self.temporary)
        return result

    def run(self, fault):
        file = self.tree / fault.file
        text, status = file.read_text(), file.stat()
        file.write_text(text[:fault.start] + fault.text + text[fault.end:])
        if subprocess.run(self.make, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode != 0:
            result = "not compiled"
        elif all(filecmp.cmp(self.build / program, self.clean / program, shallow=False) for program in self.programs):
            result = "same code"
        else:
            result = self.test(fault.file, self.time_limit)
        file.write_text(text)
        os.utime(file, ns=(status.st_atime_ns, status.st_mtime_ns))
        shutil.rmtree(self.build)
        shutil.copytree(self.clean, self.build)
        return result


def try_faults(faults, count, jobs, folder, with_image):
    """Tries faults until `count` of them compiled to other code; yields each with its result and its seconds."""
    workers = queue.Queue()
    build_jobs = max(1, (os.cpu_count() or 1) // jobs)

    def run(fault):
        worker = workers.get()
        try:
            begin = time.monotonic()
            return fault, worker.run(fault), time.monotonic() - begin
        finally:
            workers.put(worker)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for worker in pool.map(lambda n: Worker(folder / str(n), build_jobs, with_image), range(jobs)):
            workers.put(worker)
        waiting = iter(faults)
        while batch := list(itertools.islice(waiting, count)):
            for fault, result, seconds in pool.map(run, batch):
                count -= result not in ("not compiled", "same code")
                yield fault, result, seconds


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--seed", type=int, default=1, help="which faults (default 1)")
    parser.add_argument("--count", type=int, default=20, help="how many are tried (default 20)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="how many at once (default: one a processor)")
    parser.add_argument("--only", metavar="FILE", help="only in this file, named from the repository's root")
    parser.add_argument("--folders", nargs="+", default=FOLDERS, choices=FOLDERS, metavar="FOLDER",
                        help="only in these folders (default: all of the code)")
    parser.add_argument("--list", action="store_true", help="print the faults and try none")
    arguments = parser.parse_args()
    if arguments.jobs < 1 or arguments.count < 1:
        parser.error("--jobs and --count begin at 1")
    missing = [tool for tool in ("git", "cmake", "ninja", "c++") if not shutil.which(tool)]
    if missing:
        sys.exit("mutants.py: missing: " + ", ".join(missing))
    documented = ROOT / "docs/reliability.md"
    named = set(NAMED.findall(documented.read_text())) if documented.exists() else set()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    for limit, most in LIMITS.items():
        resource.setrlimit(limit, (most, most))

    with tempfile.TemporaryDirectory(prefix="kelvra-mutants-") as name:
        folder = pathlib.Path(name)
        clone(folder / "tree")
        faults = faults_of(folder / "tree", arguments.folders, arguments.only, arguments.seed)
        if not faults:
            parser.error(f"no place for a fault in {arguments.only}")
        if arguments.list:
            for fault in faults[:arguments.count]:
                print(f"{fault.file}:{fault.line}: {fault.before} -> {fault.after}")
            return
        with_image = "image" in arguments.folders  # without it a fault takes a third of the time
        counts = collections.Counter()
        begin = time.monotonic()
        for fault, result, seconds in try_faults(faults, arguments.count, arguments.jobs, folder, with_image):
            shown = f"{fault.file}:{fault.line}: {fault.before} -> {fault.after}"
            if result == "survived" and (fault.file, fault.before, fault.after) in named:
                result = "named"
            if result in ("survived", "named"):
                print(shown if result == "survived" else f"named: {shown}", flush=True)
            counts[result] += 1
            print(f"[{counts.total()}] {result}, {seconds:.1f} s: {shown}", file=sys.stderr, flush=True)
    tried = counts.total() - counts["not compiled"] - counts["same code"]
    print(f"{tried} tried: {counts['seen'] + counts['too long']} seen ({counts['too long']} by the time limit), "
          f"{counts['survived']} survived, {counts['named']} named; {counts['not compiled']} not compiled, "
          f"{counts['same code']} same code; {time.monotonic() - begin:.0f} s")


if __name__ == "__main__":
    main()
