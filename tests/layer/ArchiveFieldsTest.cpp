#include "layer/ArchiveFields.h"

#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
constexpr ArchiveField reals[] = {{"size", "labelFontSize", StoredAs::Integer32}};
constexpr ArchiveField wholes[] = {{"limit", "pixelLimit", StoredAs::Integer32}};

qint32 storedSize(double size)
{
    TestHost host;
    LWScreen screen(host);
    screen.setLabelFontSize(size);
    ArchiveObject coder("LWScreen");
    encodeFields(*screen.record(), reals, coder);
    return coder.decodeInt32("size").value();
}

qint32 storedLimit(qint64 limit)
{
    TestHost host;
    LWScreen screen(host);
    screen.setPixelLimit(limit);
    ArchiveObject coder("LWScreen");
    encodeFields(*screen.record(), wholes, coder);
    return coder.decodeInt32("limit").value();
}
} // namespace

TEST(ArchiveFields, RealsAreTruncatedTowardZero)
{
    EXPECT_EQ(storedSize(12.7), 12);
    EXPECT_EQ(storedSize(-12.7), -12);
}

TEST(ArchiveFields, RealsWithoutAnIntegerAreKeptWithinTheRange)
{
    EXPECT_EQ(storedSize(1e300), std::numeric_limits<qint32>::max());
    EXPECT_EQ(storedSize(-std::numeric_limits<double>::infinity()), std::numeric_limits<qint32>::min());
    EXPECT_EQ(storedSize(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(ArchiveFields, LongIntegersKeepTheirLowBits)
{
    EXPECT_EQ(storedLimit((qint64{1} << 32) + 5), 5);
    EXPECT_EQ(storedLimit(qint64{1} << 31), std::numeric_limits<qint32>::min());
}

TEST(ArchiveFields, TheFirstValueOfAWrongKindIsNamed)
{
    LayerRecord record;
    ArchiveObject coder("LWScreen");
    coder.encodeText("limit", "many");

    const Result<void> decoded = decodeFields(record, wholes, coder);

    ASSERT_FALSE(decoded);
    EXPECT_TRUE(decoded.error().text.startsWith("\"limit\" is a text")) << decoded.error().text.toStdString();
}

TEST(ArchiveFields, AbsentKeysGiveZero)
{
    LayerRecord record;
    record.pixelLimit = 7;

    ASSERT_TRUE(decodeFields(record, wholes, ArchiveObject("LWScreen")));
    EXPECT_EQ(record.pixelLimit, 0);
}
