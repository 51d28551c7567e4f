#!/usr/bin/env python3
"""Checks the direction of includes: PlugIn -> PlugIn/Util -> PlugIn/Lib -> Platform, and nothing from Bench or Tests.

The argument is the folder of the repository. A header is searched beside the source, below PlugIn and in the folders of
Platform; one in quotes then anywhere in Bench and Tests. Headers that are not found are of Windows, C++ or ObjectARX."""
import glob
import os
import re
import sys

LAYERS = ["Platform", "PlugIn/Lib", "PlugIn/Util", "PlugIn", "Bench", "Tests"]  # each may include itself and those before it


def layer(path):
    return max((name for name in LAYERS if path.startswith(name + "/")), key=len)


def find(source, quote, header):
    for folder in [os.path.dirname(source), "PlugIn"] + sorted(glob.glob("Platform/*")):
        path = os.path.normpath(os.path.join(folder, header))
        if os.path.isfile(path):
            return path
    if quote == "<":
        return None
    return next(iter(glob.glob("Bench/**/" + os.path.basename(header), recursive=True) +
                     glob.glob("Tests/**/" + os.path.basename(header), recursive=True)), None)


os.chdir(sys.argv[1])
sources = [path for folder in ("PlugIn", "Platform") for path in glob.glob(folder + "/**/*", recursive=True)
           if path.endswith((".cpp", ".h"))]
checked = wrong = 0
for source in sorted(sources):
    with open(source, encoding="utf-8") as file:
        includes = re.findall(r'^\s*#\s*include\s*(["<])([^">]+)', file.read(), re.MULTILINE)
    for quote, header in includes:
        found = find(source, quote, header)
        if not found:
            continue
        checked += 1
        if LAYERS.index(layer(found)) > LAYERS.index(layer(source)):
            wrong += 1
            print(f"{source} includes {found}: {layer(source)} must not depend on {layer(found)}")
print(f"{checked} includes checked, {wrong} in the wrong direction")
sys.exit(1 if wrong or not checked else 0)
