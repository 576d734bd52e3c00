#include "TestArchive.h"
#include "archive/KeyedArchive.h"
#include "archive/PropertyList.h"

#include <gtest/gtest.h>

using TestArchive::binary;
using TestArchive::classTable;
using TestArchive::uid;
using TestArchive::xml;

namespace {
const KeyedArchive::Vocabulary vocabulary{{{"LWScreen", QSet<QString>{"label", "col"}}}, 3, "show", {"voltage"}};

Result<KeyedArchive::Contents> readContents(const QByteArray &bytes)
{
    return KeyedArchive::readContents(bytes, vocabulary);
}

/// The archive as it is written again by who knows of it what the vocabulary names.
QByteArray rewritten(const QByteArray &bytes)
{
    const Result<KeyedArchive::Contents> contents = readContents(bytes);
    EXPECT_TRUE(contents) << qPrintable(contents ? QString() : contents.error().text);
    if (!contents)
        return {};
    const Result<QByteArray> written = KeyedArchive::writeContents(*contents);
    EXPECT_TRUE(written) << qPrintable(written ? QString() : written.error().text);
    return written.value_or(QByteArray());
}

/// A record with its class behind its values, as archives are written.
QString ordered(const QString &keys, int classIndex)
{
    return "<dict>" + keys + "<key>$class</key>" + uid(classIndex) + "</dict>";
}

QString list(const QStringList &entries, int classIndex)
{
    return ordered("<key>NS.objects</key><array>" + entries.join("") + "</array>", classIndex);
}

const QString screenClass = classTable({"LWScreen", "NSObject"});
const QString listClass = classTable({"NSMutableArray", "NSArray", "NSObject"});

/// An archive of one screen that holds `keys` beside its own; `entries` stand in the table from 4 on.
QByteArray screenWith(const QString &keys, const QStringList &entries)
{
    return binary(xml(QStringList{ordered("<key>col</key><integer>5</integer><key>label</key>" + uid(2) + keys, 3),
                                  "<string>MAIN</string>", screenClass} +
                      entries));
}
} // namespace

TEST(UnknownContent, PlainValuesUnderUnknownKeysComeBackToTheByte)
{
    const QByteArray bytes = screenWith("<key>b</key><true/><key>i</key><integer>-7</integer>"
                                        "<key>big</key><integer>18446744073709551615</integer>"
                                        "<key>r</key><real>0.5</real><key>d</key><data>AAEC</data>"
                                        "<key>t</key><date>2001-01-01T00:00:00Z</date><key>$0</key><string>x</string>"
                                        "<key>list</key><array><integer>1</integer><dict/></array><key>nil</key>" +
                                            uid(0),
                                        {});
    EXPECT_EQ(rewritten(bytes), bytes);
}

TEST(UnknownContent, ObjectsKeepTheirClassesAndWhatTheyShare)
{
    // 4: a palette of the label's text, a list, itself and a set; they share one class with the list of the archive.
    const QByteArray bytes = binary(
        xml({list({uid(2), uid(13)}, 12),
             ordered("<key>col</key><integer>5</integer><key>label</key>" + uid(3) + "<key>palette</key>" + uid(4), 11),
             "<string>MAIN</string>",
             ordered("<key>name</key>" + uid(3) + "<key>swatches</key>" + uid(5) + "<key>self</key>" + uid(4) +
                         "<key>set</key>" + uid(8),
                     10),
             list({uid(6), uid(7)}, 12), "<integer>7</integer>", "<string>seven</string>",
             ordered("<key>NS.objects</key><array>" + uid(7) + "</array>", 9), classTable({"NSSet", "NSObject"}),
             classTable({"TourPalette", "Palette", "NSObject"}), screenClass, listClass, "<string>end</string>"}));
    const QByteArray once = rewritten(bytes);
    const Result<KeyedArchive::Contents> contents = readContents(once);
    ASSERT_TRUE(contents);
    const ArchiveObjectPointer screen = *contents->root.toList("root").value()->at(0).toObject("screen");
    EXPECT_EQ(screen->value("palette").kind(), "an unknown value");
    EXPECT_EQ(screen->unknownPart()->entries().size(), 1U);

    const auto parsed = PropertyList::parse(once);
    ASSERT_TRUE(parsed);
    const std::vector<plist_t> objects = PropertyList::entries(PropertyList::value(parsed->get(), "$objects"));
    const auto at = [&](plist_t node) { return objects.at(PropertyList::reference(node).value()); };
    plist_t palette = at(PropertyList::value(objects.at(2), "palette"));
    EXPECT_EQ(PropertyList::text(PropertyList::value(at(PropertyList::value(palette, "$class")), "$classname")),
              "TourPalette");
    EXPECT_EQ(at(PropertyList::value(palette, "self")), palette);
    EXPECT_EQ(PropertyList::text(at(PropertyList::value(palette, "name"))), "MAIN");
    EXPECT_EQ(objects.size(), 14U); // nothing twice
    EXPECT_EQ(rewritten(once), once);
}

TEST(UnknownContent, InTheWritersOrderItComesBackToTheByte)
{
    // Numbers as they are met: an object, its values, its class.
    const QByteArray bytes = binary(
        xml({ordered("<key>col</key><integer>5</integer><key>label</key>" + uid(2) + "<key>palette</key>" + uid(3), 6),
             "<string>MAIN</string>",
             ordered("<key>name</key>" + uid(2) + "<key>tone</key>" + uid(4) + "<key>owner</key>" + uid(1), 5),
             "<string>warm</string>", classTable({"TourPalette", "NSObject"}), screenClass}));
    EXPECT_EQ(rewritten(bytes), bytes);
}

TEST(UnknownContent, WhatRefersToTheRootOrToALayerDoesSoAgain)
{
    const QByteArray bytes =
        binary(xml({list({uid(2), uid(3)}, 5), ordered("<key>root</key>" + uid(1) + "<key>next</key>" + uid(3), 4),
                    ordered("<key>label</key>" + uid(6) + "<key>next</key>" + uid(2), 4), screenClass, listClass,
                    "<string>B</string>"}));
    const QByteArray once = rewritten(bytes);
    const auto parsed = PropertyList::parse(once);
    ASSERT_TRUE(parsed);
    const std::vector<plist_t> objects = PropertyList::entries(PropertyList::value(parsed->get(), "$objects"));
    EXPECT_EQ(objects.size(), 7U);
    const std::vector<plist_t> layers = PropertyList::entries(PropertyList::value(objects[1], "NS.objects"));
    const quint64 first = PropertyList::reference(layers.at(0)).value();
    const quint64 second = PropertyList::reference(layers.at(1)).value();
    EXPECT_EQ(PropertyList::reference(PropertyList::value(objects[first], "root")), 1U);
    EXPECT_EQ(PropertyList::reference(PropertyList::value(objects[first], "next")), second);
    EXPECT_EQ(PropertyList::reference(PropertyList::value(objects[second], "next")), first);
    EXPECT_EQ(rewritten(once), once);
}

TEST(UnknownContent, NothingUnderAnUnknownKeyRefusesTheFile)
{
    // A chain of 5,000 lists, deeper than any known value may be.
    QStringList chain;
    for (int i = 0; i < 5000; ++i)
        chain.append(list({uid(5 + i)}, 5004));
    const QByteArray deep =
        screenWith("<key>deep</key>" + uid(4), chain.mid(0, 4999) + QStringList{"<true/>", listClass});
    EXPECT_EQ(rewritten(rewritten(deep)), rewritten(deep));
    EXPECT_GT(rewritten(deep).size(), 5000 * 10);

    const QByteArray dangling =
        screenWith("<key>lost</key>" + uid(999) + "<key>pattern</key>" + uid(4),
                   {ordered("<key>NSColorSpace</key><integer>10</integer>", 5), classTable({"NSColor", "NSObject"})});
    EXPECT_EQ(rewritten(rewritten(dangling)), rewritten(dangling));
}

TEST(UnknownContent, WhatIsNotTakenUnderASharedKeyComesBackToTheByte)
{
    KeyedArchive::Vocabulary sharing = vocabulary;
    sharing.sharedKeys.insert("label", [](const ArchiveValue &value) { return value.toText("it").has_value(); });
    QString kind;
    const auto again = [&](const QByteArray &bytes) {
        const Result<KeyedArchive::Contents> contents = KeyedArchive::readContents(bytes, sharing);
        EXPECT_TRUE(contents) << qPrintable(contents ? QString() : contents.error().text);
        kind = contents ? (*contents->root.toObject("it"))->value("label").kind() : QString();
        return contents ? KeyedArchive::writeContents(*contents).value_or(QByteArray()) : QByteArray();
    };
    const auto wall = [](const QString &label, const QStringList &entries) {
        return binary(xml(QStringList{ordered("<key>label</key>" + label, 2), screenClass} + entries));
    };
    for (const char *plain : {"<integer>7</integer>", "<data>AAEC</data>", "<true/>", "<real>0.5</real>",
                              "<array><integer>1</integer></array>", "<date>2001-01-01T00:00:00Z</date>"}) {
        EXPECT_EQ(again(wall(plain, {})), wall(plain, {})) << plain;
        EXPECT_EQ(kind, "an unknown value") << plain;
    }
    const QByteArray itself = wall(uid(1), {}); // the layer under its own key
    EXPECT_EQ(again(itself), itself);
    EXPECT_EQ(again(again(wall(uid(99), {}))), wall(uid(0), {}));
    EXPECT_EQ(kind, "nil");

    QStringList chain;
    for (int i = 0; i < 5000; ++i)
        chain.append(list({uid(4 + i)}, 5003));
    const QByteArray deep = again(wall(uid(3), chain.mid(0, 4999) + QStringList{"<true/>", listClass}));
    EXPECT_EQ(kind, "an unknown value");
    EXPECT_EQ(again(deep), deep);

    const QString record = ordered("<key>NS.string</key><string>$null</string>", 4);
    again(wall(uid(3), {record, classTable({"NSMutableString", "NSString", "NSObject"})}));
    EXPECT_EQ(kind, "a text");
    again(wall(uid(3), {ordered("<key>NS.string</key>" + uid(1), 4), classTable({"NSString", "NSObject"})}));
    EXPECT_EQ(kind, "an unknown value");
    again(wall(uid(3), {"<string></string>"}));
    EXPECT_EQ(kind, "a text");
}

TEST(UnknownContent, KnownValuesAreHeldToTheLimitsStill)
{
    const QByteArray bytes = binary(xml({list({uid(1)}, 2), listClass}));
    ASSERT_FALSE(readContents(bytes));
    EXPECT_EQ(readContents(bytes).error().text, "The archive is damaged: its root contains itself.");
}

TEST(UnknownContent, FurtherElementsOfTheRootComeBack)
{
    const QByteArray bytes =
        binary(xml({list({uid(2), uid(2), uid(3), uid(4), uid(1)}, 6), "<integer>90</integer>", list({}, 6),
                    ordered("<key>x</key><integer>1</integer>", 5), classTable({"Rigging", "NSObject"}), listClass}));
    const QByteArray once = rewritten(bytes);
    const Result<KeyedArchive::Contents> contents = readContents(once);
    ASSERT_TRUE(contents);
    const ArchiveList root = *contents->root.toList("root");
    ASSERT_EQ(root->size(), 5U);
    EXPECT_EQ(root->at(2).kind(), "a list");
    EXPECT_EQ(root->at(3).kind(), "an unknown value");
    EXPECT_TRUE(once.contains("Rigging"));
    EXPECT_EQ(rewritten(once), once);
}

TEST(UnknownContent, WhatStandsBesideTheRootComesBack)
{
    const QByteArray plain = xml({list({}, 2), listClass, "<string>note</string>"});
    const QByteArray bytes = binary(QByteArray(plain).replace(
        "<key>root</key>", "<key>version</key><integer>4</integer><key>note</key>" + uid(3).toUtf8() +
                               "<key>show</key><dict><key>voltage</key><integer>230"
                               "</integer><key>later</key>" +
                               uid(3).toUtf8() + "</dict><key>root</key>"));
    const QByteArray once = rewritten(bytes);
    const Result<KeyedArchive::Contents> contents = readContents(once);
    ASSERT_TRUE(contents);
    ASSERT_EQ(contents->top.size(), 3U);
    EXPECT_EQ(contents->top[0].first, "version");
    EXPECT_EQ(contents->top[2].first, "show");
    const ArchiveObjectPointer show = *contents->top[2].second.toObject("show");
    EXPECT_EQ(show->decodeInt32("voltage").value(), 230);
    EXPECT_EQ(show->unknownPart()->entries().size(), 1U);
    EXPECT_EQ(once.count("note"), 2); // the key and the text
    EXPECT_EQ(rewritten(once), once);
}
