#pragma once

#include "base/Result.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <vector>

/// Reads the fields of one object of a JSON file, whoever wrote it. The first thing that is wrong is kept, and what is
/// read after it does not matter: ask error() before anything is used.
class JsonFields
{
public:
    /// `where` names the object: "processor 3".
    JsonFields(const QJsonObject &object, const QString &where) : m_object(object), m_where(where) {}

    /// Nullopt: all is well so far.
    const std::optional<Error> &error() const { return m_error; }
    /// "WHERE: WHAT." is wrong, if nothing was before.
    void refuse(const QString &what);

    /// There is a value, and it is not null.
    bool has(const char *name) const;
    /// A text that must not be empty.
    QString name(const char *name);
    /// A text; empty where it is absent or null.
    QString text(const char *name);
    /// A whole number from `least` to `most`; `absent` where it is absent or null.
    qint64 whole(const char *name, qint64 least, qint64 most, qint64 absent);
    /// One that must be there.
    qint64 wholeGiven(const char *name, qint64 least, qint64 most);
    std::optional<bool> flag(const char *name);
    /// A list of texts; a single text is a list of one.
    QStringList texts(const char *name);
    /// Whole numbers; none where it is absent or null.
    std::vector<qint64> wholes(const char *name, qint64 least, qint64 most);
    /// Empty where it is absent or null.
    QJsonArray array(const char *name);
    QJsonObject object(const char *name);
    /// The place of one of the `choices`; `absent` where it is absent or null.
    qsizetype choice(const char *name, const QStringList &choices, qsizetype absent);

private:
    qint64 number(const QJsonValue &value, const char *name, qint64 least, qint64 most);

    QJsonObject m_object;
    QString m_where;
    std::optional<Error> m_error;
};
