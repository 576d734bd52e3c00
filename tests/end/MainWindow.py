"""What a person does in the main window, each act until its effect is seen on the screen."""

from Desktop import wait_for

# Where things are in the window of 1280 x 800. Walls, panels and rows of the lists are found by their colours.
LAYERS = (0, 90, 258, 300)  # ends above the place of the drop: a drag carries the picture of its row along
PRESETS = (0, 560, 258, 755)
CANVAS = (262, 40, 978, 755)
EMPTY_PART_OF_LAYERS = (130, 330)
SUPPLY = (0, 765, 440, 795)
NAME_FIELD = (1180, 160)
COLUMNS_FIELD = (1180, 264)
ROWS_FIELD = (1180, 294)

RED, YELLOW, GREEN, ORANGE = b"\xff\0\0", b"\xff\xff\0", b"\0\xff\0", b"\xff\x80\0"
FIRST_WALL_COLOURS = [RED]
PRESET, PRESET_COLOURS = "P 2.6", [YELLOW, GREEN]
OTHER_PRESET_COLOURS = [ORANGE]


def middle(box):
    return (box[0] + box[2]) // 2, (box[1] + box[3]) // 2


def start(desktop, program):
    process = desktop.start(program)
    desktop.wait_for_window("Untitled — Wallwright")
    wait_for("the presets", lambda: desktop.picture().extent(PRESET_COLOURS, PRESETS))
    return process


def quit_program(desktop, process):
    desktop.key("ctrl+q")
    wait_for("the end of the program", lambda: process.poll() is not None)
    assert process.returncode == 0, f"the program ended with {process.returncode}"


def save(desktop, keys, panel, file, title, typed=None):
    """In the panel that the keys bring up; `title` is that of the window afterwards."""
    desktop.key(keys)
    desktop.wait_for_window(panel)
    desktop.type(typed or file)
    desktop.key("Return")
    wait_for(file.name, file.exists)
    desktop.wait_for_window(title)


def make_wall(desktop, columns, rows, switched_off):
    """A wall of the preset in the place of the one that a new project begins with."""
    drag_preset_in(desktop)
    delete_first_wall(desktop)
    type_size(desktop, columns, rows)
    switch_off(desktop, columns, rows, switched_off)


def drag_preset_in(desktop):
    desktop.key("ctrl+l")
    desktop.type(PRESET)
    wait_for("the other presets to go", lambda: not desktop.picture().extent(OTHER_PRESET_COLOURS, PRESETS))
    preset = desktop.picture().extent(PRESET_COLOURS, PRESETS)
    desktop.drag(middle(preset), EMPTY_PART_OF_LAYERS)
    wait_for("the preset among the layers", lambda: desktop.picture().extent(PRESET_COLOURS, LAYERS))


def delete_first_wall(desktop):
    desktop.click(*middle(desktop.picture().extent(FIRST_WALL_COLOURS, LAYERS)))
    desktop.key("Delete")
    wait_for("the first wall to go", lambda: not desktop.picture().extent(FIRST_WALL_COLOURS, LAYERS))


def wall(desktop):
    return desktop.picture().extent(PRESET_COLOURS, CANVAS)


def has_size(box, columns, rows):
    """Whether a wall of square panels looks like one of so many; within two pixels, its frame."""
    if not box:
        return False
    width, height = box[2] - box[0], box[3] - box[1]
    return abs(width - height * columns / rows) <= 2 * columns / rows


def type_size(desktop, columns, rows):
    """The columns as a sum, as the fields take them."""
    desktop.click(*COLUMNS_FIELD)
    desktop.key("ctrl+a")
    desktop.type(f"{columns - 1}+1")
    desktop.click(*ROWS_FIELD)
    desktop.key("ctrl+a")
    desktop.type(rows)
    desktop.key("Return")
    wait_for(f"a wall of {columns} x {rows}", lambda: has_size(wall(desktop), columns, rows))


def keep_as_preset(desktop):
    desktop.key("alt+l", "k")
    desktop.wait_for_rest()


def panel_of(desktop, columns, rows, panel):
    """The inside of a panel, (row from the top, column from the left), on the screen."""
    left, top, right, bottom = wall(desktop)
    width, height = (right - left) / columns, (bottom - top) / rows
    row, column = panel
    return (round(left + (column + 0.2) * width), round(top + (row + 0.2) * height),
            round(left + (column + 0.8) * width), round(top + (row + 0.8) * height))


def switch_off(desktop, columns, rows, panels):
    """The panels, (row from the top, column from the left), of a wall of which all are on."""
    places = {panel: panel_of(desktop, columns, rows, panel) for panel in panels}  # while the wall is whole
    for (row, column), place in places.items():
        desktop.click(*middle(place))
        wait_for(f"panel {row},{column} to go off", lambda: not desktop.picture().extent(PRESET_COLOURS, place))
