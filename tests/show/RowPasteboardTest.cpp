#include "show/RowPasteboard.h"

#include "archive/KeyedArchive.h"
#include "tests/formats/ArchiveNodes.h"

#include <QMimeData>
#include <QStringListModel>

#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace {
using Rows = std::vector<qsizetype>;

uint64_t integer(plist_t node)
{
    uint64_t value = std::numeric_limits<uint64_t>::max();
    plist_get_uint_val(node, &value);
    return value;
}

/// An archive in text form, of a set of class `chain` (innermost first) that has `fields`.
QByteArray archive(const QByteArray &fields, const QByteArrayList &chain = {"NSIndexSet", "NSObject"},
                   const QByteArray &data = {})
{
    return "<plist version=\"1.0\"><dict><key>$archiver</key><string>NSKeyedArchiver</string>"
           "<key>$version</key><integer>100000</integer>"
           "<key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>1</integer></dict></dict>"
           "<key>$objects</key><array><string>$null</string><dict>" +
           fields +
           "<key>$class</key><dict><key>CF$UID</key><integer>2</integer></dict></dict>"
           "<dict><key>$classname</key><string>" +
           chain.first() + "</string><key>$classes</key><array><string>" + chain.join("</string><string>") +
           "</string></array></dict><data>" + data.toBase64() + "</data></array></dict></plist>";
}

QByteArray oneRange(const QByteArray &location, const QByteArray &length)
{
    return "<key>NSRangeCount</key><integer>1</integer><key>NSLocation</key><integer>" + location +
           "</integer><key>NSLength</key><integer>" + length + "</integer>";
}

QByteArray severalRanges(const QByteArray &count)
{
    return "<key>NSRangeCount</key><integer>" + count +
           "</integer><key>NSRangeData</key><dict><key>CF$UID</key><integer>3</integer></dict>";
}

QByteArrayList mutableChain()
{
    return {"NSMutableIndexSet", "NSIndexSet", "NSObject"};
}

QString refusal(const QByteArray &bytes)
{
    const Result<Rows> rows = RowPasteboard::decode(bytes);
    return rows ? QString("accepted") : rows.error().text;
}
} // namespace

TEST(RowPasteboard, OneRangeStandsInTheRecord)
{
    const ArchiveNodes list = parsedArchive(RowPasteboard::encode({7, 5, 6}).value());
    ASSERT_NE(list, nullptr);

    const plist_t set = rootEntry(list);
    ASSERT_EQ(plist_dict_get_size(set), 4U);
    EXPECT_EQ(integer(plist_dict_get_item(set, "NSRangeCount")), 1U);
    EXPECT_EQ(integer(plist_dict_get_item(set, "NSLocation")), 5U);
    EXPECT_EQ(integer(plist_dict_get_item(set, "NSLength")), 3U);

    const plist_t chain = plist_dict_get_item(tableEntry(list, plist_dict_get_item(set, "$class")), "$classes");
    ASSERT_EQ(plist_array_get_size(chain), 2U);
    EXPECT_STREQ(plist_get_string_ptr(plist_array_get_item(chain, 0), nullptr), "NSIndexSet");
    EXPECT_STREQ(plist_get_string_ptr(plist_array_get_item(chain, 1), nullptr), "NSObject");
}

TEST(RowPasteboard, SeveralRangesStandInData)
{
    const ArchiveNodes list = parsedArchive(RowPasteboard::encode({300, 1, 2, 3, 20000}).value());
    ASSERT_NE(list, nullptr);

    const plist_t set = rootEntry(list);
    ASSERT_EQ(plist_dict_get_size(set), 3U);
    EXPECT_EQ(integer(plist_dict_get_item(set, "NSRangeCount")), 3U);
    uint64_t length = 0;
    const char *const bytes = plist_get_data_ptr(tableEntry(list, plist_dict_get_item(set, "NSRangeData")), &length);
    // 1 + 3, 300 + 1, 20000 + 1
    EXPECT_EQ(QByteArray(bytes, static_cast<qsizetype>(length)).toHex(' '), "01 03 ac 02 01 a0 9c 01 01");
}

TEST(RowPasteboard, RowsComeBackInRisingOrderEachOnce)
{
    EXPECT_EQ(RowPasteboard::decode(RowPasteboard::encode({4}).value()).value(), Rows{4});
    EXPECT_EQ(RowPasteboard::decode(RowPasteboard::encode({9, 0, 4, 1, 9}).value()).value(), (Rows{0, 1, 4, 9}));
}

TEST(RowPasteboard, BothFormsOfTheSetAreRead)
{
    EXPECT_EQ(RowPasteboard::decode(archive(oneRange("5", "2"))).value(), (Rows{5, 6}));
    EXPECT_EQ(RowPasteboard::decode(archive(oneRange("5", "2"), mutableChain())).value(), (Rows{5, 6}));
    const QByteArray ranges = QByteArray::fromHex("0002ac0201");
    EXPECT_EQ(RowPasteboard::decode(archive(severalRanges("2"), {"NSIndexSet"}, ranges)).value(), (Rows{0, 1, 300}));
    EXPECT_EQ(RowPasteboard::decode(archive(severalRanges("2"), mutableChain(), ranges)).value(), (Rows{0, 1, 300}));
}

TEST(RowPasteboard, MoreRowsThanAListHasAreRefusedUncounted)
{
    const QString tooMany = "the pasteboard names more than 10,000 rows";
    EXPECT_EQ(refusal(archive(oneRange("0", "10000"))), "accepted");
    EXPECT_EQ(refusal(archive(oneRange("0", "10001"))), tooMany);
    EXPECT_EQ(refusal(archive(oneRange("1", "4611686018427387904"))), tooMany);
    // 5,000 twice, and one more row
    EXPECT_EQ(refusal(archive(severalRanges("2"), mutableChain(), QByteArray::fromHex("008827904e8827"))), "accepted");
    EXPECT_EQ(refusal(archive(severalRanges("2"), mutableChain(), QByteArray::fromHex("008827904e8927"))), tooMany);
}

TEST(RowPasteboard, TheLastRowOfAllIsARow)
{
    EXPECT_EQ(RowPasteboard::decode(archive(oneRange("9223372036854775806", "1"))).value(),
              Rows{std::numeric_limits<qsizetype>::max() - 1});
}

TEST(RowPasteboard, HostileBytesAreErrors)
{
    const QString damaged = "The archive is damaged: its root is an index set with damaged ranges.";
    const QString impossible = "The archive is damaged: its root is an index set with impossible ranges.";
    EXPECT_EQ(refusal(archive(oneRange("-1", "1"))), damaged);
    EXPECT_EQ(refusal(archive(oneRange("9223372036854775807", "1"))), impossible);
    EXPECT_EQ(refusal(archive(severalRanges("3"), mutableChain(), QByteArray::fromHex("0002ac0201"))), damaged);
    EXPECT_EQ(refusal(archive(severalRanges("2"), mutableChain(), QByteArray::fromHex("0002ac02"))), damaged);
    EXPECT_EQ(refusal(archive(severalRanges("2"), mutableChain(), QByteArray::fromHex("05020501"))), impossible);
    EXPECT_EQ(refusal(archive(severalRanges("-2"), mutableChain())), damaged);
    EXPECT_EQ(refusal(archive(severalRanges("0"))), "the pasteboard names no rows");
    EXPECT_EQ(refusal(KeyedArchive::write({qint64{5}}).value()), "the pasteboard is a number, expected an index set");
    EXPECT_EQ(refusal(KeyedArchive::write(ArchiveValue::list({{qint64{5}}})).value()),
              "the pasteboard is a list, expected an index set");
    EXPECT_NE(refusal({}), "accepted");
    EXPECT_NE(refusal("rows"), "accepted");
}

TEST(RowPasteboard, ATruncatedPasteboardIsAnErrorWhereverItEnds)
{
    const QByteArray good = RowPasteboard::encode({1, 5}).value();
    for (qsizetype length = 0; length < good.size(); ++length)
        EXPECT_NE(refusal(good.first(length)), "accepted") << length;
}

TEST(RowPasteboard, NoRowsAndNegativeOnesAreNotDragged)
{
    EXPECT_EQ(RowPasteboard::encode({}).error().text, "no rows to drag; choose some");
    EXPECT_FALSE(RowPasteboard::encode({-1}).has_value());
    EXPECT_FALSE(RowPasteboard::encode({-1, 3}).has_value());
    EXPECT_EQ(RowPasteboard::write({}), nullptr);
}

TEST(RowPasteboard, ADragHasOneType)
{
    const QStringListModel model({"a", "b", "c"});
    const std::unique_ptr<QMimeData> pasteboard(RowPasteboard::write({model.index(2), model.index(0)}));

    ASSERT_NE(pasteboard, nullptr);
    EXPECT_EQ(pasteboard->formats(), QStringList{"BasicTableViewDragAndDropDataType"});
    EXPECT_EQ(RowPasteboard::read(*pasteboard).value(), (Rows{0, 2}));
}

TEST(RowPasteboard, AForeignDragIsAnError)
{
    QMimeData foreign;
    foreign.setText("three rows");
    EXPECT_EQ(RowPasteboard::read(foreign).error().text, "the pasteboard holds no rows of a table");
    foreign.setData(RowPasteboard::type, "three rows");
    EXPECT_FALSE(RowPasteboard::read(foreign).has_value());
}
