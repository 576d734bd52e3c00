#include "windows/Icons.h"

#include "tests/windows/WindowFixture.h"
#include "windows/Theme.h"

#include <QAbstractButton>
#include <QDir>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>

#include <cmath>

namespace {
/// How many pixels the sign covers, parts of them added up; -1 where one that is half covered has another colour.
double coverage(const QPixmap &sign, const QColor &colour)
{
    const QImage image = sign.toImage().convertToFormat(QImage::Format_ARGB32);
    const auto differs = [&](const QColor &seen) {
        return std::abs(seen.red() - colour.red()) > 3 || std::abs(seen.green() - colour.green()) > 3 ||
               std::abs(seen.blue() - colour.blue()) > 3;
    };
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor seen = image.pixelColor(x, y);
            if (seen.alpha() >= 128 && differs(seen))
                return -1;
            sum += seen.alphaF();
        }
    }
    return sum;
}
} // namespace

TEST(Icons, EverySignHasPixelsInItsColourAtEverySizeAndScale)
{
    QSet<QString> names; // as they are drawn when they are shown, or in pictures of several sizes
    for (const QString &file : QDir(":/icons").entryList())
        names.insert(QString(file).remove(QRegularExpression("(-\\d+)?\\.[a-z]+$")));
    EXPECT_GE(names.size(), 20);
    for (const QString &name : names) {
        for (const int size : {16, 20}) {
            for (const qreal ratio : {1.0, 1.5, 2.0}) {
                const QPixmap sign = Icons::pixmap(name, size, Theme::warning, ratio);
                EXPECT_EQ(sign.size(), QSize(1, 1) * int(size * ratio)) << qPrintable(name);
                EXPECT_EQ(sign.deviceIndependentSize(), QSizeF(size, size)) << qPrintable(name);
                EXPECT_GT(coverage(sign, Theme::warning), 8) << qPrintable(name) << " at " << size << " x " << ratio;
            }
        }
    }
}

TEST(Icons, ASignIsDimWhereItCannotBeUsed)
{
    const QIcon icon = Icons::icon("trash");
    EXPECT_GT(coverage(icon.pixmap(QSize(16, 16), 1), Theme::text), 8);
    EXPECT_GT(coverage(icon.pixmap(QSize(16, 16), 1, QIcon::Disabled), Theme::dimText), 8);
}

TEST(Icons, ThereIsNoneWhereThereIsNoRoom)
{
    QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { ADD_FAILURE() << text.toStdString(); });
    EXPECT_TRUE(Icons::icon("trash").pixmap(QSize(0, 16), 1).isNull());
    QImage paper(20, 20, QImage::Format_ARGB32_Premultiplied);
    paper.fill(Qt::transparent);
    QPainter painter(&paper);
    Icons::icon("trash").paint(&painter, QRect(5, 5, 10, -2));
    painter.end();
    qInstallMessageHandler(before);
    EXPECT_EQ(coverage(QPixmap::fromImage(paper), Theme::text), 0);
}

TEST(Icons, ASignIsDarkWhereAMenuHasItOnTheAccent)
{
    EXPECT_GT(coverage(Icons::icon("trash").pixmap(QSize(16, 16), 1, QIcon::Active), Theme::ground), 8);
}

TEST(Icons, StyleSheetsHaveTheirPicturesInTheColoursOfTheTheme)
{
    EXPECT_GT(coverage(QPixmap(":/tinted/check-lg-ground.svg"), Theme::ground), 8);
    EXPECT_GT(coverage(QPixmap(":/tinted/dash-lg-text.svg"), Theme::text), 8);
    EXPECT_GT(coverage(QPixmap(":/tinted/chevron-down-text.svg"), Theme::text), 8);
}

TEST(Icons, AButtonsSignIsDrawnAtTheScaleOfItsScreen)
{
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        const QImage seen = Icons::icon("folder2-open").pixmap(QSize(20, 20), ratio).toImage();
        EXPECT_EQ(seen, Icons::pixmap("folder2-open", 20, Theme::text, ratio).toImage()) << ratio;
    }
}

TEST(Icons, ASignIsPaintedInTheMiddleOfItsPlace)
{
    QImage paper(40, 30, QImage::Format_ARGB32_Premultiplied);
    paper.fill(Qt::transparent);
    QPainter painter(&paper);
    Icons::icon("trash").paint(&painter, QRect(4, 5, 32, 16));
    painter.end();
    const QImage sign = Icons::pixmap("trash", 16, Theme::text, 1).toImage().convertToFormat(paper.format());
    EXPECT_EQ(paper.copy(12, 5, 16, 16), sign);
    EXPECT_EQ(coverage(QPixmap::fromImage(paper), Theme::text), coverage(QPixmap::fromImage(sign), Theme::text));
}

TEST(Icons, ACopyOfASignIsTheSame)
{
    QIcon copy;
    {
        const QIcon icon = Icons::icon("trash");
        copy = icon;
        copy.detach();
        ASSERT_NE(copy.cacheKey(), icon.cacheKey());
    }
    EXPECT_EQ(copy.pixmap(QSize(20, 20), 1).toImage(), Icons::pixmap("trash", 20, Theme::text, 1).toImage());
}

TEST(Icons, AnUnknownNameHasNoPicture)
{
    EXPECT_TRUE(Icons::pixmap("no-such-sign", 16, Theme::text, 1).isNull());
}

class IconsInUse : public WindowFixture
{};

TEST_F(IconsInUse, EveryButtonWithASignShowsOne)
{
    int signs = 0;
    for (const QAbstractButton *button : window.findChildren<QAbstractButton *>()) {
        if (button->icon().isNull())
            continue;
        ++signs;
        EXPECT_FALSE(button->icon().pixmap(button->iconSize(), 1).isNull()) << qPrintable(button->accessibleName());
    }
    EXPECT_GE(signs, 8); // those of the data paths
}
