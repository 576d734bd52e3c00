#include "tests/soak/Bystander.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTest>

namespace {
constexpr const char *schemes[] = {"file", "http", "https"};
}

Bystander::Bystander(unsigned seed, const QStringList &names) : m_random(seed), m_names(names)
{
    for (const char *scheme : schemes)
        QDesktopServices::setUrlHandler(scheme, this, "showNothing");
    m_timer.setSingleShot(true); // one that goes on would not be due while an answer is given
    connect(&m_timer, &QTimer::timeout, this, &Bystander::look);
    m_timer.start(1);
}

Bystander::~Bystander()
{
    for (const char *scheme : schemes)
        QDesktopServices::unsetUrlHandler(scheme);
}

void Bystander::look()
{
    m_timer.start(1); // what an answer leads to may be asked for as well
    if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget()))
        return (void)menu->close();
    if (QWidget *dialog = QApplication::activeModalWidget())
        answer(*dialog);
}

void Bystander::answer(QWidget &dialog)
{
    auto *name = dialog.findChild<QLineEdit *>("fileNameEdit");
    if (name && number(5) > 0) {
        name->setText(m_names[number(static_cast<int>(m_names.size()) - 1)]);
        return static_cast<QDialog &>(dialog).accept();
    }
    const auto *box = qobject_cast<QMessageBox *>(&dialog);
    const QList<QAbstractButton *> buttons = box ? box->buttons() : QList<QAbstractButton *>();
    if (!buttons.isEmpty())
        return buttons[number(static_cast<int>(buttons.size()) - 1)]->click();
    dialog.close();
}
