#include "canvas/LWCanvasImageView.h"
#include "tests/app/RedrawGate.h"
#include "tests/windows/PortsFixture.h"
#include "windows/PowerBar.h"

#include <QMenu>
#include <QTest>
#include <QTimer>

namespace {
/// Hands on the canvas of the window: MAIN is at 0 to 2559, SIDE at 3000 to 3255.
class CanvasLinkTest : public PortsFixture
{
protected:
    CanvasLinkTest()
    {
        waitForRedraws(document); // one that comes later may find another room for the output
        QApplication::processEvents();
    }

    /// Where a pixel of the output is seen.
    QPoint placeOf(const QPoint &pixel)
    {
        const QRectF frame = canvas().frame();
        const double scale = frame.width() / document.OutputWidth();
        return (frame.topLeft() + (QPointF(pixel) + QPointF(0.5, 0.5)) * scale).toPoint();
    }
    void clickAt(const QPoint &pixel, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(&canvas(), Qt::LeftButton, keys, placeOf(pixel));
    }
    /// Presses the right button there, and triggers the entry of this text in what comes up. Returns all entries.
    QStringList askAt(const QPoint &pixel, const QString &entry = {})
    {
        QStringList texts;
        QTimer::singleShot(0, &window, [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr) << "no menu comes up";
            for (QAction *action : menu->actions()) {
                if (action->isSeparator() || !action->isVisible())
                    continue;
                texts.append(action->text().remove('&'));
                if (texts.last() == entry)
                    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            }
            menu->close();
        });
        const QPoint place = canvas().mapTo(&window, placeOf(pixel));
        QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, place);
        QApplication::processEvents();
        return texts;
    }
    QString told() { return window.findChild<QLabel *>(PowerBar::messageName)->accessibleName(); }
    std::vector<qsizetype> selected() { return list().selectionIndexes(); }
    WallRuns runs(qsizetype row) { return layer(row)->record()->runs.list(); }

    const QPoint onMain{64, 64};
    const QPoint onSide{3064, 64};
    const QStringList ofLayers{
        "Rename",        "Copy",    "Duplicate layer", "Delete",           "Hide or show",
        "Hide others",   "Move up", "Move down",       "Centre in output", "Fit to output corner",
        "Keep as preset"};
};
} // namespace

TEST_F(CanvasLinkTest, AClickSelectsTheWallAndWithShiftAddsItOrTakesItOut)
{
    canvas().setTool(CanvasToolName::Arrange);
    clickAt(onSide);
    EXPECT_EQ(selected(), std::vector<qsizetype>{1});
    clickAt(onMain, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (std::vector<qsizetype>{0, 1}));
    EXPECT_EQ(list().selectionIndex(), 0); // the one that was added is shown
    clickAt(onMain, Qt::ShiftModifier);
    EXPECT_EQ(selected(), std::vector<qsizetype>{1});
    clickAt(onMain);
    EXPECT_EQ(selected(), std::vector<qsizetype>{0});
}

TEST_F(CanvasLinkTest, ADragLaysACableOfTheShowsProcessor)
{
    addProcessor();
    canvas().setTool(CanvasToolName::Data);
    const QPoint end = placeOf(onSide + QPoint(128, 128));
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, placeOf(onSide));
    QTest::mouseMove(&canvas(), placeOf(onSide + QPoint(128, 0)));
    QTest::mouseMove(&canvas(), end);
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, end);
    ASSERT_EQ(runs(1).size(), 1U);
    EXPECT_EQ(runs(1)[0].port.text(), "A6"); // the first that MAIN leaves free
    EXPECT_EQ(runs(1)[0].cells, (std::vector<Cell>{{0, 0}, {1, 0}, {1, 1}}));
    EXPECT_EQ(undoText(), "cable");
    undo();
    EXPECT_TRUE(runs(1).empty());
}

TEST_F(CanvasLinkTest, ARightClickSelectsTheWallAndOffersWhatALayerNeeds)
{
    canvas().setTool(CanvasToolName::Arrange);
    EXPECT_EQ(askAt(onSide, "Hide or show"), ofLayers);
    EXPECT_EQ(selected(), std::vector<qsizetype>{1});
    EXPECT_FALSE(layer(1)->visible());
    EXPECT_TRUE(layer(0)->visible());
}

TEST_F(CanvasLinkTest, WithTheToolForCablesThoseOfThePanelThereComeFirst)
{
    addProcessor();
    canvas().setTool(CanvasToolName::Data);
    const QString take = "Take the automatic cables as mine";
    EXPECT_EQ(askAt(onSide, take), QStringList(take) + ofLayers);
    ASSERT_EQ(runs(1).size(), 1U);
    EXPECT_EQ(runs(1)[0].port.text(), "A6");
    EXPECT_EQ(runs(1)[0].cells.size(), 6U);
    EXPECT_TRUE(runs(0).empty()); // of the wall that was clicked on alone

    const QString join = "Join A6 with the next port";
    EXPECT_TRUE(askAt(onSide, join).contains(join));
    EXPECT_EQ(told(), "No port behind A6 is wired by hand; there is nothing to join.");
    askAt(onSide, "Reverse A6"); // what can be done takes the message away
    EXPECT_EQ(told(), "");
}
