#include "windows/ports/ModelDialog.h"

#include "app/OwnModels.h"
#include "tests/windows/PortsFixture.h"
#include "windows/PowerBar.h"
#include "windows/inspector/NumberField.h"
#include "windows/ports/PortsPage.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>

namespace {
class ModelDialogTest : public PortsFixture
{
protected:
    ~ModelDialogTest() override { QDir(OwnModels::standardPath()).removeRecursively(); }

    QMenu &processors()
    {
        for (const QPushButton *button : window.findChild<PortsPage *>()->tools()->findChildren<QPushButton *>()) {
            if (button->menu())
                return *button->menu();
        }
        qFatal("there is no menu of processors");
    }
    /// The entries below "My own", as they are when the menu comes up.
    QList<QAction *> ownEntries()
    {
        emit processors().aboutToShow();
        for (const QAction *action : processors().actions()) {
            if (action->text() == OwnModel::family)
                return action->menu()->actions();
        }
        qFatal("there is no such entry");
    }
    ModelDialog &opened()
    {
        ownEntries().last()->trigger();
        QApplication::processEvents();
        return *window.findChild<ModelDialog *>();
    }
    static void type(ModelDialog &dialog, const QString &field, const QString &text)
    {
        for (QWidget *each : dialog.findChildren<QWidget *>()) {
            if (each->accessibleName() != field)
                continue;
            each->setFocus();
            QTest::keyClick(each, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(each, text);
            return;
        }
        FAIL() << qPrintable(field);
    }
    static QPushButton &ok(ModelDialog &dialog)
    {
        return *dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    }
    QString told() { return window.findChild<QLabel *>(PowerBar::messageName)->accessibleName(); }
    static void describe(ModelDialog &dialog, const QString &name)
    {
        type(dialog, "Name of the model", name);
        type(dialog, "Ports", "4");
        EXPECT_FALSE(ok(dialog).isEnabled());
        type(dialog, "Pixels per port", "500000");
        EXPECT_TRUE(ok(dialog).isEnabled());
    }
};
} // namespace

TEST_F(ModelDialogTest, AModelThatWasDescribedFeedsTheShowAndIsOfferedFromThenOn)
{
    ASSERT_EQ(ownEntries().size(), 2); // a line, and the one that describes another
    ModelDialog &dialog = opened();
    describe(dialog, "Box");
    type(dialog, "Panels per port", "12");
    QTest::mouseClick(&ok(dialog), Qt::LeftButton);
    QApplication::processEvents();

    ASSERT_EQ(document.wiring().processors().size(), 1);
    const ProcessorSettings &settings = document.wiring().processors().front();
    EXPECT_EQ(settings.model, "Box");
    EXPECT_EQ(settings.own.model()->ports, 4);
    EXPECT_EQ(PortBounds::of(settings, 2160)->maxPanels, 12);
    ASSERT_EQ(ownEntries().size(), 3);
    EXPECT_EQ(ownEntries().front()->text(), "Box");
    ownEntries().front()->trigger();
    EXPECT_EQ(document.wiring().processors().size(), 2);
    undo();
    undo();
    EXPECT_TRUE(document.wiring().processors().empty());
}

TEST_F(ModelDialogTest, WhatIsTakenBackInAFieldIsNoDescription)
{
    ModelDialog &dialog = opened();
    describe(dialog, "Box");
    type(dialog, "Pixels per port", "5x");
    EXPECT_FALSE(ok(dialog).isEnabled());
    type(dialog, "Pixels per port", "600000");
    EXPECT_TRUE(ok(dialog).isEnabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); // there was none before
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.description().pixels, 0);
    EXPECT_FALSE(ok(dialog).isEnabled());

    type(dialog, "Panels per port", "12");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    type(dialog, "Panels per port", "70x");
    EXPECT_EQ(dialog.description().maxPanelsPerPort, 12);
}

TEST_F(ModelDialogTest, ANameThatIsThereIsToldAndAddsNothing)
{
    ModelDialog &dialog = opened();
    describe(dialog, "MX40 Pro");
    QTest::mouseClick(&ok(dialog), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_TRUE(document.wiring().processors().empty());
    EXPECT_EQ(told(), "There is a model \"MX40 Pro\" already; choose another name.");
}

TEST_F(ModelDialogTest, AFileThatHoldsNoModelIsToldWhenTheOthersAreListed)
{
    const QString file = OwnModels::standardPath() + "/broken.json";
    ASSERT_TRUE(QDir().mkpath(OwnModels::standardPath()));
    QFile broken(file);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("{}");
    broken.close();
    EXPECT_EQ(ownEntries().size(), 2);
    EXPECT_TRUE(told().startsWith(file + " is no model of a processor: ")) << qPrintable(told());
}
