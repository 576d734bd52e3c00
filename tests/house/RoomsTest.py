"""Holds the includes of every room against its link line, and against the floors of docs/architecture.md."""
import pathlib
import re
import unittest

HOUSE = pathlib.Path(__file__).resolve().parents[2]


class Plan:
    """The table of floors in docs/architecture.md."""

    def __init__(self):
        self.floors = {}
        self.arrows = set()
        page = (HOUSE / "docs/architecture.md").read_text(encoding="utf-8")
        for floor, rooms in re.findall(r"^\| (\d+) \| ([^|]+) \|", page, re.MULTILINE):
            for chain in rooms.split(","):
                names = re.findall(r"`(\w+)/`", chain)
                self.floors.update({name: int(floor) for name in names})
                self.arrows.update((a, b) for i, a in enumerate(names) for b in names[i + 1:])

    def allows(self, room, other):
        return self.floors[other] < self.floors[room] or (room, other) in self.arrows


def files_of(room, *suffixes):
    return sorted(path for path in (HOUSE / room).rglob("*") if path.suffix in suffixes)


def rooms_included_by(room, suffix, plan):
    found = set()
    for path in files_of(room, suffix):
        found.update(re.findall(r'^#include "(\w+)/', path.read_text(encoding="utf-8"), re.MULTILINE))
    return (found & plan.floors.keys()) - {room}


def rooms_on_link_line(room, plan):
    text = (HOUSE / room / "CMakeLists.txt").read_text(encoding="utf-8")
    line = re.search(rf"target_link_libraries\({room}\s+PUBLIC ([^)]*?)\s+PRIVATE ([^)]*)\)", text)
    public, private = (set(part.split()) & plan.floors.keys() for part in line.groups())
    return public, private


SYSTEMS = ("Linux", "Windows")
# What asks which system it is, or names what only some of them have.
OF_ONE_SYSTEM = re.compile(
    r"^\s*#\s*(?:el)?if.*\b(?:Q_OS_\w+|_*(?:WIN32|WIN64|linux|unix|APPLE|MINGW\w*)_*|_MSC_VER)\b"
    r"|^#include <(?:(?:unistd|fcntl|io|windows|grp|pwd|dlfcn|pthread|(?:sys|fontconfig)/\w+)\.h|QDBus\w+)>",
    re.MULTILINE)


def is_of_one_system(path):
    return path.stem.endswith(SYSTEMS) or path.stem.startswith("Bus")  # that of the Linux desktop


class Systems(unittest.TestCase):
    def test_no_shared_source_asks_which_system_it_is(self):
        shared = [path for room in Plan().floors for path in files_of(room, ".h", ".cpp") if not is_of_one_system(path)]
        for path in [*shared, HOUSE / "main.cpp"]:
            with self.subTest(path=str(path.relative_to(HOUSE))):
                self.assertEqual(OF_ONE_SYSTEM.findall(path.read_text(encoding="utf-8")), [])

    def test_each_system_has_a_source_of_the_same_subjects(self):
        for room in Plan().floors:
            stems = [path.stem for path in files_of(room, ".cpp")]
            subjects = [{stem.removesuffix(system) for stem in stems if stem.endswith(system)} for system in SYSTEMS]
            self.assertEqual(*subjects, room)


class Rooms(unittest.TestCase):
    plan = Plan()

    def test_every_folder_with_code_is_in_the_plan(self):
        with_code = {path.name for path in HOUSE.iterdir() if path.is_dir() and (path / "CMakeLists.txt").exists()}
        self.assertEqual(with_code - {"tests", "bench", "fuzz"}, self.plan.floors.keys())

    def test_no_room_includes_one_above(self):
        for room in self.plan.floors:
            for suffix in (".h", ".cpp"):
                for other in rooms_included_by(room, suffix, self.plan):
                    self.assertTrue(self.plan.allows(room, other), f"{room}/ includes {other}/")

    def test_a_link_line_names_what_is_included(self):
        for room in self.plan.floors:
            with self.subTest(room=room):
                public, private = rooms_on_link_line(room, self.plan)
                in_headers = rooms_included_by(room, ".h", self.plan)
                self.assertEqual(public, in_headers)
                self.assertEqual(private, rooms_included_by(room, ".cpp", self.plan) - in_headers)


if __name__ == "__main__":
    unittest.main()
