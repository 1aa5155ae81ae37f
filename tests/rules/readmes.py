"""Checks that each folder with sources has a README, or is named as NAME/ in that of the folder around it.

Usage: readmes.py ROOT.
"""

import pathlib
import sys

SOURCES = {".cpp", ".h", ".py", ".sh", ".cmake"}
NOT_OURS = {"build", ".git"}


def folders_without(root):
    for folder in sorted(path for path in root.rglob("*") if path.is_dir()):
        relative = folder.relative_to(root)
        if relative.parts[0] in NOT_OURS or not any(entry.suffix in SOURCES for entry in folder.iterdir()):
            continue
        around = folder.parent / "README.md"
        told = around.is_file() and f"{folder.name}/" in around.read_text(encoding="utf-8")
        if not (folder / "README.md").is_file() and not told:
            yield f"{relative}: no README, and that of the folder around it does not name {folder.name}/"


if __name__ == "__main__":
    found = list(folders_without(pathlib.Path(sys.argv[1]).resolve()))
    print("\n".join(found) or "every folder says what it is")
    sys.exit(1 if found else 0)
