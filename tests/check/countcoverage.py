#!/usr/bin/env python3
"""countcoverage.py NETLIST.json FILE.vcd SCOPE: counts, on its own, the nets of the sample by kind
and those that a variable below the scope names. Prints {"kind": [covered, nets]}."""
import json
import re
import sys

modules = json.load(open(sys.argv[1]))["modules"]
top = next(n for n, m in modules.items() if int(m["attributes"].get("top", "0"), 2))
parent, names, drivers, constant, used = {}, {}, {}, set(), set()


def find(bit):
    while parent.setdefault(bit, bit) != bit:
        bit = parent[bit]
    return bit


def kind_of(cell):
    if "DFF" in cell:
        return "flip-flop"
    if "RAM" in cell or "ROM" in cell:
        return "memory"
    return "pad" if "BUF" in cell or "CLKOUT" in cell else "logic"


def elaborate(module, path):
    for name, net in module["netnames"].items():
        vector = len(net["bits"]) > 1 or "offset" in net or "upto" in net
        for place, bit in enumerate(net["bits"]):
            number = len(net["bits"]) - 1 - place if net.get("upto") else place
            text = name + (f"[{number + net.get('offset', 0)}]" if vector else "")
            if isinstance(bit, int):
                names.setdefault("/".join(path + [text]).replace(".", "/"), set()).add((*path, bit))
                used.add((*path, bit))
    for name, cell in module["cells"].items():
        inner = modules.get(cell["type"])
        is_leaf = not inner or int(inner["attributes"].get("blackbox", "0"), 2)
        for port, bits in cell["connections"].items():
            for place, bit in enumerate(bits):
                if is_leaf:
                    way = cell["port_directions"][port]
                    if isinstance(bit, int) and (way == "output" or way == "inout"):
                        drivers[(*path, bit)] = kind_of(cell["type"])
                    continue
                own = inner["ports"][port]["bits"][place]
                if isinstance(own, int) and isinstance(bit, int):
                    parent[find((*path, name, own))] = find((*path, bit))
                elif isinstance(own, int):
                    constant.add((*path, name, own))
        if not is_leaf:
            elaborate(inner, path + [name])


elaborate(modules[top], [])
kinds = {find(bit): kind for bit, kind in drivers.items()}
for port in modules[top]["ports"].values():
    if port["direction"] != "output":
        kinds.update({find((bit,)): "input" for bit in port["bits"] if isinstance(bit, int)})
nets = {find(bit) for bit in used} - {find(bit) for bit in constant}

covered, scope = set(), []
words = iter(open(sys.argv[2]).read().split())
for word in words:
    if word == "$scope":
        scope.append([next(words), next(words), next(words)][1].lstrip("\\"))
    elif word == "$upscope":
        scope.pop()
    elif word == "$enddefinitions":
        break
    elif word == "$var":
        next(words)
        width = int(next(words))
        next(words)
        base, reference = next(words).lstrip("\\"), ""
        while (word := next(words)) != "$end":
            reference += word
        path = "/".join(scope + [base])
        if not path.startswith(sys.argv[3] + "/"):
            continue
        path = path[len(sys.argv[3]) + 1:].replace(".", "/")
        match = re.fullmatch(r"\[(-?\d+):(-?\d+)\]", reference)
        for place in range(width):
            text = path + reference
            if match:
                step = 1 if int(match[1]) >= int(match[2]) else -1
                text = f"{path}[{int(match[2]) + step * place}]"
            covered.update(find(bit) for bit in names.get(text, ()))
counts = {k: [0, 0] for k in ("input", "flip-flop", "memory", "pad", "logic", "undriven")}
for net in nets:
    count = counts[kinds.get(net, "undriven")]
    count[0] += net in covered
    count[1] += 1
print(json.dumps(counts))
