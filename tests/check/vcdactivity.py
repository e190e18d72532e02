#!/usr/bin/env python3
"""vcdactivity.py FILE.vcd [START END] [--saif]: counts what every bit of a VCD file does, the slow
and plain way. One line per bit: path, toggles, glitches, time at 0, at 1 and at x or z."""
import re
import sys


def read(path):
    """Bits as (path, code, place, width), and the values as (time, kind, code, text)."""
    words = iter(open(path).read().split())
    bits, scope = [], []
    for word in words:
        if word == "$scope":
            scope.append([next(words), next(words), next(words)][1])
        elif word == "$upscope":
            scope.pop()
        elif word == "$var":
            body = [next(words) for _ in range(3)]
            reference = ""
            while (part := next(words)) != "$end":
                reference += part
            width = int(body[1])
            match = re.fullmatch(r"(.*)\[(-?\d+):(-?\d+)\]", reference)
            for place in range(width):
                name = reference
                if match:
                    left, right = int(match[2]), int(match[3])
                    number = right + place if left >= right else right - place
                    name = f"{match[1]}[{number}]"
                if body[0] != "real":
                    bits.append(("/".join(scope + [name]), body[2], place, width))
        elif word == "$enddefinitions":
            break
    changes, time, mode = [], 0, "change"
    for word in words:
        if word[0] == "#":
            time = int(word[1:])
            changes.append((time, "time", "", ""))
        elif word[0] == "$":
            mode = {"$end": "change", "$dumpoff": "off"}.get(word, "set")
            changes.append((time, {"$dumpoff": "stop", "$dumpon": "go"}.get(word, "none"), "", ""))
        elif word[0] in "bB":
            changes.append((time, mode, next(words), word[1:]))
        elif word[0] in "rR":
            next(words)
        else:
            changes.append((time, mode, word[1:], word[0]))
    return bits, changes


def count(changes, code, place, width, start, end):
    """Goes through all changes for one bit."""
    toggles = glitches = 0
    spent = {"0": 0, "1": 0, "x": 0}
    value = before = "x"  # before: the last 0 or 1 of an earlier time stamp
    fresh, off = True, False
    now, at = changes[0][0], None
    for time, kind, own, text in changes + [(changes[-1][0], "time", "", "")]:
        if kind == "time":
            span = min(time, end) - max(now, start)
            if span > 0 and not off:
                spent[value] += span
            if time > now or (time, kind, own, text) == (changes[-1][0], "time", "", ""):
                if value in "01":
                    toggles += before in "01" and before != value and start <= now < end
                    before = value
            now = time
        elif kind in ("stop", "go"):
            off = kind == "stop"
        elif own == code and kind in ("set", "change"):
            text = text.rjust(width, "0" if text[0] in "01" else "x").lower()
            new = text[-1 - place] if text[-1 - place] in "01" else "x"
            if kind == "set":
                value, fresh, at = new, True, now
                before = new if new in "01" else "x"
            elif new != value:
                glitches += at == now and not fresh and start <= now < end
                value, fresh, at = new, False, now
    return toggles, glitches, spent["0"], spent["1"], spent["x"]


def main():
    arguments = [a for a in sys.argv[1:] if a != "--saif"]
    bits, changes = read(arguments[0])
    start, end = (float(a) for a in arguments[1:3]) if len(arguments) > 1 else (0, float("inf"))
    nets = []
    for path, code, place, width in bits:
        own = [c for c in changes if c[2] == code or c[1] in ("time", "stop", "go")]
        nets.append((path, *count(own, code, place, width, start, end)))
    if "--saif" not in sys.argv:
        for path, *numbers in nets:
            print(path, *(format(float(x), ".15g") for x in numbers))
        return
    print('(SAIFILE (SAIFVERSION "2.0") (DIRECTION "backward") (DIVIDER /)')
    print(f"(TIMESCALE 1 ps) (DURATION {changes[-1][0] - changes[0][0]})")
    for path, toggles, glitches, low, high, unknown in nets:
        *scopes, name = path.split("/")
        escaped = re.sub(r"([\[\]])", r"\\\1", name)
        print("".join(f"(INSTANCE {scope} " for scope in scopes) + f"(NET ({escaped} (T0 {low}) "
              f"(T1 {high}) (TX {unknown}) (TC {toggles}) (IG {glitches})))" + ")" * len(scopes))
    print(")")


main()
