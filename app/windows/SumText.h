#pragma once

#include <QStringView>

#include <optional>

/// Sums as people type them into number fields: "3840/2", "6*128", "(7+5)*64".
namespace SumText {

/// The value; nullopt for what is no sum, not finished, or divided by nought. Spaces do not matter. Numbers have digits
/// and at most one point. At most 200 characters are read, so that nesting has an end.
std::optional<double> value(QStringView text);

/// Whether typing on could make a sum of it: it has only digits, points, signs, brackets and spaces.
bool couldBecomeOne(QStringView text);

} // namespace SumText
