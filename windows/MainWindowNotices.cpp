#include "windows/CanvasPane.h"
#include "windows/MainWindow.h"
#include "windows/NoticeBar.h"
#include "windows/PowerBar.h"

#include <QFileInfo>
#include <QLocale>
#include <QMenu>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

/// In the place of the one of the same kind that may still be there.
void MainWindow::showNotice(NoticeBar *notice, QPointer<NoticeBar> &place)
{
    delete place;
    place = notice;
    m_column->insertWidget(0, notice);
    notice->show();
}

void MainWindow::tellUnsavedWork()
{
    delete m_unsavedWork;
    const std::vector<FoundCopy> copies = m_document.recoverable();
    if (copies.empty())
        return;
    QStringList titles;
    for (const FoundCopy &copy : copies)
        titles.append(titleOf(copy));
    NoticeBar::Answer recover{"&Recover", "Opens the unsaved work in place of this document"};
    if (copies.size() == 1) {
        recover.act = [this, copy = copies.front()] { m_document.recover(copy); };
    } else {
        recover.menu = new QMenu(this);
        listUnsavedWork(*recover.menu);
    }
    showNotice(new NoticeBar("Unsaved work was left behind: " + titles.join("; "),
                             {recover, {"&Not now", "It stays in File > Recover"}}, centralWidget()),
               m_unsavedWork);
}

/// Later, since the menu that was chosen from may be the notice's.
void MainWindow::tellRemainingWork()
{
    if (m_unsavedWork)
        QTimer::singleShot(0, this, &MainWindow::tellUnsavedWork);
}

void MainWindow::tellChangedElsewhere(const QString &path)
{
    auto *notice = new NoticeBar(
        QString("%1 was changed by another program.").arg(QFileInfo(path).fileName()),
        {{"Save &anyway", "Replaces what the other program has saved", [this] { m_document.saveAnyway(); }},
         {"Save a&s...", "Keeps both", [this] { m_document.saveProject(); }},
         {"&Open theirs", "Opens the file as it is; undoing leads back here", [this] { m_document.openTheirs(); }}},
        centralWidget());
    // It is of no use any more when the document is saved under whatever name, or another one is open.
    connect(&m_document, &LWAppDelegate::projectPathDidChange, notice, &QObject::deleteLater);
    showNotice(notice, m_changedElsewhere);
}

QString MainWindow::titleOf(const FoundCopy &copy)
{
    const QString name =
        copy.project.path.isEmpty() ? QString(nameOfNewDocument) : QFileInfo(copy.project.path).fileName();
    return name + ", " + QLocale().toString(copy.time.toLocalTime(), QLocale::ShortFormat);
}

/// What stands on the wall, and what it cannot show: never told on the wall itself.
void MainWindow::showLive()
{
    m_canvasPane->showWords(m_desk.live().words());
    if (const QString problem = m_desk.live().problem(); std::exchange(m_wallProblem, problem) != problem)
        m_powerBar->showFault(&m_desk, problem); // once: what was told since then stays
}
