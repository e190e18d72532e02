#!/usr/bin/env python3
"""Changes the sample design, and compares what `workbench names` says with a count of its own.

    changes.py PROGRAM SAMPLE

Each change is one row: what it does to the sources, and how the flip-flops' names are then found.
"""
import json
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile

FLIP_FLOP = re.compile(r"^FERN_DFF")
OUTPUT = "Q"
ENUMERATE = {"synth.ys": [("\nautoname\n", "\nrename -enumerate -pattern ff_% t:FERN_DFF*\n")]}
CONSTANT_BIT = ("control <= command;", "control <= command & 8'hf7;")

# Name, edits before, edits after, whether "." and "/" are equal.
CHANGES = [
    ("a constant bit", {}, {"rtl/sample.v": [CONSTANT_BIT]}, False),
    ("an enable added", {}, {"rtl/sample.v": [("pins <= gpio;", "if (mode[0]) pins <= gpio;")]},
     False),
    ("flattened", {}, {"synth.ys": [("\nproc\n", "\nproc\nflatten\n")]}, True),
    ("a register renamed", {}, {"rtl/sample.v": [(r"\bcontrol\b", "settings")]}, False),
    ("an instance renamed", {}, {"rtl/sample.v": [(r"\bu_uart\b", "u_serial")]}, False),
    ("cells renamed by number", ENUMERATE,
     dict(ENUMERATE, **{"rtl/sample.v": [CONSTANT_BIT]}), False),
]


def synthesise(sample, folder, edits):
    shutil.copytree(sample, folder, ignore=shutil.ignore_patterns("*.names"))
    for path, replacements in edits.items():
        path = os.path.join(folder, path)
        with open(path, encoding="utf-8") as file:
            text = file.read()
        for old, new in replacements:
            pattern = old if old.startswith(r"\b") else re.escape(old)
            text, count = re.subn(pattern, lambda _, new=new: new, text)
            assert count, old
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
    subprocess.run(["./synthesise"], cwd=folder, check=True, stdout=subprocess.DEVNULL)
    return os.path.join(folder, "netlist.json")


def identities(path, plain):
    """All names; for every flip-flop the public ones of its net, without those made of cells."""
    with open(path, encoding="utf-8") as file:
        modules = json.load(file)["modules"]
    top = next(n for n, m in modules.items() if "top" in m["attributes"])
    types = {c["type"] for m in modules.values() for c in m["cells"].values()} - {
        n for n, m in modules.items() if "blackbox" not in m["attributes"]}
    pins = {t: "|".join(map(re.escape, modules[t]["ports"])) for t in types}
    made = re.compile("._(" + "|".join(r"%s_(%s)(_\d+)?_(%s)(_\d+)?" % (re.escape(t), p, p)
                                       for t, p in pins.items()) + ")$")
    parent, names, flip_flops = {}, {}, {}

    def find(bit):
        while parent.setdefault(bit, bit) != bit:
            bit = parent[bit]
        return bit

    def walk(module, scope):
        module = modules[module]
        for name, net in module["netnames"].items():
            if net["hide_name"] or made.search(name):
                continue
            bits = net["bits"][::-1] if net.get("upto") else net["bits"]
            for place, bit in enumerate(bits):
                index = "[%d]" % (place + net.get("offset", 0))
                scalar = len(bits) == 1 and "offset" not in net
                names.setdefault((scope, bit), set()).add(
                    scope + name + ("" if scalar else index))
        for name, cell in module["cells"].items():
            if FLIP_FLOP.match(cell["type"]):
                flip_flops[scope + name] = (scope, cell["connections"][OUTPUT][0])
            elif cell["type"] not in types:
                inside = scope + name + "/"
                for port, bits in cell["connections"].items():
                    own = modules[cell["type"]]["ports"][port]["bits"]
                    for outer, inner in zip(bits, own):
                        if isinstance(outer, int) and isinstance(inner, int):
                            parent[find((inside, inner))] = find((scope, outer))
                walk(cell["type"], inside)

    walk(top, "")
    nets = {}
    for bit, called in names.items():
        nets.setdefault(find(bit), set()).update(called)
    spell = (lambda name: name.replace(".", "/")) if plain else (lambda name: name)
    left = {spell(name) for called in names.values() for name in called}
    return left, {spell(name): {spell(n) for n in nets.get(find(bit), ())}
            for name, bit in flip_flops.items()}


def count(before, after, left):
    """What should be said of the names of `before` in the netlist of `after`."""
    counts = {"same": 0, "moved": 0, "missing": 0, "unknown": 0}
    again = {}
    for name, meant in before.items():
        if name not in after:
            state = "missing"
        elif meant & after[name]:
            state = "same"
        else:
            state = "moved" if meant & left else "unknown"
        counts[state] += 1
        if state in ("moved", "missing"):
            found = [n for n, names in after.items() if meant & names]
            if len(found) == 1:
                again[name] = found[0]
    return counts, again


def configuration(names):
    lines = "".join('        <Instance name="%s" value="5"/>\n' % n for n in names)
    return ('<?xml version="1.0" encoding="UTF-8"?>\n<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n'
            "<Config>\n    <Version>1.0</Version>\n    <LocalEnable>\n" + lines +
            "    </LocalEnable>\n</Config>")


def names_in(path):
    with open(path, encoding="utf-8") as file:
        return re.findall(r'<Instance name="([^"]*)"', file.read())


def run(program, path, netlist, *options):
    result = subprocess.run([program, "names", path, "--netlist", netlist, *options],
                            stdout=subprocess.PIPE, check=False)
    assert result.returncode in (0, 1), (options, result.returncode)
    return result.stdout


def compare(title, program, folder, old, new, plain=False):
    before, (left, after) = identities(old, plain)[1], identities(new, plain)
    exact = identities(old, False)[1]
    path = os.path.join(folder, "power.vlr")
    names = sorted(exact)
    with open(path, "w", encoding="utf-8") as file:
        file.write(configuration(names))
    if os.path.exists(path + ".names"):
        os.remove(path + ".names")
    run(program, path, old, "--record")
    review = json.loads(run(program, path, new, "--format", "json"))
    counts, again = count(before, after, left)
    spell = (lambda n: n.replace(".", "/")) if plain else (lambda n: n)
    found = {spell(r["name"]): spell(r.get("proposal", ""))
             for r in review["records"] if r["state"] in ("moved", "missing")}
    wrong = []
    if plain:
        # Letter for letter nothing inside a module is there; what is proposed has to be right.
        right = {n for n, meant in before.items() if found.get(n) and meant & after[found[n]]}
        gone = {n for n in found if not found[n]}
        wrong += [n for n in found if found[n] and n not in right]
        wrong += sorted(gone & set(again))
    else:
        wrong += [] if counts == review["counts"] else [review["counts"]]
        wrong += [n for n in again if found.get(n) != again[n]]
    # What is gone goes, and makes room for the others.
    gone = {r["name"] for r in review["records"]
            if r["state"] in ("moved", "missing") and "proposal" not in r}
    for record in review["records"]:
        record["remove"] = record["name"] in gone
    plan = os.path.join(folder, "plan.json")
    with open(plan, "w", encoding="utf-8") as file:
        json.dump(review, file)
    run(program, path, new, "--plan", plan)
    mended = [spell(n) for n in names_in(path)]
    kept = [spell(n) for n in names if n not in gone]
    moved = [n for n, now in zip(kept, mended) if n in again and not before[n] & after[now]]
    proposed = sum(map(bool, found.values()))
    print("%-24s %s, %d again by identity, %d proposed, %d mended wrongly"
          % (title, counts, len(again), proposed, len(moved)))
    if wrong:
        print("Wrong:", wrong, {n: (found.get(n), again.get(n)) for n in found})
    return not wrong and not moved and len(set(mended)) == len(mended) == len(kept)


def shuffled(old, new):
    """The same netlist with the flip-flops' names handed out anew in every module."""
    with open(old, encoding="utf-8") as file:
        design = json.load(file)
    source = random.Random(13)
    for module in design["modules"].values():
        cells = module["cells"]
        names = [n for n, c in cells.items() if FLIP_FLOP.match(c["type"])]
        others = source.sample(names, len(names))
        renamed = dict(zip(names, others))
        renamed.update({n: "fresh_%d" % i for i, n in enumerate(names) if i % 7 == 3})
        module["cells"] = {renamed.get(n, n): c for n, c in cells.items()}
    with open(new, "w", encoding="utf-8") as file:
        json.dump(design, file)


def main():
    program, sample = sys.argv[1:]
    good = True
    with tempfile.TemporaryDirectory() as root:
        bases = {}
        for number, (title, first, second, plain) in enumerate(CHANGES):
            key = str(first)
            if key not in bases:
                bases[key] = synthesise(sample, os.path.join(root, "base%d" % number), first)
            new = synthesise(sample, os.path.join(root, str(number)), second)
            good &= compare(title, program, root, bases[key], new, plain)
        new = os.path.join(root, "shuffled.json")
        shuffled(bases[str({})], new)
        good &= compare("renamed at random", program, root, bases[str({})], new)
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
