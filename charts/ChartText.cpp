#include "charts/ChartText.h"

#include <QStringList>
#include <QTime>

#include <algorithm>
#include <array>
#include <limits>

namespace {
constexpr std::array chartOptionNames{
    ChartText::OptionName{"colour", Chart::Colour}, ChartText::OptionName{"level", Chart::Level},
    ChartText::OptionName{"steps", Chart::Steps},   ChartText::OptionName{"speed", Chart::Speed},
    ChartText::OptionName{"hold", Chart::Hold},     ChartText::OptionName{"start", Chart::Start},
};
/// In the order of FieldColour.
constexpr std::array fieldColourNames{"white", "red", "green", "blue", "cyan", "magenta", "yellow", "black"};
constexpr char clockFormat[] = "HH:mm:ss";

QString nameOfOption(Chart::Choice choice)
{
    for (const ChartText::OptionName &option : chartOptionNames) {
        if (option.choice == choice)
            return option.name;
    }
    return {};
}

template <typename Target>
Result<void> setNumber(Target &target, Chart::Choice choice, const QString &value, int lowest, int highest)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (!isNumber || number < lowest || number > highest)
        return fail(QString("%1 expects a whole number from %2 to %3, found \"%4\"")
                        .arg(nameOfOption(choice), QString::number(lowest), QString::number(highest), value));
    target = number;
    return {};
}

Result<void> setColour(FieldColour &colour, const QString &value)
{
    QStringList names;
    for (std::size_t i = 0; i < fieldColourNames.size(); ++i) {
        if (value == fieldColourNames[i]) {
            colour = static_cast<FieldColour>(i);
            return {};
        }
        names.append(fieldColourNames[i]);
    }
    return fail(QString("colour expects one of %1, found \"%2\"").arg(names.join(", "), value));
}

Result<void> setStart(int &seconds, const QString &value)
{
    const QTime start = QTime::fromString(value, clockFormat);
    if (!start.isValid())
        return fail(QString("start expects a time like 20:15:00, found \"%1\"").arg(value));
    seconds = start.msecsSinceStartOfDay() / 1000;
    return {};
}

/// Empty where it is the default.
QString valueOf(const ChartOptions &options, Chart::Choice choice)
{
    const ChartOptions plain;
    const auto number = [](auto value, auto otherwise) {
        return value == otherwise ? QString() : QString::number(value);
    };
    switch (choice) {
    case Chart::Colour:
        return options.colour == plain.colour ? QString() : fieldColourNames[static_cast<std::size_t>(options.colour)];
    case Chart::Level:
        return options.level ? QString::number(*options.level) : QString();
    case Chart::Steps:
        return number(options.steps, plain.steps);
    case Chart::Speed:
        return number(options.speed, plain.speed);
    case Chart::Hold:
        return options.hold ? QString::number(*options.hold) : QString();
    case Chart::Start:
        return options.start == plain.start
                   ? QString()
                   : QTime::fromMSecsSinceStartOfDay(options.start * 1000).toString(clockFormat);
    case Chart::None:
        break;
    }
    return {};
}

Result<void> takeWord(ChartText &chosen, const QString &word)
{
    const QString name = word.section(u'=', 0, 0);
    const QString value = word.section(u'=', 1);
    if (name == "range")
        return ChartText::rangeNamed(value).map([&](LevelRange range) { chosen.range = range; });
    for (const ChartText::OptionName &option : chartOptionNames) {
        if (name == option.name && (chosen.chart->choices & option.choice))
            return ChartText::setOption(chosen.options, option.choice, value);
    }
    return fail(QString("the chart \"%1\" has no %2").arg(QString(chosen.chart->name), name));
}
} // namespace

std::span<const ChartText::OptionName> ChartText::optionNames()
{
    return chartOptionNames;
}

Result<void> ChartText::setOption(ChartOptions &options, Chart::Choice choice, const QString &value)
{
    switch (choice) {
    case Chart::Colour:
        return setColour(options.colour, value);
    case Chart::Level:
        return setNumber(options.level, choice, value, 0, 100);
    case Chart::Steps:
        return setNumber(options.steps, choice, value, 2, 256);
    case Chart::Speed:
        return setNumber(options.speed, choice, value, 1, 4096);
    case Chart::Hold:
        return setNumber(options.hold, choice, value, 1, std::numeric_limits<int>::max());
    case Chart::Start:
        return setStart(options.start, value);
    case Chart::None:
        break;
    }
    return {};
}

Result<LevelRange> ChartText::rangeNamed(const QString &name)
{
    if (name == "full")
        return LevelRange::Full;
    if (name == "narrow")
        return LevelRange::Narrow;
    return fail(QString("range expects full or narrow, found \"%1\"").arg(name));
}

Result<ChartText> ChartText::parse(const QString &text)
{
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    ChartText chosen{Chart::find(words.value(0))};
    if (!chosen.chart)
        return fail(QString("there is no chart \"%1\"").arg(words.value(0)));
    for (const QString &word : words.mid(1)) {
        const Result<void> taken = takeWord(chosen, word);
        if (!taken)
            return tl::unexpected(taken.error());
    }
    return chosen;
}

QString ChartText::text() const
{
    QStringList words{chart->name};
    for (const OptionName &option : chartOptionNames) {
        const QString value = chart->choices & option.choice ? valueOf(options, option.choice) : QString();
        if (!value.isEmpty())
            words.append(QString("%1=%2").arg(option.name, value));
    }
    if (range == LevelRange::Narrow && chart->rangeMatters)
        words.append("range=narrow");
    return words.join(u' ');
}
