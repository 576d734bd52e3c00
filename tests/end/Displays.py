"""A desktop with several displays: an X server of the dummy driver, whose displays can be switched as real ones are."""

import os
import shutil
import subprocess
from pathlib import Path

from Desktop import Desktop, wait_for

CONFIGURATION = """
Section "Device"
    Identifier "device"
    Driver "dummy"
    VideoRam 262144
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5-1000
    VertRefresh 5-200
EndSection
Section "Screen"
    Identifier "screen"
    Device "device"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes "1280x800"
        Virtual 7680 4320
    EndSubSection
EndSection
Section "ServerFlags"
    Option "AutoAddDevices" "false"
EndSection
"""


class NotToBeHad(Exception):
    """The server does not start on this machine."""


def are_to_be_had():
    """Whether this machine can start such a server, which only its owner may."""
    programs = ("Xorg", "xrandr", "openbox", "xdotool", "import")
    driver = Path("/usr/lib/xorg/modules/drivers/dummy_drv.so")
    return os.geteuid() == 0 and driver.exists() and all(shutil.which(program) for program in programs)


class Displays(Desktop):
    """The displays stand side by side; the first has 1280 x 800 pixels."""

    def __init__(self, *others):
        super().__init__(1280 + sum(int(mode.split("x")[0]) for mode in others),
                         max(800, *(int(mode.split("x")[1]) for mode in others)))
        self.others = others

    def _start_servers(self):
        configuration = self.home / "xorg.conf"
        configuration.write_text(CONFIGURATION)
        reading, writing = os.pipe()
        self._start(["Xorg", "-displayfd", str(writing), "-config", str(configuration), "-noreset", "-nolisten", "tcp",
                     "-sharevts", "-novtswitch", "-logfile", str(self.home / "xorg.log")], os.environ,
                    pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as display:
            number = display.readline().strip()
        if not number:
            raise NotToBeHad
        self.environment = self._environment(f":{number}")
        self.randr("--output", "DUMMY0", "--mode", "1280x800")
        for number, mode in enumerate(self.others, 1):
            self.randr("--addmode", f"DUMMY{number}", mode, check=False)
            self.switch_on(number, mode)
        self._start(["openbox", "--config-file", "/dev/null"], self.environment)
        wait_for("the window manager", lambda: self._output("xdotool", "get_num_desktops") not in ("", "0"))

    def randr(self, *arguments, check=True):
        subprocess.run(["xrandr", *arguments], env=self.environment, check=check, stderr=subprocess.DEVNULL)

    def switch_on(self, number, mode):
        left = self.left_of(number)
        self.randr("--output", f"DUMMY{number}", "--mode", mode, "--pos", f"{left}x0")

    def switch_off(self, number):
        self.randr("--output", f"DUMMY{number}", "--off")

    def left_of(self, number):
        return 1280 + sum(int(mode.split("x")[0]) for mode in self.others[:number - 1])

    def seen(self, number, width, height):
        """What a display shows from its upper left corner, rows of eight bits each of red, green and blue."""
        left = self.left_of(number)
        pixels = subprocess.run(["import", "-silent", "-window", "root", "-crop", f"{width}x{height}+{left}+0",
                                 "-depth", "8", "rgb:-"], check=True, env=self.environment,
                                stdout=subprocess.PIPE).stdout
        return [pixels[row * width * 3:(row + 1) * width * 3] for row in range(height)]
