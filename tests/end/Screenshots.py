#!/usr/bin/env -S python3 -B
"""The pictures of the documentation, taken from the real program: Screenshots.py PATH-OF-WALLWRIGHT FOLDER."""

import subprocess
import sys
from pathlib import Path

import Displays
import MainWindow
import WiringTest
from Desktop import Desktop
from MainWindow import CANVAS, COLUMNS_FIELD, FIRST_WALL_COLOURS, ROWS_FIELD

EXAMPLES = Path(__file__).parents[2] / "examples"
PANEL_WIDTH_FIELD, PANEL_HEIGHT_FIELD = (1180, 326), (1180, 356)
INSPECTOR_MARGIN = (986, 420)
SIGNAL_HEAD = (1020, 156)  # when the inspector is scrolled to its end
PATH_SWITCH, PANEL_LABELS_SWITCH = (1117, 282), (1117, 176)  # when that group is folded
WALK_SWITCH, SHOW_CHART = (296, 745), (291, 715)  # in the pane of displays
BOOTH = (600, 588)  # the wall at the bottom of the festival, on the canvas
BOOTH_MOVED = (452, 600)  # so far to the left that it meets the main wall's edge


class Pictures:
    def __init__(self, program, folder):
        self.program, self.folder = program, folder
        folder.mkdir(parents=True, exist_ok=True)

    def take(self, desktop, name, part=None):
        desktop.wait_for_rest()
        desktop.save_picture(self.folder / name, part)
        print(self.folder / name)

    def open_example(self, desktop, name):
        project = desktop.home / f"{name}.Orv"
        subprocess.run([self.program, "convert", EXAMPLES / f"{name}.json", project], check=True,
                       stdout=subprocess.DEVNULL)
        desktop.start(self.program, project)
        desktop.wait_for_window(f"{name}.Orv — Wallwright")
        desktop.wait_for_rest()

    def first_wall(self):
        with Desktop() as desktop:
            MainWindow.start(desktop, self.program)
            self.take(desktop, "start.png")
            self.make_wall(desktop)
            self.take(desktop, "first-wall.png")
            desktop.wheel_down(*INSPECTOR_MARGIN, 30)
            desktop.click(*SIGNAL_HEAD)
            desktop.wait_for_rest()
            desktop.click(*PATH_SWITCH)
            desktop.click(*PANEL_LABELS_SWITCH)
            self.take(desktop, "inspector.png")

    @staticmethod
    def make_wall(desktop):
        """Of the wall that is there, as the page tells it."""
        for place, number in zip((PANEL_WIDTH_FIELD, PANEL_HEIGHT_FIELD, COLUMNS_FIELD, ROWS_FIELD), (192, 192, 9, 5)):
            desktop.click(*place)
            desktop.key("ctrl+a")
            desktop.type(number)
        desktop.key("Return")
        desktop.wait_for_rest()
        left, top, right, bottom = desktop.picture().extent(FIRST_WALL_COLOURS, CANVAS)
        for row, column in ((0, 0), (0, 8), (4, 4)):
            desktop.click(round(left + (column + 0.5) * (right - left) / 9), round(top + (row + 0.5) * (bottom - top) / 5))

    def festival(self):
        with Desktop() as desktop:
            self.open_example(desktop, "festival")
            self.take(desktop, "window.png")
            desktop.key("v")
            desktop.drag_to(BOOTH, BOOTH_MOVED)
            self.take(desktop, "arrange.png")
            desktop.key("Escape")
            desktop.release()

    def preview(self):
        with Desktop() as desktop:
            self.open_example(desktop, "studio")
            desktop.key("alt+v", "p")
            desktop.wait_for_window("Output preview")
            self.take(desktop, "preview.png")

    def wiring(self):
        with Desktop() as desktop:
            trial = WiringTest.Trial(desktop, self.program, EXAMPLES.parent)
            trial.open_show()
            trial.choose_processor()
            desktop.key("alt+v", "k")  # folds the tables
            desktop.click(*WiringTest.DATA_TOOL)
            desktop.wait_for_rest()
            trial.find_walls(CANVAS)
            first, second, third, *_ = WiringTest.cables()
            trial.lay(first)
            trial.lay(second)
            trial.hold(third)
            self.take(desktop, "signal.png")
            desktop.release()
            desktop.key("alt+v", "k")
            self.take(desktop, "checks.png")

    def displays(self):
        with Displays.Displays("1920x1080", "1280x720") as desktop:
            self.open_example(desktop, "touring")
            desktop.key("shift+F11")
            desktop.wait_for_rest()
            desktop.key("alt+v", "n", "3")
            desktop.wait_for_rest()
            desktop.key("F11")
            desktop.wait_for_rest()
            desktop.click(*WALK_SWITCH)
            desktop.wait_for_rest()
            desktop.key("Next", "Next")
            self.take(desktop, "displays.png", "1280x800+0+0")
            desktop.click(*WALK_SWITCH)
            desktop.click(*SHOW_CHART)
            self.take(desktop, "charts.png", "1280x800+0+0")


pictures = Pictures(Path(sys.argv[1]).resolve(), Path(sys.argv[2]))
pictures.first_wall()
pictures.festival()
pictures.preview()
pictures.wiring()
pictures.displays()
