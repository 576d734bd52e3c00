"""Holds the includes of every room against its link line, and against the floors of docs/architecture.md."""
import pathlib
import re
import subprocess
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
# What asks which system, compiler or C library it is; what Qt has of its own may be asked for.
ASKS = re.compile(
    r"^\s*#\s*(?:el)?if.*(?:\b(?:Q_OS_\w+|Q_CC_\w+|_*(?:WIN32|WIN64|linux|unix|APPLE|MINGW\w*|CYGWIN|BSD)_*|_MSC_VER"
    r"|__GLIBC\w*|__GNU_LIBRARY__|_*POSIX\w*)\b|__has_include\(\s*[<\"](?!Q))|\bQOperatingSystemVersion\b"
    r"|\bQSysInfo::(?:product|kernel|pretty|machine|boot)\w*",
    re.MULTILINE)
# What only some systems have.
HEADERS_OF_ONE_SYSTEM = re.compile(
    r"^\s*#\s*include [<\"](?:(?:aio|dirent|dlfcn|endian|execinfo|fcntl|ftw|glob|grp|malloc|poll|pthread|pwd|sched"
    r"|semaphore|signal|spawn|strings|syslog|termios|unistd|conio|direct|dwmapi|io|process|psapi|shellapi|shlobj|shlwapi"
    r"|tlhelp32|versionhelpers|winbase|windows|windowsx|winsock2?|winternl|ws2tcpip|(?:arpa|linux|mach|net|netinet|sys"
    r"|X11|fontconfig)/[\w/]+)\.h|QDBus\w*|q\w+_(?:x11|win|mac|platform)\.h)[>\"]",
    re.MULTILINE)
BUILT_ON_LINUX_ALONE = ("bench", "tests/end", "tests/faults", "tests/soak")


def is_of_one_system(path):
    stem = path.stem.removesuffix("Test")
    return stem.endswith(SYSTEMS) or stem.startswith("Bus")  # that of the Linux desktop


def of_one_system_in_tests():
    """Those that the tests' CMakeLists.txt name so."""
    for page in (HOUSE / "tests").glob("*/CMakeLists.txt"):
        for names in re.findall(r"(?:LINUX|WINDOWS)_SOURCES\s([^)]*?)(?=[A-Z]+_SOURCES|LIBRARIES)", page.read_text()):
            yield from ((page.parent / name).resolve() for name in names.split())


class Systems(unittest.TestCase):
    def setUp(self):
        named = subprocess.run(["git", "ls-files", "-z", "*.cpp", "*.h", "*.in"], cwd=HOUSE, check=True,
                               stdout=subprocess.PIPE, encoding="utf-8").stdout
        sources = [HOUSE / name for name in named.split("\0") if name]
        self.shared = [path for path in sources if path.exists() and not is_of_one_system(path)]

    def expect_none(self, pattern, paths):
        self.assertGreater(len(paths), 500)  # git knows them
        for path in paths:
            with self.subTest(path=str(path.relative_to(HOUSE))):
                self.assertEqual([found[0] for found in pattern.finditer(path.read_text(encoding="utf-8"))], [])

    def test_no_shared_source_asks_which_system_it_is(self):
        self.expect_none(ASKS, self.shared)

    def test_no_source_that_each_system_builds_includes_what_some_have(self):
        of_one = set(of_one_system_in_tests())
        alone = tuple(str(HOUSE / folder) + "/" for folder in BUILT_ON_LINUX_ALONE)
        self.expect_none(HEADERS_OF_ONE_SYSTEM,
                         [path for path in self.shared if path not in of_one and not str(path).startswith(alone)])

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
