#!/usr/bin/env python3
"""Counts a Yosys netlist on its own, to compare with what the netlist reader sees.

    count.py NETLIST.json                    prints the counts
    count.py NETLIST.json --against PROGRAM  compares with `PROGRAM --netlist-info NETLIST.json`
"""
import collections
import hashlib
import json
import re
import subprocess
import sys

DIRECTIONS = {"input": 0, "output": 1, "inout": 2}
FLIP_FLOP = re.compile(r"^(\$_?[a-zA-Z]*(dff|DFF)|SB_DFF|TRELLIS_FF$|FD[CPRS]E|FERN_DFF)")
BLOCK_MEMORY = re.compile(r"^(SB_RAM40_4K|DP16KD$|PDPW16KD$|RAMB\d|\$mem|FERN_(S|D|SD)?(PRAM|ROM))")


def top_of(modules):
    real = [n for n, m in modules.items() if not is_black_box(m)]
    marked = [n for n in real if int(str(modules[n].get("attributes", {}).get("top", "0")), 2)]
    if marked:
        return marked[0]
    used = {c["type"] for n in real for c in modules[n].get("cells", {}).values()}
    return next(n for n in real if n not in used)


def is_black_box(module):
    attributes = module.get("attributes", {})
    return "blackbox" in attributes or "whitebox" in attributes


def count(design):
    modules = design["modules"]
    top = top_of(modules)
    types = collections.Counter()
    parent = {}
    names = {}

    def find(bit):
        while parent.setdefault(bit, bit) != bit:
            bit = parent[bit]
        return bit

    def add_names(instance, path, groups):
        for name, group in groups:
            bits = group["bits"]
            vector = len(bits) > 1 or "offset" in group or group.get("upto")
            for place, bit in enumerate(bits):
                if group.get("upto"):
                    place = len(bits) - 1 - place
                index = "[%d]" % (group.get("offset", 0) + place) if vector else ""
                if isinstance(bit, int):
                    names.setdefault((instance, bit), []).append(
                        (path + name + index, group.get("hide_name", 0)))

    # Every instance of a module has its own bits; those of its ports are joined with the pins.
    def walk(name, instance, path):
        module = modules[name]
        groups = list(module.get("netnames", {}).items()) + list(module.get("ports", {}).items())
        add_names(instance, path, groups)
        for _, group in groups:
            for bit in group["bits"]:
                if isinstance(bit, int):
                    find((instance, bit))
        for number, (label, cell) in enumerate(module.get("cells", {}).items()):
            types[cell["type"]] += 1
            inner = modules.get(cell["type"])
            if inner and not is_black_box(inner):
                inside = instance + (number,)
                walk(cell["type"], inside, path + label + "/")
                for port, bits in cell["connections"].items():
                    for outer, own in zip(bits, inner["ports"][port]["bits"]):
                        if isinstance(outer, int) and isinstance(own, int):
                            parent[find((inside, own))] = find((instance, outer))
            else:
                for bits in cell["connections"].values():
                    for bit in bits:
                        if isinstance(bit, int):
                            find((instance, bit))

    walk(top, (), "")
    by_net = collections.defaultdict(set)
    for bit in list(parent):
        by_net[find(bit)].update(names.get(bit, []))
    lines = sorted("\t".join(sorted(n for n, hidden in named if not hidden)).encode() + b"\n"
                   for named in by_net.values())
    ports = {"0": 0, "1": 0, "2": 0, "3": 0}
    for port in modules[top]["ports"].values():
        ports[str(DIRECTIONS[port["direction"]])] += len(port["bits"])
    cells = {t: n for t, n in types.items()
             if t != "$scopeinfo" and (t not in modules or is_black_box(modules[t]))}
    return {
        "design": top,
        "ports": ports,
        "nets": len({find(bit) for bit in parent}),
        "instances": sum(types.values()),
        "moduleInstances": sum(types.values()) - sum(cells.values()),
        "flipFlops": sum(n for t, n in cells.items() if FLIP_FLOP.search(t)),
        "blockMemories": sum(n for t, n in cells.items() if BLOCK_MEMORY.search(t)),
        "unknownCellTypes": {},
        "names": sum(map(len, by_net.values())),
        "namesDigest": hashlib.sha256(b"".join(lines)).hexdigest(),
    }


def seen_by(program, path):
    """The same counts as the netlist reader gives them."""
    info = json.loads(subprocess.check_output([program, "--netlist-info", path]))
    categories = info["instancesByCategory"]
    info["flipFlops"] = categories.get("50", 0)
    info["blockMemories"] = categories.get("5", 0)
    return info


def main():
    path = sys.argv[1]
    with open(path, "rb") as file:
        content = file.read()
    counted = count(json.loads(content))
    counted["sha256"] = hashlib.sha256(content).hexdigest()
    print(json.dumps(counted))
    if "--against" not in sys.argv:
        return 0
    seen = seen_by(sys.argv[sys.argv.index("--against") + 1], path)
    wrong = {key: seen[key] for key in counted if seen[key] != counted[key]}
    if wrong:
        print("The reader sees", json.dumps(wrong), "in", path, file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
