#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// Sums as people type them into number fields: "3840/2", "6*128", "(7+5)*64".
namespace SumText {

/// The value; nullopt for what is no sum, not finished, or divided by nought. Spaces do not matter. Numbers have digits
/// and at most one point. At most 200 characters are read, so that nesting has an end.
std::optional<double> value(QStringView text);

/// Whether it is one number and no sum: it has only digits and points.
bool isNumber(QStringView text);
/// Whether it has no value yet, but typing on could give it one: it has only digits, points, signs, brackets and
/// spaces.
bool isUnfinished(QStringView text);
/// Why a text has no value, in one sentence; empty where it has one.
QString fault(QStringView text);

} // namespace SumText
