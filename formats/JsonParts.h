#pragma once

#include "base/Result.h"
#include "layer/UnknownPart.h"

#include <QByteArrayList>
#include <QByteArrayView>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

/// JSON as it stands in a text: a parser makes other numbers and another order of it.
namespace JsonParts {

/// An entry of an object or a list, in the memory of the text.
struct Part
{
    QByteArrayView name; ///< in its quotes; empty in a list
    QByteArrayView value;
};

/// What an object or a list holds, in its order; nothing of any other value. `json` is known to be JSON.
std::vector<Part> of(QByteArrayView json);

/// The name that is meant, whatever it is written with. `name` is in its quotes.
QString decodedName(QByteArrayView name);

/// The value at a place; empty where there is none.
QByteArrayView valueAt(const std::vector<Part> &parts, std::size_t place);
/// The value under a name of the object that `json` is; likewise.
QByteArrayView valueOf(QByteArrayView json, const QString &name);

/// What an object says under other names than the `known`, `"name": value` each. `newer` is how it stands in a text of
/// a greater format than ours. Error: where that is empty, such a name, as we know all.
[[nodiscard]] Result<QByteArrayList> unknownNames(const QJsonObject &object, QByteArrayView newer,
                                                  const QStringList &known);
/// Such names behind those of an object: `, "name": value` each.
QByteArray further(const UnknownPartPointer &unknown);

} // namespace JsonParts
