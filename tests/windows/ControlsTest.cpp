#include "tests/windows/WindowFixture.h"
#include "windows/CanvasPane.h"
#include "windows/ElidedLabel.h"
#include "windows/LayerTable.h"
#include "windows/Theme.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QtMath>

#include <algorithm>
#include <utility>
#include <vector>

/// How the window's buttons and fields look, in pixels.
class ControlsTest : public WindowFixture
{
protected:
    QList<QToolButton *> toolButtons()
    {
        QApplication::processEvents(); // icons come after the first painting
        return window.findChild<CanvasPane *>()->findChildren<QToolButton *>();
    }
    static bool isInk(const QColor &colour, const QColor &ground)
    {
        return qAbs(colour.lightness() - ground.lightness()) > 40;
    }
    /// For each column (or row) of pixels within the frame of a control, whether something is drawn in it.
    static std::vector<bool> drawn(QWidget &control, Qt::Orientation along)
    {
        const QImage seen = control.grab().toImage();
        const int frame = qCeil(3 * seen.devicePixelRatio());
        const QColor ground = seen.pixelColor(frame, frame);
        std::vector<bool> lines(std::size_t(along == Qt::Horizontal ? seen.width() : seen.height()));
        for (int y = frame; y < seen.height() - frame; ++y) {
            for (int x = frame; x < seen.width() - frame; ++x) {
                if (isInk(seen.pixelColor(x, y), ground))
                    lines[std::size_t(along == Qt::Horizontal ? x : y)] = true;
            }
        }
        return lines;
    }
    /// How much of the control is empty before and behind what is drawn in it.
    static std::pair<qsizetype, qsizetype> margins(const std::vector<bool> &lines)
    {
        return {std::find(lines.begin(), lines.end(), true) - lines.begin(),
                std::find(lines.rbegin(), lines.rend(), true) - lines.rbegin()};
    }
};

TEST_F(ControlsTest, ButtonsAndFieldsAreAllAsHigh)
{
    int controls = 0;
    for (const QWidget *control : window.findChildren<QWidget *>()) {
        const QWidget *parent = control->parentWidget();
        const bool isOwn = control->isVisible() && !control->objectName().startsWith("groupHead") &&
                           !parent->inherits("PatternGrid") && !parent->inherits("QAbstractSpinBox");
        if (!isOwn || !(control->inherits("QAbstractButton") || control->inherits("QLineEdit") ||
                        control->inherits("QAbstractSpinBox") || control->inherits("QComboBox")))
            continue;
        ++controls;
        EXPECT_EQ(control->height(), Theme::controlHeight) << qPrintable(control->accessibleName());
    }
    EXPECT_GT(controls, 40);
}

TEST_F(ControlsTest, AToolsSignAndNameStandApartInTheMiddle)
{
    for (QToolButton *button : toolButtons()) {
        const qreal ratio = button->devicePixelRatioF();
        const std::vector<bool> columns = drawn(*button, Qt::Horizontal);
        const auto [left, right] = margins(columns);
        EXPECT_LE(qAbs(left - right), 2 * ratio) << qPrintable(button->text());
        const auto [top, bottom] = margins(drawn(*button, Qt::Vertical));
        EXPECT_LE(qAbs(top - bottom), 2 * ratio) << qPrintable(button->text());

        const qsizetype endOfSign = left + qRound(16 * ratio);
        const auto name = std::find(columns.begin() + endOfSign + 1, columns.end(), true);
        EXPECT_GE(name - columns.begin() - endOfSign, 4 * ratio) << qPrintable(button->text());
    }
}

TEST_F(ControlsTest, TheSignThatClearsTheSearchIsInTheMiddleOfItsField)
{
    for (QLineEdit *field : window.findChildren<QLineEdit *>()) {
        if (field->accessibleName() != "Search presets")
            continue;
        QTest::keyClicks(field, "P");
        const QRect sign = field->findChild<QToolButton *>()->geometry();
        EXPECT_LE(qAbs(sign.top() - (field->height() - 1 - sign.bottom())), 1);
        return;
    }
    FAIL() << "there is no search field";
}

TEST_F(ControlsTest, NothingShowsBesideTheFieldToRenameALayerIn)
{
    table().setFocus();
    press(Qt::Key_F2, Qt::NoModifier, {});
    const auto *field = table().findChild<QLineEdit *>();
    ASSERT_NE(field, nullptr);
    const QImage seen = table().viewport()->grab().toImage();
    const qreal ratio = seen.devicePixelRatio();
    const QRect row = table().visualRect(table().currentIndex());
    for (int y = field->geometry().bottom() + 1; y < row.bottom() - 1; ++y) {
        for (int x = field->x(); x < row.right() - 1; ++x)
            ASSERT_EQ(seen.pixelColor(qRound(x * ratio), qRound(y * ratio)), Theme::raised) << x << ", " << y;
    }
}

TEST(ElidedLabel, EndsInAnEllipsisWhereItHasTooLittleRoomAndWidensNothing)
{
    Theme::apply();
    ElidedLabel label;
    label.setText("Click panels off or on, or drag over them");
    const int whole = label.fontMetrics().horizontalAdvance(label.text());
    EXPECT_EQ(label.minimumSizeHint().width(), 0);

    const auto grabbed = [&label](int width) {
        label.resize(width, 20);
        return label.grab().toImage();
    };
    const QImage cut = grabbed(whole / 2);
    const QString shown = label.fontMetrics().elidedText(label.text(), Qt::ElideRight, whole / 2);
    ASSERT_TRUE(shown.endsWith(QChar(0x2026)));
    const QImage complete = grabbed(whole + 10);
    EXPECT_NE(cut, complete.copy(cut.rect()));
    label.setText(shown);
    EXPECT_EQ(cut, grabbed(whole / 2));
}

TEST(ElidedLabel, WrapsWhereItHasTheHeight)
{
    Theme::apply();
    ElidedLabel label;
    label.setText("Click panels off or on, or drag over them");
    const int half = label.fontMetrics().horizontalAdvance(label.text()) * 2 / 3;
    const auto inked = [&label, half](int height) {
        label.resize(half, height);
        const QImage seen = label.grab().toImage();
        int rows = 0;
        for (int y = 0; y < seen.height(); ++y) {
            bool hasInk = false;
            for (int x = 0; x < seen.width(); ++x)
                hasInk = hasInk || seen.pixelColor(x, y).lightness() > 2 * Theme::panel.lightness();
            rows += hasInk;
        }
        return rows;
    };
    EXPECT_GT(inked(2 * label.fontMetrics().lineSpacing()), inked(20) + label.fontMetrics().xHeight());
}
