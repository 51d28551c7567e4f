#!/usr/bin/env python3
"""Checks that a bundle has what AutoCAD's autoloader and the module expect.

    check_bundle.py FOLDER ARCHIVE VERSION SERIES SIGNATURE NAMES [FILE...]

FOLDER is the bundle, ARCHIVE the path of its zip without the extension, SERIES the oldest release of AutoCAD that it
supports ("R24.0"), SIGNATURE the last bytes of each signed file, or empty, NAMES the header with the names that the
module registers, FILE a file that ships beside the module. Prints each fault on a line and then exits with 1."""
import os
import re
import struct
import subprocess
import sys
import uuid
import xml.etree.ElementTree
import zipfile

UPGRADE_CODE = "{C2A9645B-08F3-4E7D-B1D4-1E6F73A05C88}"
DTD = os.path.join(os.path.dirname(os.path.abspath(__file__)), "PackageContents.dtd")
faults = []


def expect(holds, fault):
    if not holds:
        faults.append(fault)


def expect_equal(what, found, expected):
    expect(found == expected, f"{what}: {found} instead of {expected}")


def files_below(folder):
    return sorted(os.path.relpath(os.path.join(parent, name), folder).replace(os.sep, "/")
                  for parent, _, names in os.walk(folder) for name in names)


def registered_names(header):
    with open(header, encoding="utf-8") as file:
        return dict(re.findall(r'(k\w+)\[\] = L?"([^"]*)"', file.read()))


def sections(path):
    """Names of a PE file's sections; long names are looked up in its string table."""
    with open(path, "rb") as file:
        data = file.read()
    head = struct.unpack_from("<I", data, 0x3C)[0]
    count, symbols, symbol_count, optional = struct.unpack_from("<2xH4xIIH", data, head + 4)
    strings = symbols + 18 * symbol_count
    names = []
    for i in range(count):
        name = data[head + 24 + optional + 40 * i:][:8].rstrip(b"\0").decode()
        if name.startswith("/"):
            name = data[strings + int(name[1:]):].split(b"\0")[0].decode()
        names.append(name)
    return names


def icon_sizes(path):
    """Width and height of each picture in an .ico file, 0 for 256; nothing for another kind of file."""
    with open(path, "rb") as file:
        data = file.read()
    reserved, kind, count = struct.unpack_from("<HHH", data)
    if (reserved, kind) != (0, 1):
        return []
    return [struct.unpack_from("BB", data, 6 + 16 * i) for i in range(count)]


def version_resource(path):
    """File version and flags out of the fixed part, and whether the texts have a copyright."""
    with open(path, "rb") as file:
        data = file.read()
    at = data.find(struct.pack("<I", 0xFEEF04BD))
    high, low, mask, flags = struct.unpack_from("<8xII8xII", data, at)
    version = f"{high >> 16}.{high & 0xFFFF}.{low >> 16}.{low & 0xFFFF}"
    return version, mask & flags, "LegalCopyright\0".encode("utf-16-le") in data


def check(folder, archive, version, series, signature, header, shipped):
    contents = os.path.join(folder, "PackageContents.xml")
    lint = subprocess.run(["xmllint", "--noout", "--dtdvalid", DTD, contents], capture_output=True, text=True)
    if lint.returncode:
        faults.append(lint.stderr.strip())
        return
    package = xml.etree.ElementTree.parse(contents).getroot()
    entry = package.find("Components/ComponentEntry")
    commands = entry.find("Commands")

    names = registered_names(header)
    expect_equal("file name of the module", entry.get("ModuleName"), "./Contents/" + names["kModuleFileName"])
    expect_equal("command group", commands.get("GroupName"), names["kCommandGroup"])
    expect_equal("commands", [(c.get("Global"), c.get("Local")) for c in commands],
                 [(names["kSilencerCommand"], names["kSilencerCommand"])])

    expect_equal("SeriesMin", package.find("Components/RuntimeRequirements").get("SeriesMin"), series)
    expect_equal("AppVersion", package.get("AppVersion"), version)
    expect_equal("UpgradeCode", package.get("UpgradeCode"), UPGRADE_CODE)
    expect_equal("ProductCode", package.get("ProductCode"),
                 "{" + str(uuid.uuid5(uuid.UUID(UPGRADE_CODE), version)).upper() + "}")

    named = [package.get("HelpFile"), package.get("Icon"), entry.get("ModuleName")]
    expect(all(name.startswith("./") for name in named), f"a path does not begin with ./: {named}")
    expected = sorted(["PackageContents.xml", "Contents/third-party-notices.txt"] + [name[2:] for name in named] +
                      ["Contents/" + os.path.basename(file) for file in shipped])
    expect_equal("files", files_below(folder), expected)
    with zipfile.ZipFile(archive + ".zip") as packed:
        root = os.path.basename(folder)
        expect_equal("files of the zip", sorted(name for name in packed.namelist() if not name.endswith("/")),
                     [f"{root}/{name}" for name in expected])
    if faults:
        return

    expect((32, 32) in icon_sizes(os.path.join(folder, package.get("Icon"))), "the icon has no picture of 32 by 32")
    with open(os.path.join(folder, package.get("HelpFile")), encoding="utf-8") as file:
        page = file.read()
    heading = re.search("<h1[^>]*>(.*)</h1>", page)
    expect_equal("heading of the guide", heading and heading.group(1), f"Sorvik silencers for Klimora, version {version}")
    for command in commands:
        topic = command.get("HelpTopic")
        expect(f'id="{topic}"' in page, f"the guide has no anchor for the help topic {topic}")
    expect("<meta charset=\"utf-8\">" in page and "</html>" in page, "the guide is no complete page")
    expect(page.count("<table>") >= 2 and "| ---" not in page and "|---" not in page, "the guide's tables are no tables")
    with open(os.path.join(folder, "Contents/third-party-notices.txt"), encoding="utf-8") as file:
        notices = " ".join(file.read().split())
    for words in ("TinyXML", "Lee Thomason", "provided 'as-is'", "may not be removed or altered"):
        expect(words in notices, f"the notices lack: {words}")

    if signature:
        with zipfile.ZipFile(archive + ".zip") as packed:
            signed = sorted(name for name in packed.namelist() if packed.read(name).endswith(signature.encode()))
        expect_equal("signed files of the zip", signed,
                     [f"{root}/{name}" for name in expected if name.endswith((".arx", ".exe", ".dll"))])

    module = os.path.join(folder, entry.get("ModuleName"))
    expect_equal("version, flags and copyright of the module", version_resource(module), (version, 0, True))
    debug = [name for name in sections(module) if name.startswith(".debug")]
    expect(not debug, f"the module carries its symbols: {debug}")
    with zipfile.ZipFile(archive + "-symbols.zip") as packed:
        [symbols] = packed.infolist()
        expect(symbols.file_size > os.path.getsize(module), "the symbols are smaller than the module")


def main():
    folder, archive, version, series, signature, header, *shipped = sys.argv[1:]
    check(folder, archive, version, series, signature, header, shipped)
    return "\n".join(faults) or None


if __name__ == "__main__":
    sys.exit(main())
