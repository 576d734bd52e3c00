#include "TestArchive.h"
#include "archive/KeyedArchive.h"

#include <gtest/gtest.h>

using namespace TestArchive;

namespace {
const QStringList ownClasses{"LWScreen", "LWStill"};

/// The root of an archive, which must be the same in both forms of the list.
Result<ArchiveValue> readBoth(const QByteArray &xml)
{
    const Result<ArchiveValue> fromXml = KeyedArchive::read(xml, ownClasses);
    Result<ArchiveValue> fromBinary = KeyedArchive::read(binary(xml), ownClasses);
    EXPECT_EQ(fromXml.has_value(), fromBinary.has_value());
    if (fromXml && fromBinary)
        EXPECT_EQ(fromXml->kind(), fromBinary->kind());
    else
        EXPECT_EQ(fromXml.error(), fromBinary.error());
    return fromBinary;
}

/// The value of the key "value" in an object that is the root; further entries begin with number 3.
ArchiveValue valueOf(const QString &node, const QStringList &entries = {})
{
    const QStringList table{record(2, "<key>value</key>" + node), classTable({"LWScreen", "NSObject"})};
    const Result<ArchiveValue> root = readBoth(xml(table + entries));
    const Result<ArchiveObjectPointer> object = root ? root->toObject("root") : fail("no root");
    EXPECT_TRUE(object);
    return object ? (*object)->value("value") : ArchiveValue{ArchiveFault{"nothing"}};
}

/// A colour record of `keys`, beside a colour space (entry 5), a colour (7) and a text (8).
ArchiveValue colourOf(const QString &keys)
{
    return valueOf(uid(3),
                   {record(4, keys), classTable({"NSColor", "NSObject"}),
                    record(6, "<key>NSID</key><integer>1</integer>"), classTable({"NSColorSpace", "NSObject"}),
                    record(4, "<key>NSColorSpace</key><integer>4</integer><key>NSWhite</key>" + data("0.75 0.5")),
                    "<string>System</string>"});
}

QString space(int number, const char *key, const QByteArray &components)
{
    return QString("<key>NSColorSpace</key><integer>%1</integer><key>%2</key>").arg(number).arg(key) + data(components);
}

QString ownSpace(const QByteArray &components)
{
    return space(1, "NSRGB", "0.5 0.5 0.5") + "<key>NSCustomColorSpace</key>" + uid(5) + "<key>NSComponents</key>" +
           data(components);
}

Colour colour(const ArchiveValue &value)
{
    const Result<OptionalColour> found = value.toColour("colour");
    EXPECT_TRUE(found && *found) << qPrintable(value.kind());
    return found ? found->value_or(Colour{-1, -1, -1, -1}) : Colour{-1, -1, -1, -1};
}
} // namespace

TEST(KeyedArchiveRead, TakesTheHabitsOfOtherWriters)
{
    const Result<ArchiveValue> root = readBoth(fixture("other-writer.xml"));

    ASSERT_TRUE(root);
    const ArchiveList project = *root->toList("root");
    ASSERT_EQ(project->size(), 3U);
    EXPECT_EQ((*project)[0].toInt32("height"), 1080);
    EXPECT_EQ((*project)[1].toInt32("width"), 1920);
    const ArchiveList layers = *(*project)[2].toList("layers");
    ASSERT_EQ(layers->size(), 1U);
    const ArchiveObjectPointer screen = *layers->front().toObject("layer 0");
    EXPECT_EQ(screen->className(), "LWScreen");
    EXPECT_EQ(screen->decodeText("label"), QString::fromUtf8("B\u00FChne & Saal"));
    EXPECT_EQ(screen->decodeInt32("col"), 7);
    EXPECT_EQ(screen->decodeBool("visible"), true);
    EXPECT_EQ(screen->decodeColour("rectcolor").value(), OptionalColour(Colour{1, 0.25, 0.5, 1}));
    EXPECT_EQ(screen->decodeColour("sfcolor").value(), OptionalColour());
    EXPECT_EQ(screen->decodeTextList("hiddenBoxes").value(), std::optional(QStringList{"0,0", "1,2"}));
    EXPECT_EQ(screen->value("opened").kind(), "a date");
    EXPECT_EQ(screen->value("palette").kind(), "an object of the unknown class TourPalette");
}

TEST(KeyedArchiveRead, RgbColoursAreTakenAtFaceValue)
{
    EXPECT_EQ(colour(colourOf(space(1, "NSRGB", "1 0.25 0.5"))), (Colour{1, 0.25, 0.5, 1}));
    EXPECT_EQ(colour(colourOf(space(2, "NSRGB", QByteArray("0 1e-3 .5 0.25\0", 15)))), (Colour{0, 0.001, 0.5, 0.25}));
    EXPECT_EQ(colour(colourOf(space(2, "NSRGB", "-0.25  1.5 1E+0"))), (Colour{-0.25, 1.5, 1, 1}));
}

TEST(KeyedArchiveRead, WhiteIsEqualPartsOfAllThree)
{
    EXPECT_EQ(colour(colourOf(space(3, "NSWhite", "0.25"))), Colour::gray(0.25));
    EXPECT_EQ(colour(colourOf(space(4, "NSWhite", QByteArray("0.6666666667 0.5\0", 17)))),
              Colour::gray(0.6666666667, 0.5));
}

TEST(KeyedArchiveRead, InkIsTakenFromWhite)
{
    EXPECT_EQ(colour(colourOf(space(5, "NSCMYK", "0 0.5 1 0.5"))), (Colour{0.5, 0.25, 0, 1}));
    EXPECT_EQ(colour(colourOf(space(5, "NSCMYK", "0 0.5 1 0.5 0.75"))), (Colour{0.5, 0.25, 0, 0.75}));
}

TEST(KeyedArchiveRead, NamedColourIsTheOneInside)
{
    const QString names = "<key>NSCatalogName</key>" + uid(8) + "<key>NSColorName</key>" + uid(8);
    const QString named = "<key>NSColorSpace</key><integer>6</integer>" + names;

    EXPECT_EQ(colour(colourOf(named + "<key>NSColor</key>" + uid(7))), Colour::gray(0.75, 0.5));
    EXPECT_EQ(colourOf(named).kind(), "a named colour that holds nil");
    EXPECT_EQ(colourOf(named + "<key>NSColor</key>" + uid(8)).kind(), "a named colour that holds a text");
    EXPECT_EQ(colourOf(named + "<key>NSColor</key>" + uid(3)).kind(),
              "a named colour that holds an object that contains itself");
}

TEST(KeyedArchiveRead, ComponentsOfAnOwnSpaceCount)
{
    EXPECT_EQ(colour(colourOf(ownSpace("0.25 1"))), Colour::gray(0.25));
    EXPECT_EQ(colour(colourOf(ownSpace("1 0.25 0 0.5"))), (Colour{1, 0.25, 0, 0.5}));
    EXPECT_EQ(colour(colourOf(ownSpace("0 0.5 1 0.5 1"))), (Colour{0.5, 0.25, 0, 1}));
    EXPECT_EQ(colourOf(ownSpace("1 0.25 0")).kind(), "a colour of 3 components");
}

TEST(KeyedArchiveRead, OwnSpaceWithoutComponentsLeavesTheOlderKeyExact)
{
    const QString keys = space(1, "NSRGB", "0.125 0.25 0.5") + "<key>NSCustomColorSpace</key>" + uid(5);

    EXPECT_EQ(colour(colourOf(keys)), (Colour{0.125, 0.25, 0.5, 1}));
}

TEST(KeyedArchiveRead, ColourThatCannotBeKeptIsNamed)
{
    EXPECT_EQ(colourOf("<key>NSColorSpace</key><integer>10</integer>").kind(), "a pattern image");
    EXPECT_EQ(colourOf(space(7, "NSRGB", "1 1 1")).kind(), "a colour of an unknown space");
    EXPECT_EQ(colourOf("").kind(), "a colour of an unknown space");
    EXPECT_EQ(colourOf(space(2, "NSWhite", "1")).kind(), "a colour without components");
    EXPECT_EQ(colourOf("<key>NSColorSpace</key><integer>2</integer><key>NSRGB</key><integer>1</integer>").kind(),
              "a colour without components");
}

TEST(KeyedArchiveRead, DamagedComponentsAreRefused)
{
    EXPECT_EQ(colourOf(space(2, "NSRGB", "1 0.25")).kind(), "a colour of 2 components");
    EXPECT_EQ(colourOf(space(2, "NSRGB", "1 0.25 0 1 1")).kind(), "a colour of 5 components");
    EXPECT_EQ(colourOf(space(4, "NSWhite", "1 1 1")).kind(), "a colour of 3 components");
    EXPECT_EQ(colourOf(space(2, "NSRGB", "1 nan 0")).kind(), "a colour with the component \"nan\"");
    EXPECT_EQ(colourOf(space(2, "NSRGB", "1 1e999 0")).kind(), "a colour with the component \"1e999\"");
    EXPECT_EQ(colourOf(space(2, "NSRGB", "1,0 0 0")).kind(), "a colour with the component \"1,0\"");
    EXPECT_EQ(colourOf(space(2, "NSRGB", "")).kind(), "a colour with the component \"\"");
    EXPECT_EQ(colourOf(space(2, "NSRGB", QByteArray(5000, '1'))).kind(), "a colour with far too many components");
}

TEST(KeyedArchiveRead, TextsArePlainOrMutable)
{
    EXPECT_EQ(valueOf(uid(3), {"<string>Wall</string>"}).toText("t"), QString("Wall"));
    EXPECT_FALSE(valueOf(uid(3), {"<string></string>"}).toText("t")->isNull());
    const QStringList mutableText{record(4, "<key>NS.string</key><string>$null</string>"),
                                  classTable({"NSMutableString", "NSString", "NSObject"})};
    EXPECT_EQ(valueOf(uid(3), mutableText).toText("t"), QString("$null"));
    EXPECT_EQ(valueOf(uid(3), {record(4, ""), classTable({"NSString", "NSObject"})}).kind(), "a text without letters");
}

TEST(KeyedArchiveRead, NullIsNilWhereverItStands)
{
    EXPECT_TRUE(valueOf(uid(0)).isNil());
    EXPECT_TRUE(valueOf(uid(3), {"<string>$null</string>"}).isNil());
}

TEST(KeyedArchiveRead, NumbersStandInPlaceOrInTheTable)
{
    EXPECT_EQ(valueOf("<integer>-5</integer>").toInt32("n"), -5);
    EXPECT_EQ(valueOf(uid(3), {"<integer>-5</integer>"}).toInt32("n"), -5);
    EXPECT_EQ(valueOf(uid(3), {"<real>2.5</real>"}).storage, ArchiveValue::Storage(2.5));
    EXPECT_EQ(valueOf("<true/>").toBool("n"), true);
    EXPECT_EQ(valueOf(uid(3), {"<false/>"}).storage, ArchiveValue::Storage(false));
    EXPECT_EQ(valueOf("<integer>9223372036854775807</integer>").storage,
              ArchiveValue::Storage(qint64{9223372036854775807}));
    EXPECT_EQ(valueOf("<integer>18446744073709551615</integer>").kind(), "a number beyond 2^63 - 1");
}

TEST(KeyedArchiveRead, DataStandsInPlaceOrInTheTableOrInARecord)
{
    const ArchiveValue::Storage expected(QByteArray("\0\1\2", 3));
    const QString bytes = data(QByteArray("\0\1\2", 3));

    EXPECT_EQ(valueOf(bytes).storage, expected);
    EXPECT_EQ(valueOf(uid(3), {bytes}).storage, expected);
    const QString table = classTable({"NSMutableData", "NSData", "NSObject"});
    EXPECT_EQ(valueOf(uid(3), {record(4, "<key>NS.data</key>" + bytes), table}).storage, expected);
    EXPECT_EQ(valueOf(uid(3), {record(4, "<key>NS.data</key><true/>"), table}).kind(), "data without bytes");
}

TEST(KeyedArchiveRead, AddressKeepsItsBases)
{
    const QStringList table{record(4, "<key>NS.base</key>" + uid(5) + "<key>NS.relative</key>" + uid(6)),
                            classTable({"NSURL", "NSObject"}),
                            record(4, "<key>NS.base</key>" + uid(0) + "<key>NS.relative</key>" + uid(7)),
                            "<string>plates/logo.png</string>", "<string>file:///show/</string>"};

    EXPECT_EQ(valueOf(uid(3), table).toAddress("a"), (Address{"plates/logo.png", {"file:///show/"}}));
    EXPECT_EQ(valueOf(uid(5), table).toAddress("a"), (Address{"file:///show/", {}}));
}

TEST(KeyedArchiveRead, DamagedAddressIsNamed)
{
    const QString table = classTable({"NSURL", "NSObject"});
    const QString relative = "<key>NS.relative</key><string>logo.png</string>";
    EXPECT_EQ(valueOf(uid(3), {record(4, ""), table}).kind(), "an address without a text");
    EXPECT_EQ(valueOf(uid(3), {record(4, relative + "<key>NS.base</key><true/>"), table}).kind(),
              "an address relative to a boolean");
    EXPECT_EQ(valueOf(uid(3), {record(4, relative + "<key>NS.base</key>" + uid(3)), table}).kind(),
              "an address relative to an object that contains itself");
}

TEST(KeyedArchiveRead, IndexSetsHoldOneRangeInPlaceAndMoreAsData)
{
    const QString table = classTable({"NSMutableIndexSet", "NSIndexSet", "NSObject"});
    const auto set = [&](const QString &keys, const QByteArray &bytes = {}) {
        return valueOf(uid(3), {record(4, keys), table, data(bytes)});
    };
    const auto count = [](int ranges) { return QString("<key>NSRangeCount</key><integer>%1</integer>").arg(ranges); };
    const QString bytes = "<key>NSRangeData</key>" + uid(5);

    EXPECT_EQ(set(count(0)).toIndexSet("rows"), IndexSet());
    EXPECT_EQ(set(count(1) + "<key>NSLocation</key><integer>4</integer><key>NSLength</key><integer>2</integer>")
                  .toIndexSet("rows"),
              (IndexSet{{{4, 2}}}));
    EXPECT_EQ(set(count(2) + bytes, "\x03\x01\xAC\x02\x05").toIndexSet("rows"), (IndexSet{{{3, 1}, {300, 5}}}));
    EXPECT_EQ(set(count(3) + bytes, "\x03\x01\xAC\x02\x05").kind(), "an index set with damaged ranges");
    EXPECT_EQ(set(count(2) + bytes, "\x03\x01\xAC").kind(), "an index set with damaged ranges");
    EXPECT_EQ(set(count(2) + bytes, "\x03\x02\x04\x05").kind(), "an index set with impossible ranges");
    EXPECT_EQ(set(count(2) + bytes, QByteArray(11, '\xFF')).kind(), "an index set with damaged ranges");
    EXPECT_EQ(set(count(1)).kind(), "an index set with damaged ranges");
}

TEST(KeyedArchiveRead, WhatCannotBeUnderstoodIsAFaultWhereItStands)
{
    EXPECT_EQ(valueOf(uid(9), {"<true/>"}).kind(), "a reference to object 9 of 4");
    EXPECT_EQ(valueOf(uid(3), {uid(1)}).kind(), "a reference to a reference");
    EXPECT_EQ(valueOf(uid(3), {"<dict/>"}).kind(), "a record without a class");
    EXPECT_EQ(valueOf(uid(3), {"<array/>"}).kind(), "a list without a class");
    EXPECT_EQ(valueOf("<array/>").kind(), "a list without a class");
    EXPECT_EQ(valueOf(uid(3), {record(4, ""), classTable({"NSMutableArray", "NSArray"})}).kind(),
              "a list without entries");
    EXPECT_EQ(valueOf(uid(3), {record(4, ""), classTable({"Palette", "NSObject"})}).kind(),
              "an object of the unknown class Palette");
    EXPECT_EQ(valueOf(uid(3), {record(3, "")}).kind(), "a record without a class");
}

TEST(KeyedArchiveRead, SharedListIsReadOnce)
{
    const QString list = classTable({"NSArray", "NSObject"});
    const QString pair = "<key>NS.objects</key><array>" + uid(3) + uid(3) + "</array>";
    const Result<ArchiveValue> root =
        readBoth(xml({record(2, pair), list, record(2, "<key>NS.objects</key><array><true/></array>")}));

    ASSERT_TRUE(root);
    const ArchiveList entries = *root->toList("root");
    ASSERT_EQ(entries->size(), 2U);
    EXPECT_EQ(*entries->front().toList("entry 0"), *entries->back().toList("entry 1"));
}

TEST(KeyedArchiveRead, ListThatDoublesSixtyTimesIsRefused)
{
    QStringList entries;
    for (int i = 1; i <= 60; ++i)
        entries.append(record(62, "<key>NS.objects</key><array>" + uid(i + 1) + uid(i + 1) + "</array>"));
    entries.append("<true/>");
    entries.append(classTable({"NSArray", "NSObject"}));

    const Result<ArchiveValue> root = readBoth(xml(entries));

    ASSERT_FALSE(root);
    EXPECT_EQ(root.error().text, "The archive is too large: more than 8 million values.");
}

TEST(KeyedArchiveRead, SharedListOfNothingCountsAsOftenAsItStands)
{
    const auto list = [](int reference) {
        return record(2, "<key>NS.objects</key><array>" + uid(reference).repeated(3000) + "</array>");
    };
    const Result<ArchiveValue> root = readBoth(xml({list(3), classTable({"NSArray", "NSObject"}), list(0)}));

    ASSERT_FALSE(root);
    EXPECT_EQ(root.error().text, "The archive is too large: more than 8 million values.");
}

namespace {
/// `depth` lists inside each other, the innermost with a boolean, entered from both ends of the table.
QByteArray nestedLists(int depth, bool innermostFirst)
{
    QStringList entries;
    QString all;
    for (int i = 2; i <= depth + 1; ++i)
        all.prepend(uid(i));
    const QString root = innermostFirst ? all : uid(2);
    entries.append(record(depth + 2, "<key>NS.objects</key><array>" + root + "</array>"));
    for (int i = 2; i <= depth; ++i)
        entries.append(record(depth + 2, "<key>NS.objects</key><array>" + uid(i + 1) + "</array>"));
    entries.append("<true/>");
    entries.append(classTable({"NSArray", "NSObject"}));
    return xml(entries);
}
} // namespace

TEST(KeyedArchiveRead, ListsNestSixtyFourDeepAndNoDeeper)
{
    EXPECT_TRUE(readBoth(nestedLists(64, false)));
    EXPECT_TRUE(readBoth(nestedLists(64, true)));
    for (const bool innermostFirst : {false, true}) {
        const Result<ArchiveValue> root = readBoth(nestedLists(65, innermostFirst));
        ASSERT_FALSE(root);
        EXPECT_EQ(root.error().text, "The archive is nested more than 64 deep.");
    }
    EXPECT_FALSE(readBoth(nestedLists(5000, true)));
}

TEST(KeyedArchiveRead, CyclesEnd)
{
    const QString list = classTable({"NSArray", "NSObject"});
    const auto holding = [](int index) { return record(2, "<key>NS.objects</key><array>" + uid(index) + "</array>"); };

    const Result<ArchiveValue> ofRoot = readBoth(xml({holding(3), list, holding(1)}));
    ASSERT_FALSE(ofRoot);
    EXPECT_EQ(ofRoot.error().text, "The archive is damaged: its root contains itself.");

    const Result<ArchiveValue> inside = readBoth(xml({holding(3), list, holding(3)}));
    ASSERT_TRUE(inside);
    const ArchiveList outer = *inside->toList("root");
    EXPECT_EQ((*outer->front().toList("entry"))->front().kind(), "an object that contains itself");
}

TEST(KeyedArchiveRead, WhatIsNoArchiveIsRefusedAsAWhole)
{
    const auto errorOf = [](const QByteArray &bytes) {
        const Result<ArchiveValue> root = KeyedArchive::read(bytes, ownClasses);
        return root ? QString("no error") : root.error().text;
    };
    const QByteArray good = xml({"<true/>"});
    EXPECT_EQ(errorOf(good), "no error");
    EXPECT_EQ(errorOf(""), "This is no property list, neither binary nor XML.");
    EXPECT_EQ(errorOf("\x89PNG\r\n"), "The XML property list is not written in Unicode.");
    EXPECT_EQ(errorOf("{\"format\": 1}"), "This is no property list, neither binary nor XML.");
    EXPECT_EQ(errorOf("<plist><dict/></plist>"), "This file is another program's; open one that was saved here.");
    EXPECT_EQ(errorOf("<plist><string>x</string></plist>"),
              "This file is another program's; open one that was saved here.");
    EXPECT_EQ(errorOf(QByteArray(good).replace("NSKeyedArchiver", "NSArchiver")),
              "This file is another program's; open one that was saved here.");
    EXPECT_EQ(errorOf(QByteArray(good).replace(">100000<", ">200000<")),
              "The keyed archive is of an unknown version; only version 100000 can be read.");
    EXPECT_EQ(errorOf(QByteArray(good).replace("$version", "$release")),
              "The keyed archive is of an unknown version; only version 100000 can be read.");
    EXPECT_EQ(errorOf(QByteArray(good).replace("$objects", "$things")),
              "The keyed archive is damaged: it has no table of objects.");
    EXPECT_EQ(errorOf(QByteArray(good).replace(">root<", ">stem<")), "The keyed archive is damaged: it has no root.");
    EXPECT_EQ(errorOf(QByteArray(good).replace("<integer>1<", "<integer>7<")),
              "The archive is damaged: its root is a reference to object 7 of 2.");
}

TEST(KeyedArchiveRead, ANilReferenceUnderANumberOrFlagIsNought)
{
    const QByteArray bytes = xml(
        {record(2, "<key>col</key>" + uid(0) + "<key>visible</key>" + uid(0)), classTable({"LWScreen", "NSObject"})});
    const ArchiveObjectPointer screen = *readBoth(bytes)->toObject("root");
    EXPECT_EQ(screen->decodeInt32("col").value(), 0);
    EXPECT_EQ(screen->decodeBool("visible").value(), false);
}

TEST(KeyedArchiveRead, TheChainCountsWhereTheClassNameIsAnother)
{
    const QByteArray table = classTable({"LWScreen", "NSObject"}).toUtf8();
    const QString wrongName = QByteArray(table).replace("<string>LWScreen</string><key>", "<string>Odd</string><key>");
    const Result<ArchiveValue> root = readBoth(xml({record(2, {}), wrongName}));
    ASSERT_TRUE(root);
    EXPECT_EQ(root->kind(), "an object of class LWScreen");
}

TEST(KeyedArchiveRead, TextsKeepEveryLetter)
{
    const QString marked = QChar(0xFEFF) + QString("MAIN");
    const Result<ArchiveValue> root = readBoth(xml({"<string>" + marked + "</string>"}));
    ASSERT_TRUE(root);
    EXPECT_EQ(root->toText("root").value(), marked);

    const ArchiveValue both = ArchiveValue::list({{marked}, {QString("MAIN")}});
    const Result<ArchiveValue> written = KeyedArchive::read(KeyedArchive::write(both).value(), {});
    ASSERT_TRUE(written);
    EXPECT_EQ(written->toTextList("root").value(), QStringList({marked, "MAIN"}));
}
