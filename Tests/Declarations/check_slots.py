#!/usr/bin/env python3
"""Compares the slots of virtual functions, as clang lays them out for Visual C++'s ABI, and the interface identifiers
of KLIMCOMSRVLib.h with virtual-slots.txt. Prints the differences."""
import difflib
import re
import subprocess
import sys
import tempfile

from check_names import load

HEADING = re.compile(r"(\w+)(?: \{.*\})?")


def identifiers(header):
    """Heading of each interface: its name and identifier."""
    with open(header, encoding="utf-8") as file:
        found = re.findall(r"IID_(\w+)\s*=\s*\{(.*?)\}\}", file.read(), re.DOTALL)
    for name, numbers in found:
        parts = [int(number, 16) for number in re.findall(r"0x[0-9a-fA-F]+", numbers)]
        last = "".join(f"{byte:02X}" for byte in parts[3:])
        yield name, "%s {%08X-%04X-%04X-%s-%s}" % (name, *parts[:3], last[:4], last[4:])


def table(dump, name):
    """Lines "slot function" of a class. Omits the first entry of a table, the type's description, which has no slot, and
    the functions of IDispatch."""
    block = re.search(rf"VFTable for (?:'[\w:]+' in )*'(?:\w+::)?{name}' \(.*?\n\n", dump, re.DOTALL)
    lines = []
    for slot, function in re.findall(r"^ *(\d+) \| (.*)$", block.group() if block else "", re.MULTILINE)[1:]:
        function = re.sub(r" \[(pure|scalar deleting)\]", "", function)
        owner = re.search(r"(\w+)::~?\w+\(", function).group(1)
        if owner not in ("IUnknown", "IDispatch"):
            lines.append(f"{int(slot) - 1:4} " + re.sub(r"(\w+::)+(?=~?\w+\()", "", function))
    return lines


def main():
    root, folder = sys.argv[1:]
    check_sdk = load(root + "/tools/check-sdk")
    with tempfile.TemporaryDirectory() as scratch:
        command = check_sdk.module_command(root + "/Platform/objectarx", [], scratch)
        options = ["-Xclang", "-fdump-vtable-layouts", "-c", folder + "/VirtualSlots.cpp", "-o", scratch + "/slots.obj"]
        result = subprocess.run(command + options, capture_output=True, text=True)
    if result.returncode:
        return result.stderr
    headings = dict(identifiers(root + "/Platform/klimora/KLIMCOMSRVLib.h"))
    with open(folder + "/virtual-slots.txt", encoding="utf-8") as file:
        expected = file.read().splitlines()
    found = []
    for line in expected:
        if line.startswith("#") or not line:
            found.append(line)
        elif HEADING.fullmatch(line):
            name = HEADING.fullmatch(line).group(1)
            found += [headings.pop(name, name)] + table(result.stdout, name)
    found += ["not listed: " + heading for heading in headings.values()]
    return "\n".join(difflib.unified_diff(expected, found, "expected", "found", lineterm="", n=0)) or None


if __name__ == "__main__":
    sys.exit(main())
