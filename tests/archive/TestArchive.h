#pragma once

#include "archive/ArchiveObject.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QStringList>

/// Archives and property lists made by hand, as other programs and vandals write them.
namespace TestArchive {

/// A reference as XML.
QString uid(int index);
/// An XML data element that holds `bytes`.
QString data(const QByteArray &bytes);
/// A class table of `chain` as XML.
QString classTable(const QStringList &chain);
/// A record of `keys` (XML) whose class table is entry `classIndex`.
QString record(int classIndex, const QString &keys);
/// An XML archive: entry 0 of the table is "$null", then come `entries`; the root is entry 1.
QByteArray xml(const QStringList &entries);
/// The same property list in binary form.
QByteArray binary(const QByteArray &xml);

/// A binary property list of raw objects, marker and all, whose top object is the first. References take four bytes,
/// offsets eight.
QByteArray rawList(const QByteArrayList &objects);
/// A raw array (0xA), set (0xC) or dictionary (0xD) of `references`.
QByteArray rawContainer(quint8 type, const std::vector<quint32> &references);
QByteArray bigEndian(quint64 number, int size);

/// Contents of a file that lies beside the tests; a missing one fails the test.
QByteArray fixture(const QString &name);

} // namespace TestArchive
