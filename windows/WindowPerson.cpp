#include "windows/WindowPerson.h"

#include "app/Settings.h"
#include "canvas/LWCanvasImageView.h"
#include "windows/ProgressDialog.h"
#include "windows/inspector/PicturePreview.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTreeView>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace {
/// Wide enough for a long name, its size and its date.
constexpr QSize panelSize{880, 520};
constexpr char allFiles[] = "All files (*)";

/// Tells files by their names. Qt's own provider reads each file to tell its kind, and waits for ever for those that
/// only speak when there is news, such as some of the system's.
class NameIcons final : public QFileIconProvider
{
public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo &info) const override { return icon(info.isDir() ? Folder : File); }
    QString type(const QFileInfo &info) const override
    {
        return info.isDir() ? QString("Folder") : QString("%1 file").arg(info.suffix()).trimmed();
    }
};

QString startFolder(const QString &lastFolder)
{
    return lastFolder.isNull() ? QDir::homePath() : lastFolder;
}

/// Qt's own panel, so that it looks like the rest. Any file can be chosen in it.
void setUp(QFileDialog &panel, QAbstractFileIconProvider &icons)
{
    panel.setOption(QFileDialog::DontUseNativeDialog);
    panel.setIconProvider(&icons);
    panel.setViewMode(QFileDialog::Detail);
    panel.resize(panelSize);
    if (auto *list = panel.findChild<QTreeView *>("treeView")) {
        list->header()->setStretchLastSection(false);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch); // the name
    }
}

/// To list, beside all files, those that give what is wanted.
QStringList filtersFor(FileFormat::Gives wanted)
{
    const QStringList patterns = FileFormat::patternsOf(wanted);
    if (patterns.isEmpty())
        return {allFiles};
    const QString content = wanted == FileFormat::Gives::Project ? "Projects" : "Pictures";
    return {allFiles, content + " (" + patterns.join(' ') + ')'};
}

/// Beside the list of files.
void addPreview(QFileDialog &panel)
{
    auto *layout = qobject_cast<QGridLayout *>(panel.layout());
    if (!layout)
        return;
    auto *preview = new PicturePreview;
    layout->addWidget(preview, 1, layout->columnCount());
    QObject::connect(&panel, &QFileDialog::currentChanged, preview, &PicturePreview::showFile);
    panel.resize(panel.size() + QSize(preview->width(), 0));
}

/// The message as it is, whatever signs are in it.
void setUp(QMessageBox &box, const QString &informativeText)
{
    constexpr int iconSize = 48;
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(informativeText);
    box.setIconPixmap(box.windowIcon().pixmap(QSize(iconSize, iconSize), box.devicePixelRatioF()));
}

/// With its frame, which is as thick as that of the window, a panel takes no more than the screen has.
std::optional<QString> run(QFileDialog &panel)
{
    const QWidget &window = *panel.parentWidget();
    panel.resize(panel.size().boundedTo(window.screen()->availableSize() - window.frameSize() + window.size()));
    if (panel.exec() != QDialog::Accepted || panel.selectedFiles().isEmpty())
        return std::nullopt;
    return panel.selectedFiles().constFirst();
}
} // namespace

WindowPerson::WindowPerson(QWidget &window) : m_window(window), m_icons(std::make_unique<NameIcons>()) {}

WindowPerson::~WindowPerson() = default;

QString WindowPerson::proposedName(FileFormat::Kind kind) const
{
    if (kind == FileFormat::Kind::Presets)
        return "Presets";
    const FileFormat &format = FileFormat::of(kind);
    const QString name = m_file.isEmpty() ? QString("Untitled") : QFileInfo(m_file).completeBaseName();
    return format.appended == FileFormat::Appended::Always ? name : name + '.' + format.extension;
}

std::optional<QString> WindowPerson::runModalOpenPanel(const OpenPurpose &purpose)
{
    QFileDialog panel(&m_window, purpose.title, startFolder(m_folder));
    setUp(panel, *m_icons);
    panel.setFileMode(QFileDialog::ExistingFile);
    panel.setNameFilters(filtersFor(purpose.wanted));
    if (purpose.wanted == FileFormat::Gives::Layer)
        addPreview(panel);
    std::optional<QString> path = run(panel);
    if (path)
        m_folder = QFileInfo(*path).path();
    return path;
}

std::optional<QString> WindowPerson::runModalSavePanel(const SavePurpose &purpose)
{
    QFileDialog panel(&m_window, purpose.title, startFolder(m_folder));
    setUp(panel, *m_icons);
    panel.setAcceptMode(QFileDialog::AcceptSave);
    panel.setFileMode(QFileDialog::AnyFile);
    const FileFormat &format = FileFormat::of(purpose.format);
    if (const QString extension = format.extension; !extension.isEmpty())
        panel.setNameFilters({allFiles, QString("%1 files (*.%1)").arg(extension)});
    // Qt would ask about the name as it was typed, which is not the file that is replaced.
    panel.setOption(QFileDialog::DontConfirmOverwrite);
    panel.selectFile(proposedName(purpose.format));

    std::optional<QString> path = run(panel);
    while (path && !mayReplace(format.finalPath(*path)))
        path = run(panel);
    if (path)
        m_folder = QFileInfo(*path).path();
    return path;
}

bool WindowPerson::mayReplace(const QString &path)
{
    const QFileInfo file(path);
    if (!file.isFile())
        return true; // new, or a folder: the document tells that this cannot be written
    return confirm(QString("\"%1\" exists already.").arg(file.fileName()), "Replacing it cannot be undone.", "Replace");
}

bool WindowPerson::confirm(const QString &message, const QString &informativeText, const QString &button)
{
    QMessageBox question(QMessageBox::NoIcon, "Wallwright", message, QMessageBox::Cancel, &m_window);
    setUp(question, informativeText);
    const QPushButton *yes = question.addButton(button, QMessageBox::AcceptRole);
    question.setDefaultButton(QMessageBox::Cancel);
    question.exec();
    return question.clickedButton() == yes;
}

void WindowPerson::alert(const QString &message, const QString &informativeText)
{
    QMessageBox box(QMessageBox::NoIcon, "Wallwright", message, QMessageBox::Ok, &m_window);
    setUp(box, informativeText);
    box.exec();
}

void WindowPerson::ask(const QString &message, const QString &informativeText, const QStringList &buttons)
{
    QMessageBox box(QMessageBox::NoIcon, "Wallwright", message, QMessageBox::NoButton, &m_window);
    setUp(box, informativeText);
    for (const QString &button : buttons)
        box.addButton(button, QMessageBox::ActionRole);
    box.exec();
}

bool WindowPerson::presentError(const QString &text)
{
    alert(text, {});
    return true;
}

void WindowPerson::openWebAddress(const QString &address)
{
    if (!QDesktopServices::openUrl(QUrl(address)))
        tellFailure("Cannot open " + address + "; open it in a browser.");
}

bool WindowPerson::showProgress(const QString &what, double done)
{
    if (done >= 1) {
        m_workTime.invalidate();
        m_progressDialog.reset();
        return true;
    }
    if (!m_workTime.isValid())
        m_workTime.start();
    // No event is handled before the dialog is there to keep input from the window.
    if (!m_progressDialog && m_workTime.hasExpired(patience.count()))
        m_progressDialog = std::make_unique<ProgressDialog>(what, m_window);
    if (!m_progressDialog)
        return true;
    m_progressDialog->showDone(done);
    return !m_progressDialog->isCancelled();
}

QSizeF WindowPerson::canvasFrameSize() const
{
    return m_canvas ? m_canvas->fittedSize() : QSizeF(0, 0);
}

std::optional<QPoint> WindowPerson::pixelAt(const QPointF &place) const
{
    return m_canvas ? m_canvas->pixelAt(place) : std::nullopt;
}

/// The output's own middle, where a pixel of the view does not tell them apart: what is as large as the output covers
/// it then.
std::optional<QPoint> WindowPerson::middleOfView() const
{
    const std::optional<QPoint> middle = m_canvas ? m_canvas->pixelAt(QRectF(m_canvas->rect()).center()) : std::nullopt;
    if (!middle)
        return std::nullopt;
    const QSize output = m_canvas->readOut().output;
    const QPoint ofOutput(output.width() / 2, output.height() / 2);
    const QSizeF shown = m_canvas->frame().size();
    const QPoint way = *middle - ofOutput;
    const bool isOutputs = std::abs(way.x()) <= std::max(1.0, output.width() / shown.width()) &&
                           std::abs(way.y()) <= std::max(1.0, output.height() / shown.height());
    return isOutputs ? ofOutput : *middle;
}

void WindowPerson::noteRecentDocument(const QString &path)
{
    m_folder = QFileInfo(path).absolutePath();
    Settings::noteRecentFile(path);
}

std::optional<Supply> WindowPerson::lastSupply() const
{
    return Settings::supply();
}

void WindowPerson::noteSupply(const Supply &supply)
{
    Settings::setSupply(supply);
}

void WindowPerson::fileWasChangedElsewhere(const QString &path)
{
    emit fileChangedElsewhere(path);
}
