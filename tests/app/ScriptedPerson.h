#pragma once

#include "app/Person.h"

#include <QList>
#include <QStringList>

#include <set>

/// A person who does what the test wrote down, and remembers what was said.
class ScriptedPerson final : public Person
{
public:
    struct Alert
    {
        QString message;
        QString informativeText;
    };

    struct Question
    {
        QString message;
        QString informativeText;
        QStringList buttons;
    };

    std::optional<QString> runModalOpenPanel(const OpenPurpose &purpose) override
    {
        panelTitles.append(purpose.title);
        return openPanelAnswer;
    }
    std::optional<QString> runModalSavePanel(const SavePurpose &purpose) override
    {
        panelTitles.append(purpose.title);
        ++timesAskedWhereToSave;
        return savePanelAnswer;
    }
    void alert(const QString &message, const QString &informativeText) override
    {
        alerts.append({message, informativeText});
    }
    void ask(const QString &message, const QString &informativeText, const QStringList &buttons) override
    {
        questions.append({message, informativeText, buttons});
    }
    bool presentError(const QString &text) override
    {
        presentedErrors.append(text);
        return dealsWithErrors;
    }
    void beginSheet(Sheet sheet) override { sheets.insert(sheet); }
    void endSheet(Sheet sheet) override { sheets.erase(sheet); }
    void showOutputPreview() override { ++timesPreviewed; }
    void openWebAddress(const QString &address) override { webAddresses.append(address); }
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
    void releaseOutput() override
    {
        shownOutput = {};
        ++timesReleased;
    }
    void repaintCanvas() override { ++timesRepainted; }
    QSizeF canvasFrameSize() const override { return canvasFrame; }
    std::optional<QPoint> middleOfView() const override { return viewMiddle; }
    void setKScaleFactor(float factor) override { scaleFactor = factor; }
    void drawRectangle(const QRectF &rectangle) override { drawnRectangles.append(rectangle); }
    void showRectangle() override { isMarkerShown = true; }
    void hideRectangle() override
    {
        isMarkerShown = false;
        ++timesHidden;
    }
    void showPattern(int shown) override { pattern = shown; }
    void reloadTable() override { ++timesReloaded; }
    void showPowerResult(const QString &text) override { powerResult = text; }
    void noteRecentDocument(const QString &path) override { recentDocuments.append(path); }
    std::optional<Supply> lastSupply() const override { return supply; }
    void noteSupply(const Supply &chosen) override { supply = chosen; }
    void fileWasChangedElsewhere(const QString &path) override { filesChangedElsewhere.append(path); }

    std::optional<QString> openPanelAnswer; ///< nullopt: cancelled
    std::optional<QString> savePanelAnswer;
    double cancelsFrom = 2; ///< how much of a work is done when the person cancels it

    bool dealsWithErrors = false;

    QList<Alert> alerts;
    QList<Question> questions;
    QStringList presentedErrors;
    std::set<Sheet> sheets; ///< that are shown
    int timesPreviewed = 0;
    QStringList webAddresses;
    QStringList panelTitles;
    int timesAskedWhereToSave = 0;
    QStringList failures;
    QStringList statuses;
    QString progressTitle;
    QList<double> progress;
    QImage shownOutput;
    int timesShown = 0;
    int timesReleased = 0; ///< once before each composition
    int timesRepainted = 0;
    QSizeF canvasFrame{0, 0};         ///< 0 x 0: no canvas
    std::optional<QPoint> viewMiddle; ///< nullopt: no canvas
    float scaleFactor = 0;            ///< of the marker, as last given
    QList<QRectF> drawnRectangles;
    int timesHidden = 0;
    bool isMarkerShown = false;
    int pattern = -1; ///< whose button is on; -1: none was turned on
    int timesReloaded = 0;
    QString powerResult;
    QStringList recentDocuments;
    std::optional<Supply> supply; ///< that was chosen last
    QStringList filesChangedElsewhere;
};
