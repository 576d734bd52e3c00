#include "cli/Help.h"

#include "formats/FileFormat.h"

namespace {
/// A line for each format in which projects are written.
QString formats()
{
    QString lines;
    for (const FileFormat &format : FileFormat::all()) {
        const QString extension = QString(".%1").arg(format.extension).leftJustified(5);
        if (format.write)
            lines += QString("  %1  %2, %3\n")
                         .arg(extension, format.content, format.read ? "read and written" : "written only");
    }
    return lines;
}
} // namespace

namespace Help {

QString general()
{
    return R"(Wallwright designs pixel maps of LED video walls.

  wallwright                          opens the window
  wallwright FILE                     opens the window with a project
  wallwright convert INPUT OUTPUT...  turns a project into other files, without a window
  wallwright info INPUT               tells what a project holds: walls, ports, current
  wallwright check INPUT              tells what is wrong in a project, and what to do
  wallwright chart NAME OUTPUT.png    draws a standard chart to judge a wall by
  wallwright --help                   prints this; "wallwright convert --help" tells more
  wallwright --version                prints the version

Exit status: 0 done, 1 could not be done, 2 the arguments make no sense.
)";
}

QString convert()
{
    return QString(R"(Usage: wallwright convert INPUT OUTPUT... [options]

Reads a project and writes it to each output, in the format of the output's extension:

%1
Each path is printed once it is written. A file is replaced only by a complete one.

Options:
  --layer N            a .png holds layer N alone, in its own size; 0 is the top of the list
  --corners 0|1|2      corner coordinates: 0 top left, 1 bottom, 2 all (0)
  --voltage V          supply voltage in volts, for walls that show their current (the show's own, else 110)
  --phases P           number of phases of the supply (the show's own, else 1)
  --background COLOUR  fill of a .png's output ("#000000")
  --edge COLOUR        outline of a .png's output, one pixel wide ("#000000")
  --help               prints this
  --                   all that follows is file names

A COLOUR is "#rrggbb", "#rrggbbaa" or "[red, green, blue, alpha]" with numbers from 0 to 1.
)")
        .arg(formats());
}

QString info()
{
    return R"(Usage: wallwright info INPUT [options]

Tells of a project (.Orv or .json): the size of the output; for each layer its kind, name, place and size; for each
wall its panels, the panels and pixels on each port of the processor, and the current; the current in total.

Options:
  --json       prints JSON, its members always in the same order
  --voltage V  supply voltage in volts (the show's own, else 110)
  --phases P   number of phases of the supply (the show's own, else 1)
  --help       prints this
  --           all that follows is file names
)";
}

QString check()
{
    return R"(Usage: wallwright check INPUT [options]

Tells what is wrong in a project (.Orv or .json), a line each: the layer, whether it is an error, a warning or a note,
what is wrong and what to do, and the name of the check, which never changes. Nothing is drawn.

Options:
  --json  prints JSON, its members always in the same order
  --help  prints this
  --      all that follows is file names

Exit status: 0 no error, 1 an error among the findings or a file that cannot be read, 2 the arguments make no sense.
)";
}

QString chart()
{
    return R"(Usage: wallwright chart NAME OUTPUT.png [options]
       wallwright chart --list

Draws a still of a standard chart: bars, ramps, checkers, panels, one frame of a moving one. The list tells the name of
each, what it finds, and which of the options below concern it.

Options:
  --list               prints the charts, by what they are for
  --size WxH           in pixels (the show's output, else 1920x1080)
  --show FILE          the project whose panels the chart has, with their ports
  --range full|narrow  black and white are the codes 0 and 255, or 16 and 235 (full)
  --caption            names the range in the lower right corner, where it matters
  --frame N            of a moving chart, from 0 (0)
  --rate R             frames a second (60)
  --colour COLOUR      of a field: white, red, green, blue, cyan, magenta, yellow or black (white)
  --level L            of a field in percent, 0 to 100 (100; of "uniformity" 50)
  --steps N            patches, 2 to 256 (11)
  --speed S            of a sweep, whole pixels a frame (8)
  --hold F             frames for which a panel is lit (a quarter of a second)
  --start HH:MM:SS     what the clock tells at frame 0 (00:00:00)
  --help               prints this
  --                   all that follows is names
)";
}

} // namespace Help
