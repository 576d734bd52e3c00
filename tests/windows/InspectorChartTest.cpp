#include "tests/windows/InspectorFixture.h"
#include "windows/LayerDelegate.h"
#include "windows/charts/ChartChoice.h"

#include <QComboBox>
#include <QMenu>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

class InspectorChart : public InspectorFixture
{
protected:
    ChartChoice &choice() { return *inspector().findChild<ChartChoice *>(); }
    QToolButton &button() { return *choice().findChild<QToolButton *>(); }
    void choose(const QString &group, const QString &title)
    {
        emit button().menu()->aboutToShow();
        for (QAction *groups : button().menu()->actions()) {
            for (QAction *chart : groups->text() == group ? groups->menu()->actions() : QList<QAction *>()) {
                if (chart->text() == title)
                    return chart->trigger();
            }
        }
        ADD_FAILURE() << qPrintable(title);
    }
    QString chartOfShown() { return shown()->value("chart").toString(); }
};

TEST_F(InspectorChart, IsThereForChartsAlone)
{
    EXPECT_FALSE(choice().isVisibleTo(&inspector()));
    addStill();
    EXPECT_FALSE(choice().isVisibleTo(&inspector()));
    window.document().addChart("rp219");
    EXPECT_TRUE(choice().isVisibleTo(&inspector()));
    EXPECT_EQ(button().text(), "Chart: SMPTE RP 219");
    EXPECT_EQ(summary("Picture"), "A chart, pixel for pixel");
    window.document().addChart("sync");
    EXPECT_EQ(summary("Picture"), "The first frame of a chart, pixel for pixel");
}

TEST_F(InspectorChart, AnotherChartIsAStepAndItsOptionsAreOne)
{
    window.document().addChart("rp219");
    choose("Video", "Steps of grey");
    EXPECT_EQ(chartOfShown(), "steps");
    control<QSpinBox>("Steps").setValue(12);
    control<QSpinBox>("Steps").setValue(13);
    EXPECT_EQ(chartOfShown(), "steps steps=13");
    auto &range = control<QComboBox>("Range");
    range.setCurrentIndex(1);
    emit range.activated(1);
    EXPECT_EQ(chartOfShown(), "steps steps=13 range=narrow");
    undo();
    EXPECT_EQ(chartOfShown(), "steps");
    EXPECT_EQ(control<QSpinBox>("Steps").value(), 11);
    undo();
    EXPECT_EQ(chartOfShown(), "rp219");
    EXPECT_EQ(undoText(), "add chart");
}

TEST_F(InspectorChart, OnlyChartsThatNeedNoPanelsAreOffered)
{
    window.document().addChart("rp219");
    emit button().menu()->aboutToShow();
    QStringList titles;
    for (QAction *groups : button().menu()->actions()) {
        for (QAction *chart : groups->menu()->actions())
            titles.append(chart->text());
    }
    EXPECT_TRUE(titles.contains("Zone plate"));
    EXPECT_FALSE(titles.contains("Walking pixel"));
}

TEST_F(InspectorChart, AChartThatIsNotKnownIsSaidAndAnotherCanBeChosen)
{
    window.document().addChart("nonsense");
    EXPECT_EQ(button().text(), "Choose a chart");
    EXPECT_EQ(summary("Picture"), "Nothing is drawn: there is no chart \"nonsense\".");
    choose("Processor", "Zone plate");
    EXPECT_EQ(chartOfShown(), "zone-plate");
    EXPECT_EQ(button().text(), "Chart: Zone plate");
}

TEST_F(InspectorChart, TheMenuOfLayersAddsOneAsLargeAsTheOutput)
{
    for (QMenu *menu : window.findChildren<QMenu *>()) {
        if (menu->title() == "Add &chart")
            emit menu->aboutToShow();
    }
    WindowFixture::choose({"Layer", "Add chart", "Processor", "Zone plate"});
    EXPECT_EQ(chartOfShown(), "zone-plate");
    EXPECT_EQ(LayerDelegate::name(*shown()), "Zone plate");
    EXPECT_EQ(shown()->screenSizeWidth(), 1920);
    EXPECT_EQ(shown()->screenSizeHeight(), 1080);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return window.document().img().pixel(960, 540) == shown()->thumbnail().pixel(960, 540); }));
}
