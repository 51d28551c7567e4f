#!/usr/bin/env python3
"""Checks the module's file: exports, required libraries, dialogs and icons.

    check_module.py MODULE OBJDUMP WINDRES

The tools must read the module's format. Prints the differences, if any, and then exits with 1."""
import difflib
import re
import subprocess
import sys

# Constructors and destructors come twice, once for derived classes (C2, D2).
EXPECTED = """exports
  NULLBYTE NULLDOUBLE NULLFLOAT NULLLONG NULLSHORT
  _ZN10PluginStatC1EOS_ _ZN10PluginStatC1ERKS_ _ZN10PluginStatC1Ev
  _ZN10PluginStatC2EOS_ _ZN10PluginStatC2ERKS_ _ZN10PluginStatC2Ev
  _ZN10PluginStatD1Ev _ZN10PluginStatD2Ev _ZN10PluginStataSEOS_ _ZN10PluginStataSERKS_
  _ZN6PMutex7AcquireEv _ZN6PMutex7ReleaseEv _ZN6PMutexC1Ev _ZN6PMutexC2Ev _ZN6PMutexD1Ev _ZN6PMutexD2Ev
  _ZN6PMutexaSERKS_
  acrxEntryPoint acrxGetApiVersion gwGfree gwGmalloc gwGmallocH gwGrealloc gwclip_copy gwclip_has_data gwclip_paste
  gwgetsubstring
name
  Sorvik_R24_x64.arx
libraries
  ADVAPI32.dll COMCTL32.dll comdlg32.dll GDI32.dll KERNEL32.dll msvcrt.dll ole32.dll OLEAUT32.dll SHELL32.dll
  USER32.dll VERSION.dll WININET.dll
  Kbase640.dll Klimora.Plugins.Statistics.Sorvik.dll accore.dll
"SORVIK_WEB" DIALOGEX 0, 0, 127, 47
STYLE 0x82cd0040
CAPTION "Configurator"
FONT 8, "MS Shell Dlg"
BEGIN
  CTEXT "User code", -1, 4, 11, 50, 8, 0x50020001
  EDITTEXT 1102, 71, 8, 50, 14, 0x50810080
  DEFPUSHBUTTON "OK", 1, 4, 29, 50, 14, 0x50010001
  PUSHBUTTON "Cancel", 2, 71, 29, 50, 14, 0x50010000
END
10000 DIALOGEX 0, 0, 5, 0
STYLE 0x80000048
EXSTYLE 0x4
FONT 8, "MS Shell Dlg"
BEGIN
END
115 14 /* RT_GROUP_ICON */
118 14 /* RT_GROUP_ICON */
"""


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, encoding="utf-8").stdout


def main():
    module, objdump, windres = sys.argv[1:]
    headers = output(objdump, "-p", module)
    resources = output(windres, "-J", "coff", "-O", "rc", "-i", module)
    names = headers.split("[Ordinal/Name Pointer] Table")[1].split("\n\n")[0]
    found = ["exports", *re.findall(r"\] (\S+)", names),
             "name", *re.findall(r"^Name\s+\S+ (\S+)$", headers, re.M),
             "libraries", *re.findall(r"DLL Name: (\S+)", headers)]
    found = " ".join(found) + "\n"
    found += "\n".join(re.findall(r"^\S+ DIALOGEX .*?^END$", resources, re.M | re.S)) + "\n"
    found += "\n".join(re.findall(r"^.* /\* RT_GROUP_ICON \*/$", resources, re.M)) + "\n"

    lists, dialogs = EXPECTED.split('"SORVIK_WEB"')
    expected = " ".join(lists.split()) + '\n"SORVIK_WEB"' + dialogs
    differences = difflib.unified_diff(expected.split("\n"), found.split("\n"), "expected", "found", "", "", 0, "")
    return "\n".join(differences) or None


if __name__ == "__main__":
    sys.exit(main())
