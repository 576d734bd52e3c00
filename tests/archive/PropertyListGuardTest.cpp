#include "archive/PropertyListGuard.h"

#include "TestArchive.h"
#include "archive/KeyedArchive.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

using namespace TestArchive;

namespace {
QString binaryError(const QByteArray &bytes)
{
    const Result<void> checked = PropertyListGuard::checkBinary(bytes);
    return checked ? "no error" : checked.error().text;
}

QString xmlError(const QByteArray &bytes)
{
    const Result<QByteArray> plain = PropertyListGuard::rewriteXml(bytes);
    return plain ? "no error" : plain.error().text;
}

const QString tooDeep = "The binary property list is damaged: it is nested more than 64 deep.";
const QString tooLarge = "The property list is too large: more than 8 million values or 512 MiB.";

/// `depth` arrays inside each other.
QByteArray nestedArrays(quint32 depth)
{
    QByteArrayList objects;
    for (quint32 i = 1; i < depth; ++i)
        objects.append(rawContainer(0xA, {i}));
    objects.append(rawContainer(0xA, {}));
    return rawList(objects);
}

QByteArray nestedXml(int depth)
{
    return "<plist>" + QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth) + "</plist>";
}
} // namespace

TEST(PropertyListGuard, LetsAGoodListPass)
{
    EXPECT_EQ(binaryError(rawList({rawContainer(0xA, {1, 2}), "\x10\x05", "\x51x"})), "no error");
    EXPECT_EQ(binaryError(rawList({rawContainer(0xD, {1, 2}), "\x51k", "\x62" + QByteArray(4, 'x')})), "no error");
}

TEST(PropertyListGuard, BinaryListsNestSixtyFourDeep)
{
    EXPECT_EQ(binaryError(nestedArrays(64)), "no error");
    EXPECT_EQ(binaryError(nestedArrays(65)), tooDeep);
}

TEST(PropertyListGuard, DepthCountsThroughObjectsThatWereMetBefore)
{
    // The top array meets the innermost of 100 arrays first, so that no walk ever goes deep.
    QByteArrayList objects;
    std::vector<quint32> all;
    for (quint32 i = 100; i >= 1; --i)
        all.push_back(i);
    objects.append(rawContainer(0xA, all));
    for (quint32 i = 1; i < 100; ++i)
        objects.append(rawContainer(0xA, {i + 1}));
    objects.append(rawContainer(0xA, {}));

    EXPECT_EQ(binaryError(rawList(objects)), tooDeep);
}

TEST(PropertyListGuard, RefusesTwoHundredThousandNestedArrays)
{
    EXPECT_EQ(binaryError(nestedArrays(200000)), tooDeep);
    EXPECT_EQ(xmlError(nestedXml(200000)), "line 1: The property list is nested more than 64 deep.");
    EXPECT_EQ(xmlError(nestedXml(64)), "no error");
    EXPECT_EQ(xmlError(nestedXml(65)), "line 1: The property list is nested more than 64 deep.");
    EXPECT_FALSE(KeyedArchive::read(nestedArrays(200000), {}));
    EXPECT_FALSE(KeyedArchive::read(nestedXml(200000), {}));
}

TEST(PropertyListGuard, RefusesFortyDictionariesThatDouble)
{
    QByteArrayList objects;
    for (quint32 i = 0; i < 40; ++i)
        objects.append(rawContainer(0xD, {41, 42, i + 1, i + 1}));
    objects.append({rawContainer(0xA, {}),
                    "\x51"
                    "a",
                    "\x51"
                    "b"});

    EXPECT_EQ(binaryError(rawList(objects)), tooLarge);
}

TEST(PropertyListGuard, RefusesALongTextReferredToOften)
{
    const QByteArray text = "\x5F\x12" + bigEndian(1 << 20, 4) + QByteArray(1 << 20, 'x');
    const auto list = [&](std::size_t times) {
        return rawList({rawContainer(0xA, std::vector<quint32>(times, 1)), text});
    };

    EXPECT_EQ(binaryError(list(100000)), tooLarge);
    EXPECT_EQ(binaryError(list(513)), tooLarge);
    EXPECT_EQ(binaryError(list(500)), "no error");
}

TEST(PropertyListGuard, RefusesValuesThatDoubleWithoutAByteOfText)
{
    QByteArrayList objects;
    for (quint32 i = 1; i <= 40; ++i)
        objects.append(rawContainer(0xA, {i, i}));
    objects.append("\x09");

    EXPECT_EQ(binaryError(rawList(objects)), tooLarge);
    EXPECT_EQ(binaryError(rawList(objects.mid(0, 21) << "\x09")), "no error"); // four million values
}

TEST(PropertyListGuard, RefusesManyObjectsThatShareTheirBytes)
{
    // A million offsets to one array of a thousand references: a small file, far too much to walk.
    constexpr quint32 count = 1'000'000;
    std::vector<quint32> others(count);
    for (quint32 i = 0; i < count; ++i)
        others[i] = i + 2;
    QByteArray bytes = "bplist00\x09" + rawContainer(0xA, std::vector<quint32>(1000, 1));
    const quint64 topAt = static_cast<quint64>(bytes.size());
    bytes += rawContainer(0xA, others);
    const quint64 tableAt = static_cast<quint64>(bytes.size());
    bytes += bigEndian(topAt, 4) + bigEndian(8, 4) + bigEndian(9, 4).repeated(count) + QByteArray(6, '\0') +
             bigEndian(4, 1) + bigEndian(4, 1) + bigEndian(count + 2, 8) + bigEndian(0, 8) + bigEndian(tableAt, 8);

    EXPECT_EQ(binaryError(bytes), tooLarge);
}

TEST(PropertyListGuard, RefusesCycles)
{
    EXPECT_EQ(binaryError(rawList({rawContainer(0xA, {0})})),
              "The binary property list is damaged: object 0 contains itself.");
    EXPECT_EQ(binaryError(rawList({rawContainer(0xA, {1}), rawContainer(0xD, {2, 0}), "\x51k"})),
              "The binary property list is damaged: object 0 contains itself.");
}

TEST(PropertyListGuard, RefusesEveryTruncation)
{
    const QByteArray good = rawList({rawContainer(0xD, {1, 2}), "\x51k", rawContainer(0xA, {3, 3}), "\x53xyz"});
    ASSERT_EQ(binaryError(good), "no error");
    for (qsizetype size = 0; size < good.size(); ++size)
        EXPECT_NE(binaryError(good.left(size)), "no error") << size;
}

TEST(PropertyListGuard, RefusesATrailerThatDoesNotFit)
{
    const QByteArray good = rawList({"\x51k"});
    const auto with = [&](qsizetype position, const QByteArray &bytes) {
        return QByteArray(good).replace(good.size() - 32 + position, bytes.size(), bytes);
    };
    const QByteArray huge(8, '\xFF');

    EXPECT_EQ(binaryError(with(0, "")), "no error");
    EXPECT_EQ(binaryError(with(6, bigEndian(0, 1))),
              "The binary property list is damaged: its trailer gives impossible sizes.");
    EXPECT_EQ(binaryError(with(6, bigEndian(9, 1))),
              "The binary property list is damaged: its trailer gives impossible sizes.");
    EXPECT_EQ(binaryError(with(7, bigEndian(0, 1))),
              "The binary property list is damaged: its trailer gives impossible sizes.");
    EXPECT_EQ(binaryError(with(8, huge)),
              "The binary property list is damaged: its offset table does not fit the file.");
    EXPECT_EQ(binaryError(with(8, bigEndian(0, 8))), "The binary property list is damaged: its top object is missing.");
    EXPECT_EQ(binaryError(with(16, huge)), "The binary property list is damaged: its top object is missing.");
    EXPECT_EQ(binaryError(with(24, huge)),
              "The binary property list is damaged: its offset table does not fit the file.");
    EXPECT_EQ(binaryError(with(24, bigEndian(0, 8))),
              "The binary property list is damaged: its offset table does not fit the file.");
}

TEST(PropertyListGuard, RefusesOffsetsAndLengthsBeyondTheFile)
{
    QByteArray wild = rawList({"\x51k"});
    wild.replace(10, 8, QByteArray(8, '\xFF'));
    EXPECT_EQ(binaryError(wild), "The binary property list is damaged: object 0 stands outside the file.");
    EXPECT_EQ(binaryError(rawList({rawContainer(0xA, {7})})),
              "The binary property list is damaged: it refers beyond its offset table.");

    const QString longer = "The binary property list is damaged: a value is longer than the file.";
    // Texts, containers and numbers whose markers ask for more than follows.
    for (const char *object :
         {"5f13ffffffffffffffff", "6f137fffffffffffffff", "af13ffffffffffffffff", "df132000000000000000", "5561626364",
          "626162", "a200000000", "d100000000", "13", "1f", "23", "33", "83"})
        EXPECT_EQ(binaryError(rawList({QByteArray::fromHex(object)})), longer) << object;
    EXPECT_EQ(binaryError(rawList({"\x5F"})), "The binary property list is damaged: a length is cut off.");
    EXPECT_EQ(binaryError(rawList({"\x5F\x51k"})), "The binary property list is damaged: a length is no integer.");
    EXPECT_EQ(binaryError(rawList({"\x71k"})),
              "The binary property list is damaged: it holds a value of the unknown type 7.");
}

TEST(PropertyListGuard, RefusesKeysThatAreNoTextOrHoldANul)
{
    const auto withKey = [](const QByteArray &key) {
        return binaryError(rawList({rawContainer(0xD, {1, 2}), key, QByteArray("\x10\x07", 2)}));
    };
    const QString noKey = "The binary property list is damaged: object 1 is no text for a key.";

    EXPECT_EQ(withKey("\x52no"), "no error");
    EXPECT_EQ(withKey(QByteArray("\x53n\0o", 4)), noKey);
    EXPECT_EQ(withKey(QByteArray("\x62\0n\0\0", 5)), noKey);
    EXPECT_EQ(withKey(QByteArray("\x10\x05", 2)), noKey);
}

TEST(PropertyListGuard, RefusesTextsThatHoldANul)
{
    const auto withText = [](const QByteArray &text) { return binaryError(rawList({rawContainer(0xA, {1}), text})); };
    const QString cut = "The binary property list is damaged: object 1 is a text with a NUL in it.";

    EXPECT_EQ(withText("\x52no"), "no error");
    EXPECT_EQ(withText(QByteArray("\x53n\0o", 4)), cut);
    EXPECT_EQ(withText(QByteArray("\x62\0n\0\0", 5)), cut);
    EXPECT_EQ(withText(QByteArray("\x62\1\0\0\1", 5)), "no error"); // half of a letter may be 0
}

TEST(PropertyListGuard, XmlIsRewrittenToElementsAndTheirText)
{
    const QByteArray odd = "<?xml version='1.0'?>\n<!DOCTYPE plist SYSTEM \"x.dtd\">\n<?tool note?>"
                           "<plist version=\"1.0\"><!-- note --><dict> <key>a<!-- b -->c</key>"
                           "<string><![CDATA[<array>]]> &amp; &#x42;</string></dict></plist>";

    EXPECT_EQ(PropertyListGuard::rewriteXml(odd),
              QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist><dict><key>ac</key>"
                         "<string>&lt;array&gt; &amp; B</string></dict></plist>\n"));
}

TEST(PropertyListGuard, XmlMayBeWrittenInAnyUnicodeForm)
{
    const QString text = "<plist><string>Wall</string></plist>";
    QStringEncoder utf16(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);

    EXPECT_EQ(xmlError(utf16(text)), "no error");
    EXPECT_EQ(xmlError("\xEF\xBB\xBF" + text.toUtf8()), "no error");
    EXPECT_EQ(xmlError(QByteArray("<plist><string>\xFC</string></plist>")),
              "The XML property list is not written in Unicode.");
}

TEST(PropertyListGuard, RefusesEntitiesOfItsOwn)
{
    const QByteArray laughs = "<!DOCTYPE plist [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>"
                              "<plist><string>&b;</string></plist>";

    EXPECT_EQ(xmlError(laughs), "line 1: The document type declaration has contents, which no property list needs.");
    EXPECT_NE(xmlError("<plist><string>&b;</string></plist>"), "no error");
}

TEST(PropertyListGuard, RefusesWhatIsNoPropertyList)
{
    EXPECT_EQ(xmlError("<html><p>x</p></html>"), "line 1: <html> is no part of a property list.");
    EXPECT_EQ(xmlError("<plist><array>text</array></plist>"),
              "line 1: There is text between the values of the property list.");
    EXPECT_EQ(xmlError("<plist><integer>many</integer></plist>"), "line 1: <integer> holds no number.");
    EXPECT_EQ(xmlError("<plist><real>1,5</real></plist>"), "line 1: <real> holds no number.");
    EXPECT_NE(xmlError("<plist><string><array/></string></plist>"), "no error");
    EXPECT_NE(xmlError("<plist><array>"), "no error");
    EXPECT_NE(xmlError("<plist/><plist/>"), "no error");
}

TEST(PropertyListGuard, RefusesTagsOfManyAttributes)
{
    QByteArray attributes;
    for (int i = 0; i < 1'000'000; ++i)
        attributes += " a" + QByteArray::number(i) + "='>'";

    EXPECT_EQ(xmlError("<plist" + attributes + "/>"), "The XML property list has a tag that is no property list's.");
    EXPECT_EQ(xmlError("<plist a='\"' b=\">" + QByteArray(300, ' ') + "\"/>"),
              "The XML property list has a tag that is no property list's.");
}
