#pragma once

#include "app/UserInterface.h"

#include <QList>
#include <QStringList>

/// A person who does what the test wrote down, and remembers what was said.
class ScriptedInterface final : public UserInterface
{
public:
    struct Alert
    {
        QString message;
        QString informativeText;
    };

    std::optional<QString> runModalOpenPanel() override { return openPanelAnswer; }
    std::optional<QString> runModalSavePanel() override
    {
        ++timesAskedWhereToSave;
        return savePanelAnswer;
    }
    void alert(const QString &message, const QString &informativeText) override
    {
        alerts.append({message, informativeText});
    }
    void tellFailure(const QString &sentence) override { failures.append(sentence); }
    void tellStatus(const QString &sentence) override { statuses.append(sentence); }
    bool showProgress(const QString &what, double done) override
    {
        progressTitle = what;
        progress.append(done);
        return done < cancelsFrom;
    }
    void showOutput(const QImage &output) override
    {
        shownOutput = output;
        ++timesShown;
    }
    void releaseOutput() override { shownOutput = {}; }
    void repaintCanvas() override { ++timesRepainted; }
    QSizeF canvasFrameSize() const override { return canvasFrame; }
    void setKScaleFactor(float factor) override { scaleFactor = factor; }
    void drawRectangle(const QRectF &rectangle) override { drawnRectangles.append(rectangle); }
    void hideRectangle() override { ++timesHidden; }
    void reloadTable() override { ++timesReloaded; }
    void showPowerResult(const QString &text) override { powerResult = text; }
    void noteRecentDocument(const QString &path) override { recentDocuments.append(path); }

    std::optional<QString> openPanelAnswer; ///< nullopt: cancelled
    std::optional<QString> savePanelAnswer;
    double cancelsFrom = 2; ///< how much of a work is done when the person cancels it

    QList<Alert> alerts;
    int timesAskedWhereToSave = 0;
    QStringList failures;
    QStringList statuses;
    QString progressTitle;
    QList<double> progress;
    QImage shownOutput;
    int timesShown = 0;
    int timesRepainted = 0;
    QSizeF canvasFrame{0, 0}; ///< 0 x 0: no canvas
    float scaleFactor = 0;    ///< of the marker, as last given
    QList<QRectF> drawnRectangles;
    int timesHidden = 0;
    int timesReloaded = 0;
    QString powerResult;
    QStringList recentDocuments;
};
