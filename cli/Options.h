#pragma once

#include "base/Colour.h"
#include "base/Result.h"

#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>

#include <limits>

/// Options of commands: "--layer 2" or "--layer=2", anywhere among the files; behind "--" all is files.
namespace Options {

/// An option with a value, and one without.
QCommandLineOption withValue(const QString &name);
QCommandLineOption flag(const QString &name);

/// Takes the arguments of a command apart. Error: an unknown option, or one without its value.
[[nodiscard]] Result<void> parse(QCommandLineParser &parser, const QList<QCommandLineOption> &options,
                                 const QStringList &arguments);

/// The one file that is given, of a format that projects are read from. Error: none, several, or of another format.
[[nodiscard]] Result<QString> input(const QCommandLineParser &parser);

/// Whole numbers, both ends included.
struct Range
{
    int lowest;
    int highest;
};
inline constexpr Range anyFromNought{0, std::numeric_limits<int>::max()};
inline constexpr Range anyFromOne{1, std::numeric_limits<int>::max()};

/// A whole number within `range`; `otherwise` where the option is not given. Error: anything else.
[[nodiscard]] Result<int> number(const QCommandLineParser &parser, const QString &name, Range range, int otherwise);

/// A colour as ColourText reads it; `otherwise` where the option is not given. Error: anything else.
[[nodiscard]] Result<Colour> colour(const QCommandLineParser &parser, const QString &name, const Colour &otherwise);

} // namespace Options
