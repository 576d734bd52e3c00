#include "drawing/TextLine.h"

#include <QPainter>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <vector>

namespace {
/// The text as the painter fills its outlines, black on white.
QImage paintedOutline(const TextLine &line)
{
    QImage image(line.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QPainterPath &outline : line.outlines())
        painter.fillPath(outline, Qt::black);
    return image;
}
} // namespace

TEST(TextLine, TheBoxIsAdvancesByAscentAndDescent)
{
    const TextLine line("A1 ", 50);

    EXPECT_EQ(line.size().height(), 49 + 13); // Inter: 0.96875 and 0.2415 of the size, rounded up
    EXPECT_EQ(line.size().width(),
              TextLine("A", 50).size().width() + TextLine("1", 50).size().width() + TextLine(" ", 50).size().width());
    EXPECT_GT(TextLine(" ", 50).size().width(), 5);
}

TEST(TextLine, WidthsAddUpWhateverStandsBeside)
{
    const auto width = [](const char *text) { return TextLine(QString(text), 40).size().width(); };

    EXPECT_EQ(width("AVAVA"), 3 * width("A") + 2 * width("V"));
    EXPECT_EQ(width("ZZ27 "), 2 * width("Z") + width("27 "));
}

TEST(TextLine, SizesOfNothingReadableAreEmpty)
{
    for (const double size :
         {0.0, 0.9, -1.0, 16385.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        const TextLine line("A", size);
        EXPECT_EQ(line.size(), QSize(0, 0)) << size;
        EXPECT_TRUE(line.masks().empty());
        EXPECT_TRUE(line.outlines().empty());
    }
    EXPECT_EQ(TextLine("", 50).size(), QSize(0, 0));
}

TEST(TextLine, FractionalSizesCount)
{
    const QRectF smaller = TextLine("H", 12).outlines().front().boundingRect();
    const QRectF larger = TextLine("H", 12.7).outlines().front().boundingRect();

    EXPECT_NEAR(larger.height() / smaller.height(), 12.7 / 12, 0.01);
}

TEST(TextLine, CapitalsAreAsTallAsTheFontSays)
{
    EXPECT_NEAR(TextLine("H", 100).outlines().front().boundingRect().height(), 72.7, 0.5); // Inter's cap height, 0.727
}

TEST(TextLine, MasksAreThePaintersFillOfTheOutlines)
{
    const TextLine line("Hg&8", 37.5);
    QImage fromMasks(line.size(), QImage::Format_ARGB32_Premultiplied);
    fromMasks.fill(Qt::white);
    const QImage painted = paintedOutline(line);

    for (const auto &[mask, topLeft] : line.masks()) {
        for (int y = 0; y < mask->height(); ++y) {
            for (int x = 0; x < mask->width(); ++x) {
                const int coverage = mask->constScanLine(y)[x];
                const QPoint at = topLeft + QPoint(x, y);
                if (coverage == 0 || !painted.rect().contains(at))
                    continue;
                EXPECT_EQ(qRed(painted.pixel(at)), 255 - coverage) << x << "," << y;
            }
        }
    }
}

TEST(TextLine, LargeSizesHaveOutlinesButNoMasks)
{
    const TextLine line("A", 2000);

    EXPECT_FALSE(line.hasMasks());
    EXPECT_TRUE(line.masks().empty());
    EXPECT_GT(line.outlines().front().boundingRect().height(), 1400);
}

TEST(TextLine, OutlinesAreTheSameWhateverAWindowHasDrawn)
{
    const QString text("WH0123456789");
    const auto elements = [](QChar letter, double size) {
        std::vector<double> all; // as parts of the size
        const QPainterPath outline = TextLine(letter, size).outlines().at(0);
        const double baseLine = std::ceil(0.96875 * size); // Inter's ascent
        for (int i = 0; i < outline.elementCount(); ++i) {
            all.push_back(outline.elementAt(i).x / size);
            all.push_back((outline.elementAt(i).y - baseLine) / size);
        }
        return all;
    };
    std::map<QChar, std::vector<double>> before;
    for (const QChar letter : text)
        before[letter] = elements(letter, 300);
    QImage window(300, 60, QImage::Format_RGB32);
    for (int size = 9; size < 33; ++size) { // another one each time, or the letters are there
        const QChar letter = text[size % text.size()];
        QFont font("Inter");
        font.setPixelSize(size);
        font.setHintingPreference(QFont::PreferVerticalHinting);
        QPainter painter(&window);
        painter.setFont(font);
        painter.drawText(5, 50, text);
        const std::vector<double> after = elements(letter, 300 + size);
        ASSERT_EQ(after.size(), before[letter].size());
        for (std::size_t i = 0; i < after.size(); ++i)
            ASSERT_NEAR(after[i], before[letter][i], 1e-9) << size << " " << letter.toLatin1();
    }
}

TEST(TextLine, LineBreaksAndTabsAreBlanks)
{
    EXPECT_EQ(TextLine("A\nB\tC", 30).size(), TextLine("A B C", 30).size());
}

TEST(TextLine, VeryLongTextsAreCut)
{
    const TextLine longest(QString(TextLine::longestText, u'A'), 10);
    const TextLine longer(QString(TextLine::longestText * 4, u'A'), 10);

    EXPECT_EQ(longer.size(), longest.size());
}

TEST(TextLine, WhatTheFontLacksIsStillMeasured)
{
    EXPECT_GT(TextLine(u"\u4E3B\u5C4F"_qs, 40).size().width(), 20);
}
