#pragma once

#include "app/LWAppDelegate.h"
#include "facts/MissingPicture.h"
#include "still/LWStill.h"
#include "tests/app/ScriptedPerson.h"
#include "tests/faults/Operation.h"
#include "tests/formats/SampleProject.h"

#include <QCryptographicHash>

#include <optional>
#include <utility>

// What a person does with a document, for Operations.cpp.

/// What the person was told of failures since the last call.
inline QStringList takeTold(ScriptedPerson &person)
{
    QStringList told = std::exchange(person.failures, {});
    for (const ScriptedPerson::Alert &alert : std::exchange(person.alerts, {}))
        told.append(alert.message);
    for (const QString &path : std::exchange(person.filesChangedElsewhere, {}))
        told.append(path + ": changed elsewhere");
    return told;
}

/// A document before a person.
class DocumentOperation : public Operation
{
public:
    explicit DocumentOperation(const QString &folder) : m_folder(folder) {}
    void start() override
    {
        m_document.emplace(m_person, QString());
        m_document->applicationDidFinishLaunching();
    }

protected:
    QString path(const QString &name) const { return m_folder + '/' + name; }
    void open(const QString &name) { m_document->openProjectPre(path(name)); }
    Outcome outcome()
    {
        const QStringList told = takeTold(m_person);
        return {told.isEmpty(), false, told};
    }

    QString m_folder;
    ScriptedPerson m_person;
    std::optional<LWAppDelegate> m_document;
};

class Saving final : public DocumentOperation
{
public:
    using DocumentOperation::DocumentOperation;
    void start() override
    {
        DocumentOperation::start();
        open("stage.Orv");
        m_document->setValue(77, "arrangedObjects.powerOnCell");
    }
    Outcome run() override
    {
        m_document->save();
        return outcome();
    }
};

class Opening final : public DocumentOperation
{
public:
    Opening(const QString &folder, const QString &name) : DocumentOperation(folder), m_name(name) {}
    Outcome run() override
    {
        open(m_name);
        Outcome opened = outcome();
        for (const LayerPointer &layer : m_document->allScreensArray()) {
            const auto *still = qobject_cast<const LWStill *>(layer.get());
            const auto missing = still ? MissingPicture::reason(*still) : std::nullopt;
            if (missing) // the layer's row and the checks of the show tell it
                opened = {false, true, opened.told + QStringList(*missing)};
        }
        return opened;
    }
    QString memory() override { return archiveText(m_document->project()); }

private:
    QString m_name;
};

class Exporting final : public DocumentOperation
{
public:
    using Action = void (LWAppDelegate::*)();
    Exporting(const QString &folder, Action action) : DocumentOperation(folder), m_action(action) {}
    void start() override
    {
        DocumentOperation::start();
        open("stage.Orv");
        m_person.savePanelAnswer = path("out.png"); // the layered one gets ".psd" behind it
    }
    Outcome run() override
    {
        (*m_document.*m_action)();
        return outcome();
    }

private:
    Action m_action;
};

/// Edits that draw and compose; nothing is read or written.
class Editing final : public DocumentOperation
{
public:
    using DocumentOperation::DocumentOperation;
    void start() override
    {
        DocumentOperation::start();
        open("stage.Orv");
    }
    Outcome run() override
    {
        m_document->tableViewSelectionDidChange(1);
        for (const auto &[value, key] : {std::pair(91, "arrangedObjects.panelWidth"), std::pair(1400, "OutputWidth")}) {
            m_document->setValue(value, key);
            m_document->timerupdate();
            m_document->update();
        }
        m_document->copyToPasteboard();
        m_document->undoStack().undo();
        m_document->undoStack().redo();
        return {true, true, takeTold(m_person)};
    }
    QString memory() override
    {
        m_document->timerupdate();
        m_document->update();
        const QImage picture = m_document->offscreenRep().copy();
        QCryptographicHash hash(QCryptographicHash::Sha256);
        hash.addData(QByteArrayView(picture.constBits(), picture.sizeInBytes()));
        return archiveText(m_document->project()) + QString::fromLatin1(hash.result().toHex());
    }
};

/// The next program takes what another has left.
class Recovering final : public DocumentOperation
{
public:
    using DocumentOperation::DocumentOperation;
    void start() override
    {
        m_document.emplace(m_person, path("recovery"));
        m_document->applicationDidFinishLaunching();
    }
    Outcome run() override
    {
        const std::vector<FoundCopy> found = m_document->recoverable();
        if (found.empty()) // held by this program once it was taken
            return {m_isTaken, false, {path("recovery")}};
        m_document->recover(found.front());
        Outcome recovered = outcome();
        m_isTaken = m_document->recoverable().empty();
        return recovered;
    }
    QString memory() override { return archiveText(m_document->project()); }

private:
    bool m_isTaken = false;
};
