#include "still/DrawingCheck.h"
#include "still/DrawingOutline.h"

#include <array>
#include <gtest/gtest.h>

namespace {
QByteArray square(int side, const QByteArray &content)
{
    const QByteArray text = QByteArray::number(side);
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='" + text +
           "' height='" + text + "'>" + content + "</svg>";
}

/// The points of so many lines from the top of a square to its bottom and back.
QByteArray across(int lines, int side)
{
    QByteArray points;
    for (int i = 0; i < lines; ++i)
        points += ' ' + QByteArray::number(i * side / lines) + ',' + QByteArray::number(i % 2 * side);
    return points;
}

bool isDrawn(int side, const QByteArray &content)
{
    return DrawingCheck::nanoseconds(square(side, content)).has_value();
}

bool isPathDrawn(int side, int lines, const QByteArray &attributes = {})
{
    return isDrawn(side, "<path d='M" + across(lines, side) + "' " + attributes + "/>");
}
} // namespace

TEST(DrawingWork, LinesAcrossThePictureAreBoundedByItsSize)
{
    EXPECT_TRUE(isPathDrawn(3000, 50));
    EXPECT_FALSE(isPathDrawn(3000, 100)); // 6.1 s
    EXPECT_TRUE(isPathDrawn(1000, 100));
    EXPECT_TRUE(isPathDrawn(1000, 500));
    EXPECT_FALSE(isPathDrawn(1000, 1000)); // 9.1 s
    EXPECT_TRUE(isPathDrawn(100, 10'000));
}

TEST(DrawingWork, PolygonsCountAsPathsDo)
{
    EXPECT_TRUE(isDrawn(3000, "<polygon points='" + across(50, 3000) + "'/>"));
    EXPECT_FALSE(isDrawn(3000, "<polygon points='" + across(100, 3000) + "'/>"));
    EXPECT_FALSE(isDrawn(3000, "<polyline points='" + across(100, 3000) + "'/>"));
}

TEST(DrawingWork, ManyShapesOfALogoAreDrawn)
{
    QByteArray shapes;
    for (int i = 0; i < 1000; ++i) // 20,000 points of curves
        shapes += "<path d='M" + QByteArray::number(i) + " 500" +
                  QByteArray("c3 8 9 2 7-6s-8-3-9 4-4-1-5 2").repeated(5) + "z'/>";
    EXPECT_TRUE(isDrawn(1000, shapes));
    EXPECT_TRUE(isDrawn(4000, shapes));
    EXPECT_TRUE(isDrawn(3000, "<path d='M9 9" + QByteArray("l3 2l-2 1").repeated(5000) + "'/>"));
}

TEST(DrawingWork, TransformationsMakeLinesLonger)
{
    const QByteArray path = "<path d='M" + across(100, 30) + "'/>";
    const auto transformed = [&](const QByteArray &text) { return "<g " + text + ">" + path + "</g>"; };
    EXPECT_TRUE(isDrawn(3000, path));
    EXPECT_TRUE(isDrawn(3000, transformed("transform='translate(900 9)rotate(45)'")));
    EXPECT_FALSE(isDrawn(3000, transformed("transform='scale(100)'")));
    EXPECT_FALSE(isDrawn(3000, transformed("transform='matrix(1 0 0 100 0 0)'")));
    EXPECT_FALSE(isDrawn(3000, transformed("transform='translate(3) scale(10, 10) scale(10)'")));
    EXPECT_FALSE(isDrawn(3000, transformed("style='fill:red; transform: scale(100)'")));
    EXPECT_TRUE(isDrawn(3000, "<g transform='scale(.01)'>" + transformed("transform='scale(100)'") + "</g>"));
}

TEST(DrawingWork, ThePartCountsAsLargeAsItIsRepeated)
{
    const QByteArray part = "<defs><path id='p' d='M" + across(100, 30) + "'/></defs>";
    EXPECT_TRUE(isDrawn(3000, part + "<use xlink:href='#p'/>"));
    EXPECT_FALSE(isDrawn(3000, part + "<use xlink:href='#p' transform='scale(100)'/>"));
}

TEST(DrawingWork, AViewIsAsLargeAsThePicture)
{
    const auto viewed = [](const QByteArray &size) {
        return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 30 30' " + size + "><path d='M" + across(100, 30) +
               "'/></svg>";
    };
    EXPECT_TRUE(DrawingCheck::nanoseconds(viewed({})));
    EXPECT_TRUE(DrawingCheck::nanoseconds(viewed("width='300' height='300'")));
    EXPECT_FALSE(DrawingCheck::nanoseconds(viewed("width='3000' height='3000'")));
    EXPECT_FALSE(DrawingCheck::nanoseconds(viewed("width='50in' height='50in'")));
}

TEST(DrawingWork, DashesAreCounted)
{
    const auto scribble = [](const QByteArray &dashes) {
        return "<polyline fill='none' stroke='red' stroke-dasharray='" + dashes + "' points='" + across(5000, 1000) +
               "'/>";
    };
    EXPECT_TRUE(isDrawn(1000, scribble("none")));
    EXPECT_TRUE(isDrawn(1000, scribble("300 200")));
    EXPECT_FALSE(isDrawn(1000, scribble(".3 .2")));
    const QByteArray sheet = "<style>.a { stroke: red; stroke-dasharray: .3 .2 }</style>";
    EXPECT_FALSE(isDrawn(1000, sheet + scribble({}).replace("stroke-dasharray=''", "class='a'")));
}

TEST(DrawingWork, BroadStrokesAreFilledToo)
{
    EXPECT_TRUE(isPathDrawn(1000, 1000, "fill='none' stroke='red'"));
    EXPECT_FALSE(isPathDrawn(1000, 1000, "fill='none' stroke='red' stroke-width='5'"));
    EXPECT_FALSE(isPathDrawn(1000, 1000, "style='fill:none;stroke:red;stroke-width:5'"));
    EXPECT_TRUE(isPathDrawn(1000, 200, "fill='none' stroke='red' stroke-width='5'"));
}

TEST(DrawingWork, StopsOfGradientsAreBounded)
{
    const auto gradient = [](int stops) {
        return "<linearGradient id='g'>" + QByteArray("<stop offset='.5'/>").repeated(stops) +
               "</linearGradient><rect width='9' height='9' fill='url(#g)'/>";
    };
    EXPECT_TRUE(isDrawn(20, gradient(16'000)));
    EXPECT_FALSE(isDrawn(20, gradient(17'000)));
    EXPECT_FALSE(isDrawn(20, gradient(16'000) + QByteArray("<g/>").repeated(130'000)));
}

TEST(DrawingWork, LettersAreCounted)
{
    const auto text = [](int letters) { return "<text y='9'>" + QByteArray(letters, 'a') + "</text>"; };
    EXPECT_TRUE(isDrawn(1000, text(100'000)));
    EXPECT_FALSE(isDrawn(1000, text(10'000'000)));
    EXPECT_FALSE(isDrawn(3000, "<g font-size='3000'>" + text(1000) + "</g>"));
}

TEST(DrawingWork, EmbeddedDrawingsShareWhatThereIs)
{
    const QByteArray inner = square(1000, QByteArray("<rect width='1000' height='1000'/>").repeated(1500));
    const QByteArray image =
        "<image width='9' height='9' xlink:href='data:image/svg+xml;base64," + inner.toBase64() + "'/>";
    EXPECT_TRUE(isDrawn(1000, image));
    EXPECT_FALSE(isDrawn(1000, image.repeated(2)));
}

TEST(DrawingOutline, FollowsTheCommandsOfAPath)
{
    const auto measured = [](QStringView data) {
        const DrawingOutline outline = DrawingOutline::ofPath(data);
        return std::array<double, 3>{outline.numbers, outline.length, outline.extent};
    };
    using Figures = std::array<double, 3>;
    EXPECT_EQ(measured(u""), (Figures{0, 0, 0}));
    EXPECT_EQ(measured(u"M1,2 11,2 11,7z"), (Figures{6, 30, 10}));
    EXPECT_EQ(measured(u"m1 2 10 0v5z"), (Figures{5, 30, 10}));
    EXPECT_EQ(measured(u"M1 2H11V7"), (Figures{4, 30, 10}));
    EXPECT_EQ(measured(u"M0 0C0 10 20 10 20 0"), (Figures{8, 60, 20}));
    EXPECT_EQ(measured(u"M.5.5l1e1-.5-1e1.5"), (Figures{6, 21, 10}));
    EXPECT_EQ(measured(u"M0 0a5 5 0 0110 0"), (Figures{9, 180, 80}));
    EXPECT_EQ(measured(u"M0 0L1e999 0"), (Figures{4, 2e9, 1e9}));
    EXPECT_EQ(measured(u"M0 0 % L 3 - x 4"), (Figures{5, 6, 3}));
}
