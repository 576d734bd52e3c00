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
    QSizeF canvasFrameSize() const override { return canvasFrame; }
    std::optional<QPoint> middleOfView() const override { return viewMiddle; }
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
    QSizeF canvasFrame{0, 0};         ///< 0 x 0: no canvas
    std::optional<QPoint> viewMiddle; ///< nullopt: no canvas
    QStringList recentDocuments;
    std::optional<Supply> supply; ///< that was chosen last
    QStringList filesChangedElsewhere;
};
