"""Checks what the sources include.

A folder of src/ includes only itself and folders of lower levels, as src/levels.txt tells them; the
folders that compute without a toolkit name no Qt header; and a file that isn't listed under WINDOWS
in its folder's CMakeLists.txt names no widget.
"""

import pathlib
import re
import sys
import tempfile

WITHOUT_QT = {"base", "formats"}
PROGRAM = "-"  # in place of a level: a program of its own

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<(Qt?[A-Z][^>]*)>)')
WORD = re.compile(r"\bQ[A-Z]\w+")


def read_levels(src):
    """The level of each folder, in the file's order."""
    levels = {}
    for line in (src / "levels.txt").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            level, folder = line.split()
            levels[folder] = PROGRAM if level == PROGRAM else int(level)
    return levels


def folder_of(path, levels):
    """The folder of levels.txt that a path below src/ lies in directly or by its subfolders."""
    parts = pathlib.PurePosixPath(path).parts[:-1]
    for length in range(len(parts), 0, -1):
        name = "/".join(parts[:length])
        if name in levels:
            return name
    return None


def sources(src):
    return sorted(path for path in src.rglob("*") if path.suffix in {".h", ".cpp"})


def windows_of(folder):
    """Stems of the files that a folder's CMakeLists.txt lists under WINDOWS."""
    lists = folder / "CMakeLists.txt"
    if not lists.exists():
        return set()
    section, found = None, set()
    for word in re.sub(r"([()])", r" \1 ", lists.read_text(encoding="utf-8")).split():
        if word.isupper() or word == ")":
            section = word
        elif section == "WINDOWS":
            found.add(pathlib.PurePath(word).stem)
    return found


def wrong_include(folder, target, levels):
    """What is wrong with a file of one folder including one of the other; None if nothing is."""
    if target is None or target == folder:
        return None
    if levels[target] == PROGRAM:
        return f"{target} is a program of its own"
    order = list(levels)
    if levels[folder] == PROGRAM:
        return None if order.index(target) < order.index(folder) else f"{target} stands behind {folder}"
    if levels[target] >= levels[folder]:
        return f"{folder} (level {levels[folder]}) includes {target} (level {levels[target]})"
    return None


def direction_findings(src):
    levels = read_levels(src)
    for path in sources(src):
        folder = folder_of(path.relative_to(src), levels)
        if folder is None:
            yield f"{path}: its folder has no level"
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            found = INCLUDE.match(line)
            if not found:
                continue
            own, qt = found.groups()
            where = f"{path}:{number}"
            if qt and folder in WITHOUT_QT:
                yield f"{where}: {folder} names a Qt header"
            if own and (path.parent / own).exists():
                yield f"{where}: write {own} from src/"
            elif own and (wrong := wrong_include(folder, folder_of(own, levels), levels)):
                yield f"{where}: {wrong}"


def widget_findings(src, widget_classes):
    for path in sources(src):
        if path.stem in windows_of(path.parent):
            continue
        named = widget_classes & set(WORD.findall(path.read_text(encoding="utf-8")))
        if named:
            yield f"{path}: names {', '.join(sorted(named))} and isn't listed under WINDOWS"


def widget_classes_in(header_folder):
    """The classes of the widget library are the names of its headers without a suffix."""
    names = {path.name for path in pathlib.Path(header_folder).iterdir()}
    return {name for name in names if WORD.fullmatch(name) and "." not in name}


def expect(condition, what):
    if not condition:
        sys.exit(f"expected: {what}")


def finds(tree, check):
    with tempfile.TemporaryDirectory() as folder:
        src = pathlib.Path(folder)
        levels = "1 low\n2 mid/left\n2 mid/right\n- tool\n3 high\n"
        for name, text in ({"levels.txt": levels} | tree).items():
            path = src / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        return bool(list(check(src)))


def self_test():
    wrong = {
        "upwards": {"low/a.cpp": '#include "high/x.h"\n'},
        "sideways": {"mid/left/a.cpp": '#include "mid/right/x.h"\n'},
        "a program": {"high/a.cpp": '#include "tool/x.h"\n'},
        "a program that looks up": {"tool/a.cpp": '#include "high/x.h"\n'},
        "a folder without level": {"mid/a.cpp": ""},
        "not from src": {"low/a.cpp": '#include "b.h"\n', "low/b.h": ""},
    }
    right = {
        "downwards": {"high/a.cpp": '#include "mid/left/x.h"\n#include <QString>\n'},
        "its own folder": {"mid/left/a.cpp": '#include "mid/left/x.h"\n'},
        "a program that looks down": {"tool/a.cpp": '#include "mid/right/x.h"\n'},
    }
    for name, tree in wrong.items():
        expect(finds(tree, direction_findings), f"a finding for {name}")
    for name, tree in right.items():
        expect(not finds(tree, direction_findings), f"no finding for {name}")

    def widgets(src):
        return widget_findings(src, {"QWidget", "QLabel"})

    lists = "vistara_library(high\n    SOURCES\n        a.cpp\n    WINDOWS\n        b.cpp\n    LINK low\n)\n"
    shows = "class QWidget;\n"
    expect(finds({"high/a.cpp": shows, "high/CMakeLists.txt": lists}, widgets), "a widget in a.cpp")
    expect(finds({"high/a.h": shows, "high/CMakeLists.txt": lists}, widgets), "a widget in a.h")
    expect(finds({"high/a.cpp": shows}, widgets), "a widget without lists")
    expect(not finds({"high/b.h": shows, "high/CMakeLists.txt": lists}, widgets), "b.h may show")
    expect(not finds({"high/a.cpp": "QString s;\n", "high/CMakeLists.txt": lists}, widgets), "plain a.cpp")


def main():
    if sys.argv[1] == "--self-test":
        self_test()
        return
    src = pathlib.Path(sys.argv[1])
    found = list(direction_findings(src))
    found += widget_findings(src, widget_classes_in(sys.argv[2]))
    print("\n".join(found) or "All includes go downwards, and only windows name widgets.")
    sys.exit(1 if found else 0)


main()
