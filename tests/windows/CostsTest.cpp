#include "canvas/LWCanvasImageView.h"
#include "screen/LWScreen.h"
#include "tests/app/RedrawGate.h"
#include "tests/base/LogLines.h"
#include "tests/windows/InspectorFixture.h"
#include "windows/OutputPreview.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

#include <map>
#include <memory>

namespace {
/// How often each widget is painted.
class PaintCounts final : public QObject
{
public:
    int of(const QWidget &widget) { return m_counts[&widget]; }
    void clear() { m_counts.clear(); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_counts[watched] += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    std::map<const QObject *, int> m_counts;
};

/// What an edit with the hand costs the window, from the event until all is quiet again.
class CostsTest : public InspectorFixture
{
protected:
    struct Costs
    {
        qsizetype renderings;
        qsizetype compositions;
        int paintings; ///< of the canvas
        int refreshes; ///< of the inspector

        bool operator==(const Costs &) const = default;
        friend void PrintTo(const Costs &costs, std::ostream *stream)
        {
            *stream << costs.renderings << " renderings, " << costs.compositions << " compositions, " << costs.paintings
                    << " paintings, " << costs.refreshes << " refreshes";
        }
    };

    CostsTest()
    {
        canvas().installEventFilter(&m_paints);
        countRefreshes();
        window.document().update(); // the first redraw chose the supply that walls are drawn for
        wait();
    }
    void wait()
    {
        waitForRedraws(window.document());
        QTest::qWait(150); // what costs nothing more
    }
    Costs costsOf(const std::function<void()> &act)
    {
        m_composed.clear();
        m_paints.clear();
        m_refreshes = 0;
        const LogLines log;
        act();
        wait();
        return {log.lines().filter("The data path").size(), m_composed.size(), m_paints.of(canvas()), m_refreshes};
    }
    /// So many panels of a pixel that the log tells of the path that is left out, each time that the wall is drawn.
    void showTellingWall(int columns)
    {
        const auto wall = std::make_shared<LWScreen>(window.document());
        wall->setCol(columns);
        wall->setRow(2001);
        wall->setPanelWidth(1);
        wall->setPanelHeight(1);
        wall->setVisible(true);
        wall->setBgEnable(true);
        wall->setDrawFlowPath(true);
        list().setLayers({wall}, {0});
        window.document().finishEdit("setting");
        wait();
    }

private:
    /// Each refresh puts right what the document does not say, and which is then made wrong again.
    void countRefreshes()
    {
        constexpr int wrong = 2;
        QComboBox &corners = control<QComboBox>("At the corners");
        ASSERT_NE(window.document().popupIndex(), wrong);
        corners.setCurrentIndex(wrong);
        QObject::connect(&corners, &QComboBox::currentIndexChanged, &m_paints, [this, &corners](int index) {
            if (index == wrong)
                return;
            ++m_refreshes;
            corners.setCurrentIndex(wrong);
        });
    }

    QSignalSpy m_composed{&window.document(), &LWAppDelegate::composed};
    PaintCounts m_paints;
    int m_refreshes = 0;
};
} // namespace

TEST_F(CostsTest, AKeyInANumberIsRenderedComposedPaintedAndShownOnce)
{
    showTellingWall(160);
    NumberField &columns = control<NumberField>("Columns");
    columns.setFocus();
    QTest::keyClick(&columns, Qt::Key_End);
    wait();
    const Costs costs = costsOf([&] { QTest::keyClick(&columns, Qt::Key_7); });
    EXPECT_EQ(shown()->col(), 1607);
    EXPECT_EQ(costs, (Costs{1, 1, 1, 1}));
}

TEST_F(CostsTest, AClickOnAPanelCostsTheSameAndItsReleaseNothing)
{
    showTellingWall(1501);
    canvas().setFocus();
    const QPoint middle = canvas().frame().center().toPoint();
    QTest::mouseMove(&canvas(), middle);
    wait();
    EXPECT_EQ(costsOf([&] { QTest::mousePress(&canvas(), Qt::LeftButton, {}, middle); }), (Costs{1, 1, 1, 1}));
    EXPECT_EQ(costsOf([&] { QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, middle); }), (Costs{0, 0, 0, 0}));
    EXPECT_EQ(static_cast<LWScreen &>(*shown()).hiddenBoxes()->size(), 1);
    EXPECT_EQ(undoText(), "switch panel");
    EXPECT_EQ(costsOf([&] { QTest::mouseClick(&canvas(), Qt::LeftButton, {}, middle); }), (Costs{1, 1, 1, 1}));
    EXPECT_EQ(static_cast<LWScreen &>(*shown()).hiddenBoxes()->size(), 0);
}

TEST_F(CostsTest, OpeningAFileIsShownOnce)
{
    const QString path = greenProject("show.Orv");
    const Costs costs = costsOf([&] { pressControl(Qt::Key_O, {entering(path)}); });
    EXPECT_EQ(window.document().img().size(), QSize(400, 300));
    EXPECT_EQ(costs.compositions, 1);
    EXPECT_EQ(costs.refreshes, 1);
}

TEST_F(CostsTest, ARedrawThatFindsNothingNewPaintsNothing)
{
    EXPECT_EQ(costsOf([&] { window.document().update(); }), (Costs{0, 0, 0, 0}));
}

/// An output of 8K is 133 MB: a second one is not had where a first one just was.
TEST_F(CostsTest, AllOutputsAreComposedIntoTheSameMemoryWhileCanvasAndPreviewShowThem)
{
    window.document().openPvw();
    auto &preview = *window.findChild<OutputPreview *>();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&preview));
    window.document().setOutputHeight(4321);
    window.document().setValue(7681, "OutputWidth");
    wait();
    ASSERT_EQ(window.document().img().size(), QSize(7681, 4321));
    const uchar *const memory = window.document().img().constBits();
    for (const int zoom : {0, 100, 200}) {
        zoom == 0 ? canvas().zoomToFit() : canvas().setZoom(zoom);
        const Costs costs = costsOf([&] { window.document().setValue(zoom + 1, "arrangedObjects.xpoint"); });
        EXPECT_EQ(costs.compositions, 1) << zoom;
        EXPECT_EQ(window.document().img().constBits(), memory) << zoom;
        EXPECT_TRUE(window.document().img().isDetached()) << zoom;
    }
}
