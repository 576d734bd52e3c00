#include "app/OwnModels.h"
#include "app/Settings.h"
#include "base/FileBytes.h"
#include "cli/CommandLine.h"
#include "formats/PresetLibrary.h"
#include "formats/PresetStore.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "tests/faults/DocumentOperations.h"
#include "tests/faults/FaultShim.h"
#include "tests/faults/SampleShow.h"
#include "tests/formats/SampleProject.h"
#include "tests/screen/TestHost.h"

#include <QDir>
#include <QTextStream>

namespace {
void require(const Result<void> &done)
{
    if (!done)
        qFatal("%s", qUtf8Printable(done.error().text));
}

class SavingPresets final : public Operation
{
public:
    SavingPresets(const QString &folder, bool large) : m_store(folder + "/data/presets"), m_large(large) {}
    void start() override
    {
        m_presets = m_store.load(m_host).value().value();
        m_presets.resize(2); // a program before may have kept the third
        m_presets.push_back(samplePresets(m_host, m_large).front());
        m_presets.back()->setLabel(QString(m_large ? 1 << 20 : 8, 'q'));
    }
    Outcome run() override
    {
        const Result<void> saved = m_store.save(m_presets, m_host);
        return {saved.has_value(), false, saved ? QStringList() : QStringList(saved.error().text)};
    }

private:
    TestHost m_host;
    PresetStore m_store;
    std::vector<LayerPointer> m_presets;
    bool m_large;
};

/// The start of the program, which reads the presets.
class LoadingPresets final : public Operation
{
public:
    explicit LoadingPresets(const QString &folder) : m_store(folder + "/data/presets") {}
    Outcome run() override
    {
        Result<std::optional<std::vector<LayerPointer>>> loaded = m_store.load(m_host);
        if (!loaded)
            return {false, false, {loaded.error().text}};
        m_loaded = loaded->value_or(std::vector<LayerPointer>());
        return {true, false, {}};
    }
    QString memory() override
    {
        QString text;
        for (const LayerPointer &preset : m_loaded)
            text += archiveText(*preset);
        return text;
    }

private:
    TestHost m_host;
    PresetStore m_store;
    std::vector<LayerPointer> m_loaded;
};

OwnModel ownModel(const QString &name)
{
    return OwnModel::of({.name = name, .ports = 4, .pixels = 300'000}).value();
}

/// A model of processor that a person has described.
class KeepingModel final : public Operation
{
public:
    explicit KeepingModel(const QString &folder) : m_folder(folder + "/data/processors") {}
    void start() override { m_isThere = OwnModels::in(m_folder).models.size() == 2; }
    Outcome run() override
    {
        if (m_isThere) // kept once, it is there for all shows
            return {true, false, {}};
        const Result<void> kept = OwnModels::keep(ownModel("Crate"), m_folder);
        m_isThere = kept.has_value();
        return {m_isThere, false, kept ? QStringList() : QStringList(kept.error().text)};
    }

private:
    QString m_folder;
    bool m_isThere = false;
};

class LoadingModels final : public Operation
{
public:
    explicit LoadingModels(const QString &folder) : m_folder(folder + "/data/processors") {}
    Outcome run() override
    {
        m_found = OwnModels::in(m_folder);
        return {m_found.faults.empty(), !m_found.faults.empty(), m_found.faults};
    }
    QString memory() override
    {
        QByteArray text;
        for (const OwnModel &model : m_found.models)
            text += model.text();
        return QString::fromUtf8(text);
    }

private:
    QString m_folder;
    OwnModels::Found m_found;
};

/// A document whose unsaved work is kept.
class Keeping : public Operation
{
public:
    Keeping(const QString &folder, bool large)
        : m_folder(folder), m_show(sampleShow(m_host, folder, large)),
          m_copy([this] { return m_show; }, folder + "/recovery")
    {
        QObject::connect(&m_copy, &RecoveryCopy::couldNotKeep, &m_copy,
                         [this](const QString &sentence) { m_told.append(sentence); });
        m_copy.documentWasSaved({folder + "/stage.Orv", {}});
    }
    /// The person wants none of what a program before has left.
    void start() override
    {
        for (const FoundCopy &copy : m_copy.found())
            require(m_copy.discard(copy));
    }
    Outcome run() override
    {
        m_copy.contentDidChange();
        m_copy.flush();
        return takeOutcome();
    }

protected:
    Outcome takeOutcome()
    {
        const QStringList told = std::exchange(m_told, {});
        return {told.isEmpty(), false, told};
    }

    QString m_folder;
    TestHost m_host;
    Project m_show;
    RecoveryCopy m_copy;
    QStringList m_told;
};

class KeepingAgain final : public Keeping
{
public:
    using Keeping::Keeping;
    void start() override
    {
        Keeping::start();
        Keeping::run();
        m_show.layers.front()->setPowerOnCell(55);
    }
};

class NotKeepingAnyMore final : public Keeping
{
public:
    using Keeping::Keeping;
    void start() override
    {
        Keeping::start();
        Keeping::run();
    }
    Outcome run() override
    {
        m_copy.documentWasSaved({m_folder + "/stage.Orv", {}});
        return takeOutcome();
    }
};

class Remembering final : public Operation
{
public:
    Outcome run() override
    {
        Settings::noteRecentFile("/shows/new.Orv");
        return {true, true, {}};
    }
};

/// Reasons without what is told of a layered file that is whole, too.
QString withoutSizes(const QString &reasons)
{
    QStringList lines = reasons.split('\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) { return line.contains("went in at its own size"); });
    return lines.join('\n');
}

/// The program without a window.
class Commanding final : public Operation
{
public:
    explicit Commanding(const QStringList &arguments) : m_arguments(arguments) {}
    Outcome run() override
    {
        QString said;
        QString reasons;
        QTextStream out(&said);
        QTextStream err(&reasons);
        const ExitStatus status = runCommandLine(m_arguments, out, err);
        reasons = withoutSizes(reasons);
        const bool isWhole = status == ExitStatus::Done && reasons.isEmpty();
        return {isWhole, status == ExitStatus::Done && !isWhole, isWhole ? QStringList() : QStringList(reasons + said)};
    }

private:
    QStringList m_arguments;
};

/// Fills a folder in the ways that the operations ask for.
struct Filler
{
    QString folder;
    bool large;

    void show() const
    {
        TestHost host;
        const Project project = sampleShow(host, folder, large);
        require(ProjectFile::write(folder + "/stage.Orv", project));
        require(ProjectText::write(folder + "/stage.json", project));
    }
    void showAndOutputs() const
    {
        show();
        for (const char *name : {"/out.png", "/out.png.psd", "/out.psd", "/out.Orv", "/out.json", "/out.csv"})
            require(FileBytes::write(folder + name, "what stood there before"));
    }
    void presets() const
    {
        TestHost host;
        QDir().mkpath(folder + "/data");
        require(PresetLibrary::write(folder + "/data/presets", samplePresets(host, large)));
    }
    void models() const { require(OwnModels::keep(ownModel("Box"), folder + "/data/processors")); }
    void copy() const { require(Keeping(folder, large).run().isDone ? Result<void>() : fail("no copy")); }
    static void settings() { Settings::noteRecentFile("/shows/old.Orv"); }
};

template <typename Made, typename... Arguments>
std::function<std::unique_ptr<Operation>()> maker(Arguments... arguments)
{
    return [=] { return std::make_unique<Made>(arguments...); };
}

/// On a file system that has no files without names.
std::function<std::unique_ptr<Operation>()> onStick(const std::function<std::unique_ptr<Operation>()> &make)
{
    return [=] {
        FaultShim::nameAllFiles();
        return make();
    };
}

OperationKind converting(const Filler &filler, const char *name, const QString &output)
{
    const QString to = filler.folder + '/' + output;
    return {name, filler.folder, [=] { filler.showAndOutputs(); },
            maker<Commanding>(QStringList{"convert", filler.folder + "/stage.Orv", to})};
}
} // namespace

std::vector<OperationKind> operationsIn(const QString &folder, bool large)
{
    const Filler filler{folder, large};
    const auto show = [=] { filler.show(); };
    const auto outputs = [=] { filler.showAndOutputs(); };
    const auto presets = [=] { filler.presets(); };
    const auto models = [=] { filler.models(); };
    const auto recovery = [=] { QDir().mkpath(folder + "/recovery"); };
    const auto copy = [=] { filler.copy(); };
    return {
        {"open a project", "stage.Orv\nplate.png\nMAIN", show, maker<Opening>(folder, QString("stage.Orv"))},
        {"open a text", "stage.json\nplate.png\nMAIN", show, maker<Opening>(folder, QString("stage.json"))},
        {"save a project", "stage.Orv", show, maker<Saving>(folder)},
        {"save on a stick", "stage.Orv", show, onStick(maker<Saving>(folder))},
        {"export PNG", "out.png", outputs, maker<Exporting>(folder, &LWAppDelegate::saveAction)},
        {"export PSD", "out.png.psd", outputs, maker<Exporting>(folder, &LWAppDelegate::savePSD)},
        {"export on a stick", "out.png", outputs, onStick(maker<Exporting>(folder, &LWAppDelegate::saveAction))},
        {"edit", "", show, maker<Editing>(folder)},
        {"load presets", "presets", presets, maker<LoadingPresets>(folder)},
        {"save presets", "presets", presets, maker<SavingPresets>(folder, large)},
        {"load models", "processors", models, maker<LoadingModels>(folder)},
        {"keep a model", "processors", models, maker<KeepingModel>(folder)},
        {"keep a copy", "recovery", recovery, maker<Keeping>(folder, large)},
        {"keep it again", "project.Orv", [] {}, maker<KeepingAgain>(folder, large)},
        {"keep none any more", "project.Orv", [] {}, maker<NotKeepingAnyMore>(folder, large)},
        {"recover", "recovery\nMAIN", copy, maker<Recovering>(folder)},
        {"settings", "", &Filler::settings, maker<Remembering>()},
        converting(filler, "convert to PNG", "out.png"),
        converting(filler, "convert to PSD", "out.psd"),
        converting(filler, "convert to Orv", "out.Orv"),
        converting(filler, "convert to JSON", "out.json"),
        converting(filler, "convert to CSV", "out.csv"),
    };
}
