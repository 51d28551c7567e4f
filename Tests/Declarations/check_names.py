#!/usr/bin/env python3
"""Compares the names that the module imports from AutoCAD, as clang decorates them for Visual C++'s ABI, with a list.
Runs tools/check-sdk with SDK folders whose libraries export that list: complete, and with one name missing."""
import importlib.machinery
import importlib.util
import os
import re
import shutil
import subprocess
import sys
import tempfile

LIBRARY = [("acge24", "AcGe"), ("acdb24", "AcRxDynamicLinker"), ("ac1st24", "acrxSysRegistry"), ("ac1st24", "AcRx"),
           ("accore", "?aced"), ("accore", "?acdbRegApp"), ("accore", "?acDocManagerPtr"), ("accore", "?adsw_"),
           ("accore", "AcEdCommandStack")]
INLINE = "?getBlockTable@AcDbDatabase@@QEAA?AW4ErrorStatus@Acad@@AEAPEAVAcDbBlockTable@@W4OpenMode@AcDb@@@Z"


def load(path):
    loader = importlib.machinery.SourceFileLoader("check_sdk", path)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("check_sdk", loader))
    loader.exec_module(module)
    return module


def owner(name):
    """The library of AutoCAD that exports a name, by its class or the function's prefix."""
    scope = name.split("@@")[0] if name.startswith("?") else name
    return next((library for library, part in LIBRARY if part in scope), "acdb24")


def run(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def make_library(folder, library, names):
    """An import library of short members, as Microsoft's linker writes them."""
    definitions = os.path.join(folder, library + ".def")
    with open(definitions, "w", encoding="utf-8") as file:
        file.write(f'LIBRARY "{library}.dll"\nEXPORTS\n')
        for name in names:
            # Static members are data: their decoration has a digit where a function's has its calling convention.
            file.write(f'"{name}"{" DATA" if "@@2" in name else ""}\n')
    run("lld-link", "/dll", "/noentry", "/machine:x64", "/force:unresolved", "/ignore:4217", "/def:" + definitions,
        f"/out:{folder}/{library}.dll", f"/implib:{folder}/{library}.lib")


def make_sdk(folder, root, names, entry):
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(root + "/Platform/objectarx", folder + "/inc")
    libraries = folder + "/lib-x64"
    os.mkdir(libraries)
    for library in ("acge24", "ac1st24", "accore", "acdb24"):
        make_library(libraries, library, [name for name in names if owner(name) == library])
    source = folder + "/rxapi.cpp"
    with open(source, "w", encoding="utf-8") as file:
        file.write(f'extern "C" int {entry}() {{ return 24; }}\n')
    run("clang++", "--target=x86_64-pc-windows-msvc", "-c", source, "-o", folder + "/rxapi.obj")
    run("lld-link", "/lib", f"/out:{libraries}/rxapi.lib", folder + "/rxapi.obj")


def main():
    root, list_of_names = sys.argv[1:]
    check_sdk = load(root + "/tools/check-sdk")
    with open(list_of_names, encoding="utf-8") as file:
        names = [line.split(" -> ")[0].strip() for line in file if not line.startswith("#")]
    function, data = "?close@AcDbObject@@QEAA?AW4ErrorStatus@Acad@@XZ", "?kXAxis@AcGeVector3d@@2V1@B"
    faults = []

    def expect(wanted, missing=None, entry="acrxGetApiVersion", listed=list_of_names, without="no such name"):
        make_sdk(sdk, root, [name for name in names if name != missing], entry)
        linked = [path for path in objects if without.encode() not in open(path, "rb").read()]
        found = check_sdk.findings(linked, sdk, listed, [])
        if found != wanted:
            faults.append(f"expected {wanted}, found {found}")

    with tempfile.TemporaryDirectory() as scratch:
        sdk = scratch + "/sdk"
        objects, failed = check_sdk.compile_module(root + "/Platform/objectarx", [])
        if failed:
            return f"{failed} sources do not compile"
        expect([])
        for name in (function, data):
            sought = name if name == function else "__imp_" + name
            expect([f"no library of the SDK has {sought}", f"lld-link does not find {sought}"], missing=name)
        expect(["lld-link does not find acrxGetApiVersion"], entry="acrxGetApiVersions")
        expect([f"lld-link does not find gwclip_{name}" for name in ("copy", "has_data", "paste")], without="gwclip_copy")
        shorter = scratch + "/shorter.txt"
        with open(shorter, "w", encoding="utf-8") as file:
            file.write("\n".join([name for name in names if name != function] + ["?more@@YAXXZ"]))
        expect([f"imported, but not in {shorter}: {function}", f"in {shorter}, but not imported: ?more@@YAXXZ"],
               listed=shorter)
        real = check_sdk.imports(objects) - {INLINE} | {INLINE.replace("getBlockTable", "getSymbolTable")}
        if check_sdk.differing_names(real, list_of_names):
            faults.append("what the SDK imports in place of an inline function is not accepted")
        needed = {name.replace("__imp_", "") for name in check_sdk.unresolved(objects)}
        with open(root + "/Tests/Unit/DecoratedNames.h", encoding="utf-8") as file:
            patched = re.findall(r'"(\?[^"]+)"', file.read())
        faults += [f"DecoratedNames.h has {name}, which is not imported" for name in patched if name not in needed]
    return "\n".join(faults) or None


if __name__ == "__main__":
    sys.exit(main())
