#include "windows/ports/ProcessorDialog.h"

#include "tests/windows/PortsFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {
class ProcessorDialogTest : public PortsFixture
{
protected:
    ProcessorDialogTest()
    {
        settings.name = "A";
        settings.model = "MX40 Pro";
        settings.card = "other";
        dialog = std::make_unique<ProcessorDialog>(settings, QStringList{"B"}, window);
        dialog->open();
    }

    QComboBox &box(const QString &name)
    {
        for (QComboBox *found : dialog->findChildren<QComboBox *>()) {
            if (found->accessibleName() == name)
                return *found;
        }
        qFatal("there is no such choice");
    }
    void choose(const QString &name, int index)
    {
        box(name).setCurrentIndex(index);
        emit box(name).activated(index);
    }
    NumberField &field(const QString &name)
    {
        for (NumberField *found : dialog->findChildren<NumberField *>()) {
            if (found->accessibleName() == name)
                return *found;
        }
        qFatal("there is no such field");
    }
    QString said(const QString &name)
    {
        for (const QLabel *label : dialog->findChildren<QLabel *>()) {
            if (label->accessibleName() == name)
                return label->text();
        }
        return {};
    }
    QPushButton &ok() { return *dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok); }

    ProcessorSettings settings;
    std::unique_ptr<ProcessorDialog> dialog;
};
} // namespace

TEST_F(ProcessorDialogTest, SaysWhatAPortCarriesAndWhereThatIsFrom)
{
    EXPECT_EQ(said("Pixels per port"), "659,722 px per port, as printed.");
    EXPECT_TRUE(said("Source of the figure").startsWith("Source: ")) << qPrintable(said("Source of the figure"));
    choose("Frame rate", 8); // 100 Hz
    EXPECT_EQ(dialog->settings().rate, 100);
    EXPECT_NE(said("Pixels per port"), "659,722 px per port, as printed.");
}

TEST_F(ProcessorDialogTest, TakesAnyRateWithinReason)
{
    EXPECT_EQ(box("Frame rate").itemText(box("Frame rate").currentIndex()), "60 Hz");
    box("Frame rate").setEditText("47,95");
    EXPECT_EQ(dialog->settings().rate, 47.95);
    for (const char *wrong : {"12", "300", "fast", ""}) {
        box("Frame rate").setEditText(wrong);
        EXPECT_EQ(dialog->settings().rate, 47.95) << wrong;
        EXPECT_FALSE(ok().isEnabled()) << wrong;
        EXPECT_EQ(said("Pixels per port"), "The frame rate is a number from 23.976 to 240 Hz.");
    }
}

TEST_F(ProcessorDialogTest, AnotherModelHasItsOwnDepths)
{
    EXPECT_NE(box("Receiving card").itemText(0), "Makes no difference");
    QComboBox &models = box("Model");
    choose("Model", models.findData("VX1000"));
    EXPECT_EQ(dialog->settings().model, "VX1000");
    EXPECT_EQ(box("Receiving card").itemText(0), "Makes no difference");
    EXPECT_EQ(box("Colour depth").count(),
              static_cast<int>(ProcessorCatalogue::builtIn().model("VX1000")->bits.size()));
}

TEST_F(ProcessorDialogTest, DepthCardAndLowLatencyChangeWhatAPortCarries)
{
    choose("Colour depth", 1);
    EXPECT_EQ(dialog->settings().bits, 10);
    EXPECT_EQ(said("Pixels per port"), "329,861 px per port, as printed.");
    choose("Receiving card", box("Receiving card").findData("A10s Pro, A8s Pro"));
    EXPECT_EQ(dialog->settings().card, "A10s Pro, A8s Pro");
    EXPECT_EQ(said("Pixels per port"), "494,791 px per port, as printed.");

    choose("Model", box("Model").findData("Tessera SX40"));
    choose("Colour depth", 0);
    QTest::mouseClick(dialog->findChild<QCheckBox *>(), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(dialog->settings().lowLatency);
    EXPECT_EQ(said("Pixels per port"), "525,000 px per port, as printed; 262,500 px are left of them.");
}

TEST_F(ProcessorDialogTest, HeadroomIsTakenFromThePort)
{
    type(field("Headroom"), "5");
    EXPECT_EQ(dialog->settings().headroom, 5);
    EXPECT_EQ(said("Pixels per port"), "659,722 px per port, as printed; 626,735 px are left of them.");
}

TEST_F(ProcessorDialogTest, SaysOfEachFigureWhereItIsFrom)
{
    box("Frame rate").setEditText("100");
    EXPECT_EQ(said("Pixels per port"), "395,833 px per port, from the bandwidth.");
    type(field("Pixels per port, typed"), "500000");
    EXPECT_EQ(dialog->settings().capacity, 500'000);
    EXPECT_EQ(said("Pixels per port"), "500,000 px per port, typed by hand.");
    EXPECT_EQ(said("Source of the figure"), "");
    type(field("Pixels per port, typed"), "0");
    choose("Model", box("Model").findData("HELIOS 8K"));
    box("Frame rate").setEditText("55");
    EXPECT_EQ(said("Pixels per port"), "482,000 px per port, as printed for a higher rate.");
    EXPECT_TRUE(said("Source of the figure").startsWith("Source: ")) << qPrintable(said("Source of the figure"));
}

TEST_F(ProcessorDialogTest, WhatIsTakenBackInAFieldCountsNoLonger)
{
    QApplication::processEvents(); // the main window comes first
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    NumberField &headroom = field("Headroom");
    type(headroom, "12");
    QTest::keyClick(&headroom, Qt::Key_Escape);
    EXPECT_EQ(headroom.text(), "0 %");
    EXPECT_EQ(dialog->settings().headroom, 0);
    EXPECT_EQ(said("Pixels per port"), "659,722 px per port, as printed.");

    type(headroom, "150"); // is 15 on the way there
    EXPECT_EQ(dialog->settings().headroom, 0);
    type(headroom, "20");
    EXPECT_TRUE(headroom.hasFocus());
    QTest::keyClick(&headroom, Qt::Key_Tab);
    type(headroom, "30*");
    QTest::keyClick(&headroom, Qt::Key_Tab);
    EXPECT_EQ(dialog->settings().headroom, 20);

    NumberField &capacity = field("Pixels per port, typed");
    type(capacity, "500000");
    QTest::keyClick(&capacity, Qt::Key_Escape);
    EXPECT_EQ(dialog->settings().capacity, 0);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(ProcessorDialogTest, ANameIsNeededAndIsItsOwn)
{
    QLineEdit &name = *dialog->findChild<QLineEdit *>();
    name.setText("");
    EXPECT_FALSE(ok().isEnabled());
    name.setText("B");
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_EQ(said("Pixels per port"), "Another processor is called B.");
    name.setText("C");
    EXPECT_TRUE(ok().isEnabled());
    EXPECT_EQ(dialog->settings().name, "C");
}

TEST_F(ProcessorDialogTest, ASecondProcessorIsChosenOnlyWhereItIsTheBackup)
{
    EXPECT_FALSE(box("Second processor").isEnabled());
    choose("Backup", 2);
    EXPECT_TRUE(box("Second processor").isEnabled());
    choose("Second processor", 0);
    EXPECT_EQ(dialog->settings().backup, ProcessorSettings::Backup::SecondProcessor);
    EXPECT_EQ(dialog->settings().backupProcessor, "B");
}

TEST_F(ProcessorDialogTest, AnUnknownModelStaysAsItIsAndSaysSo)
{
    settings.model = "of nobody";
    ProcessorDialog other(settings, {}, window);
    EXPECT_EQ(other.settings(), settings);
}
