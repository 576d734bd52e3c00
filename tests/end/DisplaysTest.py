#!/usr/bin/env -S python3 -B
"""Displays of a wall, tried with the real program on an X server that has three: pixel for pixel, unplugged and plugged
in again, with another mode, and what the keys do there. DisplaysTest.py PATH-OF-WALLWRIGHT SHOW. Where no such server can
be started it says so and ends with 77. What fails leaves Displays.png, the screen as it was, in the current folder."""

import subprocess
import sys
from pathlib import Path

import Displays
from Desktop import wait_for

SKIPPED = 77
WIDE, SMALL, OTHER = "1920x1080", "1280x720", "1024x768"
BLACK, WHITE = b"\0\0\0", b"\xff\xff\xff"
# In the pane of displays.
TURNED_OF_FIRST, SHOW_CHART, WALK = (577, 661), (291, 715), (296, 745)


def pixels_of(picture):
    """Width, height and eight bits each of red, green and blue."""
    size = subprocess.run(["identify", "-format", "%w %h", picture], check=True, stdout=subprocess.PIPE, text=True)
    width, height = map(int, size.stdout.split())
    return width, height, subprocess.run(["convert", picture, "-depth", "8", "rgb:-"], check=True,
                                         stdout=subprocess.PIPE).stdout


def turned(rows):
    """By a quarter, clockwise."""
    pixels = [[row[x:x + 3] for x in range(0, len(row), 3)] for row in reversed(rows)]
    return [b"".join(column) for column in zip(*pixels)]


class Trial:
    def __init__(self, desktop, program, show):
        self.desktop = desktop
        picture = desktop.home / "output.png"
        subprocess.run([program, "convert", show, picture], check=True, stdout=subprocess.DEVNULL)
        self.width, self.height, self.pixels = pixels_of(picture)
        subprocess.run([program, "chart", "panels", "--size", f"{self.width}x{self.height}", "--show", show, picture],
                       check=True, stdout=subprocess.DEVNULL)
        _, _, self.chart = pixels_of(picture)

    def part(self, x, y, width, height, pixels=None):
        """Of the output, or of another picture of its size, as Displays.seen() has it."""
        whole = pixels or self.pixels
        rows = range(y, y + height)
        return [whole[(row * self.width + x) * 3:(row * self.width + x + width) * 3] for row in rows]

    def wait_for_part(self, what, number, x, y, width, height):
        expected = self.part(x, y, width, height)
        wait_for(what, lambda: self.desktop.seen(number, width, height) == expected)

    def pixel(self, number, x, y):
        return self.desktop.seen(number, x + 1, y + 1)[y][x * 3:x * 3 + 3]

    def wait_for_pixel(self, what, number, x, y, colour):
        wait_for(what, lambda: self.pixel(number, x, y) == colour)

    def both_show_their_regions(self):
        self.desktop.key("shift+F11")
        self.wait_for_part("the first display", 1, 0, 0, 1920, 1080)
        self.desktop.key("alt+v", "n", "3")
        self.wait_for_part("the display right of it", 2, 1920, 0, 1280, 720)

    def another_mode_is_followed(self):
        self.desktop.randr("--addmode", "DUMMY2", OTHER, check=False)
        self.desktop.switch_on(2, OTHER)
        self.wait_for_part("the display in another mode", 2, 1920, 0, 1024, 768)
        self.desktop.switch_on(2, SMALL)
        self.wait_for_part("the display in its first mode", 2, 1920, 0, 1280, 720)

    def a_display_comes_back_by_itself(self):
        self.desktop.switch_off(2)
        self.wait_for_part("the other one, which stays", 1, 0, 0, 1920, 1080)
        self.desktop.switch_on(2, SMALL)
        self.wait_for_part("the display that came back", 2, 1920, 0, 1280, 720)

    def keys_act_there(self):
        desktop = self.desktop
        desktop.click(desktop.left_of(1) + 900, 500)
        for key, what in (("b", "black"), ("5", "a tenth")):
            before = self.pixel(1, 1000, 400)
            desktop.key(key)
            wait_for(what, lambda: self.pixel(1, 1000, 400) != before)
            desktop.key("b" if key == "b" else "1")
            self.wait_for_part("the picture after " + what, 1, 0, 0, 1920, 1080)
        desktop.key("i")
        self.wait_for_pixel("the frame that identifies", 1, 0, 0, WHITE)
        self.wait_for_pixel("that of the other display", 2, 0, 0, WHITE)
        self.wait_for_part("the picture after identifying", 1, 0, 0, 1920, 1080)
        desktop.key("Right", "shift+Down")
        self.wait_for_part("the region that was nudged", 1, 1, 10, 1920, 1080)
        desktop.key("Home")
        self.wait_for_part("the region at home", 1, 0, 0, 1920, 1080)

    def pointing_lights_a_panel(self):
        desktop = self.desktop
        desktop.click(300, 580)  # on the canvas, beside all walls
        desktop.hold("q")
        desktop.move(540, 300)
        wait_for("the dark around the lit panel", lambda: self.pixel(1, 40, 20) == BLACK)
        assert any(WHITE * 8 in row for row in desktop.seen(1, 1920, 1080)), "no panel is lit"
        desktop.let_go("q")
        self.wait_for_part("the picture after pointing", 1, 0, 0, 1920, 1080)

    def freezing_keeps_the_picture(self):
        desktop = self.desktop
        desktop.click(desktop.left_of(1) + 900, 500)
        desktop.key("f")
        desktop.click(130, 115)  # a layer's row
        desktop.key("h")
        desktop.wait_for_rest()
        self.wait_for_part("the picture that is frozen", 1, 0, 0, 1920, 1080)
        desktop.key("h")
        desktop.wait_for_rest()
        desktop.click(desktop.left_of(1) + 900, 500)
        desktop.key("f")
        self.wait_for_part("the picture again", 1, 0, 0, 1920, 1080)

    def a_walk_goes_along_a_cable(self):
        desktop = self.desktop
        desktop.click(130, 115)
        desktop.key("F11")
        desktop.wait_for_rest()
        desktop.click(*WALK)
        wait_for("the dark around the first panel", lambda: self.pixel(1, 1500, 700) == BLACK)
        first = desktop.seen(1, 1920, 1080)
        assert any(WHITE * 8 in row for row in first), "no panel is lit"
        desktop.key("Next")
        wait_for("the second panel", lambda: desktop.seen(1, 1920, 1080) != first)
        desktop.key("x", "Prior")
        wait_for("the first panel again", lambda: desktop.seen(1, 1920, 1080) == first)
        desktop.click(*WALK)
        self.wait_for_part("the picture after the walk", 1, 0, 0, 1920, 1080)

    def a_chart_lies_over_the_picture(self):
        self.desktop.click(*SHOW_CHART)
        expected = self.part(0, 0, 1920, 1080, self.chart)
        wait_for("the chart", lambda: self.desktop.seen(1, 1920, 1080) == expected)
        beside = self.part(1920, 0, 1280, 720, self.chart)
        wait_for("the chart on the other display", lambda: self.desktop.seen(2, 1280, 720) == beside)
        self.desktop.click(*SHOW_CHART)
        self.wait_for_part("the picture after the chart", 1, 0, 0, 1920, 1080)

    def a_display_that_hangs_on_its_side_is_turned(self):
        expected = turned(self.part(0, 0, 1080, 1920))
        self.desktop.double_click(*TURNED_OF_FIRST)
        wait_for("the turned picture", lambda: self.desktop.seen(1, 1920, 1080) == expected)
        for _ in range(3):
            self.desktop.wait_for_rest()
            self.desktop.double_click(*TURNED_OF_FIRST)
        self.wait_for_part("the upright picture", 1, 0, 0, 1920, 1080)

    def escape_leaves(self):
        self.desktop.key("shift+Escape")
        wait_for("nothing on the displays", lambda: self.desktop.seen(1, 1920, 1080) != self.part(0, 0, 1920, 1080))


def main():
    try:
        if not Displays.are_to_be_had():
            raise Displays.NotToBeHad
        try_displays()
    except Displays.NotToBeHad:
        print("Skipped: no X server with several displays can be started here.")
        sys.exit(SKIPPED)


def try_displays():
    program, show = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    try_one_display(program, show)
    with Displays.Displays(WIDE, SMALL) as desktop:
        try:
            trial = Trial(desktop, program, show)
            process = desktop.start(program, show)
            desktop.wait_for_window(show.name + " — Wallwright")
            desktop.wait_for_rest()
            trial.both_show_their_regions()
            trial.another_mode_is_followed()
            trial.a_display_comes_back_by_itself()
            trial.keys_act_there()
            trial.pointing_lights_a_panel()
            trial.freezing_keeps_the_picture()
            trial.a_walk_goes_along_a_cable()
            trial.a_chart_lies_over_the_picture()
            trial.a_display_that_hangs_on_its_side_is_turned()
            desktop.click(desktop.left_of(1) + 900, 500)
            trial.escape_leaves()
            desktop.click(130, 115)
            desktop.key("ctrl+q")
            wait_for("the end of the program", lambda: process.poll() is not None)
            assert process.returncode == 0, process.returncode
        except Exception:
            desktop.save_picture("Displays.png")
            raise


def try_one_display(program, show):
    """Beside the one with the main window."""
    with Displays.Displays(WIDE) as desktop:
        trial = Trial(desktop, program, show)
        desktop.start(program, show)
        desktop.wait_for_window(show.name + " — Wallwright")
        desktop.wait_for_rest()
        desktop.key("shift+F11")
        trial.wait_for_part("the only other display", 1, 0, 0, 1920, 1080)
        desktop.switch_off(1)
        desktop.wait_for_rest()
        desktop.switch_on(1, WIDE)
        trial.wait_for_part("the only other display, which came back", 1, 0, 0, 1920, 1080)


main()
