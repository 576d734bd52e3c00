#include "tests/canvas/CanvasFixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTest>

namespace {
constexpr Qt::MouseButton left = Qt::LeftButton;

/// Cables laid in the selected wall of 8 x 5 panels of 128, by processor A, which bears 100 000 pixels: six panels. A
/// unit of the view is 3 output pixels.
class DataToolOfCanvas : public CanvasFixture
{
protected:
    DataToolOfCanvas() : screen(selectScreen())
    {
        screen.setHiddenBoxes(QStringList());
        screen.setVisible(true);
        document.all = {document.layer};
        screen.setValue("processor", "A");
        document.processors = {processor("A")};
        document.nextPort = [this](const QString &name, const LayerPointer &) { return PortName{name, ++m_lastPort}; };
        view.setTool(CanvasToolName::Data);
        view.setFocus();
        QPalette colours = view.palette();
        colours.setColor(QPalette::BrightText, warning);
        view.setPalette(colours);
    }

    static ProcessorSettings processor(const QString &name)
    {
        ProcessorSettings settings;
        settings.name = name;
        settings.model = "MX40 Pro"; // of which the box around panels does not count
        settings.capacity = 100'000;
        return settings;
    }
    /// The middle of a panel, in the view.
    static QPointF panel(int column, int row) { return QPointF(column * 128 + 64, row * 128 + 64) / 3; }
    void dragOver(const std::vector<QPointF> &places, Qt::KeyboardModifiers keys = {})
    {
        press(places.front(), left, keys);
        for (std::size_t i = 1; i < places.size(); ++i)
            moveTo(places[i], left, keys);
        release(places.back(), left, keys);
    }
    void type(int key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(&view, Qt::Key(key), keys); }

    static WallRuns runsOf(const Layer &wall) { return wall.record()->runs.list(); }
    static std::vector<Cell> row(int from, int to, int y)
    {
        std::vector<Cell> cells;
        for (int x = from; x != to + (to > from ? 1 : -1); x += to > from ? 1 : -1)
            cells.push_back({x, y});
        return cells;
    }
    bool shows(const QColor &colour)
    {
        const QImage picture = seen();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == colour)
                    return true;
            }
        }
        return false;
    }
    QStringList edits() const { return document.calls.filter("finishEdit"); }

    LWScreen &screen;
    const QColor warning{250, 120, 10};

private:
    qint64 m_lastPort = 0;
};
} // namespace

TEST_F(DataToolOfCanvas, ADragLaysACableAlongItsWay)
{
    dragOver({panel(0, 0), panel(3, 0), panel(3, 1)});
    const WallRuns expected{{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}}}};
    EXPECT_EQ(runsOf(screen), expected);
    EXPECT_EQ(screen.record()->split, CableSplit::Hand);
    EXPECT_TRUE(screen.drawFlowPath()); // what was laid is seen
    EXPECT_EQ(edits(), QStringList("finishEdit cable"));
}

TEST_F(DataToolOfCanvas, AClickIsACableOfOnePanel)
{
    screen.setValue("split", "hand");
    dragOver({panel(2, 2)});
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 1}, 1, {{2, 2}}}}));
}

TEST_F(DataToolOfCanvas, AClickAloneLeavesAutomaticCables)
{
    const LayerRecordPointer before = screen.record();
    dragOver({panel(2, 2)});
    EXPECT_TRUE(screen.hasRecord(before));
    EXPECT_TRUE(edits().isEmpty());
    dragOver({panel(2, 2), panel(3, 2), panel(2, 2)}); // to the next panel and back
    EXPECT_EQ(runsOf(screen)[0].cells, row(2, 3, 2));
}

TEST_F(DataToolOfCanvas, AWallInWhichNothingIsLaidKeepsItsCables)
{
    LWScreen &banner = addWall({1024, 0, 128, 128});
    const LayerRecordPointer before = banner.record();
    dragOver({panel(0, 0), panel(7, 0), panel(8, 0)}); // full before it comes there
    EXPECT_EQ(runsOf(screen)[0].cells, row(0, 5, 0));
    EXPECT_TRUE(banner.hasRecord(before));
}

TEST_F(DataToolOfCanvas, TheEndOfAPieceInTheMiddleOfACableHoldsNothing)
{
    LWScreen &banner = addWall({1024, 0, 256, 128});
    dragOver({panel(6, 0), panel(7, 0), panel(8, 0)});
    const LayerRecordPointer before = screen.record();
    dragOver({panel(7, 0), panel(7, 1)});
    EXPECT_TRUE(screen.hasRecord(before));
    EXPECT_EQ(runsOf(banner)[0].cells.size(), 1U);
    dragOver({panel(6, 0), panel(5, 0), panel(8, 0)}); // before its first panel, and into the other wall in vain
    EXPECT_EQ(runsOf(screen)[0].cells, row(5, 7, 0));
}

TEST_F(DataToolOfCanvas, ItGoesOnFromItsEndAndBeforeItsBeginning)
{
    dragOver({panel(2, 0), panel(3, 0)});
    dragOver({panel(3, 0), panel(4, 0)});
    dragOver({panel(2, 0), panel(1, 0)});
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 1}, 1, row(1, 4, 0)}}));
    EXPECT_EQ(edits().size(), 3);
}

TEST_F(DataToolOfCanvas, APressInTheMiddleOfACableHoldsNothing)
{
    dragOver({panel(0, 0), panel(2, 0)});
    dragOver({panel(1, 0), panel(1, 2)});
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 1}, 1, row(0, 2, 0)}}));
    EXPECT_EQ(edits().size(), 1);
}

TEST_F(DataToolOfCanvas, PanelsOfOthersArePassedAndWithShiftTheyChangeOver)
{
    dragOver({panel(1, 0), panel(1, 1)});
    dragOver({panel(0, 1), panel(2, 1)});
    EXPECT_EQ(runsOf(screen)[1].cells, (std::vector<Cell>{{0, 1}, {2, 1}}));
    dragOver({panel(2, 1), panel(3, 1), panel(3, 0), panel(1, 0)}, Qt::ShiftModifier);
    const WallRuns expected{{{"A", 1}, 1, {{1, 1}}}, {{"A", 2}, 1, {{0, 1}, {2, 1}, {3, 1}, {3, 0}, {2, 0}, {1, 0}}}};
    EXPECT_EQ(runsOf(screen), expected);
}

TEST_F(DataToolOfCanvas, KeysThatAreHeldLaterCountForTheWholeWay)
{
    dragOver({panel(1, 0), panel(1, 1)});
    press(panel(0, 1));
    moveTo(panel(2, 1));
    EXPECT_EQ(runsOf(screen)[0].cells.size(), 2U);
    QTest::keyPress(&view, Qt::Key_Shift);
    EXPECT_EQ(runsOf(screen)[0].cells.size(), 1U);
    QTest::keyRelease(&view, Qt::Key_Shift);
    EXPECT_EQ(runsOf(screen)[0].cells.size(), 2U);
    release(panel(2, 1));
}

TEST_F(DataToolOfCanvas, ItStopsAtItsLimitAndWithCtrlGoesPastIt)
{
    dragOver({panel(0, 0), panel(7, 0)});
    EXPECT_EQ(runsOf(screen)[0].cells, row(0, 5, 0)); // 6 x 16,384 of 100,000
    dragOver({panel(5, 0), panel(7, 0)}, Qt::ControlModifier);
    EXPECT_EQ(runsOf(screen)[0].cells, row(0, 7, 0));
}

TEST_F(DataToolOfCanvas, PanelsThatAreOffArePassed)
{
    screen.setHiddenBoxes(QStringList("0,1"));
    dragOver({panel(0, 0), panel(2, 0)});
    EXPECT_EQ(runsOf(screen)[0].cells, (std::vector<Cell>{{0, 0}, {2, 0}}));
    dragOver({panel(1, 0)});
    EXPECT_EQ(runsOf(screen).size(), 1U);
}

TEST_F(DataToolOfCanvas, ItGoesOnInAnotherWallAsThatPortsNextPiece)
{
    LWScreen &banner = addWall({1024, 0, 128, 128});
    dragOver({panel(6, 0), panel(7, 0), panel(8, 0)});
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 1}, 1, row(6, 7, 0)}}));
    EXPECT_EQ(runsOf(banner), (WallRuns{{{"A", 1}, 2, {{0, 0}}}}));
    EXPECT_EQ(banner.record()->processor, "A");
    EXPECT_EQ(edits(), QStringList("finishEdit cable"));
}

TEST_F(DataToolOfCanvas, EscapeTakesBackWhatIsBeingLaid)
{
    const LayerRecordPointer before = screen.record();
    press(panel(0, 0));
    moveTo(panel(3, 0));
    type(Qt::Key_Escape);
    EXPECT_TRUE(screen.hasRecord(before));
    release(panel(3, 0));
    EXPECT_TRUE(edits().isEmpty());
}

TEST_F(DataToolOfCanvas, KeysLayACablePanelByPanelEachAStep)
{
    type(Qt::Key_Right); // to the first panel
    EXPECT_TRUE(edits().isEmpty());
    type(Qt::Key_Return);
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 1}, 1, {{0, 0}}}}));
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    type(Qt::Key_Down);
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {2, 1}}}}));
    EXPECT_EQ(edits(), QStringList({"finishEdit cable", "finishEdit cable", "finishEdit cable", "finishEdit cable"}));
}

TEST_F(DataToolOfCanvas, EnterBeginsTheNextPortAndOnceMoreEndsTheLaying)
{
    type(Qt::Key_Right);
    type(Qt::Key_Return);
    type(Qt::Key_Right);
    type(Qt::Key_Return);
    EXPECT_EQ(edits().size(), 2);
    type(Qt::Key_Down);
    type(Qt::Key_Left);
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 1}, 1, row(0, 1, 0)}, {{"A", 2}, 1, row(1, 0, 1)}}));
    type(Qt::Key_Return);
    type(Qt::Key_Return);
    type(Qt::Key_Down);
    EXPECT_EQ(runsOf(screen)[1].cells.size(), 2U);
    EXPECT_EQ(edits().size(), 4);
}

TEST_F(DataToolOfCanvas, EscapeEndsTheLayingAndWhatIsLaidStays)
{
    type(Qt::Key_Right);
    type(Qt::Key_Return);
    type(Qt::Key_Right);
    type(Qt::Key_Escape);
    type(Qt::Key_Right);
    EXPECT_EQ(runsOf(screen)[0].cells, row(0, 1, 0));
}

TEST_F(DataToolOfCanvas, KeysGoOnFromWhereTheCableEndsNow)
{
    type(Qt::Key_Right);
    type(Qt::Key_Return);
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    screen.setValue("runs", QVariant::fromValue(CableRuns({{{"A", 1}, 1, row(0, 1, 0)}}))); // as undo does
    type(Qt::Key_Right);
    EXPECT_EQ(runsOf(screen)[0].cells, row(0, 3, 0));
    screen.setValue("runs", QVariant::fromValue(CableRuns()));
    const qsizetype before = edits().size();
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    EXPECT_TRUE(runsOf(screen).empty());
    EXPECT_EQ(edits().size(), before);
}

TEST_F(DataToolOfCanvas, BackspaceWhileKeysLayGoesBackAPanel)
{
    type(Qt::Key_Right);
    type(Qt::Key_Return);
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    type(Qt::Key_Backspace);
    EXPECT_EQ(runsOf(screen)[0].cells, row(0, 1, 0));
    type(Qt::Key_Down); // from the panel that is the last one now
    EXPECT_EQ(runsOf(screen)[0].cells, (std::vector<Cell>{{0, 0}, {1, 0}, {1, 1}}));
    EXPECT_EQ(edits().back(), "finishEdit cable");
}

TEST_F(DataToolOfCanvas, DeleteIsTheToolsWhereverItsPanelIs)
{
    moveTo(panel(4, 4), Qt::NoButton);
    QKeyEvent clears(QEvent::ShortcutOverride, Qt::Key_Delete, Qt::NoModifier);
    clears.ignore();
    QApplication::sendEvent(&view, &clears);
    EXPECT_TRUE(clears.isAccepted());
    type(Qt::Key_Delete);
    EXPECT_TRUE(edits().isEmpty());
}

TEST_F(DataToolOfCanvas, BackspaceTakesBackThePanelThatWasLaidLast)
{
    dragOver({panel(0, 0), panel(2, 0)});
    type(Qt::Key_Backspace); // the pointer is on the cable
    EXPECT_EQ(runsOf(screen)[0].cells, row(0, 1, 0));
    moveTo(panel(5, 3), Qt::NoButton);
    type(Qt::Key_Backspace);
    EXPECT_EQ(runsOf(screen)[0].cells.size(), 2U);
}

TEST_F(DataToolOfCanvas, DeleteClearsTheCableThere)
{
    dragOver({panel(0, 0), panel(2, 0)});
    dragOver({panel(0, 1), panel(2, 1)});
    moveTo(panel(1, 0), Qt::NoButton);
    type(Qt::Key_Delete);
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 2}, 1, row(0, 2, 1)}}));
    EXPECT_EQ(edits().back(), "finishEdit clearing of a cable");
}

TEST_F(DataToolOfCanvas, WithoutAProcessorNothingIsLaid)
{
    document.processors.clear();
    dragOver({panel(0, 0), panel(2, 0)});
    EXPECT_TRUE(runsOf(screen).empty());
    document.processors = {processor("B")}; // the wall names A
    dragOver({panel(0, 0), panel(2, 0)});
    EXPECT_TRUE(runsOf(screen).empty());
    EXPECT_TRUE(edits().isEmpty());
}

TEST_F(DataToolOfCanvas, AltKeepsTheTool)
{
    QTest::keyPress(&view, Qt::Key_Alt);
    EXPECT_EQ(view.tool(), CanvasToolName::Data);
    QTest::keyRelease(&view, Qt::Key_Alt);
}

TEST_F(DataToolOfCanvas, ReadsOutTheLimitInTheColourOfWarnings)
{
    press(panel(0, 0));
    moveTo(panel(3, 0));
    EXPECT_FALSE(shows(warning));
    moveTo(panel(7, 0));
    EXPECT_TRUE(shows(warning));
    release(panel(7, 0));
    EXPECT_TRUE(shows(warning)); // and goes on saying so where the pointer rests
    moveTo(panel(7, 4), {});
    EXPECT_FALSE(shows(warning));
}

TEST_F(DataToolOfCanvas, OutlinesAndNamesThePanelUnderThePointer)
{
    const QImage plain = seen();
    // Whether something else is seen on the left edge of a panel, away from what is written beside the pointer.
    const auto isOutlined = [&](int column, int row) {
        const QImage now = seen();
        const QPoint edge =
            placeOfOutput() + QPointF(column * 128 / 3.0 * ratio(), (row * 128 + 20) / 3.0 * ratio()).toPoint();
        for (int x = -2; x <= 2; ++x) {
            if (now.pixel(edge + QPoint(x, 0)) != plain.pixel(edge + QPoint(x, 0)))
                return true;
        }
        return false;
    };
    moveTo(panel(2, 2), {});
    EXPECT_TRUE(isOutlined(2, 2));
    EXPECT_FALSE(isOutlined(5, 2));
    EXPECT_NE(seen().copy(QRect(placeOfOutput() + (panel(2, 2) * ratio()).toPoint(), QSize(60, 60))),
              plain.copy(QRect(placeOfOutput() + (panel(2, 2) * ratio()).toPoint(), QSize(60, 60)))); // its name
    moveTo(QPointF(600, 300), {}); // no wall is there
    EXPECT_EQ(seen(), plain);
}

TEST_F(DataToolOfCanvas, APressOnAnotherWallSelectsIt)
{
    LWScreen &other = addWall({1200, 0, 128, 128});
    press(QPointF(1264, 64) / 3);
    EXPECT_EQ(document.selectedLayer().get(), &other);
    release(QPointF(1264, 64) / 3);
}

TEST_F(DataToolOfCanvas, ADragBesideTheWallEndsAtItsLastPanel)
{
    dragOver({panel(6, 4), panel(7, 4), QPointF(600, 340)});
    EXPECT_EQ(runsOf(screen), (WallRuns{{{"A", 1}, 1, row(6, 7, 4)}}));
}
