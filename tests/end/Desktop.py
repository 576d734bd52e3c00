"""A desktop of its own for the real program: an X server without a screen, a window manager, a mouse, a keyboard and an
empty home. Whatever is waited for has a time limit, and what does not come is told by name."""

import os
import subprocess
import tempfile
import time
from pathlib import Path

AT_TURNS = 0.25  # seconds
TURN = 60  # square pixels between two ways, more than what rounding makes of a straight one
PATIENCE = 30.0  # seconds; a busy machine under sanitizers takes some


def wait_for(what, condition):
    """Returns the first true value of condition(); fails with the words of `what` when there is none in time."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.05)
    raise AssertionError(f"waited {PATIENCE:.0f} s in vain for {what}")


class Picture:
    """What the screen showed: eight bits each of red, green and blue, rows from the top."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self.pixels = width, height, pixels

    def extent(self, colours, area):
        """The smallest box (left, top, right, bottom; the latter two behind the last pixel) around all pixels of these
        colours inside the area, a box as well; None if there is none."""
        left, top, right, bottom = area
        columns, rows = [], []
        for y in range(top, bottom):
            row = self.pixels[(y * self.width + left) * 3:(y * self.width + right) * 3]
            for colour in colours:
                first, last = row.find(colour), row.rfind(colour)
                # Between two pixels the bytes of a colour may stand by chance.
                while first >= 0 and first % 3:
                    first = row.find(colour, first + 1)
                while last >= 0 and last % 3:
                    last = row.rfind(colour, 0, last + 2)
                if first >= 0:
                    columns += [left + first // 3, left + last // 3 + 1]
                    rows += [y, y + 1]
        return (min(columns), min(rows), max(columns), max(rows)) if columns else None

    def part(self, area):
        """The pixels of an area, a box as above."""
        left, top, right, bottom = area
        return [self.pixels[(y * self.width + left) * 3:(y * self.width + right) * 3] for y in range(top, bottom)]


class Desktop:
    def __init__(self, width=1280, height=800):
        self.width, self.height = width, height

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="desktop")
        self.home = Path(self._folder.name)
        self._running = []
        try:
            self._start_servers()
        except Exception:
            self.__exit__()
            raise
        return self

    def _start_servers(self):
        reading, writing = os.pipe()
        self._start(["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{self.width}x{self.height}x24",
                     "-nolisten", "tcp", "-noreset"], os.environ, pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as display:
            number = display.readline().strip()
        assert number, "Xvfb did not start"
        self.environment = self._environment(f":{number}")
        self._start(["openbox", "--config-file", "/dev/null"], self.environment)
        wait_for("the window manager", lambda: self._output("xdotool", "get_num_desktops") not in ("", "0"))

    def __exit__(self, *_):
        for process in reversed(self._running):
            process.terminate()
            process.wait()
        self._folder.cleanup()

    def _environment(self, display):
        """Nothing of the person's own settings, session bus, scaling or language."""
        kept = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
        environment = {name: os.environ[name] for name in kept if name in os.environ}
        folders = {"XDG_CONFIG_HOME": ".config", "XDG_STATE_HOME": ".state", "XDG_DATA_HOME": ".data",
                   "XDG_CACHE_HOME": ".cache", "XDG_RUNTIME_DIR": ".run"}
        for variable, name in folders.items():
            folder = self.home / name
            folder.mkdir(mode=0o700)
            environment[variable] = str(folder)
        environment.update(HOME=str(self.home), DISPLAY=display, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
                           DBUS_SESSION_BUS_ADDRESS=f"unix:path={self.home}/no-bus")
        return environment

    def _start(self, command, environment, **options):
        process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   **options)
        self._running.append(process)
        return process

    def _output(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True, check=False).stdout.strip()

    def _xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True)

    def start(self, *command):
        """Starts a program; it is ended with the desktop, if it still runs then."""
        process = subprocess.Popen([str(part) for part in command], env=self.environment, cwd=self.home)
        self._running.append(process)
        return process

    def active_title(self):
        return self._output("xdotool", "getactivewindow", "getwindowname")

    def wait_for_window(self, title):
        """Until the window that has the keyboard has this title."""
        wait_for(f'the window "{title}"', lambda: self.active_title() == title)

    def key(self, *keys):
        self._xdotool("key", "--delay", 30, *keys)

    def hold(self, key):
        self._xdotool("keydown", key)

    def let_go(self, key):
        self._xdotool("keyup", key)

    def type(self, text):
        self._xdotool("type", "--delay", 15, text)

    def move(self, x, y):
        self._xdotool("mousemove", x, y)

    def click(self, x, y):
        self._xdotool("mousemove", x, y, "click", 1)

    def double_click(self, x, y):
        self._xdotool("mousemove", x, y, "click", "--repeat", 2, "--delay", 60, 1)

    def wheel_down(self, x, y, steps):
        self._xdotool("mousemove", x, y, "click", "--delay", 30, "--repeat", steps, 5)

    def drag_to(self, start, end):
        """With the left button, which stays down, in steps as a hand makes them: a drag begins and is offered by its
        moves."""
        self._xdotool("mousemove", *start, "mousedown", 1)
        steps = 20
        for step in range(1, steps + 1):
            self._xdotool("mousemove", *(round(a + (b - a) * step / steps) for a, b in zip(start, end)),
                          "sleep", 0.02)

    def drag(self, start, end):
        self.drag_to(start, end)
        self._xdotool("mousemove_relative", 1, 1, "sleep", 0.2)
        self.release()

    def stroke(self, places):
        """With the left button, which stays down, from place to place. A hand rests where it turns: of moves that come
        faster than a program takes them it is told the last one alone."""
        self._xdotool("mousemove", *places[0], "mousedown", 1, "sleep", AT_TURNS)
        for before, place, after in zip(places, places[1:], places[2:] + places[-1:]):
            way, next_way = ((end[0] - start[0], end[1] - start[1]) for start, end in ((before, place), (place, after)))
            goes_on = abs(way[0] * next_way[1] - way[1] * next_way[0]) < TURN and after != place
            self._xdotool("mousemove", *place, "sleep", 0.01 if goes_on else AT_TURNS)

    def release(self):
        self._xdotool("mouseup", 1)

    def picture(self):
        pixels = subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "rgb:-"], check=True,
                                env=self.environment, stdout=subprocess.PIPE).stdout
        return Picture(self.width, self.height, pixels)

    def wait_for_rest(self):
        """Until nothing on the screen has changed for a quarter of a second."""
        def rests():
            before = self.picture().pixels
            time.sleep(0.25)
            return self.picture().pixels == before
        wait_for("the screen to come to rest", rests)

    def save_picture(self, path, part=None):
        """As PNG, the same bytes for the same screen; of a part of it, "1280x800+0+0", where that is given."""
        crop = ["-crop", part, "+repage"] if part else []
        subprocess.run(["import", "-silent", "-window", "root", *crop, "-strip", "-define", "png:exclude-chunks=date,time",
                        "-define", "png:compression-level=9", str(path)], check=True, env=self.environment)
