"""Checks that a folder of src/ includes only itself and folders of lower levels.

Also checks that the libraries which compute without a desktop name no Qt header.
"""

import pathlib
import re
import sys
import tempfile

LEVELS = {
    "base": 1,
    "formats": 2,
    "platform": 2,
    "core": 3,
    "widgets": 4,
    "viewer": 5,
    "files": 5,
    "thumbs": 6,
    "editing": 7,
    "publishing": 7,
    "acquire": 7,
    "players": 7,
    "shell": 8,
}
# Programs of their own beside the main one: they use what they need and nobody includes them.
HELPER_PROGRAMS = {"metafile_helper"}
WITHOUT_QT = {"base", "formats"}

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"/]+)/[^"]*"|<(Q[^>]*)>|<(Qt[^>]*)>)')
UNROOTED = re.compile(r'^\s*#\s*include\s+"([^"/]+\.h)"')


def findings(src):
    for path in sorted(src.rglob("*")):
        if path.suffix not in {".h", ".cpp"}:
            continue
        folder = path.relative_to(src).parts[0]
        if folder in HELPER_PROGRAMS:
            continue
        if folder not in LEVELS:
            yield f"{path}: the folder {folder} has no level"
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            where = f"{path}:{number}"
            unrooted = UNROOTED.match(line)
            if unrooted and (path.parent / unrooted.group(1)).exists():
                yield f"{where}: write {unrooted.group(1)} from src/"
            found = INCLUDE.match(line)
            if not found:
                continue
            target, qt = found.group(1), found.group(2) or found.group(3)
            if qt and folder in WITHOUT_QT:
                yield f"{where}: {folder} names a Qt header"
            if target in HELPER_PROGRAMS:
                yield f"{where}: {target} is a program of its own"
            if target in LEVELS and target != folder and LEVELS[target] >= LEVELS[folder]:
                yield f"{where}: {folder} (level {LEVELS[folder]}) includes {target} (level {LEVELS[target]})"


def self_test():
    cases = {
        "files/a.cpp": ('#include "viewer/x.h"\n', True),
        "viewer/a.cpp": ('#include "shell/x.h"\n', True),
        "formats/a.cpp": ("#include <QString>\n", True),
        "formats/b.cpp": ("#include <QtTypes>\n", True),
        "shell/a.cpp": ('#include "viewer/x.h"\n', False),
        "viewer/b.cpp": ('#include "viewer/x.h"\n#include <QString>\n', False),
        "unknown/a.cpp": ("", True),
    }
    for name, (text, bad) in cases.items():
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / name
            path.parent.mkdir()
            path.write_text(text, encoding="utf-8")
            if bool(list(findings(pathlib.Path(folder)))) != bad:
                sys.exit(f"{name}: expected {'a finding' if bad else 'none'}")


def main():
    if sys.argv[1] == "--self-test":
        self_test()
        return
    found = list(findings(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "All includes go downwards.")
    sys.exit(1 if found else 0)


main()
