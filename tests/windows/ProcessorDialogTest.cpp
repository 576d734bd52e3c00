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
        dialog->show();
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
