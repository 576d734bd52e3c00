#!/usr/bin/env -S python3 -B
"""The main wall of the festival is wired by hand, round its holes and on into the banner above it on the same port, with
the real program on an X server, by mouse and keyboard, until the checks find nothing: WiringTest.py PATH-OF-WALLWRIGHT
PATH-OF-THE-PROJECT. What fails leaves Wiring.png, the screen as it was, in the current folder."""

import json
import shutil
import subprocess
import sys
from pathlib import Path

import MainWindow
from Desktop import Desktop, wait_for

FAMILY, MODEL = "NovaStar COEX", "MX40 Pro"
SHOW = "Show.Orv — Wallwright"
# With the tables below the canvas.
CANVAS = (300, 105, 978, 555)
STATE_OF_TABLES = (440, 570, 875, 595)
PROCESSORS_BUTTON = (925, 581)
DATA_TOOL = (498, 65)
RED, AMBER = b"\xf2\x54\x5b", b"\xf0\xb4\x29"
MAIN, BANNER = "MAIN", "BANNER"


def serpentine(columns, rows):
    """The panels (row, column) of some columns, row by row to and fro."""
    return [(row, column) for turn, row in enumerate(rows) for column in (columns if turn % 2 == 0 else columns[::-1])]


def cables():
    """The cables: on each the panels of one wall, then of the next. Panels that are off are passed over."""
    left_of_door = list(range(10, 15))
    door = [(row, 14) for row in (11, 10, 9)]
    return [
        [(MAIN, serpentine(list(range(0, 5)), range(12)))],
        [(MAIN, serpentine(list(range(5, 10)), range(12)))],
        # Up beside the door, whose panels are off, to and fro above it, and out of the wall's top into the banner.
        [(MAIN, door + serpentine(left_of_door[::-1], range(8, -1, -1))),
         (BANNER, [(1, column) for column in range(10, 22)])],
        [(MAIN, serpentine(list(range(15, 20)), range(12)))],
        [(MAIN, serpentine(list(range(20, 24)), range(12)))],
        [(BANNER, [(1, column) for column in range(9, -1, -1)] + [(0, column) for column in range(24)] +
          [(1, 23), (1, 22)])],
    ]


class Trial:
    def __init__(self, desktop, program, project):
        self.desktop, self.program, self.project = desktop, program, project
        self.folder = desktop.home / "show"
        self.folder.mkdir()
        self.layers = {layer["label"]: layer for layer in json.loads(
            (project / "examples/festival.json").read_text())["layers"]}
        self.places = {}

    def open_show(self):
        shutil.copy(self.project / "examples/festival.json", self.folder)
        self.open("festival.json", "festival.json — Wallwright")

    def open(self, name, title):
        self.process = MainWindow.start(self.desktop, self.program)
        self.desktop.key("ctrl+o")
        self.desktop.wait_for_window("Open project")
        self.desktop.type(self.folder / name)
        self.desktop.key("Return")
        self.desktop.wait_for_window(title)
        self.desktop.wait_for_rest()

    def choose_processor(self):
        models = json.loads((self.project / "resources/data/processors.json").read_text())["processors"]
        families = list(dict.fromkeys(model["family"] for model in models))
        of_family = [model["model"] for model in models if model["family"] == FAMILY]
        self.desktop.key("alt+v", "t")
        self.desktop.wait_for_rest()
        self.desktop.click(*PROCESSORS_BUTTON)
        self.desktop.wait_for_rest()
        self.desktop.key(*["Down"] * (families.index(FAMILY) + 1), "Right", *["Down"] * of_family.index(MODEL))
        self.desktop.key("Return")
        self.desktop.wait_for_rest()
        self.desktop.key("alt+v", "k")
        self.desktop.wait_for_rest()

    def find_walls(self, canvas=CANVAS):
        picture = self.desktop.picture()
        for name in (MAIN, BANNER):
            colours = [bytes(int(self.layers[name][key][i:i + 2], 16) for i in (1, 3, 5))
                       for key in ("rectColor", "rectColor2")]
            self.places[name] = picture.extent(colours, canvas)

    def place_of(self, wall, panel):
        left, top, right, bottom = self.places[wall]
        row, column = panel
        return (round(left + (column + 0.5) * (right - left) / self.layers[wall]["col"]),
                round(top + (row + 0.5) * (bottom - top) / self.layers[wall]["row"]))

    def lay(self, cable):
        self.hold(cable)
        self.desktop.release()

    def hold(self, cable):
        self.desktop.stroke([self.place_of(wall, panel) for wall, panels in cable for panel in panels])

    def colour_of_state(self, colour):
        return self.desktop.picture().extent([colour], STATE_OF_TABLES)

    def check(self):
        result = subprocess.run([self.program, "check", self.folder / "Show.Orv"], stdout=subprocess.PIPE, text=True,
                                check=False)
        return result.stdout.splitlines()[-1]

    def wire(self):
        self.desktop.click(*DATA_TOOL)
        self.find_walls()
        assert not self.colour_of_state(RED)
        first, *others = cables()
        self.lay(first)
        wait_for("the panels that are not fed", lambda: self.colour_of_state(RED))
        MainWindow.save(self.desktop, "ctrl+s", "Save project", self.folder / "Show.Orv", SHOW)
        assert not self.check().startswith("0 errors"), self.check()
        for cable in others:
            self.lay(cable)
        wait_for("the errors and warnings to go",
                 lambda: not self.colour_of_state(RED) and not self.colour_of_state(AMBER))

    def save_and_open_again(self):
        self.desktop.key("ctrl+s")
        self.desktop.wait_for_window(SHOW)
        self.desktop.wait_for_rest()
        MainWindow.quit_program(self.desktop, self.process)
        self.open("Show.Orv", SHOW)
        assert not self.colour_of_state(RED) and not self.colour_of_state(AMBER), "the window finds faults again"
        assert self.check().startswith("0 errors, 0 warnings"), self.check()
        MainWindow.quit_program(self.desktop, self.process)

    def see_ports(self):
        facts = json.loads(subprocess.run([self.program, "info", "--json", self.folder / "Show.Orv"], check=True,
                                          stdout=subprocess.PIPE).stdout)
        by_walls = sorted((port["walls"], port["panels"]) for port in facts["ports"])
        wired = [(walls, panels) for walls, panels in by_walls if MAIN in walls or BANNER in walls]
        assert wired == [([BANNER], 36), ([MAIN], 46), ([MAIN], 58), ([MAIN], 58), ([MAIN], 58), ([MAIN, BANNER], 60)], wired
        assert len(by_walls) == 11, by_walls


def main():
    program, project = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    with Desktop() as desktop:
        trial = Trial(desktop, program, project)
        try:
            trial.open_show()
            trial.choose_processor()
            trial.wire()
            trial.save_and_open_again()
            trial.see_ports()
        except Exception:
            desktop.save_picture("Wiring.png")
            raise


if __name__ == "__main__":
    main()
