#!/usr/bin/env python3
"""Mutation run: how many planted faults does the test suite catch?

From a seed, plants one fault at a time in a library source (an operator
swapped, a comparison off by one, a constant nudged, a condition negated, a
statement dropped), rebuilds the family's test program incrementally, runs it,
and puts the source back - always, also on Ctrl-C or a kill. A fault the build
rejects does not count; a fault the tests miss is a survivor, listed for a
human to judge (some are equivalent: they cannot change any result).

    tools/mutate.py --build build/mutate --seed 1 --count 100
    tools/mutate.py --family clip --seed 7 --count 40 --list

The build folder must be configured already (any preset with tests). Sites are
enumerated in a fixed order and drawn with random.Random(seed), so the same
seed plants the same faults as long as the sources are the same.
"""
import argparse
import os
import random
import re
import signal
import subprocess
import sys
import time

FAMILIES = ["foundation", "numbers", "analysis", "linear", "matrix",
            "geometry", "clip", "transform"]
# A family's tests are its own suite; the foundation's shared machinery (the
# elementary functions, the row kernels and pivot search) is tested where it
# is used too.
SUITES = {"foundation": ["test_foundation", "test_elementary", "test_linear", "test_matrix"]}
# Every fault also faces the result digests of all functions against the
# checked-in golden file, as the test stage does.
DIGEST = "qel_digest"
# Generated tables and their generator are data, not library code: a nudged
# digit there says nothing about the tests.
GENERATED = re.compile(r"(^|/)(tables\.cpp|[^/]*_table\.cpp)$|/tables/")

# Each operator: name, pattern, replacement function. Binary operators are
# matched with the spaces around them that the house style writes, which keeps
# pointer declarations, dereferences and template brackets out.
SWAPS = {" + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ",
         " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ",
         " == ": " != ", " != ": " == ", " && ": " || ", " || ": " && "}
SWAP_RE = re.compile("|".join(re.escape(k) for k in sorted(SWAPS, key=len, reverse=True)))
NUMBER_RE = re.compile(r"(?<![\w.])(\d+\.\d*(?:[eE][-+]?\d+)?|\d+[eE][-+]?\d+|\d+)(?![\w.])")
IF_RE = re.compile(r"\b(if|while) \(")
STATEMENT_RE = re.compile(r"^\s*[A-Za-z_][\w.\[\]>-]*(\s*[-+*/]?=\s*|\s*\+\+|\s*--|\().*;\s*$")


def strip_comment(line):
    """The code part of a line: no // comment, no string literal contents."""
    code = re.sub(r'"(\\.|[^"\\])*"', lambda m: " " * len(m.group(0)), line)
    cut = code.find("//")
    return code if cut < 0 else code[:cut]


def matching_paren(text, open_at):
    depth = 0
    for i in range(open_at, len(text)):
        if text[i] == "(":
            depth += 1
        elif text[i] == ")":
            depth -= 1
            if depth == 0:
                return i
    return -1


def sites_in(path):
    """Every fault that can be planted in one file, in a fixed order."""
    with open(path, encoding="utf-8") as f:
        lines = f.read().split("\n")
    out = []
    in_block = False
    for no, line in enumerate(lines):
        stripped = line.strip()
        if in_block:
            in_block = "*/" not in stripped
            continue
        if stripped.startswith("/*"):
            in_block = "*/" not in stripped
            continue
        if not stripped or stripped.startswith(("#", "//", "*", "static_assert", "namespace")):
            continue
        code = strip_comment(line)
        for m in SWAP_RE.finditer(code):
            out.append((no, m.start(), m.group(0), SWAPS[m.group(0)], "operator"))
        for m in NUMBER_RE.finditer(code):
            text = m.group(0)
            if any(c in text for c in ".eE"):
                nudged = repr(float(text) * (1 + 2.0 ** -20)) if float(text) else "1e-300"
            else:
                nudged = str(int(text) + 1)
            out.append((no, m.start(), text, nudged, "constant"))
        for m in IF_RE.finditer(code):
            open_at = m.end() - 1
            close = matching_paren(code, open_at)
            if close > 0:
                cond = line[open_at:close + 1]
                out.append((no, open_at, cond, "(!" + cond + ")", "condition"))
        if STATEMENT_RE.match(code) and not re.match(r"\s*(return|const|auto|static|using|typedef)\b", code) \
                and "=" in code and not re.match(r"\s*[A-Za-z_][\w:<>]*\s+[A-Za-z_]\w*\s*=", code):
            out.append((no, 0, line, "", "statement"))
    return lines, out


def library_files(root, families):
    files = []
    for fam in families:
        for dirpath, _, names in os.walk(os.path.join(root, fam)):
            for name in sorted(names):
                rel = os.path.relpath(os.path.join(dirpath, name), root)
                if name.endswith((".cpp", ".h", ".inc")) and not GENERATED.search(rel):
                    files.append(rel)
    return sorted(files)


class Restorer:
    """Puts a mutated file back however the run ends."""

    def __init__(self):
        self.path, self.text = None, None
        for sig in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(sig, self._on_signal)

    def plant(self, path, original, mutated):
        self.path, self.text = path, original
        with open(path, "w", encoding="utf-8") as f:
            f.write(mutated)

    def restore(self):
        if self.path is not None:
            with open(self.path, "w", encoding="utf-8") as f:
                f.write(self.text)
            self.path = None

    def _on_signal(self, signum, _frame):
        self.restore()
        sys.exit(128 + signum)


def run(cmd, timeout, cwd):
    try:
        p = subprocess.run(cmd, cwd=cwd, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                           timeout=timeout)
        return p.returncode
    except subprocess.TimeoutExpired:
        return "timeout"


def main():
    ap = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    ap.add_argument("--root", default=os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    ap.add_argument("--build", default="build/default")
    ap.add_argument("--seed", type=int, default=1)
    ap.add_argument("--count", type=int, default=100, help="faults per family")
    ap.add_argument("--family", action="append", choices=FAMILIES)
    ap.add_argument("--timeout", type=float, default=300, help="seconds per test run")
    ap.add_argument("--list", action="store_true", help="list the faults, plant nothing")
    ap.add_argument("--by-suite", action="store_true",
                    help="run every program on each fault and print which caught it")
    args = ap.parse_args()
    root = os.path.abspath(args.root)
    build = os.path.join(root, args.build) if not os.path.isabs(args.build) else args.build
    families = args.family or FAMILIES

    restorer = Restorer()
    totals = {}
    survivors = []
    for fam in families:
        sites = []
        for rel in library_files(root, [fam]):
            _, found = sites_in(os.path.join(root, rel))
            sites += [(rel,) + s for s in found]
        rng = random.Random(f"{args.seed}:{fam}")
        rng.shuffle(sites)
        caught = planted = stillborn = 0
        targets = SUITES.get(fam, ["test_" + fam])
        for rel, no, col, old, new, kind in sites:
            if planted >= args.count:
                break
            label = f"{rel}:{no + 1} {kind}: {old.strip()!r} -> {new.strip()!r}"
            if args.list:
                print(label)
                planted += 1
                continue
            path = os.path.join(root, rel)
            with open(path, encoding="utf-8") as f:
                original = f.read()
            lines = original.split("\n")
            line = lines[no]
            lines[no] = new if kind == "statement" else line[:col] + new + line[col + len(old):]
            try:
                restorer.plant(path, original, "\n".join(lines))
                built = run(["cmake", "--build", build, "--target", DIGEST] + targets, 900, root)
                if built != 0:
                    stillborn += 1
                    continue
                planted += 1
                runs = [[os.path.join(build, "bin", t), "--gtest_fail_fast", "--gtest_brief=1"]
                        for t in targets]
                runs.append([os.path.join(build, "bin", DIGEST), "--compare",
                             os.path.join(root, "tests", "digest", "golden.txt")])
                result = 0
                catchers = []
                for cmd in runs:
                    outcome = run(cmd, args.timeout, build)
                    if outcome != 0:
                        result = outcome
                        catchers.append(os.path.basename(cmd[0]))
                        if not args.by_suite:
                            break
                if args.by_suite and catchers:
                    print("caught", label, "by", " ".join(catchers), flush=True)
            finally:
                restorer.restore()
            if result == 0:
                survivors.append(label)
                print("survived", label, flush=True)
            else:
                caught += 1
        totals[fam] = (caught, planted, stillborn)
        if not args.list:
            print(f"{fam}: caught {caught} of {planted} ({stillborn} did not build)", flush=True)
    if args.list:
        return 0
    # The sources are back: leave the build folder matching them.
    run(["cmake", "--build", build], 1800, root)
    print("\nfamily        caught / planted")
    all_caught = all_planted = 0
    for fam, (caught, planted, _) in totals.items():
        share = 100.0 * caught / planted if planted else 0.0
        print(f"{fam:12s} {caught:5d} / {planted:<5d} {share:5.1f} %")
        all_caught += caught
        all_planted += planted
    share = 100.0 * all_caught / all_planted if all_planted else 0.0
    print(f"{'overall':12s} {all_caught:5d} / {all_planted:<5d} {share:5.1f} %")
    print("\nsurvivors:")
    for s in survivors:
        print("  " + s)
    return 0


if __name__ == "__main__":
    sys.exit(main())
