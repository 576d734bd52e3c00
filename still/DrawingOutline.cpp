#include "still/DrawingOutline.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {
constexpr double farthest = 1e9; // further away it makes no difference, and sums stay numbers

/// Goes through the numbers and letters of a text.
class Numbers
{
public:
    explicit Numbers(QStringView text) : m_text(text) {}

    bool atEnd() const { return m_at >= m_text.size(); }
    QChar take() { return m_text[m_at++]; }

    /// The next number, across whatever separates it; none before a letter or the end.
    std::optional<double> number()
    {
        skip([](QChar letter) { return !isOfNumber(letter) && !letter.isLetter(); });
        if (atEnd() || !isOfNumber(m_text[m_at]))
            return std::nullopt;
        const qsizetype start = m_at;
        skip([](QChar letter) { return letter == u'-' || letter == u'+'; });
        skip(&isDigit);
        if (!atEnd() && m_text[m_at] == u'.')
            ++m_at;
        skip(&isDigit);
        skipExponent();
        const double value = m_text.sliced(start, m_at - start).toDouble();
        return std::isnan(value) ? 0 : std::clamp(value, -farthest, farthest);
    }

    /// Of an arc, of which flags may stand close together.
    std::optional<double> flag()
    {
        skip([](QChar letter) { return letter.isSpace() || letter == u','; });
        if (atEnd() || !isDigit(m_text[m_at]))
            return number();
        return take().unicode() - u'0';
    }

private:
    static bool isDigit(QChar letter) { return letter >= u'0' && letter <= u'9'; }
    static bool isOfNumber(QChar letter)
    {
        return isDigit(letter) || letter == u'.' || letter == u'-' || letter == u'+';
    }

    template <typename Is>
    void skip(Is is)
    {
        while (!atEnd() && is(m_text[m_at]))
            ++m_at;
    }

    void skipExponent()
    {
        const QStringView rest = m_text.sliced(m_at);
        const bool isSigned = rest.size() > 2 && (rest[1] == u'-' || rest[1] == u'+');
        const qsizetype digit = isSigned ? 2 : 1;
        if (rest.size() <= digit || rest[0].toLower() != u'e' || !isDigit(rest[digit]))
            return;
        m_at += digit;
        skip(&isDigit);
    }

    QStringView m_text;
    qsizetype m_at = 0;
};

struct Point
{
    double x = 0;
    double y = 0;
};

double distance(Point one, Point other)
{
    return std::abs(one.x - other.x) + std::abs(one.y - other.y);
}

/// Follows the pen along the points, those that only bend a curve among them: no curve is longer than the way by those.
class Pen
{
public:
    Point at() const { return m_at; }

    void begin(Point point)
    {
        m_start = m_at = point;
        widen(point, 0);
    }

    void go(Point point)
    {
        m_length += distance(m_at, point);
        m_at = point;
        widen(point, 0);
    }

    /// Where the pen may come `reach` further than its point.
    void swing(double reach)
    {
        m_length += 4 * reach;
        widen(m_at, reach);
    }

    void close() { go(m_start); }

    DrawingOutline outline(double numbers) const
    {
        const double extent = m_isWide ? std::max(m_high.x - m_low.x, m_high.y - m_low.y) : 0;
        return {numbers, m_length, extent};
    }

private:
    void widen(Point point, double reach)
    {
        m_low = m_isWide ? Point{std::min(m_low.x, point.x - reach), std::min(m_low.y, point.y - reach)}
                         : Point{point.x - reach, point.y - reach};
        m_high = m_isWide ? Point{std::max(m_high.x, point.x + reach), std::max(m_high.y, point.y + reach)}
                          : Point{point.x + reach, point.y + reach};
        m_isWide = true;
    }

    Point m_start;
    Point m_at;
    Point m_low;
    Point m_high;
    bool m_isWide = false;
    double m_length = 0;
};

/// The numbers that a command of a path takes at a time.
int numbersOf(QChar command)
{
    switch (command.toLower().unicode()) {
    case u'm':
    case u'l':
    case u't':
        return 2;
    case u'h':
    case u'v':
        return 1;
    case u'c':
        return 6;
    case u's':
    case u'q':
        return 4;
    case u'a':
        return 7;
    default:
        return 0;
    }
}

/// Follows the commands of a path.
class PathReader
{
public:
    explicit PathReader(QStringView data) : m_numbers(data) {}

    DrawingOutline read()
    {
        while (!m_numbers.atEnd()) {
            if (readArguments())
                draw();
            else if (!m_numbers.atEnd())
                command(m_numbers.take());
        }
        m_pen.close(); // as it is filled
        return m_pen.outline(m_count);
    }

private:
    void command(QChar letter)
    {
        m_command = letter;
        if (letter.toLower() == u'z')
            m_pen.close();
    }

    /// False where a command follows instead.
    bool readArguments()
    {
        const int wanted = std::max(numbersOf(m_command), 1); // a number that belongs to nothing is passed over
        for (int i = 0; i < wanted; ++i) {
            const bool isFlag = m_command.toLower() == u'a' && (i == 3 || i == 4);
            const std::optional<double> value = isFlag ? m_numbers.flag() : m_numbers.number();
            if (!value)
                return false;
            m_arguments[static_cast<std::size_t>(i)] = *value;
            ++m_count;
        }
        return true;
    }

    /// The point that is given from the argument on.
    Point point(std::size_t index) const
    {
        const Point from = m_command.isLower() ? m_from : Point{};
        return {from.x + m_arguments[index], from.y + m_arguments[index + 1]};
    }

    void draw()
    {
        m_from = m_pen.at();
        const Point from = m_command.isLower() ? m_from : Point{};
        switch (m_command.toLower().unicode()) {
        case u'm':
            m_pen.begin(point(0));
            m_command = m_command.isLower() ? u'l' : u'L';
            return bend(0);
        case u'h':
            m_pen.go({from.x + m_arguments[0], m_from.y});
            return bend(0);
        case u'v':
            m_pen.go({m_from.x, from.y + m_arguments[0]});
            return bend(0);
        case u'a':
            m_pen.go(point(5));
            m_pen.swing(2 * (std::abs(m_arguments[0]) + std::abs(m_arguments[1]) + distance(m_from, m_pen.at())));
            return bend(0);
        default:
            return drawPoints();
        }
    }

    void drawPoints()
    {
        const char16_t letter = m_command.toLower().unicode();
        if (letter == u's' || letter == u't')
            m_pen.swing(m_bend); // the point before is mirrored
        Point before = m_pen.at();
        const int numbers = numbersOf(m_command);
        for (int i = 0; i + 1 < numbers; i += 2) {
            before = m_pen.at();
            m_pen.go(point(static_cast<std::size_t>(i)));
        }
        bend(distance(before, m_pen.at()) + (letter == u't' ? m_bend : 0));
    }

    void bend(double reach) { m_bend = std::min(reach, farthest); }

    Numbers m_numbers;
    Pen m_pen;
    QChar m_command;
    Point m_from;
    std::array<double, 7> m_arguments{};
    double m_count = 0;
    double m_bend = 0; ///< how far the last point that bent a curve is from its end
};
} // namespace

DrawingOutline DrawingOutline::ofPath(QStringView data)
{
    return PathReader(data).read();
}

DrawingOutline DrawingOutline::ofPoints(QStringView points)
{
    const std::vector<double> numbers = numbersIn(points);
    Pen pen;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
        if (i == 0)
            pen.begin({numbers[i], numbers[i + 1]});
        else
            pen.go({numbers[i], numbers[i + 1]});
    }
    pen.close();
    return pen.outline(static_cast<double>(numbers.size()));
}

std::vector<double> DrawingOutline::numbersIn(QStringView text)
{
    std::vector<double> values;
    Numbers numbers(text);
    while (!numbers.atEnd()) {
        if (const std::optional<double> value = numbers.number())
            values.push_back(*value);
        else if (!numbers.atEnd())
            numbers.take();
    }
    return values;
}
