#pragma once

#include "archive/Address.h"
#include "base/Colour.h"

#include <QMetaProperty>
#include <QSizeF>
#include <QStringList>
#include <QVariant>

#include <limits>
#include <optional>
#include <random>
#include <vector>

/// Values for a layer's properties by chance: mostly what people enter, now and then what nobody should. Walls stay
/// small or get sizes that no raster has.
class RandomValues
{
public:
    explicit RandomValues(unsigned seed) : m_random(seed) {}

    std::mt19937 &generator() { return m_random; }
    /// `lowest` to `highest`, both included.
    int number(int lowest, int highest) { return std::uniform_int_distribution(lowest, highest)(m_random); }
    bool oneIn(int count) { return number(1, count) == 1; }
    template <typename T>
    T oneOf(const std::vector<T> &choices)
    {
        return choices[static_cast<std::size_t>(number(0, static_cast<int>(choices.size()) - 1))];
    }

    /// A value for the property; once in thirty one that does not fit it. `pictures`: where pictures may be.
    QVariant valueFor(const QMetaProperty &property, const QStringList &pictures)
    {
        if (oneIn(30))
            return QVariant::fromValue(std::vector<int>{1});
        const int type = property.typeId();
        if (type == QMetaType::Bool)
            return oneIn(2);
        if (type == QMetaType::Int || type == QMetaType::LongLong)
            return oneIn(10) ? sillyWholeNumber() : number(0, 20);
        if (type == QMetaType::Double)
            return oneIn(10) ? oneOf<double>({0, -1, 1e300, std::numeric_limits<double>::infinity()}) : number(0, 50);
        if (type == QMetaType::QString)
            return text();
        if (type == QMetaType::QSizeF)
            return QSizeF(number(0, 4), number(0, 4));
        if (type == qMetaTypeId<OptionalColour>())
            return QVariant::fromValue(colour());
        if (type == qMetaTypeId<Address>())
            return QVariant::fromValue(oneIn(4) ? Address() : Address::fromLocalFile(pictures[number(0, 1)]));
        return QVariant::fromValue(panelKeys());
    }

private:
    QVariant sillyWholeNumber()
    {
        return oneOf<QVariant>({-1, -20, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 9});
    }
    QVariant text()
    {
        return oneOf<QString>({QString(), "", "$null", "Stage left", "\U0001f3ac", QString(300, 'x'),
                               QString(QChar(0xd800)), QString(oneIn(20) ? 1 : 0, QChar::Null)});
    }
    OptionalColour colour()
    {
        if (oneIn(8))
            return std::nullopt;
        return Colour{number(-1, 5) / 4.0, number(0, 4) / 4.0, 1.0 / number(1, 9), number(0, 2) / 2.0};
    }
    std::optional<QStringList> panelKeys()
    {
        return oneOf<std::optional<QStringList>>(
            {std::nullopt, QStringList(), QStringList{"0,0", "1,2"}, QStringList{"no key", "-1,7", "0,0", "0,0"}});
    }

    std::mt19937 m_random;
};
