#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The desktop file, the metainfo, the Flatpak manifest, the man pages and the program speak of one program: one id,
one version, the same files. Usage: oneprogram.py SOURCE-TREE VERSION"""

import configparser
import glob
import json
import os
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

ID = "io.github.orvane.Orvane"
PROGRAM = "orvane"

faults = []


def hold(what, is_true):
    if not is_true:
        faults.append(what)


def desktop_entry(path):
    entries = configparser.ConfigParser(interpolation=None)
    entries.optionxform = str
    entries.read(path, encoding="utf-8")
    return entries["Desktop Entry"]


def hold_desktop_file(folder):
    entry = desktop_entry(os.path.join(folder, ID + ".desktop"))
    hold("the desktop file names the icon by the id", entry["Icon"] == ID)
    hold("the desktop file starts the program", entry["Exec"] == PROGRAM)
    hold("no menu shows the program: the suite starts it", entry["NoDisplay"] == "true")


def hold_metainfo(folder, version, installed):
    root = xml.parse(os.path.join(folder, ID + ".metainfo.xml")).getroot()
    hold("the metainfo bears the id", root.findtext("id") == ID)
    hold("the metainfo names the desktop file", root.findtext("launchable") == ID + ".desktop")
    hold("the metainfo names the icon by the id", root.findtext("icon") == ID)
    hold(f"the metainfo's newest release is {version}", root.find("releases/release").get("version") == version)
    binaries = {"bin/" + binary.text for binary in root.iterfind("provides/binary")}
    hold("the metainfo lists the programs that are installed",
         binaries == {name for name in installed if name.startswith("bin/")})


def manifest(path):
    """As flatpak-builder reads it; a key that it doesn't know is a fault."""
    with tempfile.TemporaryDirectory() as scratch:
        read = subprocess.run(["flatpak-builder", "--show-manifest", path], cwd=scratch, capture_output=True,
                              text=True, check=True)
    hold("flatpak-builder knows every key of the manifest: " + read.stderr.strip(), not read.stderr)
    return json.loads(read.stdout)


def hold_manifest(folder, tree):
    what = manifest(os.path.join(folder, ID + ".yml"))
    hold("the manifest bears the id", what["id"] == ID)
    hold("the manifest starts the program", what["command"] == PROGRAM)
    sources = [source for module in what["modules"] for source in module["sources"]]
    hold("the manifest builds this tree and fetches nothing",
         [source["type"] for source in sources] == ["dir"]
         and os.path.samefile(os.path.join(folder, sources[0]["path"]), tree))
    hold("the manifest gives neither network nor folders away",
         not any("network" in given or "filesystem" in given for given in what["finish-args"]))


def hold_man_pages(folder, version):
    for page in glob.glob(os.path.join(folder, "**/orvane*.1"), recursive=True):
        with open(page, encoding="utf-8") as text:
            hold(f"{page} has version {version}", f'"Orvane {version}"' in text.readline())


def hold_program(tree):
    with open(os.path.join(tree, "src/main.cpp"), encoding="utf-8") as source:
        hold("the program tells the desktop its id", f'setDesktopFileName(u"{ID}"_s)' in source.read())


def main():
    tree, version = sys.argv[1:]
    packaging = os.path.join(tree, "packaging")
    with open(os.path.join(tree, "tests/packaging/installed.txt"), encoding="utf-8") as names:
        installed = names.read().split()
    hold_desktop_file(os.path.join(packaging, "desktop"))
    hold_metainfo(os.path.join(packaging, "desktop"), version, installed)
    hold_manifest(os.path.join(packaging, "flatpak"), tree)
    hold_man_pages(os.path.join(tree, "docs/man"), version)
    hold_program(tree)
    for fault in faults:
        print("not so:", fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
