"""Builds a root folder from a world: a small JSON file.

  about     what the world is
  root      "folder" (the default), "missing" or "file"
  disk      "" (the default), "full" or "read-only": what writers meet, played by the preloaded library
  profiles  by name: an object of byte offsets, each with "text" or hexadecimal "bytes"; "size" cuts or
            extends the record; "folder" puts a folder in its place
  files     by path below the root: any JSON value, or an object with "raw" for exact text
"""

import json
import pathlib

PROFILES = "vornlocal/download/appwrite/NetProfile"
RECORD_SIZE = 1168


def record_of(description):
    record = bytearray(RECORD_SIZE)
    for offset, value in description.items():
        if not offset.isdigit():
            continue
        data = bytes.fromhex(value["bytes"]) if "bytes" in value else value["text"].encode()
        record[int(offset) : int(offset) + len(data)] = data
    assert len(record) == RECORD_SIZE, "a value runs beyond the record"
    size = description.get("size", RECORD_SIZE)
    return bytes(record[:size]).ljust(size, b"\0")


def build_profile(folder, description):
    folder.mkdir(mode=0o700)
    path = folder / "profile"
    if description.get("folder"):
        path.mkdir()
    else:
        path.write_bytes(record_of(description))
        path.chmod(0o600)


def build(description, root):
    """Builds the world at `root`; what writers meet there."""
    world = json.loads(pathlib.Path(description).read_text(encoding="utf-8"))
    kind = world.get("root", "folder")
    if kind == "file":
        root.write_text("not a folder\n", encoding="utf-8")
    if kind != "folder":
        return ""
    root.mkdir(mode=0o700)
    profiles = root / PROFILES
    profiles.mkdir(parents=True, mode=0o700)
    for name, profile in world.get("profiles", {}).items():
        build_profile(profiles / name, profile)
    for name, value in world.get("files", {}).items():
        path = root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        raw = value["raw"] if isinstance(value, dict) and "raw" in value else json.dumps(value)
        path.write_text(raw, encoding="utf-8")
    return world.get("disk", "")
