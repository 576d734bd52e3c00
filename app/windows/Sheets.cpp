#include "app/windows/Sheets.h"

#include "app/LWAppDelegate.h"
#include "ui_About.h"
#include "ui_AddWindow.h"
#include "ui_HelpWindow.h"

#include <QApplication>
#include <QDialog>
#include <QIcon>

namespace {
constexpr QSize iconSize{96, 96};

std::size_t indexOf(UserInterface::Sheet sheet)
{
    return static_cast<std::size_t>(sheet);
}
} // namespace

Sheets::Sheets(LWAppDelegate &document, QWidget &window) : m_document(document), m_window(window) {}

void Sheets::begin(UserInterface::Sheet sheet)
{
    QDialog *&dialog = m_dialogs[indexOf(sheet)];
    if (!dialog)
        dialog = make(sheet);
    dialog->open();
}

void Sheets::end(UserInterface::Sheet sheet)
{
    if (QDialog *dialog = m_dialogs[indexOf(sheet)])
        dialog->hide();
}

QDialog *Sheets::make(UserInterface::Sheet sheet)
{
    switch (sheet) {
    case UserInterface::Sheet::AddWindow:
        return makeAddWindow();
    case UserInterface::Sheet::About:
        return makeAbout();
    case UserInterface::Sheet::Help:
        break;
    }
    return makeHelp();
}

QDialog *Sheets::makeAddWindow()
{
    auto *dialog = new QDialog(&m_window);
    Ui::AddWindow form;
    form.setupUi(dialog);
    connect(form.addScreen, &QPushButton::clicked, &m_document, &LWAppDelegate::AddScreen);
    connect(form.addImage, &QPushButton::clicked, this, [this] {
        emit imageAsked();
        m_document.AddImage();
    });
    connect(form.cancel, &QPushButton::clicked, &m_document, &LWAppDelegate::CancelAddWindow);
    return dialog;
}

QDialog *Sheets::makeAbout()
{
    auto *dialog = new QDialog(&m_window);
    Ui::About form;
    form.setupUi(dialog);
    form.icon->setPixmap(m_window.windowIcon().pixmap(iconSize, m_window.devicePixelRatioF()));
    form.version->setText("Wallwright " WALLWRIGHT_VERSION);
    connect(form.home, &QPushButton::clicked, &m_document, &LWAppDelegate::Orvurllink);
    connect(form.software, &QPushButton::clicked, &m_document, &LWAppDelegate::orvsoftwareurl);
    connect(form.close, &QPushButton::clicked, &m_document, &LWAppDelegate::closeAbout);
    return dialog;
}

QDialog *Sheets::makeHelp()
{
    auto *dialog = new QDialog(&m_window);
    Ui::HelpWindow form;
    form.setupUi(dialog);
    form.close->setFocus(); // Enter does not leave for the browser
    connect(form.web, &QPushButton::clicked, &m_document, &LWAppDelegate::orvsoftwarehelpurl);
    connect(form.close, &QPushButton::clicked, &m_document, &LWAppDelegate::closeHelp);
    return dialog;
}
