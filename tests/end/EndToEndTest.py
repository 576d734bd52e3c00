#!/usr/bin/env -S python3 -B
"""A show from the first wall to the files for the crew, made with the real program on an X server, by mouse and keyboard:
EndToEndTest.py PATH-OF-WALLWRIGHT. What fails leaves EndToEnd.png, the screen as it was, in the current folder."""

import json
import subprocess
import sys
from pathlib import Path

import MainWindow
from Desktop import Desktop

COLUMNS, ROWS = 9, 5
SWITCHED_OFF = [(0, 0), (1, 3), (4, 8)]  # row from the top, column from the left
SHOW = "Show.Orv — Wallwright"  # the main window, once the show has its file


def make_show(desktop, program, folder):
    process = MainWindow.start(desktop, program)
    MainWindow.make_wall(desktop, COLUMNS, ROWS, SWITCHED_OFF)
    MainWindow.save(desktop, "ctrl+s", "Save project", folder / "Show.Orv", SHOW)
    MainWindow.save(desktop, "ctrl+e", "Export PNG", folder / "made.png", SHOW)
    # The ending is always added.
    MainWindow.save(desktop, "ctrl+shift+e", "Export PSD", folder / "made.psd", SHOW, typed=folder / "made")
    MainWindow.quit_program(desktop, process)


def open_show_again(desktop, program, folder):
    process = MainWindow.start(desktop, program)
    desktop.key("ctrl+o")
    desktop.wait_for_window("Open project")
    desktop.type(folder / "Show.Orv")
    desktop.key("Return")
    desktop.wait_for_window(SHOW)
    MainWindow.save(desktop, "ctrl+e", "Export PNG", folder / "again.png", SHOW)
    MainWindow.quit_program(desktop, process)


def differing_pixels(one, other):
    result = subprocess.run(["compare", "-metric", "AE", str(one), str(other), "null:"], stderr=subprocess.PIPE,
                            text=True, check=False)
    return result.stderr.strip()


def compare_with_conversion(program, folder):
    converted = [folder / name for name in ("converted.png", "converted.psd", "converted.json")]
    subprocess.run([program, "convert", folder / "Show.Orv", *converted], check=True, stdout=subprocess.DEVNULL)
    picture, layered, text = converted

    for exported in ("made.png", "again.png"):
        differing = differing_pixels(folder / exported, picture)
        assert differing == "0", f"{exported} differs from the converted picture in {differing} pixels"
    assert (folder / "made.psd").read_bytes() == layered.read_bytes(), "the PSDs differ"

    layers = json.loads(text.read_text())["layers"]
    assert len(layers) == 1, layers
    assert (layers[0]["label"], layers[0]["col"], layers[0]["row"]) == (MainWindow.PRESET, COLUMNS, ROWS), layers
    assert sorted(layers[0]["hiddenBoxes"]) == [f"{row},{column}" for row, column in SWITCHED_OFF], layers


def main():
    program = Path(sys.argv[1]).resolve()
    with Desktop() as desktop:
        folder = desktop.home / "show"
        folder.mkdir()
        try:
            make_show(desktop, program, folder)
            open_show_again(desktop, program, folder)
            compare_with_conversion(program, folder)
        except Exception:
            desktop.save_picture("EndToEnd.png")
            raise


main()
