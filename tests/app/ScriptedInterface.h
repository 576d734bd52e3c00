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
    std::optional<QString> runModalSavePanel() override { return savePanelAnswer; }
    void alert(const QString &message, const QString &informativeText) override
    {
        alerts.append({message, informativeText});
    }
    void tellFailure(const QString &sentence) override { failures.append(sentence); }
    void showOutput(const QImage &output) override
    {
        shownOutput = output;
        ++timesShown;
    }
    void releaseOutput() override { shownOutput = {}; }
    void repaintCanvas() override { ++timesRepainted; }
    void hideRectangle() override { ++timesHidden; }
    void reloadTable() override { ++timesReloaded; }
    void showPowerResult(const QString &text) override { powerResult = text; }
    void noteRecentDocument(const QString &path) override { recentDocuments.append(path); }

    std::optional<QString> openPanelAnswer; ///< nullopt: cancelled
    std::optional<QString> savePanelAnswer;

    QList<Alert> alerts;
    QStringList failures;
    QImage shownOutput;
    int timesShown = 0;
    int timesRepainted = 0;
    int timesHidden = 0;
    int timesReloaded = 0;
    QString powerResult;
    QStringList recentDocuments;
};
