#!/usr/bin/env python3
"""Puts small random faults into the code, one at a time, and reports those that no test detects.

    tools/mutants.py [--window] [--in FOLDER] [COUNT [SEED]]

A fault is one of: a comparison turned, a condition dropped, a constant one off, a call removed. Each
fault is put into a copy of the tree below build/, which is built and tested there. A fault that does
not compile is replaced by another one. The script prints the faults that survive, and then the share
that was detected for each folder of src/. EQUALS lists survivors that were examined and have no
visible effect, with the reason; they are counted separately.
"""

import argparse
import collections
import concurrent.futures
import itertools
import json
import os
import pathlib
import queue
import random
import re
import resource
import signal
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
EQUALS = ROOT / "tools/mutants_equal.txt"
QUICK = 0.05  # seconds; slower tests run last
MOST_MEMORY = 8 << 30

Fault = collections.namedtuple("Fault", "file line kind start end text before after")
Test = collections.namedtuple("Test", "name file seconds")

# ---- Where faults can be put -------------------------------------------------------------------

NO_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])+\'|'
    r"^[ \t]*#(?:\\\n|[^\n])*|\bstatic_assert\([^;]*;", re.DOTALL | re.MULTILINE)
TURNED = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
COMPARISON = re.compile(r"(?<= )(<|<=|>|>=|==|!=)(?=\s)")
CONDITION = re.compile(r"\b(?:if|while) (\()|(?<=[ \n])(&&|\|\|)(?=\s)|(?<=[ (])(!)(?=[\w(:])")
CONSTANT = re.compile(r"(?<![\w.'])(0x[0-9a-fA-F']+|\d[\d']*)([uUlL]*)(?![\w.'])")
CALL = re.compile(r"^[ \t]*(?!return\b|delete\b)\*?(?:::)?\w+(?:(?:\.|->|::)\w+)*(\()", re.MULTILINE)
HERE = {"__SSE2__", "__linux__", "__GLIBC__", "QUORVEL_SOURCE_DATA"}  # the macros that the copies are built with
BRACKETS = {"(": ")", "[": "]", "{": "}"}


def without(text):
    return re.sub(r"[^\n]", " ", text)


def without_foreign(source):
    """The source with blanks instead of lines for other systems."""
    lines = []
    shown = [True]
    for line in source.splitlines(keepends=True):
        if match := re.match(r"#(if|ifdef|ifndef)\b\s*(\w*)", line):
            shown.append({"ifdef": match.group(2) in HERE, "ifndef": match.group(2) not in HERE,
                          "if": True}[match.group(1)])
        elif line.startswith("#else"):
            shown[-1] = not shown[-1]
        elif line.startswith("#endif"):
            shown.pop()
        lines.append(line if all(shown) else without(line))
    return "".join(lines)


def blanked(source):
    """The source with blanks instead of comments, strings, directives and lines for other systems.
    All positions stay the same."""
    return NO_CODE.sub(lambda match: without(match.group()), without_foreign(source))


def end_of(code, start, stops):
    """The end of the code that begins at `start`: one of `stops`, or an unmatched closing bracket."""
    depth = 0
    for place in range(start, len(code)):
        if code[place] in BRACKETS:
            depth += 1
        elif code[place] in BRACKETS.values():
            depth -= 1
            if depth < 0:
                return place
        elif depth == 0 and any(code.startswith(stop, place) for stop in stops):
            return place
    return None


def dropped_conditions(code):
    for match in CONDITION.finditer(code):
        opening, joint, negation = match.groups()
        if negation:
            yield match.start(3), match.end(3), ""
        elif joint:
            end = end_of(code, match.end(2), [" && ", " || ", "\n&& ", "&&\n", "||\n", ";", ",", " ? ", " : "])
            yield match.end(2), end, " true" if joint == "&&" else " false"
        else:
            start, end = match.end(1), end_of(code, match.end(1), [])
            last = code.rfind(";", start, end)
            start = start if last < 0 else last + 1
            if re.search(r"[^=!<>]=[^=]", code[start:end]) is None:
                loops = code.startswith("while", match.start())
                for value in ["false"] if loops else ["true", "false"]:
                    yield start, end, " " + value if last >= 0 else value


def removed_calls(code):
    for match in CALL.finditer(code):
        end = end_of(code, match.end(1), [])
        if end is not None and code.startswith(");", end):
            start = match.start() + len(match.group()) - len(match.group().lstrip())
            yield start, end + 1, ""


def constants_one_off(code):
    for match in CONSTANT.finditer(code):
        digits = match.group(1).replace("'", "")
        octal = re.fullmatch("0[0-7]+", digits)
        value = int(digits, 8 if octal else 0)
        for near in (value + 1, value - 1):
            if near >= 0:
                yield match.start(), match.end(), (f"0{near:o}" if octal else str(near)) + match.group(2)


def sites(code):
    """All faults of a blanked source: a list of (start, end, text) for each kind."""
    return {
        "comparison turned": [(m.start(), m.end(), TURNED[m.group()])
                              for m in COMPARISON.finditer(code)],
        "condition dropped": list(dropped_conditions(code)),
        "constant one off": list(constants_one_off(code)),
        "call removed": list(removed_calls(code)),
    }


def lines_around(source, start, end):
    """The complete lines that contain a part of the source, joined to one line."""
    first = source.rfind("\n", 0, start) + 1
    last = source.find("\n", end)
    return " ".join(source[first:last].split())


def all_faults(files):
    """All faults by kind and line. Lines are drawn, so that long tables do not get more faults."""
    faults = collections.defaultdict(lambda: collections.defaultdict(list))
    for file in files:
        source = (ROOT / file).read_text()
        for kind, places in sites(blanked(source)).items():
            for start, end, text in places:
                line = source.count("\n", 0, start) + 1
                changed = source[:start] + text + source[end:]
                faults[kind][file, line].append(
                    Fault(file, line, kind, start, end, text, lines_around(source, start, end),
                          lines_around(changed, start, start + len(text))))
    return faults


def drawn(faults, draw):
    """The faults in random order without repetition, all kinds equally often."""
    orders = []
    for kind in sorted(faults):
        lines = [draw.choice(faults[kind][line]) for line in sorted(faults[kind])]
        draw.shuffle(lines)
        orders.append(lines)
    while any(orders):
        for order in orders:
            if order:
                yield order.pop()


# ---- Building and testing a copy ---------------------------------------------------------------


class Copy:
    """A copy of the tree in its own folder, with its build."""

    def __init__(self, folder, window):
        self.tree = folder / "tree"
        self.window = window
        self.build = self.tree / "build/mutants"
        self.program = self.build / ("quorvel_window_tests" if window else "quorvel_tests")
        self.tests = []  # of type Test

    def run(self, command, timeout=None):
        """Whether a command succeeds within the timeout. Its output goes to the log."""
        with open(self.tree.parent / "log", "wb") as log:
            process = subprocess.Popen(
                command, cwd=self.tree, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                start_new_session=True,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY,) * 2))
            try:
                return process.wait(timeout) == 0
            except subprocess.TimeoutExpired:
                return False
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
                process.wait()

    def update(self):
        """Updates the copy from the tree. Unchanged files keep their time."""
        listed = subprocess.run(["git", "ls-files", "-z", "-co", "--exclude-standard"], cwd=ROOT,
                                check=True, capture_output=True).stdout.decode().split("\0")
        wanted = {name for name in listed if name and (ROOT / name).is_file()}
        for file in [file for file in self.tree.rglob("*") if file.is_file()]:
            name = str(file.relative_to(self.tree))
            if not name.startswith("build/") and name not in wanted:
                file.unlink()
        for name in wanted:
            here, there = ROOT / name, self.tree / name
            if not there.is_file() or here.read_bytes() != there.read_bytes():
                there.parent.mkdir(parents=True, exist_ok=True)
                there.write_bytes(here.read_bytes())
                there.chmod(here.stat().st_mode)

    def make(self):
        return self.run(["cmake", "--build", "build/mutants", "--parallel", "1", "--target",
                         self.program.name])

    def prepare(self):
        """Builds the copy without faults and measures its tests, all of which must pass."""
        self.update()
        configure = ["cmake", "--preset", "mutants", f"-DQUORVEL_WINDOW={'ON' if self.window else 'OFF'}"]
        results = self.build / "results.json"
        if not (self.run(configure) and self.make() and
                self.test("-Faults.*", None, f"--gtest_output=json:{results}")):
            sys.exit((self.tree.parent / "log").read_text() + "\nThe tests fail without any fault.")
        for suite in json.loads(results.read_text())["testsuites"]:
            for test in suite["testsuite"]:
                self.tests.append(Test(f"{suite['name']}.{test['name']}", test["file"],
                                       float(test["time"].rstrip("s"))))

    def test(self, names, timeout, *options):
        server = [self.tree / "tools/with_x_server.sh"] if self.window else []
        return self.run([*server, self.program, f"--gtest_filter={names}", "--gtest_fail_fast",
                         "--gtest_brief=1", *options], timeout)

    def passes(self, file):
        """Whether all tests pass. The order is: tests of the file, fast tests of its folder, other fast
        tests, slow tests."""
        own = file.replace("src/", "tests/").rsplit(".")[0] + "_test.cpp"

        def order(test):
            is_own = test.file.endswith(own)
            is_near = test.file.rsplit("/", 1)[0].endswith(own.rsplit("/", 1)[0])
            return (not is_own, test.seconds > QUICK, not is_near) if not self.window else (not is_own,)

        groups = [list(group) for _, group in itertools.groupby(sorted(self.tests, key=order), order)]
        return all(self.test(":".join(test.name for test in group),
                             10 + 5 * sum(test.seconds for test in group)) for group in groups)

    def survives(self, fault):
        """Whether no test detects the fault, or None if it does not compile."""
        file = self.tree / fault.file
        source = file.read_text()
        file.write_text(source[:fault.start] + fault.text + source[fault.end:])
        try:
            return self.passes(fault.file) if self.make() else None
        finally:
            file.write_text(source)


# ---- Reports -----------------------------------------------------------------------------------


def known_equals():
    """The faults without visible effect: (file, before, after) of each block of EQUALS."""
    equals = set()
    for block in EQUALS.read_text().split("\n\n"):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        if lines:
            file, before, after, reason = lines[0], lines[1], lines[2], lines[3:]
            if not (before.startswith("- ") and after.startswith("+") and reason):
                sys.exit(f"{EQUALS}: not a file, its line before and after, and a reason:\n{block}")
            equals.add((file, before[2:], after[2:]))
    return equals


def gone(equals):
    """The entries whose line is no longer in its file."""
    def stands(file, before):
        return (ROOT / file).is_file() and before in " ".join((ROOT / file).read_text().split())
    return [equal for equal in sorted(equals) if not stands(equal[0], equal[1])]


def tell(fault, survivor):
    if survivor:
        print(f"\n{fault.file}:{fault.line}: {fault.kind}\n- {fault.before}\n+ {fault.after}", flush=True)
    else:
        print(".", end="", flush=True)


def print_shares(results):
    """results: (fault, "noticed" or "equal" or "survives") of each."""
    folders = collections.defaultdict(collections.Counter)
    for fault, result in results:
        folders[fault.file.split("/")[1]][result] += 1
        folders["all"][result] += 1
    print(f"\n\n{'folder':<10} {'faults':>6} {'equal':>6} {'noticed':>8} {'share':>6}")
    for folder in sorted(folders, key=lambda name: (name == "all", name)):
        counts = folders[folder]
        tried = counts["noticed"] + counts["survives"]
        share = f"{100 * counts['noticed'] / tried:.0f} %" if tried else "-"
        print(f"{folder:<10} {sum(counts.values()):>6} {counts['equal']:>6} {counts['noticed']:>8} "
              f"{share:>6}")


def try_faults(copies, faults, count, equals):
    """The results of the first `count` faults that compile, in the order of completion."""
    free = queue.Queue()
    for copy in copies:
        free.put(copy)

    def tried(fault):
        copy = free.get()
        try:
            return fault, copy.survives(fault)
        finally:
            free.put(copy)

    results = []
    with concurrent.futures.ThreadPoolExecutor(len(copies)) as pool:
        running = set()
        while len(results) < count:
            wanted = min(len(copies), count - len(results))
            running |= {pool.submit(tried, fault)
                        for fault in [next(faults, None) for _ in range(wanted - len(running))] if fault}
            if not running:
                break
            done, running = concurrent.futures.wait(running,
                                                    return_when=concurrent.futures.FIRST_COMPLETED)
            for fault, survives in (future.result() for future in done):
                if survives is not None:
                    equal = (fault.file, fault.before, fault.after) in equals
                    results.append((fault, "noticed" if not survives else
                                    "equal" if equal else "survives"))
                    tell(fault, results[-1][1] == "survives")
    return results


def main():
    options = argparse.ArgumentParser(prog="./dev mutants", description=__doc__,
                                      formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("--window", action="store_true", help="faults in src/ui, tested by the window's tests")
    options.add_argument("--in", dest="folder", default="", metavar="FOLDER", help="only in this folder")
    options.add_argument("count", nargs="?", type=int, default=60, help="how many faults (60)")
    options.add_argument("seed", nargs="?", type=int, help="repeats the faults of an earlier run")
    chosen = options.parse_args()
    seed = chosen.seed if chosen.seed is not None else random.SystemRandom().randrange(1_000_000)

    files = [str(file.relative_to(ROOT)) for file in sorted((ROOT / "src").rglob("*"))
             if file.suffix in (".cpp", ".h")]
    files = [file for file in files if file.startswith("src/ui/") == chosen.window and
             file.startswith(chosen.folder.rstrip("/"))]
    equals = known_equals()
    for file, before, after in gone(equals):
        print(f"{EQUALS.name}: no longer in {file}: {before}")

    kind = "window" if chosen.window else "core"
    folder = ROOT / "build/mutants"
    jobs = os.environ.get("CMAKE_BUILD_PARALLEL_LEVEL") or os.cpu_count() or 1
    copies = [Copy(folder / f"{kind}-{number}", chosen.window) for number in range(int(jobs))]
    with concurrent.futures.ThreadPoolExecutor(len(copies)) as pool:
        list(pool.map(Copy.prepare, copies))
    print(f"Seed {seed}; {sum(test.seconds for test in copies[0].tests):.0f} s of tests", flush=True)
    print_shares(try_faults(copies, drawn(all_faults(files), random.Random(seed)), chosen.count, equals))


if __name__ == "__main__":
    main()
