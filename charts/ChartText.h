#pragma once

#include "base/Result.h"
#include "charts/Chart.h"

#include <QString>

#include <span>

/// Charts with what was chosen of them, in words: "field colour=red level=50 range=narrow".
struct ChartText
{
    /// An option by its name.
    struct OptionName
    {
        const char *name;
        Chart::Choice choice;
    };

    const Chart *chart = nullptr; ///< never null where it comes from parse()
    LevelRange range = LevelRange::Full;
    ChartOptions options = {};

    /// Error: there is no such chart, it does not heed an option, or a value is none.
    [[nodiscard]] static Result<ChartText> parse(const QString &text);
    /// What differs from the default, in the order of optionNames(), the range at the end.
    QString text() const;

    static std::span<const OptionName> optionNames();
    /// Error: a value that is none; the message begins with the name: "level expects a whole number from 0 to 100,
    /// found "x"".
    [[nodiscard]] static Result<void> setOption(ChartOptions &options, Chart::Choice choice, const QString &value);
    /// "full", "narrow". Error: another word; the message begins with "range".
    [[nodiscard]] static Result<LevelRange> rangeNamed(const QString &name);

    /// Of a chart of this size without panels.
    ChartShape shape(const QSize &size) const { return {.size = size, .range = range, .options = options}; }
};
