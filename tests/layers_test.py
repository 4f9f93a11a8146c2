#!/usr/bin/env python3
"""Fails on an #include that points up the layers of src/ and app/."""
import pathlib
import re
import sys

# Each folder may include its own and the folders of lower rank; project may
# also use filter, its one sideways neighbour.
RANK = {"dsp": 0, "archive": 0, "library": 1, "charts": 2, "widgets": 2,
        "filter": 3, "signal": 3, "project": 3, "shell": 4, "app": 5, "cli": 5}
SIDEWAYS = {("project", "filter"), ("archive", "dsp")}

root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".")
bad = []
for path in sorted(root.glob("src/*/*")) + sorted(root.glob("app/**/*")):
    if path.suffix not in (".h", ".cpp"):
        continue
    parts = path.relative_to(root).parts
    here = parts[1] if parts[0] == "src" or parts[1] == "cli" else "app"
    for line in path.read_text().splitlines():
        m = re.match(r'#include "(\w+)/', line)
        if not m or m.group(1) == here or m.group(1) not in RANK:
            continue
        there = m.group(1)
        if RANK[there] >= RANK[here] and (here, there) not in SIDEWAYS:
            bad.append(f"{path.relative_to(root)}: {line.strip()} points up from {here} to {there}")
    if here not in RANK:
        bad.append(f"{path.relative_to(root)}: folder {here} has no layer")
print("\n".join(bad) or "layers: every include points down")
sys.exit(1 if bad else 0)
