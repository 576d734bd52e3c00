#pragma once

#include "app/UserInterface.h"

#include <QAbstractFileIconProvider>
#include <QObject>

#include <memory>

/// What the document needs of a person, asked in panels and alerts over the main window; what it has to show goes on to
/// the views as signals.
class WindowInterface final : public QObject, public UserInterface
{
    Q_OBJECT

public:
    /// `window` carries the panels and outlives this.
    explicit WindowInterface(QWidget &window);
    ~WindowInterface() override;

    /// What the next save panel is for. The document appends the `extension` to the name that was typed; the panel asks
    /// before a file of that final name is replaced.
    void prepareSavePanel(const QString &title, const QString &extension);

    std::optional<QString> runModalOpenPanel() override;
    std::optional<QString> runModalSavePanel() override;
    void alert(const QString &message, const QString &informativeText) override;
    void tellFailure(const QString &sentence) override { emit failureTold(sentence); }
    void showOutput(const QImage &output) override { emit outputComposed(output); }
    void releaseOutput() override { emit outputReleased(); }
    void repaintCanvas() override { emit canvasRepaintAsked(); }
    /// No marker is shown yet, so there is none to hide.
    void hideRectangle() override {}
    void reloadTable() override { emit layersRendered(); }
    void showPowerResult(const QString &text) override { emit powerComputed(text); }
    void noteRecentDocument(const QString &path) override;

signals:
    void failureTold(const QString &sentence);
    void outputComposed(const QImage &output);
    void outputReleased();
    void canvasRepaintAsked();
    void layersRendered();
    void powerComputed(const QString &text);
    /// The document has this file now; it was opened or saved.
    void fileDidChange(const QString &path);

private:
    bool mayReplace(const QString &path);

    QWidget &m_window;
    std::unique_ptr<QAbstractFileIconProvider> m_icons; ///< of the file panels
    QString m_file;   ///< the document's; null while it has none
    QString m_folder; ///< where the last panel was closed; null: the person's own
    QString m_saveTitle;
    QString m_saveExtension;
};
