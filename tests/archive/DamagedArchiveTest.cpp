#include "TestArchive.h"
#include "archive/KeyedArchive.h"

#include <gtest/gtest.h>
#include <plist/plist.h>
#include <random>

// Every damaged archive must end in an error or in values that can be asked; what the error says is tested elsewhere.

namespace {
const QStringList keys{"col", "visible", "rectcolor", "rectcolor2", "label", "hiddenBoxes", "imageURL"};

QByteArray goodArchive()
{
    std::vector<ArchiveValue> layers;
    for (int i = 0; i < 3; ++i) {
        const auto layer = std::make_shared<ArchiveObject>(i == 1 ? "LWStill" : "LWScreen");
        layer->encodeInt32("col", 5 + i);
        layer->encodeBool("visible", true);
        layer->encodeColour("rectcolor", NamedColour::orange);
        layer->encodeColour("rectcolor2", Colour::gray(0.1 * i, 0.5));
        layer->encodeText("label", QString::fromUtf8("Wall \u00FC %1").arg(i));
        layer->encodeTextList("hiddenBoxes", QStringList{"0,1", "$null", "7,12"});
        layer->encodeAddress("imageURL", {"plate.png", {"file:///show/"}});
        layers.push_back({ArchiveObjectPointer(layer)});
    }
    const ArchiveValue rows{IndexSet{{{1, 2}, {500, 3}}}};
    return *KeyedArchive::write(ArchiveValue::list({{qint64{1080}}, {qint64{1920}}, ArchiveValue::list(layers), rows}));
}

/// The property list as XML text. Of the binary form libplist does not always make the same bytes: whether it writes
/// equal values once or twice differs from call to call.
QByteArray textOf(const QByteArray &archive)
{
    plist_t list = nullptr;
    plist_from_bin(archive.constData(), static_cast<uint32_t>(archive.size()), &list);
    char *text = nullptr;
    uint32_t length = 0;
    plist_to_xml(list, &text, &length);
    QByteArray copy(text, length);
    plist_to_xml_free(text);
    plist_free(list);
    return copy;
}

/// Asks for everything; returns how many answers were errors.
int errorsInside(const ArchiveValue &value)
{
    int errors = value.kind().isEmpty() ? 1000 : 0;
    if (const Result<ArchiveList> list = value.toList("list")) {
        for (const ArchiveValue &entry : **list)
            errors += errorsInside(entry);
    }
    const Result<ArchiveObjectPointer> object = value.toObject("object");
    for (const QString &key : object ? keys : QStringList()) {
        errors += !(*object)->decodeInt32(key);
        errors += !(*object)->decodeBool(key);
        errors += !(*object)->decodeColour(key);
        errors += !(*object)->decodeText(key);
        errors += !(*object)->decodeTextList(key);
        const Result<Address> address = (*object)->decodeAddress(key);
        errors += address ? address->toLocalFile().contains(QChar(u'\0')) : 1;
    }
    return errors;
}

struct Outcome
{
    int refused = 0;
    int read = 0;

    void add(const QByteArray &bytes)
    {
        const Result<ArchiveValue> root = KeyedArchive::read(bytes, {"LWScreen", "LWStill"});
        if (!root) {
            ++refused;
            EXPECT_FALSE(root.error().text.isEmpty());
            return;
        }
        ++read;
        EXPECT_GE(errorsInside(*root), 0);
        // What was read can be written, unless a fault stands in it, and is then the same again.
        const Result<QByteArray> written = KeyedArchive::write(*root);
        if (written) {
            const Result<ArchiveValue> again = KeyedArchive::read(*written, {"LWScreen", "LWStill"});
            ASSERT_TRUE(again);
            EXPECT_EQ(textOf(KeyedArchive::write(*again).value()), textOf(*written));
        }
    }
};

/// Always the same numbers, so that a failure can be looked at.
class Chance
{
public:
    qsizetype below(qsizetype limit) { return static_cast<qsizetype>(m_engine() % static_cast<quint64>(limit)); }

private:
    std::mt19937_64 m_engine{20140926};
};
} // namespace

TEST(DamagedArchive, GoodOneIsGood)
{
    const Result<ArchiveValue> root = KeyedArchive::read(goodArchive(), {"LWScreen", "LWStill"});
    ASSERT_TRUE(root);
    const ArchiveList project = *root->toList("project");
    const ArchiveObjectPointer still = *(*(*project)[2].toList("layers"))->at(1).toObject("layer 1");
    EXPECT_EQ(still->decodeTextList("hiddenBoxes").value(), std::optional(QStringList{"0,1", "$null", "7,12"}));
    EXPECT_EQ(still->decodeAddress("imageURL")->toLocalFile(), "/show/plate.png");
}

TEST(DamagedArchive, EveryTruncationIsRefused)
{
    const QByteArray good = goodArchive();
    Outcome outcome;
    for (qsizetype size = 0; size < good.size(); ++size)
        outcome.add(good.left(size));

    EXPECT_EQ(outcome.refused, good.size());
}

TEST(DamagedArchive, FlippedBitsEndInAnErrorOrAValue)
{
    const QByteArray good = goodArchive();
    Chance chance;
    Outcome outcome;
    for (int i = 0; i < 3000; ++i) {
        QByteArray bytes = good;
        for (qsizetype flips = 1 + chance.below(3); flips > 0; --flips)
            bytes[chance.below(bytes.size())] ^= static_cast<char>(1 << chance.below(8));
        outcome.add(bytes);
    }

    EXPECT_GT(outcome.refused, 300);
    EXPECT_GT(outcome.read, 300);
}

TEST(DamagedArchive, SwappedBytesEndInAnErrorOrAValue)
{
    const QByteArray good = goodArchive();
    Chance chance;
    Outcome outcome;
    for (int i = 0; i < 1000; ++i) {
        QByteArray bytes = good;
        // A marker of another type, a reference to another object, an offset of another value.
        bytes[8 + chance.below(bytes.size() - 8)] = bytes[8 + chance.below(bytes.size() - 8)];
        outcome.add(bytes);
    }

    EXPECT_GT(outcome.refused, 50);
    EXPECT_GT(outcome.read, 50);
}

TEST(DamagedArchive, WildReferencesEndInAnErrorOrAValue)
{
    const QByteArray good = TestArchive::fixture("other-writer.xml");
    const QByteArray mark = "<key>CF$UID</key><integer>";
    Chance chance;
    Outcome outcome;
    for (int i = 0; i < 500; ++i) {
        // Each reference may meet any object, its own included, or none.
        QByteArray bytes = good;
        for (qsizetype at = bytes.indexOf(mark); at >= 0; at = bytes.indexOf(mark, at + 1)) {
            const qsizetype number = at + mark.size();
            if (chance.below(6) == 0)
                bytes.replace(number, bytes.indexOf('<', number) - number, QByteArray::number(chance.below(19)));
        }
        outcome.add(bytes);
        outcome.add(TestArchive::binary(bytes));
    }

    EXPECT_GT(outcome.refused, 50);
    EXPECT_GT(outcome.read, 50);
}

TEST(DamagedArchive, SwappedTypesEndInAnErrorOrAValue)
{
    const QByteArray good = TestArchive::fixture("other-writer.xml");
    const QByteArrayList values{"<true/>",          "<integer>-1</integer>",
                                "<real>nan</real>", "<string>x</string>",
                                "<data/>",          "<array/>",
                                "<dict/>",          "<date>2019-05-04T20:15:00Z</date>"};
    Outcome outcome;
    for (const QByteArray element : {"<string>", "<integer>", "<real>", "<data>", "<date>"}) {
        for (qsizetype at = good.indexOf(element); at >= 0; at = good.indexOf(element, at + 1)) {
            const qsizetype end = good.indexOf('>', good.indexOf('<', at + 1)) + 1;
            for (const QByteArray &value : values)
                outcome.add(QByteArray(good).replace(at, end - at, value));
        }
    }

    EXPECT_GT(outcome.refused, 20);
    EXPECT_GT(outcome.read, 50);
}
