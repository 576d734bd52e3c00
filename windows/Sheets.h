#pragma once

#include "app/Person.h"

#include <QObject>

#include <array>
#include <memory>

class HelpWindow;
class LWAppDelegate;
class QDialog;
class QWidget;

/// The sheets over the main window, each made when it is first shown; help is a window beside it. Their buttons are the
/// document's actions.
class Sheets final : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this; `window` is what the sheets are shown over.
    Sheets(LWAppDelegate &document, QWidget &window);
    ~Sheets() override;

    void begin(Person::Sheet sheet);
    void end(Person::Sheet sheet);

private:
    QDialog *make(Person::Sheet sheet);
    QDialog *makeAddWindow();
    QDialog *makeAbout();
    void showHelp();

    LWAppDelegate &m_document;
    QWidget &m_window;
    std::array<QDialog *, 2> m_dialogs{}; ///< by Person::Sheet; the window owns them
    std::unique_ptr<HelpWindow> m_help;
};
