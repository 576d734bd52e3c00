#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <utility>
#include <vector>

/// JSON whose members stand in the order in which they are given; QJsonObject would sort them.
namespace OrderedJson {

/// A name and its value as JSON.
using Member = std::pair<const char *, QByteArray>;

/// Null texts are null.
QByteArray text(const QString &value);
QByteArray text(bool value);
QByteArray text(qint64 value);
/// The fewest digits that give the same number again in double precision, in which programs read it.
QByteArray text(float value);
/// The fewest digits that give the same number again.
QByteArray text(double value);

/// `"col": 4, "row": 3`
QByteArray joined(const std::vector<Member> &members, const QByteArray &separator);
/// One member a line, `indentation` blanks in front of the braces.
QByteArray object(const std::vector<Member> &members, int indentation);
/// One item a line; the items bring their own indentation.
QByteArray list(const QList<QByteArray> &items, int indentation);

} // namespace OrderedJson
