#include "fuzz/OtherArchives.h"

#include <functional>
#include <utility>
#include <vector>

namespace {
QByteArray uid(qsizetype index)
{
    return "<dict><key>CF$UID</key><integer>" + QByteArray::number(index) + "</integer></dict>";
}

class OtherArchive
{
public:
    /// The reference to it.
    QByteArray add(const QByteArray &value)
    {
        m_objects += value;
        return uid(m_count++);
    }
    QByteArray addRecord(const QByteArray &keys, const QByteArray &name)
    {
        const QByteArray table = add("<dict><key>$classname</key><string>" + name +
                                     "</string><key>$classes</key><array><string>" + name + "</string></array></dict>");
        return add("<dict>" + keys + "<key>$class</key>" + table + "</dict>");
    }
    QByteArray addList(const QByteArray &references)
    {
        return addRecord("<key>NS.objects</key><array>" + references + "</array>", "NSArray");
    }
    QByteArray withRoot(const QByteArray &root) const
    {
        return "<plist version=\"1.0\"><dict><key>$archiver</key><string>NSKeyedArchiver</string><key>$version</key>"
               "<integer>100000</integer><key>$top</key><dict><key>root</key>" +
               root + "</dict><key>$objects</key><array>" + m_objects + "</array></dict></plist>";
    }

private:
    QByteArray m_objects = "<string>$null</string>";
    qsizetype m_count = 1;
};

QByteArray colour(int space, const QByteArray &key, const QByteArray &components)
{
    return "<key>NSColorSpace</key><integer>" + QByteArray::number(space) + "</integer><key>" + key + "</key><data>" +
           components.toBase64() + "</data>";
}

QByteArray ranges(int count, const QByteArray &further)
{
    return "<key>NSRangeCount</key><integer>" + QByteArray::number(count) + "</integer>" + further;
}

using Record = std::pair<QByteArray, QByteArray>;

std::vector<Record> colours()
{
    const QByteArray ownSpace = "<key>NSCustomColorSpace</key>" + uid(1);
    return {{colour(1, "NSRGB", "0.5 0.25 1 0.5"), "NSColor"},
            {colour(2, "NSRGB", QByteArray("0.5 0.25 1\0", 11)), "NSColor"},
            {colour(2, "NSRGB", "0.5 0.25"), "NSColor"},
            {colour(2, "NSRGB", "0.5 red 1"), "NSColor"},
            {colour(2, "NSRGB", QByteArray("1 ").repeated(500)), "NSColor"},
            {colour(2, "NSWhite", "0.5"), "NSColor"},
            {colour(3, "NSWhite", "0.25"), "NSColor"},
            {colour(4, "NSWhite", "0.25 0.5"), "NSColor"},
            {colour(5, "NSCMYK", "0 0.5 1 0.5 0.75"), "NSColor"},
            {ownSpace + colour(1, "NSComponents", "0.5 1"), "NSColor"},
            {ownSpace + colour(1, "NSComponents", "0 0.5 1 0.5 0.75"), "NSColor"},
            {"<key>NSColorSpace</key><integer>6</integer><key>NSColorName</key>" + uid(0), "NSColor"},
            {"<key>NSColorSpace</key><integer>6</integer><key>NSColor</key>" + uid(2), "NSColor"},
            {"<key>NSColorSpace</key><integer>10</integer>", "NSColor"},
            {"<key>NSColorSpace</key><integer>11</integer>", "NSColor"}};
}

std::vector<Record> otherRecords()
{
    return {{"<key>NS.data</key><data>aGVsbG8=</data>", "NSMutableData"},
            {"<key>NS.data</key><true/>", "NSData"},
            {"<key>NS.string</key><string>stage</string>", "NSString"},
            {"<key>NS.string</key><real>0.5</real>", "NSString"},
            {"<key>NS.objects</key><true/>", "NSArray"},
            {"<key>NS.relative</key><string>a.png</string><key>NS.base</key>" + uid(0), "NSURL"},
            {"<key>NS.relative</key><string>a.png</string><key>NS.base</key><integer>1</integer>", "NSURL"},
            {"<key>NS.base</key>" + uid(0), "NSURL"},
            {ranges(2, "<key>NSRangeData</key><data>AQMFAg==</data>"), "NSIndexSet"},
            {ranges(3, "<key>NSRangeData</key><data>AQMFAg==</data>"), "NSIndexSet"},
            {ranges(2, "<key>NSRangeData</key><data>/////////////w==</data>"), "NSIndexSet"},
            {ranges(2, "<key>NSRangeData</key><data>AQMBAw==</data>"), "NSIndexSet"},
            {ranges(0, {}), "NSIndexSet"},
            {ranges(1, "<key>NSLocation</key><integer>3</integer><key>NSLength</key><integer>4</integer>"),
             "NSMutableIndexSet"},
            {"<key>label</key><string>STAGE</string>", "LWScreen"},
            {"<key>label</key><string>STAGE</string>", "LWMask"}};
}

std::vector<Record> allRecords()
{
    std::vector<Record> all = colours();
    const std::vector<Record> others = otherRecords();
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

/// What stands in a plain dictionary that nobody knows.
QByteArray notes(const QByteArray &reference)
{
    return "<dict><key>of</key><array><integer>-7</integer><real>0.5</real><true/><string>crew</string><data>AQI=</"
           "data>"
           "<date>2024-05-17T12:00:00Z</date>" +
           reference + "</array></dict>";
}

/// For each record, archives of the root that is made of a list of one wall that holds it: in the place of a value, and
/// where nobody knows it.
QByteArrayList archivesOfWalls(const std::function<QByteArray(OtherArchive &, const QByteArray &walls)> &makeRoot)
{
    QByteArrayList archives;
    for (const auto &[keys, name] : allRecords()) {
        const QByteArray known = name == "NSColor" ? "rectcolor" : name == "NSArray" ? "hiddenBoxes" : "label";
        for (const QByteArray &key : {known, QByteArray("crew")}) {
            OtherArchive archive;
            const QByteArray record = archive.addRecord(keys, name);
            const QByteArray value = key == known ? record : notes(archive.addList(record + record));
            const QByteArray wall = archive.addRecord("<key>" + key + "</key>" + value, "LWScreen");
            const QByteArray root = makeRoot(archive, archive.addList(wall));
            archives.append(archive.withRoot(root));
        }
    }
    return archives;
}
} // namespace

namespace OtherArchives {

QByteArray list()
{
    OtherArchive archive;
    QByteArray references;
    for (const auto &[keys, name] : allRecords())
        references += archive.addRecord(keys, name);
    const QByteArray root = archive.addList(references);
    return archive.withRoot(root);
}

QByteArrayList walls()
{
    return archivesOfWalls([](OtherArchive &, const QByteArray &walls) { return walls; });
}

QByteArrayList projects()
{
    return archivesOfWalls([](OtherArchive &archive, const QByteArray &walls) {
        const QByteArray length = archive.add("<integer>1080</integer>");
        return archive.addList(length + length + walls);
    });
}

QByteArrayList damaged()
{
    const auto xml = [](const QByteArray &content) { return "<plist version=\"1.0\">" + content + "</plist>"; };
    const auto entries = [](const QByteArray &keys) { return "<dict>" + keys + "</dict>"; };
    const QByteArray archiver = "<key>$archiver</key><string>NSKeyedArchiver</string>";
    const QByteArray version = "<key>$version</key><integer>100000</integer>";
    OtherArchive loop;
    const QByteArray itself = loop.addList(uid(2));
    OtherArchive chain;
    const QByteArray reference = chain.addList(chain.add(uid(0)));
    return {xml(""),
            xml("text"),
            xml("<number>1</number>"),
            xml("<integer>one</integer>"),
            xml("<real>half</real>"),
            xml("<string>&other;</string>"),
            xml("<array><true/>text</array>"),
            xml("<dict><true/></dict>"),
            xml("<dict><key>a</key></dict>"),
            xml("<dict><key>a</key><true/><key>a</key><true/></dict>"),
            xml(QByteArray("<array>").repeated(100)),
            xml(QByteArray("<array>").repeated(100) + QByteArray("</array>").repeated(100)),
            "<!DOCTYPE plist [<!ENTITY a \"b\">]>" + xml("<string>&a;</string>"),
            "<?xml version=\"1.0\" encoding=\"latin1\"?>" + xml("<string>\xe4</string>"),
            "<html/>",
            xml(entries(version)),
            xml(entries(archiver)),
            xml(entries(archiver + version)),
            xml(entries(archiver + version + "<key>$objects</key><array/>")),
            xml(entries(archiver + version + "<key>$objects</key><array/><key>$top</key><dict/>")),
            loop.withRoot(itself),
            loop.withRoot(uid(0)),
            loop.withRoot(uid(99)),
            chain.withRoot(reference)};
}

} // namespace OtherArchives
