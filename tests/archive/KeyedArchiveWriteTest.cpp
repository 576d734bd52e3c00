#include "archive/KeyedArchive.h"
#include "archive/PropertyList.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
/// A written archive, taken apart by libplist.
struct Written
{
    explicit Written(const ArchiveValue &root)
    {
        const Result<QByteArray> result = KeyedArchive::write(root);
        EXPECT_TRUE(result);
        bytes = result.value_or(QByteArray());
        list = std::move(*PropertyList::parse(bytes));
        objects = PropertyList::entries(PropertyList::value(list.get(), "$objects"));
    }
    plist_t value(std::size_t index, const char *key) const { return PropertyList::value(objects.at(index), key); }
    std::optional<quint64> reference(std::size_t index, const char *key) const
    {
        return PropertyList::reference(value(index, key));
    }
    std::optional<QString> text(std::size_t index) const { return PropertyList::text(objects.at(index)); }
    QStringList chain(std::size_t index) const
    {
        const quint64 table = reference(index, "$class").value_or(0);
        QStringList names(PropertyList::text(value(table, "$classname")).value_or("?"));
        for (plist_t name : PropertyList::entries(value(table, "$classes")))
            names.append(PropertyList::text(name).value_or("?"));
        return names;
    }

    QByteArray bytes;
    PropertyList::Pointer list;
    std::vector<plist_t> objects;
};

ArchiveValue screen()
{
    const auto object = std::make_shared<ArchiveObject>("LWScreen");
    object->encodeInt32("col", 12);
    object->encodeBool("bgenable", true);
    object->encodeColour("rectcolor", Colour{1, 0.25, 0.1, 1});
    object->encodeColour("rectcolor2", Colour{1, 0.25, 0.1, 1});
    object->encodeColour("sfcolor", {});
    object->encodeText("label", "Wall");
    object->encodeTextList("hiddenBoxes", QStringList{"0,1", "Wall"});
    return {ArchiveObjectPointer(object)};
}

/// What comes back from an archive of `value` alone.
ArchiveValue roundTrip(const ArchiveValue &value)
{
    const Result<QByteArray> bytes = KeyedArchive::write(ArchiveValue::list({value}));
    EXPECT_TRUE(bytes);
    const Result<ArchiveValue> root = KeyedArchive::read(bytes.value_or(QByteArray()), {"LWScreen"});
    EXPECT_TRUE(root);
    const Result<ArchiveList> list = root ? root->toList("root") : fail("no root");
    return list ? (*list)->front() : ArchiveValue{ArchiveFault{"nothing"}};
}
} // namespace

TEST(KeyedArchiveWrite, NamesItsFormatAndItsRoot)
{
    const Written written(screen());

    EXPECT_TRUE(written.bytes.startsWith("bplist00"));
    plist_t list = written.list.get();
    EXPECT_EQ(plist_dict_get_size(list), 4U);
    EXPECT_EQ(PropertyList::text(PropertyList::value(list, "$archiver")), "NSKeyedArchiver");
    EXPECT_EQ(PropertyList::integer(PropertyList::value(list, "$version")), 100000);
    plist_t root = PropertyList::value(PropertyList::value(list, "$top"), "root");
    EXPECT_EQ(plist_get_node_type(root), PLIST_UID);
    EXPECT_EQ(PropertyList::reference(root), 1U);
    EXPECT_EQ(written.text(0), "$null");
}

TEST(KeyedArchiveWrite, NumbersObjectsWhenTheyAreMetThenTheirValuesThenTheirClass)
{
    const Written written(screen());

    // 1 screen, 2 colour, 3 its class, 4 label, 5 list, 6 "0,1", 7 class of the list, 8 class of the screen
    ASSERT_EQ(written.objects.size(), 9U);
    EXPECT_EQ(written.reference(1, "rectcolor"), 2U);
    EXPECT_EQ(written.reference(1, "label"), 4U);
    EXPECT_EQ(written.reference(1, "hiddenBoxes"), 5U);
    EXPECT_EQ(written.reference(1, "$class"), 8U);
    EXPECT_EQ(written.reference(2, "$class"), 3U);
    EXPECT_EQ(written.reference(5, "$class"), 7U);
    EXPECT_EQ(written.text(4), "Wall");
    EXPECT_EQ(written.text(6), "0,1");
}

TEST(KeyedArchiveWrite, WritesEqualTextsAndColoursOnce)
{
    const Written written(screen());

    EXPECT_EQ(written.reference(1, "rectcolor2"), written.reference(1, "rectcolor"));
    const std::vector<plist_t> entries = PropertyList::entries(written.value(5, "NS.objects"));
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(PropertyList::reference(entries[0]), 6U);
    EXPECT_EQ(PropertyList::reference(entries[1]), 4U); // the label
}

TEST(KeyedArchiveWrite, TextsAreEqualAsTheyAreWritten)
{
    const auto written = [](const QString &first, const QString &second) {
        const auto object = std::make_shared<ArchiveObject>("LWScreen");
        object->encodeText("label", first);
        object->encodeText("other", second);
        return Written(ArchiveValue{ArchiveObjectPointer(object)}).bytes;
    };
    const QString halfOfAPair(QChar(0xd800));
    EXPECT_EQ(written(halfOfAPair, "?"), written("?", "?"));
}

TEST(KeyedArchiveWrite, NumbersStandInPlaceAndNilIsReferenceZero)
{
    const Written written(screen());

    EXPECT_EQ(PropertyList::integer(written.value(1, "col")), 12);
    EXPECT_EQ(plist_get_node_type(written.value(1, "bgenable")), PLIST_BOOLEAN);
    EXPECT_EQ(written.reference(1, "sfcolor"), 0U);
}

TEST(KeyedArchiveWrite, ClassTablesHoldTheChain)
{
    const Written written(screen());

    EXPECT_EQ(written.chain(1), (QStringList{"LWScreen", "LWScreen", "NSObject"}));
    EXPECT_EQ(written.chain(2), (QStringList{"NSColor", "NSColor", "NSObject"}));
    EXPECT_EQ(written.chain(5), (QStringList{"NSMutableArray", "NSMutableArray", "NSArray", "NSObject"}));
}

TEST(KeyedArchiveWrite, ColoursAreShortestDigitsEndedByANul)
{
    const auto components = [](const Colour &colour) {
        const Written written({colour});
        EXPECT_EQ(PropertyList::integer(written.value(1, "NSColorSpace")), 2);
        return PropertyList::data(written.value(1, "NSRGB")).value_or("none");
    };

    EXPECT_EQ(components({1, 0.25, 0.1, 1}), QByteArray("1 0.25 0.1\0", 11));
    EXPECT_EQ(components({1.0 / 3, 0, 1e-7, 1}), QByteArray("0.3333333333333333 0 1e-07\0", 27));
    EXPECT_EQ(components({0, 0, 0, 0.5}), QByteArray("0 0 0 0.5\0", 10));
    EXPECT_EQ(components({0, 0, 0, 0}), QByteArray("0 0 0 0\0", 8));
}

TEST(KeyedArchiveWrite, ListsHoldTheirNumbersInTheTable)
{
    const Written written(ArchiveValue::list({{qint64{1080}}, {qint64{1920}}, {true}, {2.5}, {QByteArray("x")}, {}}));

    const std::vector<plist_t> entries = PropertyList::entries(written.value(1, "NS.objects"));
    ASSERT_EQ(entries.size(), 6U);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(PropertyList::reference(entries[i]), i + 2);
    EXPECT_EQ(PropertyList::reference(entries[5]), 0U);
    EXPECT_EQ(PropertyList::integer(written.objects[2]), 1080);
    EXPECT_EQ(PropertyList::integer(written.objects[3]), 1920);
    EXPECT_EQ(plist_get_node_type(written.objects[4]), PLIST_BOOLEAN);
    EXPECT_EQ(plist_get_node_type(written.objects[5]), PLIST_REAL);
    EXPECT_EQ(plist_get_node_type(written.objects[6]), PLIST_DATA);
}

TEST(KeyedArchiveWrite, SharedObjectIsWrittenOnceAndEqualOnesApart)
{
    const ArchiveValue shared = screen();
    EXPECT_EQ(Written(ArchiveValue::list({shared, shared})).objects.size(), 10U);
    EXPECT_EQ(Written(ArchiveValue::list({screen(), screen()})).objects.size(), 12U); // one more screen, one more list
}

TEST(KeyedArchiveWrite, TextThatReadsNullIsAMutableString)
{
    const Written written({QString("$null")});

    EXPECT_EQ(written.chain(1), (QStringList{"NSMutableString", "NSMutableString", "NSString", "NSObject"}));
    EXPECT_EQ(PropertyList::text(written.value(1, "NS.string")), "$null");
}

TEST(KeyedArchiveWrite, AddressRefersToItsBase)
{
    const Written written({Address{"logo.png", {"plates/", "file:///show/"}}});

    EXPECT_EQ(written.chain(1), (QStringList{"NSURL", "NSURL", "NSObject"}));
    const quint64 base = written.reference(1, "NS.base").value();
    const quint64 farthest = written.reference(base, "NS.base").value();
    EXPECT_EQ(written.text(written.reference(1, "NS.relative").value()), "logo.png");
    EXPECT_EQ(written.text(written.reference(base, "NS.relative").value()), "plates/");
    EXPECT_EQ(written.text(written.reference(farthest, "NS.relative").value()), "file:///show/");
    EXPECT_EQ(written.reference(farthest, "NS.base"), 0U);
}

TEST(KeyedArchiveWrite, IndexSetHoldsOneRangeInPlaceAndMoreAsData)
{
    const Written one({IndexSet{{{4, 2}}}});
    EXPECT_EQ(PropertyList::integer(one.value(1, "NSRangeCount")), 1);
    EXPECT_EQ(PropertyList::integer(one.value(1, "NSLocation")), 4);
    EXPECT_EQ(PropertyList::integer(one.value(1, "NSLength")), 2);

    const Written two({IndexSet{{{3, 1}, {300, 5}}}});
    EXPECT_EQ(PropertyList::integer(two.value(1, "NSRangeCount")), 2);
    EXPECT_EQ(PropertyList::data(two.objects.at(two.reference(1, "NSRangeData").value())), "\x03\x01\xAC\x02\x05");
}

TEST(KeyedArchiveWrite, EveryKindOfValueComesBack)
{
    const std::vector<ArchiveValue::Storage> values{
        std::monostate(),
        true,
        false,
        qint64{-5},
        std::numeric_limits<qint64>::min(),
        std::numeric_limits<qint64>::max(),
        qint64{4294967295},
        0.1,
        -0.0,
        1e300,
        QString(""),
        QString("$null"),
        QString::fromUtf8("B\u00FChne \U0001F3A4 & <Saal>\n"),
        QByteArray(""),
        QByteArray("\0\xFF", 2),
        Colour{0.1, 1.0 / 3, -0.25, 1.5},
        Colour{5e-324, 1.7976931348623157e308, 0, 1},
        Address{"http://example.com/a%20b?c#d", {}},
        Address{"logo.png", {"plates/", "file:///show/"}},
        Address{"", {}},
        IndexSet(),
        IndexSet{{{0, 1}}},
        IndexSet{{{0, 1}, {127, 128}, {9223372036854775806, 1}}},
    };
    for (const ArchiveValue::Storage &value : values)
        EXPECT_EQ(roundTrip({value}).storage, value) << qPrintable(ArchiveValue{value}.kind());
}

TEST(KeyedArchiveWrite, ObjectsAndListsComeBackInOrder)
{
    const Result<ArchiveObjectPointer> object = roundTrip(screen()).toObject("screen");

    ASSERT_TRUE(object);
    EXPECT_EQ((*object)->className(), "LWScreen");
    EXPECT_EQ((*object)->decodeInt32("col"), 12);
    EXPECT_EQ((*object)->decodeBool("bgenable"), true);
    EXPECT_EQ((*object)->decodeColour("rectcolor2").value(), OptionalColour(Colour{1, 0.25, 0.1, 1}));
    EXPECT_EQ((*object)->decodeColour("sfcolor").value(), OptionalColour());
    EXPECT_EQ((*object)->decodeText("label"), QString("Wall"));
    EXPECT_EQ((*object)->decodeTextList("hiddenBoxes").value(), std::optional(QStringList{"0,1", "Wall"}));
}

TEST(KeyedArchiveWrite, WhatCouldNotBeReadAgainIsRefused)
{
    const auto errorOf = [](const ArchiveValue &value) {
        const Result<QByteArray> bytes = KeyedArchive::write(value);
        return bytes ? QString("no error") : bytes.error().text;
    };
    ArchiveValue nested{true};
    for (int i = 0; i < 64; ++i)
        nested = ArchiveValue::list({nested});

    EXPECT_EQ(errorOf(nested), "no error");
    EXPECT_EQ(errorOf(ArchiveValue::list({nested})), "The archive cannot be written: It is nested more than 64 deep.");
    EXPECT_EQ(errorOf({Colour{std::numeric_limits<double>::quiet_NaN(), 0, 0, 1}}),
              "The archive cannot be written: A colour has a component that is no number.");
    EXPECT_EQ(errorOf({QString::fromUtf8("a\0b", 3)}),
              "The archive cannot be written: The text \"ab\" has a NUL in it; type it anew.");
    EXPECT_EQ(errorOf({ArchiveFault{"a pattern image"}}), "The archive cannot be written: It holds a pattern image.");
}

TEST(KeyedArchiveWrite, TheSameValuesGiveTheSameBytesWhereverTheyLieInMemory)
{
    std::vector<ArchiveValue> values;
    for (int i = 0; i < 20; ++i) {
        ArchiveObject object("LWRuler");
        object.encode("bytes", {QByteArray("1 0 0")});
        values.push_back({std::make_shared<const ArchiveObject>(object)});
    }
    const ArchiveValue list = ArchiveValue::list(values);
    const QByteArray first = KeyedArchive::write(list).value();
    std::vector<QByteArray> others; // which keep the memory that the next one might have
    for (int i = 0; i < 200; ++i) {
        others.push_back(QByteArray(i * 7, 'x'));
        ASSERT_EQ(KeyedArchive::write(list).value() == first, true) << i;
    }
}
