#pragma once

#include <QByteArrayView>
#include <QString>

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

} // namespace JsonParts
