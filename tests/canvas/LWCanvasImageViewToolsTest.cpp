#include "tests/canvas/CanvasFixture.h"

#include <QSet>
#include <QSignalSpy>
#include <QTest>

namespace {
using Tool = LWCanvasImageView::Tool;

/// Which tool is in effect. A unit of the view is 3 output pixels.
class LWCanvasImageViewTools : public CanvasFixture
{
protected:
    LayerPointer layer(std::size_t index) const { return document.all.at(index); }
    QPoint placeOf(std::size_t index) const { return {layer(index)->xpoint(), layer(index)->ypoint()}; }
};
} // namespace

TEST_F(LWCanvasImageViewTools, PanelsIsTheFirstTool)
{
    const QSignalSpy told(&view, &LWCanvasImageView::toolDidChange);
    EXPECT_EQ(view.tool(), Tool::Panels);
    view.setTool(Tool::Arrange);
    EXPECT_EQ(view.tool(), Tool::Arrange);
    view.setTool(Tool::Arrange);
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0][0].value<Tool>(), Tool::Arrange);
}

TEST_F(LWCanvasImageViewTools, AltIsArrangeAsLongAsItIsHeld)
{
    const QSignalSpy told(&view, &LWCanvasImageView::toolDidChange);
    QTest::keyPress(&view, Qt::Key_Alt);
    EXPECT_EQ(view.tool(), Tool::Arrange);
    QTest::keyRelease(&view, Qt::Key_Alt);
    EXPECT_EQ(view.tool(), Tool::Panels);
    QTest::keyPress(&view, Qt::Key_Alt);
    QFocusEvent away(QEvent::FocusOut);
    QApplication::sendEvent(&view, &away);
    EXPECT_EQ(view.tool(), Tool::Panels);
    EXPECT_EQ(told.size(), 4);
}

TEST_F(LWCanvasImageViewTools, TheMouseKnowsOfAltBetter)
{
    moveTo({10, 10}, Qt::NoButton, Qt::AltModifier);
    EXPECT_EQ(view.tool(), Tool::Arrange);
    moveTo({11, 10}, Qt::NoButton);
    EXPECT_EQ(view.tool(), Tool::Panels);
    QTest::keyPress(&view, Qt::Key_Alt);
    moveTo({12, 10}, Qt::NoButton); // released elsewhere
    EXPECT_EQ(view.tool(), Tool::Panels);
    view.setTool(Tool::Arrange);
    moveTo({13, 10}, Qt::NoButton);
    EXPECT_EQ(view.tool(), Tool::Arrange);
}

TEST_F(LWCanvasImageViewTools, WithoutFocusAltEndsWhenThePointerLeaves)
{
    view.clearFocus();
    moveTo({10, 10}, Qt::NoButton, Qt::AltModifier);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&view, &leave);
    EXPECT_EQ(view.tool(), Tool::Panels);
}

TEST_F(LWCanvasImageViewTools, AltOverTheCanvasIsNotForTheMenus)
{
    const auto isTaken = [this] {
        QKeyEvent key(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::AltModifier);
        key.ignore();
        QApplication::sendEvent(&view, &key);
        return key.isAccepted();
    };
    EXPECT_FALSE(isTaken());
    moveTo({10, 10}, Qt::NoButton);
    EXPECT_TRUE(isTaken());
}

TEST_F(LWCanvasImageViewTools, ThePressDecidesWhichToolTheDragHas)
{
    addWall({300, 300, 60, 60});
    document.select(layer(0), false);
    press({110, 110}, Qt::LeftButton, Qt::AltModifier);
    moveTo({120, 110}); // Alt is released
    EXPECT_EQ(view.tool(), Tool::Arrange);
    view.setTool(Tool::Panels);
    moveTo({130, 110});
    EXPECT_EQ(placeOf(0), QPoint(360, 300));
    release({130, 110});
    EXPECT_EQ(view.tool(), Tool::Panels);
    EXPECT_EQ(document.calls.last(), "finishEdit move layer");

    press({130, 110});
    QTest::keyPress(&view, Qt::Key_Alt);
    EXPECT_EQ(view.tool(), Tool::Panels);
    release({130, 110}, Qt::LeftButton, Qt::AltModifier);
    EXPECT_EQ(view.tool(), Tool::Arrange);
    EXPECT_EQ(placeOf(0), QPoint(360, 300));
}

TEST_F(LWCanvasImageViewTools, EachHasARowOfItsOwn)
{
    QSet<Tool> names;
    QSet<Qt::Key> keys;
    for (const CanvasToolRow &row : canvasTools()) {
        names.insert(row.name);
        keys.insert(row.key);
        EXPECT_EQ(&canvasTool(row.name), &row);
        view.setTool(row.name);
        EXPECT_EQ(view.tool(), row.name);
    }
    EXPECT_EQ(names, QSet({Tool::Panels, Tool::Arrange, Tool::Data}));
    EXPECT_EQ(keys, QSet({Qt::Key_P, Qt::Key_V, Qt::Key_D}));
    EXPECT_EQ(canvasTools().front().name, Tool::Panels);
    EXPECT_EQ(toolOfAlt, Tool::Arrange);
}
