#!/usr/bin/env python3
"""Checks that the tables under "Messages" in the user guide contain every text that the module can show.

    check_guide.py SOURCES GUIDE

Finds texts in the sources by their calls (printed, in a box, reported, thrown), and every other literal that reads like
a sentence, because texts are also passed on by name. A table's first cell holds one or more texts, separated by " / ";
"…" matches any text. Faults are a text without a row, a row without a text, and an unused exception."""
import os
import re
import sys

# Texts that are not messages or reach no user: file and text, both regular expressions to search for, and the reason.
EXCEPTIONS = [
    ("Lib/(Registry|DebugLog|Diagnostics|ErrorText)|Util/(ExportedMemory|PDialog|ComboListData)", "", "internal faults go to pdbg_log.txt"),
    ("Lib/(Base64|Md5Driver)", "", "standard output of diagnostic drivers; nothing in AutoCAD shows it"),
    ("Lib/WindowMessageText", "", "a window message as text, for the debugger"),
    ("Lib/ModuleIdentity", "", "the name that messages begin with"),
    ("KL_Conn_DuctSelection", "^\nSorvik: Select a duct:$", "a prompt; the guide has it among the steps"),
    ("Util/KlimComSrvImpl", "^Could not (find|get) ", "kept by Connect; the command says that Klimora is not loaded"),
    ("Util/(KLUtils|XDataByHandle|ArxHandles|KLComUtils_CreateParts|PartCommands|DrawModel)", "", "drawing and part functions that the command does not call"),
    ("Util/KLComUtils_Part", "connection [01] |^GetConnectedParts|erase|package|for reading|matrix", "part functions that the command does not call"),
    ("Util/KLComUtils_Project", "(kpd|KPD) class|binary variable", "valves and products from memory, which the command does not use"),
    ("Util/KLComUtils\\.cpp", "file |bin variable|value to text|::SetPartAtt", "writing attributes and binary variables, which the command does not do"),
    ("Util/KLComUtils\\.cpp", "in a parent path", "the command's own path has its slashes"),
    ("Util/Download", "OpenWebBrowser|(Url|SaveFileName) == NULL|^http generic$", "calls that the command does not make; the name sent to the server"),
]

LITERAL = re.compile(r'L?"((?:[^"\\\n]|\\.)*)"')
SHOWN = re.compile(r"\b(PrintCommandLine|acutPrintf|MessageBox[AW]|ReportException|throw|Fail)\b")
# What stands between the braces of a ReportSite: message, source, line and function.
SITE = re.compile(rf"\s*((?:{LITERAL.pattern}\s*)+),\s*(?:\w+|{LITERAL.pattern}),\s*\d+,")
SENTENCE = re.compile(r"[\w.,'%)] +['(%]?[A-Za-z%]")
CONVERSION = re.compile(r"%[-0-9.*l]*[a-zA-Z]")


def statements(source):
    """Pieces of C++ up to a semicolon or brace, without comments."""
    source = re.sub(r'("(?:[^"\\\n]|\\.)*")|//[^\n]*|/\*.*?\*/', lambda m: m.group(1) or " ", source, flags=re.S)
    source = re.sub(r"^\s*#.*$", "", source, flags=re.M)
    return re.findall(r'(?:"(?:[^"\\\n]|\\.)*"|\'(?:[^\'\\]|\\.)\'|[^;{}])+', source)


def literals(statement):
    """Texts of a statement with their positions; adjacent literals are one text."""
    for group in re.finditer(rf"(?:{LITERAL.pattern}\s*)+", statement):
        text = "".join(literal.group(1) for literal in LITERAL.finditer(group.group()))
        yield group.start(), text.replace("\\n", "\n").replace('\\"', '"').replace("\\\\", "\\")


def texts_of(statement):
    """Texts of a statement that may be shown."""
    shown = SHOWN.search(statement)
    if "static_assert" in statement:
        return
    site = SITE.match(statement)
    if site:
        yield from (text for _, text in literals(site.group(1)))
        return
    if shown and shown.group(1) == "ReportException":
        # The first argument is the message, the rest is the place. A message that is passed on reads like a sentence.
        reported = [text for place, text in literals(statement) if re.match(r"\(\s*$", statement[shown.end():place])]
        yield from reported
        return
    for place, text in literals(statement):
        called = shown and place > shown.start() and re.search("[A-Za-z]{3}", text)
        if called or SENTENCE.search(text):
            yield text


def collect(folder):
    """Texts that may be shown, with their files, and every literal."""
    texts, every = [], []
    for parent, _, names in os.walk(folder):
        for path in (os.path.join(parent, name) for name in names if name.endswith((".cpp", ".h"))):
            with open(path, encoding="utf-8") as file:
                for statement in statements(file.read()):
                    texts += [(os.path.relpath(path, folder), text) for text in texts_of(statement)]
                    every += [text for _, text in literals(statement)]
    return texts, every


def fixed_pieces(text):
    """The constant pieces of a text: without the name in front, conversions, "…" and ends of sentences."""
    text = CONVERSION.sub("…", re.sub(r"^\n?%s: ", "", text))
    pieces = [re.sub(r"\s+", " ", piece).strip().rstrip(".") for piece in re.split("…|: ", text)]
    return [piece for piece in pieces if re.search("[A-Za-z]", piece)]


def rows(guide):
    """First cells of the tables under "Messages", split into their texts."""
    section = re.search(r"^## Messages$(.*?)^## ", guide, flags=re.M | re.S).group(1)
    cells = re.findall(r"^\| (.*?) \|.*$(?!\n\|-)", section, flags=re.M)
    return [text.strip() for cell in cells for text in cell.split(" / ")]


def fits(row, text):
    """Whether a row names a text: the row contains its pieces, or the row's "…" replaces a part of it."""
    row = re.sub(r" \((without|after) the name\)", "", row)
    pieces, whole = fixed_pieces(text), fixed_pieces(row)
    if any(whole[at:at + len(pieces)] == pieces for at in range(len(whole))):
        return True
    pattern = ".+".join(re.escape(piece) for piece in row.rstrip(".").split("…"))
    return re.fullmatch(pattern, text.strip().rstrip(".")) is not None


def main():
    folder, guide_path = sys.argv[1:]
    with open(guide_path, encoding="utf-8") as file:
        named = rows(file.read())
    texts, every = collect(folder)
    texts = [(path, text) for path, text in texts if fixed_pieces(text)]
    faults, needed = [], set()
    for path, text in texts:
        excused = [e for e in EXCEPTIONS if re.search(e[0], path) and re.search(e[1], text)]
        needed.update(excused)
        if not excused and not any(fits(row, text) for row in named):
            faults.append(f"{path}: no row for: {text.strip()}")
    faults += [f"no text for the row: {row}" for row in named
               if not row.startswith("*") and not any(fits(row, text) for text in every)]
    faults += [f"no text needs the exception: {e[0]} {e[1]}" for e in EXCEPTIONS if e not in needed]
    return "\n".join(faults) or None


if __name__ == "__main__":
    sys.exit(main())
