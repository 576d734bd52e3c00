#!/usr/bin/env -S python3 -B
"""What no show can make the program do: ask another computer, open a file that is no picture, or start a program.
ClosedDoorsTest.py PATH-OF-WALLWRIGHT. A server listens where the show's pictures seem to lie, and a pipe, whose opening
would be seen, stands where others do. What fails leaves ClosedDoors.png, the screen as it was, in the current folder."""

import json
import os
import socket
import subprocess
import sys
from pathlib import Path

from Desktop import Desktop, wait_for

SHOW = "Show.Orv — Wallwright"


class Trap:
    """An address that tells whether anybody came, and a pipe that does the same."""

    def __init__(self, folder):
        self.server = socket.create_server(("127.0.0.1", 0))
        self.server.setblocking(False)
        self.page = f"http://127.0.0.1:{self.server.getsockname()[1]}"
        self.pipe = folder / "pipe.png"
        os.mkfifo(self.pipe)
        self.folder = folder

    def assert_nobody_came(self):
        try:
            self.server.accept()
        except BlockingIOError:
            pass
        else:
            raise AssertionError("the program has asked a server")
        try:
            os.close(os.open(self.pipe, os.O_WRONLY | os.O_NONBLOCK))
        except OSError:
            return  # nobody reads
        raise AssertionError("the program has opened a pipe")

    def show(self):
        """A show whose pictures are all of that."""
        drawing = self.folder / "drawing.svg"
        drawing.write_text("<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                           f"width='90' height='60'><image width='9' height='9' xlink:href='{self.page}/in.png'/>"
                           f"<image width='9' height='9' xlink:href='{self.pipe}'/></svg>")
        pictures = [f"{self.page}/plate.png", f"ftp://{self.page[7:]}/plate.png", f"file://127.0.0.1{self.pipe}",
                    str(self.pipe), str(drawing), "/etc/passwd", "/dev/zero", "/proc/kmsg", str(self.folder), ":/icons"]
        walls = [{"class": "LWScreen", "col": 2, "row": 2, "label": "MAIN"}]
        stills = [{"class": "LWStill", "label": address, "ImageURL": address} for address in pictures]
        text = self.folder / "Show.json"
        text.write_text(json.dumps({"format": 1, "OutputWidth": 320, "OutputHeight": 180, "layers": walls + stills}))
        return text


def sockets_of(process):
    """The kinds of sockets that it holds: the names of the system's tables."""
    held = set()
    for entry in Path(f"/proc/{process.pid}/fd").iterdir():
        try:
            held.add(os.readlink(entry))
        except FileNotFoundError:
            pass
    tables = set()
    for table in Path(f"/proc/{process.pid}/net").iterdir():
        if table.name in ("tcp", "tcp6", "udp", "udp6", "raw", "raw6", "packet", "netlink", "unix"):
            numbers = {word for line in table.read_text().splitlines()[1:] for word in line.split()}
            tables.update({table.name} if any(f"socket:[{number}]" in held for number in numbers) else set())
    return tables


def main():
    program = Path(sys.argv[1]).resolve()
    with Desktop() as desktop:
        try:
            folder = desktop.home / "show"
            folder.mkdir()
            trap = Trap(folder)
            text, file, output = trap.show(), folder / "Show.Orv", folder / "Show.png"
            done = subprocess.run([program, "convert", text, file, output], stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT, text=True, timeout=60)
            assert file.exists() and output.exists(), done.stdout
            trap.assert_nobody_came()

            process = desktop.start(program, file)
            desktop.wait_for_window(SHOW)
            desktop.wait_for_rest()
            trap.assert_nobody_came()
            sockets = sockets_of(process)
            assert sockets == {"unix"}, sockets
            children = [path.read_text() for path in Path(f"/proc/{process.pid}/task").glob("*/children")]
            assert not "".join(children).strip(), children
        except Exception:
            desktop.save_picture("ClosedDoors.png")
            raise


main()
