#include "still/DrawingCheck.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace {
QByteArray drawing(const QByteArray &content, const QByteArray &size = "width='20' height='20'")
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' " + size + ">" +
           content + "</svg>";
}

QByteArray group(int number, const QByteArray &content)
{
    return "<g id='g" + QByteArray::number(number) + "'>" + content + "</g>";
}

QByteArray use(int number)
{
    return "<use xlink:href='#g" + QByteArray::number(number) + "'/>";
}

/// Groups of which each one draws the one before it so many times.
QByteArray groups(int count, int times)
{
    QByteArray content = group(0, "<rect width='9' height='9'/>");
    for (int i = 1; i < count; ++i)
        content += group(i, use(i - 1).repeated(times));
    return content;
}

QByteArray embedded(const QSize &size)
{
    QImage image(size, QImage::Format_Mono);
    image.fill(0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "png"));
    return "<image width='9' height='9' xlink:href='data:image/png;base64," + bytes.toBase64() + "'/>";
}
} // namespace

TEST(DrawingCheck, WhatIsNoDrawingIsHarmless)
{
    EXPECT_TRUE(DrawingCheck::nanoseconds({}));
    EXPECT_TRUE(DrawingCheck::nanoseconds("this is no picture"));
    EXPECT_TRUE(DrawingCheck::nanoseconds("P2 1 1 1 1"));
}

TEST(DrawingCheck, DrawingsMayRepeatTheirParts)
{
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(groups(10, 2))));
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(use(0) + group(0, "<rect width='9' height='9'/>"))));
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(use(7)))); // there is no such part
}

TEST(DrawingCheck, PartsThatMultiplyAreCountedAsOftenAsTheyAreDrawn)
{
    // Group n draws 5 x 2^n - 3 elements, and each group is drawn once: 655,305 in all for 17 groups.
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(groups(17, 2))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(groups(18, 2))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(groups(60, 2))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(groups(60, 1000))));
}

TEST(DrawingCheck, PixelsThatElementsCoverAreBounded)
{
    const QByteArray content = groups(14, 2); // 81,874 elements of at most 9 px
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(content, "width='16384' height='16384'")));
    const QByteArray plate = "<rect width='4096' height='4096'/>";
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(plate.repeated(100), "width='4096' height='4096'")));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(plate.repeated(200), "width='4096' height='4096'")));
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(plate.repeated(200), "width='1000' height='1000'")));
}

TEST(DrawingCheck, ChainsOfPartsMayNotBeDeep)
{
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(groups(400, 1))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(groups(600, 1))));
    QByteArray fromTheEnd;
    for (int i = 600; i > 0; --i)
        fromTheEnd += group(i, use(i - 1));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(fromTheEnd)));
    QByteArray usesOfUses = "<rect id='g0' width='9' height='9'/>";
    for (int i = 1; i < 1100; ++i)
        usesOfUses += "<use id='g" + QByteArray::number(i) + "' xlink:href='#g" + QByteArray::number(i - 1) + "'/>";
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(usesOfUses)));
}

TEST(DrawingCheck, DeepElementsCountWhereTheyAreRepeated)
{
    const auto nested = [](int levels, const QByteArray &content) {
        return QByteArray("<g>").repeated(levels) + content + QByteArray("</g>").repeated(levels);
    };
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(nested(999, {}))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(nested(1000, {}))));
    const auto chain = [&](int levels) {
        return drawing(group(0, nested(levels, {})) + group(1, nested(levels, use(0))));
    };
    EXPECT_TRUE(DrawingCheck::nanoseconds(chain(400)));
    EXPECT_FALSE(DrawingCheck::nanoseconds(chain(600)));
}

TEST(DrawingCheck, PartsThatDrawThemselvesAreRefused)
{
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(group(0, use(0)))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(group(0, use(1)) + group(1, use(0)))));
}

TEST(DrawingCheck, PartsOfOneNameAllCount)
{
    const QByteArray twins = QByteArray("<g id='g0'><rect width='9' height='9'/></g>").repeated(1000);
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(twins + use(0).repeated(400))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(twins + use(0).repeated(600))));
}

TEST(DrawingCheck, EmbeddedPicturesTogetherAreNoLargerThanARaster)
{
    const QByteArray plate = embedded({8192, 8192});
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(plate.repeated(4))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(plate.repeated(5))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(embedded({32769, 1}))));
}

TEST(DrawingCheck, AnEmbeddedDrawingIsLookedThroughToo)
{
    const auto embeddedDrawing = [](const QByteArray &content) {
        return drawing("<image width='9' height='9' xlink:href='data:image/svg+xml;base64," +
                       drawing(content).toBase64() + "'/>");
    };
    EXPECT_TRUE(DrawingCheck::nanoseconds(embeddedDrawing(groups(10, 2))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(embeddedDrawing(groups(30, 2))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(embeddedDrawing("<image xlink:href='/dev/zero'/>")));
}

TEST(DrawingCheck, WhatIsCountedIsTold)
{
    EXPECT_EQ(DrawingCheck::nanoseconds("P2 1 1 1 1"), 0);
    EXPECT_EQ(DrawingCheck::nanoseconds(drawing({})), 3000);
    EXPECT_EQ(DrawingCheck::nanoseconds(drawing("<g/><g/>")), 9000);
    EXPECT_EQ(DrawingCheck::nanoseconds(drawing(group(0, use(0)))), std::nullopt);
}

TEST(DrawingCheck, AHugeDrawingIsRefused)
{
    const qsizetype most = (qsizetype{1} << 27) - drawing({}).size();
    EXPECT_TRUE(DrawingCheck::nanoseconds(drawing(QByteArray(most, ' '))));
    EXPECT_FALSE(DrawingCheck::nanoseconds(drawing(QByteArray(most + 1, ' '))));
}
