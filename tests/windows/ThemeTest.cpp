#include "windows/Theme.h"

#include <QApplication>
#include <QFontInfo>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {
double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// As https://www.w3.org/TR/WCAG21/#dfn-contrast-ratio defines it: 1 to 21.
double contrast(const QColor &one, const QColor &other)
{
    const auto [dark, bright] = std::minmax({luminance(one), luminance(other)});
    return (bright + 0.05) / (dark + 0.05);
}
} // namespace

TEST(Theme, EveryTextIsReadableOnEveryGround)
{
    for (const QColor &ground : {Theme::ground, Theme::panel, Theme::raised}) {
        for (const QColor &text : {Theme::text, Theme::dimText, Theme::warning})
            EXPECT_GE(contrast(text, ground), 4.5) << qPrintable(text.name() + " on " + ground.name());
    }
    EXPECT_GE(contrast(Theme::text, Theme::line), 4.5);
    EXPECT_GE(contrast(Theme::text, Theme::chosen), 4.5);
    EXPECT_GE(contrast(Theme::ground, Theme::accent), 4.5);
}

TEST(Theme, TextIsInterInThirteenPixels)
{
    Theme::apply();
    const QFontInfo font(QApplication::font());
    EXPECT_EQ(font.family(), "Inter");
    EXPECT_EQ(font.pixelSize(), 13);
    EXPECT_EQ(QFontInfo(Theme::smallFont()).pixelSize(), 11);
    EXPECT_EQ(QFontInfo(Theme::titleFont()).weight(), int(QFont::DemiBold));
}

TEST(Theme, FontsThatAreLookedForBeforehandLeaveTheLookAsItIs)
{
    Theme::findFonts();
    Theme::findFonts(); // goes on where the first has ended
    Theme::apply();
    EXPECT_EQ(QFontInfo(QApplication::font()).family(), "Inter");
    Theme::apply(); // waits for nobody
    EXPECT_EQ(QFontInfo(QApplication::font()).pixelSize(), 13);
}

TEST(Theme, TheStyleSheetLeavesNoColourUnnamed)
{
    Theme::apply();
    EXPECT_FALSE(qApp->styleSheet().isEmpty());
    EXPECT_FALSE(qApp->styleSheet().contains('@'));
}
