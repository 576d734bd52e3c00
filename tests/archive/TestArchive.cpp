#include "TestArchive.h"

#include "archive/PropertyList.h"

#include <QFile>

#include <algorithm>
#include <gtest/gtest.h>

QString TestArchive::uid(int index)
{
    return QString("<dict><key>CF$UID</key><integer>%1</integer></dict>").arg(index);
}

QString TestArchive::data(const QByteArray &bytes)
{
    return "<data>" + bytes.toBase64() + "</data>";
}

QString TestArchive::classTable(const QStringList &chain)
{
    return QString("<dict><key>$classname</key><string>%1</string><key>$classes</key><array><string>%2</string></array>"
                   "</dict>")
        .arg(chain.first(), chain.join("</string><string>"));
}

QString TestArchive::record(int classIndex, const QString &keys)
{
    return "<dict><key>$class</key>" + uid(classIndex) + keys + "</dict>";
}

QByteArray TestArchive::xml(const QStringList &entries)
{
    const QString text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
        "<plist version=\"1.0\"><dict><key>$archiver</key><string>NSKeyedArchiver</string>"
        "<key>$version</key><integer>100000</integer><key>$top</key><dict><key>root</key>" +
        uid(1) + "</dict><key>$objects</key><array><string>$null</string>\n" + entries.join('\n') +
        "\n</array></dict></plist>\n";
    return text.toUtf8();
}

namespace {
/// A copy of `node` with every dictionary that stands for a reference replaced by one.
plist_t withUids(plist_t node)
{
    if (const std::optional<quint64> index = PropertyList::reference(node))
        return plist_new_uid(*index);
    if (plist_get_node_type(node) == PLIST_ARRAY) {
        plist_t array = plist_new_array();
        for (plist_t entry : PropertyList::entries(node))
            plist_array_append_item(array, withUids(entry));
        return array;
    }
    if (plist_get_node_type(node) != PLIST_DICT)
        return plist_copy(node);
    plist_t dictionary = plist_new_dict();
    for (const auto &[key, value] : PropertyList::members(node))
        plist_dict_set_item(dictionary, key.toUtf8(), withUids(value));
    return dictionary;
}
} // namespace

QByteArray TestArchive::binary(const QByteArray &xml)
{
    const Result<PropertyList::Pointer> list = PropertyList::parse(xml);
    EXPECT_TRUE(list) << "the test's own XML is damaged";
    return list ? PropertyList::toBinary(PropertyList::Pointer(withUids(list->get())).get()).value_or(QByteArray())
                : QByteArray();
}

QByteArray TestArchive::bigEndian(quint64 number, int size)
{
    QByteArray bytes(size, '\0');
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte, number >>= 8)
        *byte = static_cast<char>(number & 0xFF);
    return bytes;
}

QByteArray TestArchive::rawContainer(quint8 type, const std::vector<quint32> &references)
{
    const std::size_t count = type == 0xD ? references.size() / 2 : references.size();
    QByteArray bytes(1, static_cast<char>(type << 4 | 0xF));
    bytes.append('\x12').append(bigEndian(count, 4));
    for (const quint32 reference : references)
        bytes.append(bigEndian(reference, 4));
    return bytes;
}

QByteArray TestArchive::rawList(const QByteArrayList &objects)
{
    QByteArray bytes("bplist00");
    QByteArray offsets;
    for (const QByteArray &object : objects) {
        offsets.append(bigEndian(static_cast<quint64>(bytes.size()), 8));
        bytes.append(object);
    }
    const quint64 tableAt = static_cast<quint64>(bytes.size());
    return bytes + offsets + QByteArray(6, '\0') + bigEndian(8, 1) + bigEndian(4, 1) +
           bigEndian(static_cast<quint64>(objects.size()), 8) + bigEndian(0, 8) + bigEndian(tableAt, 8);
}

QByteArray TestArchive::fixture(const QString &name)
{
    QFile file(FIXTURES + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
    return file.readAll();
}
