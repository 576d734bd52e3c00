#include "tests/windows/InspectorFixture.h"
#include "windows/Theme.h"
#include "windows/inspector/FigureLabel.h"

using InspectorFiguresTest = InspectorFixture;

TEST_F(InspectorFiguresTest, APortOverTheLimitIsAWarningWhetherThePathIsDrawnOrNot)
{
    const auto colour = [this] {
        for (const QLabel *label : inspector().findChildren<QLabel *>()) {
            if (label->accessibleName() == "Ports")
                return label->palette().color(QPalette::WindowText);
        }
        return QColor();
    };
    EXPECT_EQ(colour(), Theme::text);
    EXPECT_FALSE(isShown("Warning"));
    window.document().setValue(1'000, "arrangedObjects.pixelLimit");
    ASSERT_FALSE(shown()->drawFlowPath());
    EXPECT_EQ(summary("Ports"), "1 port, 655,360 px, more than one port carries");
    EXPECT_EQ(colour(), Theme::warning);
    EXPECT_TRUE(isShown("Warning"));
    window.document().setValue(true, "arrangedObjects.drawFlowPath");
    EXPECT_TRUE(isShown("Warning"));
    window.document().setValue(0, "arrangedObjects.pixelLimit");
    EXPECT_EQ(colour(), Theme::text);
    EXPECT_FALSE(isShown("Warning"));
}

TEST_F(InspectorFiguresTest, SummariesTellPanelsPortsAndCurrent)
{
    EXPECT_EQ(summary("Wall"), "8 × 5 panels, 1,024 × 640 px");
    shown()->onImageClick(10, 10);
    window.document().finishEdit("Toggle Panel");
    EXPECT_EQ(summary("Wall"), "8 × 5 panels, 1,024 × 640 px, 1 off");
    click(inspector(), "Switch all panels on");
    EXPECT_EQ(summary("Wall"), "8 × 5 panels, 1,024 × 640 px");
    EXPECT_EQ(undoText(), "switch all panels on");

    EXPECT_EQ(summary("Ports"), "1 port, 655,360 px");
    window.document().setValue(300'000, "arrangedObjects.pixelLimit"); // two rows of 131,072
    EXPECT_EQ(summary("Ports"), "3 ports, 262,144 px each, last 131,072 px");
    EXPECT_EQ(summary("Power"), "72.73 A at 110 V, 1 phase");
    click(window, "208 V");
    EXPECT_EQ(summary("Power"), "38.46 A at 208 V, 1 phase");
}

TEST_F(InspectorFiguresTest, WhatIsReadAloudStandsAtTheTop)
{
    EXPECT_EQ(summary("Number of panels"), "40");
    EXPECT_TRUE(shows("panels"));
    EXPECT_EQ(summary("Number of pixels"), "655,360");
    EXPECT_EQ(summary("Number of ports"), "1");
    EXPECT_TRUE(shows("port"));
    EXPECT_EQ(summary("Amperes"), "72.73 A");
    EXPECT_TRUE(shows("at 110 V, 1 phase"));
    shown()->onImageClick(10, 10);
    window.document().finishEdit("Toggle Panel");
    EXPECT_TRUE(shows("panels, 1 off"));
    window.document().setValue(300'000, "arrangedObjects.pixelLimit");
    EXPECT_EQ(summary("Number of ports"), "3");
    window.document().setValue(1'000, "arrangedObjects.pixelLimit");
    EXPECT_TRUE(shows("port, over the limit"));
    click(window, "208 V");
    EXPECT_EQ(summary("Amperes"), "38.46 A");
    EXPECT_TRUE(shows("at 208 V, 1 phase"));
}

TEST_F(InspectorFiguresTest, DigitsOfAFigureStandInPlacesOfOneWidth)
{
    FigureLabel ones("Ones");
    FigureLabel eights("Eights");
    ones.setText("1,111");
    eights.setText("8,888");
    EXPECT_EQ(ones.sizeHint(), eights.sizeHint());
    EXPECT_GT(ones.fontMetrics().height(), QFontMetrics(window.font()).height());
}

TEST_F(InspectorFiguresTest, ACurrentBeyondCountingIsToldBesideIt)
{
    window.document().setValue(5'000'000, "arrangedObjects.powerOnCell"); // 200 MW
    EXPECT_EQ(summary("Power"), "1818181.88 A at 110 V, 1 phase");
    window.document().setValue(100'000'000, "arrangedObjects.powerOnCell"); // 4 GW
    EXPECT_EQ(summary("Power"), "-2681520.75 A at 110 V, 1 phase, beyond what can be counted");
    EXPECT_EQ(summary("Amperes"), "-2681520.75 A");
    EXPECT_TRUE(shows("beyond what can be counted"));
    EXPECT_TRUE(isShown("Warning"));
}
