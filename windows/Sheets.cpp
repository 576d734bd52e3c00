#include "windows/Sheets.h"

#include "app/LWAppDelegate.h"
#include "ui_About.h"
#include "ui_AddWindow.h"
#include "windows/HelpWindow.h"

#include <QApplication>
#include <QDialog>
#include <QIcon>

namespace {
constexpr QSize aboutIconSize{96, 96};

std::size_t indexOf(Person::Sheet sheet)
{
    return static_cast<std::size_t>(sheet);
}
} // namespace

Sheets::Sheets(LWAppDelegate &document, QWidget &window) : m_document(document), m_window(window) {}

Sheets::~Sheets() = default;

void Sheets::begin(Person::Sheet sheet)
{
    if (sheet == Person::Sheet::Help)
        return showHelp();
    QDialog *&dialog = m_dialogs[indexOf(sheet)];
    if (!dialog)
        dialog = make(sheet);
    dialog->open();
}

void Sheets::end(Person::Sheet sheet)
{
    QWidget *shown = sheet == Person::Sheet::Help ? m_help.get() : nullptr;
    if (sheet != Person::Sheet::Help)
        shown = m_dialogs[indexOf(sheet)];
    if (shown)
        shown->hide();
}

QDialog *Sheets::make(Person::Sheet sheet)
{
    return sheet == Person::Sheet::AddWindow ? makeAddWindow() : makeAbout();
}

QDialog *Sheets::makeAddWindow()
{
    auto *dialog = new QDialog(&m_window);
    Ui::AddWindow form;
    form.setupUi(dialog);
    connect(form.addScreen, &QPushButton::clicked, &m_document, &LWAppDelegate::AddScreen);
    connect(form.addImage, &QPushButton::clicked, &m_document, &LWAppDelegate::AddImage);
    connect(form.cancel, &QPushButton::clicked, &m_document, &LWAppDelegate::CancelAddWindow);
    return dialog;
}

QDialog *Sheets::makeAbout()
{
    auto *dialog = new QDialog(&m_window);
    Ui::About form;
    form.setupUi(dialog);
    form.icon->setPixmap(m_window.windowIcon().pixmap(aboutIconSize, m_window.devicePixelRatioF()));
    form.version->setText("Wallwright " WALLWRIGHT_VERSION);
    for (QWidget *page : {form.home, form.software})
        page->setVisible(LWAppDelegate::hasWebPages());
    connect(form.home, &QPushButton::clicked, &m_document, &LWAppDelegate::Orvurllink);
    connect(form.software, &QPushButton::clicked, &m_document, &LWAppDelegate::orvsoftwareurl);
    form.close->setFocus(); // Enter does not leave for the browser
    connect(form.close, &QPushButton::clicked, &m_document, &LWAppDelegate::closeAbout);
    return dialog;
}

void Sheets::showHelp()
{
    if (!m_help)
        m_help = std::make_unique<HelpWindow>();
    m_help->setWindowIcon(m_window.windowIcon());
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}
