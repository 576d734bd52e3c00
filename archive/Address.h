#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

/// Where a file or page is, kept as the texts that were written, so that an address nobody can open here
/// still survives the next save unchanged.
struct Address
{
    /// The address itself, or its part relative to `bases`: "file:///show/plate.png", "plates/logo.png". Null: no
    /// address.
    QString relative;
    /// What `relative` is relative to, nearest first; empty for an address that stands alone.
    QStringList bases;

    /// An address without letters is not the same as none: files tell them apart.
    bool operator==(const Address &other) const
    {
        return relative == other.relative && bases == other.bases && isNil() == other.isNil();
    }

    bool isNil() const { return relative.isNull(); }
    /// "file:///..." of a local path.
    static Address fromLocalFile(const QString &path);
    /// The absolute path of the file meant, escapes undone: only for `file:` addresses with an empty host or
    /// "localhost" and for plain paths, in which '#' and '?' belong to the name; empty for anything else, which is
    /// never opened, and for an address that is relative to nothing.
    QString toLocalFile() const;
    /// Whether it names something on another machine, or what is no file: that is never asked for.
    bool isElsewhere() const;
};

Q_DECLARE_METATYPE(Address)
