#pragma once

#include "base/Result.h"
#include "charts/Chart.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// `chart NAME OUTPUT`: a still of a standard chart; `chart --list`: the names of all.
struct ChartCommand
{
    /// Takes a line for a person.
    using Teller = std::function<void(const QString &)>;

    const Chart *chart = nullptr; ///< null: the list is asked for
    QString output = {};
    QString show = {};              ///< the project whose panels it has; empty: none
    std::optional<QSize> size = {}; ///< nullopt: that of the show's output, else 1920 x 1080
    ChartShape shape = {};          ///< range, rate and options
    int frame = 0;

    /// Error: arguments that make no sense: a chart that there is none of, an option that it does not heed, panels that
    /// it lacks.
    [[nodiscard]] static Result<ChartCommand> parse(const QStringList &arguments);

    /// The list of all charts, by group.
    static QString list();

    /// Writes the picture. `notice` is told what was asked for in vain. Error: the show cannot be read or has no
    /// panels, or the picture cannot be written; the message begins with the file.
    [[nodiscard]] Result<void> run(const Teller &notice) const;
};
