#!/usr/bin/env python3
"""Checks the files for desktops: nalt.desktop opens the type that nalt-mime.xml describes, and its magic knows the header
of an OpenFlight file from other bytes.

Usage: check_desktop.py REPOSITORY
"""
import configparser
import struct
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

NAMESPACE = "{http://www.freedesktop.org/standards/shared-mime-info}"
FORMATS = {"big16": ">H", "big32": ">I"}


def matches(node, content):
    """Whether a <match> and, if it has any, one of those inside hold for a file's content."""
    layout, offset = FORMATS[node.get("type")], int(node.get("offset"))
    if len(content) < offset + struct.calcsize(layout):
        return False
    mask = int(node.get("mask", "0xffffffff"), 16)
    found = struct.unpack_from(layout, content, offset)[0]
    inner = node.findall(NAMESPACE + "match")
    return found & mask == int(node.get("value"), 16) and (not inner or any(matches(each, content) for each in inner))


def header(revision, length=324, opcode=1):
    """A header record of a format revision."""
    return struct.pack(">HH8si", opcode, length, b"db", revision).ljust(length, b"\0")


def check(desktop_text, mime_text):
    """All faults, one line each."""
    desktop = configparser.ConfigParser(interpolation=None)
    desktop.optionxform = str
    desktop.read_string(desktop_text)
    entry = desktop["Desktop Entry"]
    mime_type = ElementTree.fromstring(mime_text).find(NAMESPACE + "mime-type")

    faults = []
    if entry["MimeType"].strip(";").split(";") != [mime_type.get("type")]:
        faults.append("nalt.desktop opens another type than nalt-mime.xml describes")
    if entry["Exec"] != "nalt %F":
        faults.append("nalt.desktop doesn't pass files to nalt")
    if [glob.get("pattern") for glob in mime_type.findall(NAMESPACE + "glob")] != ["*.flt"]:
        faults.append("nalt-mime.xml doesn't name *.flt")

    def known(content):
        return any(matches(match, content) for match in mime_type.iterfind(f"{NAMESPACE}magic/{NAMESPACE}match"))

    faults += [f"the magic misses revision {revision}" for revision in (1400, 1520, 1570, 1580, 1600, 1620, 1640)
               if not known(header(revision, 276 if revision < 1570 else 324))]
    others = {"text": b"0001 is no opcode", "nothing": b"", "a group record": header(1620, 44, 2),
              "a cut header": header(1620)[:12], "no revision": header(0), "a TrueType font": b"\0\1\0\0\0\x10\1\0\0\4\0\0DSIG"}
    faults += [f"the magic takes {name} for a model" for name, content in others.items() if known(content)]
    return faults


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    data = Path(sys.argv[1]) / "data"
    all_faults = check(*((data / name).read_text(encoding="utf-8") for name in ("nalt.desktop", "nalt-mime.xml")))
    print("\n".join(all_faults) if all_faults else "The files for desktops agree.")
    sys.exit(1 if all_faults else 0)
