#!/usr/bin/env -S python3 -B
"""What a person relies on without looking, tried with the real program on an X server, by mouse and keyboard: keys move
layers from the canvas alone, a drag over panels is one step, presets and supply are there after a restart.
TrustTest.py PATH-OF-WALLWRIGHT. What fails leaves Trust.png, the screen as it was, in the current folder."""

import json
import subprocess
import sys
from pathlib import Path

import MainWindow
from Desktop import Desktop, wait_for
from MainWindow import middle, panel_of

COLUMNS, ROWS = 9, 5
SHOW = "Show.Orv — Wallwright"
NAME = "Kept wall"
PANELS_TOOL, VOLTS_208, THREE_PHASES = (313, 65), (101, 779), (404, 779)
ROW = [(1, column) for column in range(1, 5)]
RECTANGLE = [(row, column) for row in range(2, 5) for column in range(6, 9)]


class Trial:
    def __init__(self, desktop, program):
        self.desktop, self.program = desktop, program
        self.folder = desktop.home / "show"
        self.folder.mkdir()
        self.file = self.folder / "Show.Orv"

    def saved(self):
        """The show's layers as they are in the file, topmost first."""
        self.desktop.key("ctrl+s")
        self.desktop.wait_for_window(SHOW)
        self.desktop.wait_for_rest()
        text = self.folder / "Show.json"
        subprocess.run([self.program, "convert", self.file, text], check=True, stdout=subprocess.DEVNULL)
        return json.loads(text.read_text())["layers"]

    def arrows_move_layers_from_the_canvas_alone(self):
        desktop = self.desktop
        MainWindow.drag_preset_in(desktop)
        desktop.click(*middle(desktop.picture().extent(MainWindow.PRESET_COLOURS, MainWindow.LAYERS)))
        desktop.key(*["Down"] * 8, *["Up"] * 8, "Left", "Right", *["Down"] * 3)
        for place in (PANELS_TOOL, VOLTS_208, THREE_PHASES):
            desktop.click(*place)
            desktop.key("Left", "Down", "Up", "Up")
        MainWindow.save(desktop, "ctrl+s", "Save project", self.file, SHOW)
        places = [(layer["xpoint"], layer["ypoint"]) for layer in self.saved()]
        assert places == [(0, 0), (0, 0)], places

    def a_drag_over_panels_is_one_step(self):
        desktop = self.desktop
        MainWindow.delete_first_wall(desktop)
        MainWindow.type_size(desktop, COLUMNS, ROWS)
        places = {panel: middle(panel_of(desktop, COLUMNS, ROWS, panel)) for panel in ROW + RECTANGLE}
        desktop.drag(places[ROW[0]], places[ROW[-1]])
        assert self.off() == sorted(ROW), self.off()
        desktop.hold("shift")
        desktop.drag(places[RECTANGLE[0]], places[RECTANGLE[-1]])
        desktop.let_go("shift")
        assert self.off() == sorted(ROW + RECTANGLE), self.off()
        desktop.key("ctrl+z")
        assert self.off() == sorted(ROW), self.off()

    def off(self):
        keys = self.saved()[0]["hiddenBoxes"]
        return sorted(tuple(int(part) for part in key.split(",")) for key in keys)

    def supply_and_presets_stay(self):
        desktop = self.desktop
        desktop.click(*VOLTS_208)
        desktop.click(*THREE_PHASES)
        desktop.click(*MainWindow.NAME_FIELD)
        desktop.key("ctrl+a")
        desktop.type(NAME)
        desktop.key("Return")
        MainWindow.keep_as_preset(desktop)
        self.saved()
        facts = subprocess.run([self.program, "info", self.file], check=True, stdout=subprocess.PIPE, text=True).stdout
        assert "at 208 V, 3 phases" in facts, facts

    def they_are_there_again(self):
        desktop = self.desktop
        desktop.key("ctrl+l")
        desktop.type(NAME)
        wait_for("the other presets to go",
                 lambda: not desktop.picture().extent(MainWindow.OTHER_PRESET_COLOURS, MainWindow.PRESETS))
        assert desktop.picture().extent(MainWindow.PRESET_COLOURS, MainWindow.PRESETS), "the preset is gone"
        desktop.key("Escape")
        MainWindow.save(desktop, "ctrl+s", "Save project", self.folder / "Next.Orv", "Next.Orv — Wallwright")


def main():
    program = Path(sys.argv[1]).resolve()
    with Desktop() as desktop:
        try:
            trial = Trial(desktop, program)
            process = MainWindow.start(desktop, program)
            trial.arrows_move_layers_from_the_canvas_alone()
            trial.a_drag_over_panels_is_one_step()
            trial.supply_and_presets_stay()
            chosen = desktop.picture().part(MainWindow.SUPPLY)
            MainWindow.quit_program(desktop, process)

            process = MainWindow.start(desktop, program)
            wait_for("the supply that was chosen", lambda: desktop.picture().part(MainWindow.SUPPLY) == chosen)
            trial.they_are_there_again()
            MainWindow.quit_program(desktop, process)
        except Exception:
            desktop.save_picture("Trust.png")
            raise


main()
