#include "tests/windows/InspectorFixture.h"

#include "formats/ProjectFile.h"
#include "still/LWStill.h"
#include "windows/inspector/ColourButton.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QToolButton>

bool InspectorFixture::isShown(const QString &name)
{
    for (const QWidget *found : inspector().findChildren<QWidget *>()) {
        if (found->accessibleName() == name && found->isVisibleTo(&inspector()))
            return true;
    }
    return false;
}

QString InspectorFixture::captionOf(const QString &name)
{
    for (const QLabel *label : inspector().findChildren<QLabel *>()) {
        if (label->buddy() && label->buddy()->accessibleName() == name && label->isVisibleTo(&inspector()))
            return label->text();
    }
    return {};
}

QString InspectorFixture::summary(const QString &name)
{
    for (const QLabel *label : inspector().findChildren<QLabel *>()) {
        if (label->accessibleName() == name && label->isVisibleTo(&inspector()))
            return label->text();
    }
    return {};
}

void InspectorFixture::type(NumberField &field, const QString &text)
{
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
}

void InspectorFixture::openColour(const QString &name, const Answer &given)
{
    QTest::mouseClick(&control<ColourButton>(name), Qt::LeftButton);
    QWidget *popover = QApplication::activePopupWidget();
    ASSERT_NE(popover, nullptr);
    EXPECT_FALSE(popover->isModal());
    given(*popover);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

void InspectorFixture::typeColour(QWidget &popover, const QColor &colour)
{
    auto *digits = popover.findChild<QLineEdit *>();
    digits->selectAll();
    QTest::keyClicks(digits, colour.name(QColor::HexArgb));
}

void InspectorFixture::chooseColour(const QString &name, const QColor &colour)
{
    openColour(name, [colour](QWidget &popover) {
        typeColour(popover, colour);
        QTest::keyClick(popover.findChild<QLineEdit *>(), Qt::Key_Return);
    });
}

void InspectorFixture::chooseFrom(const QString &button, const QString &entry)
{
    auto &opener = control<QToolButton>(button);
    bool isChosen = false;
    // The button waits until its menu has gone.
    QTimer::singleShot(0, &opener, [&] {
        QMenu &menu = *opener.menu();
        for (QAction *action : menu.actions()) {
            if (action->text() == entry) {
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
                isChosen = true;
            }
        }
        menu.close();
    });
    QTest::mouseClick(&opener, Qt::LeftButton);
    EXPECT_TRUE(isChosen) << "the menu has no entry " << qPrintable(entry);
}

QByteArray InspectorFixture::archive()
{
    const LWAppDelegate &document = window.document();
    return *ProjectFile::encode({document.OutputHeight(), document.OutputWidth(), document.allScreensArray()});
}

void InspectorFixture::addStill()
{
    QImage picture(40, 30, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::blue);
    list().insertObjectAtArrangedObjectIndex(LWStill::initWithimage(window.document(), picture), 1);
    window.document().finishEdit("add image");
    list().setSelectionIndex(1);
}
