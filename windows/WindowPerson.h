#pragma once

#include "app/Person.h"

#include <QAbstractFileIconProvider>
#include <QElapsedTimer>
#include <QObject>

#include <chrono>
#include <memory>
#include <optional>

class LWCanvasImageView;
class ProgressDialog;

/// The person at the main window, asked in panels and alerts over it. What the window itself has to do goes on as
/// signals.
class WindowPerson final : public QObject, public Person
{
    Q_OBJECT

public:
    /// `window` carries the panels and outlives this.
    explicit WindowPerson(QWidget &window);
    ~WindowPerson() override;

    /// Asks whether to do what cannot be undone; `button` says yes. Enter and Escape say no.
    bool confirm(const QString &message, const QString &informativeText, const QString &button);
    /// Offers to list the files alone that give what is wanted, and shows pictures in small.
    std::optional<QString> runModalOpenPanel(const OpenPurpose &purpose) override;
    std::optional<QString> runModalSavePanel(const SavePurpose &purpose) override;
    void alert(const QString &message, const QString &informativeText) override;
    void ask(const QString &message, const QString &informativeText, const QStringList &buttons) override;
    bool presentError(const QString &text) override;
    void beginSheet(Sheet sheet) override { emit sheetAsked(sheet); }
    void endSheet(Sheet sheet) override { emit sheetDone(sheet); }
    void showOutputPreview() override { emit outputPreviewAsked(); }
    void openWebAddress(const QString &address) override;
    void tellFailure(const QString &sentence) override { emit failureTold(sentence); }
    void tellStatus(const QString &sentence) override { emit statusTold(sentence); }
    /// Work that is done within `patience` shows nothing.
    bool showProgress(const QString &what, double done) override;
    static constexpr std::chrono::milliseconds patience{500};
    /// Where the output is looked at; outlives this, or is taken away with null.
    void setCanvas(LWCanvasImageView *canvas) { m_canvas = canvas; }
    QSizeF canvasFrameSize() const override;
    std::optional<QPoint> middleOfView() const override;
    /// The pixel of the output at a place in the canvas; nullopt where there is none.
    std::optional<QPoint> pixelAt(const QPointF &place) const;
    void noteRecentDocument(const QString &path) override;
    std::optional<Supply> lastSupply() const override;
    void noteSupply(const Supply &supply) override;
    void fileWasChangedElsewhere(const QString &path) override;
    /// The file that the document belongs to, which gives save panels their name; empty: none.
    void setFile(const QString &path) { m_file = path; }

signals:
    void sheetAsked(Sheet sheet);
    void sheetDone(Sheet sheet);
    void outputPreviewAsked();
    void failureTold(const QString &sentence);
    void statusTold(const QString &sentence);
    /// Person::fileWasChangedElsewhere().
    void fileChangedElsewhere(const QString &path);

private:
    QString proposedName(FileFormat::Kind kind) const;
    bool mayReplace(const QString &path);

    QWidget &m_window;
    LWCanvasImageView *m_canvas = nullptr;
    std::unique_ptr<QAbstractFileIconProvider> m_icons; ///< of the file panels
    QString m_file;                                     ///< the document's; empty while it has none
    QString m_folder;                                   ///< where the last panel was closed; null: the person's own
    QElapsedTimer m_workTime;                           ///< since the work began; invalid while there is none
    std::unique_ptr<ProgressDialog> m_progressDialog;
};
