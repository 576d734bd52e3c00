#include "formats/PresetLibrary.h"
#include "formats/ProjectFile.h"
#include "still/LWStill.h"
#include "tests/app/RandomWalk.h"

#include <QCoreApplication>
#include <QMetaProperty>

#include <gtest/gtest.h>
#include <limits>
#include <numeric>

namespace {
/// More than this many layers or presets are only a longer walk.
constexpr int mostRows = 6;
} // namespace

const std::vector<RandomWalk::Action> RandomWalk::actions{
    {"edit property", 200, &RandomWalk::editProperty},
    {"type on", 60, &RandomWalk::typeOn},
    {"edit in table", 30, &RandomWalk::editInTable},
    {"edit preset", 10, &RandomWalk::editPreset},
    {"lock aspect", 30, &RandomWalk::lockAspect},
    {"toggle panel", 60, &RandomWalk::togglePanel},
    {"move layer", 60, &RandomWalk::moveLayer},
    {"choose pattern", 20, &RandomWalk::choosePattern},
    {"edit output size", 20, &RandomWalk::editOutputSize},
    {"add screen", 40, &RandomWalk::addScreen},
    {"add image", 20, &RandomWalk::addImage},
    {"add chart", 20, &RandomWalk::addChart},
    {"choose chart", 30, &RandomWalk::chooseChart},
    {"remove", 30, &RandomWalk::remove},
    {"remove preset", 10, &RandomWalk::removePreset},
    {"duplicate", 30, &RandomWalk::duplicate},
    {"select", 100, &RandomWalk::select},
    {"select several", 40, &RandomWalk::selectSeveral},
    {"begin drag", 60, &RandomWalk::beginDrag},
    {"drop", 50, &RandomWalk::drop},
    {"undo", 120, &RandomWalk::undo},
    {"redo", 60, &RandomWalk::redo},
    {"end typing", 20, &RandomWalk::endTyping},
    {"update", 40, &RandomWalk::update},
    {"compose", 60, &RandomWalk::compose},
    {"run events", 40, &RandomWalk::runEvents},
    {"save project", 6, &RandomWalk::saveProject},
    {"save", 10, &RandomWalk::save},
    {"open project", 12, &RandomWalk::openProject},
    {"save presets", 4, &RandomWalk::savePresets},
    {"open presets", 6, &RandomWalk::openPresets},
    {"export PNG", 2, &RandomWalk::exportPng},
    {"export PSD", 1, &RandomWalk::exportPsd},
    {"recover", 3, &RandomWalk::recover},
    {"add or remove processor", 16, &RandomWalk::addOrRemoveProcessor},
    {"change processor", 12, &RandomWalk::changeProcessor},
    {"edit wiring", 60, &RandomWalk::editWiring},
    {"lay cable", 60, &RandomWalk::layCable},
    {"edit cables", 40, &RandomWalk::editCables},
    {"take automatic cables", 20, &RandomWalk::takeAutomaticCables},
    {"keep ports", 10, &RandomWalk::keepPorts},
    {"feed panels", 20, &RandomWalk::feedPanels},
};

void RandomWalk::editProperty()
{
    if (!selected() || m_values.oneIn(30)) {
        EXPECT_FALSE(m_document->setValue(1, m_values.oneIn(2) ? "arrangedObjects.nothing" : "nothing"));
        return;
    }
    const QMetaObject &meta = *selected()->metaObject();
    const QMetaProperty property =
        meta.property(m_values.number(Layer::staticMetaObject.propertyOffset(), meta.propertyCount() - 1));
    const QByteArray name = property.name();
    const bool isMadeByRendering = name == "thumbnail" || name.startsWith("screenSize");
    const bool isLostInFiles = name == "rectColor2" && meta.inherits(&LWStill::staticMetaObject);
    if (isMadeByRendering || isLostInFiles || property.typeId() == QMetaType::QObjectStar)
        return;
    const QVariant value = m_values.valueFor(property, {pathOf("plate.png"), pathOf("missing.png")});
    m_document->setValue(value, LayerList::keyPathPrefix + QString(name));
}

void RandomWalk::typeOn()
{
    const QString keyPath =
        m_values.oneOf<QString>({"arrangedObjects.panelWidth", "arrangedObjects.label", "arrangedObjects.xpoint"});
    m_document->setValue(m_values.number(1, 20), keyPath);
}

void RandomWalk::editInTable()
{
    const QModelIndex row = layers().index(m_values.number(-1, layers().rowCount()));
    if (m_values.oneIn(2))
        layers().setData(row, m_values.oneIn(2) ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    else
        layers().setData(row, QString("Wall %1").arg(m_values.number(1, 9)), Qt::EditRole);
}

void RandomWalk::editPreset()
{
    presets().setValue(QString("Preset %1").arg(m_values.number(1, 9)), "arrangedObjects.label");
}

void RandomWalk::lockAspect()
{
    if (m_values.oneIn(2))
        m_document->setValue(QSizeF(m_values.number(0, 3), m_values.number(1, 3)), "arrangedObjects.aspectValue");
    else
        m_document->setValue(!m_values.oneIn(3), "arrangedObjects.aspectRatio");
}

void RandomWalk::togglePanel()
{
    if (!selected())
        return;
    selected()->onImageClick(m_values.number(-20, 300), m_values.number(-20, 300));
    m_document->finishEdit("Panel");
}

void RandomWalk::moveLayer()
{
    if (!selected())
        return;
    selected()->setXpoint(m_values.number(-50, 200));
    selected()->setYpoint(m_values.number(-50, 200));
    m_document->finishEdit("Move Layer", m_values.oneIn(2) ? Gesture{"drag", nullptr} : Gesture());
}

void RandomWalk::editOutputSize()
{
    const bool isSilly = m_values.oneIn(8);
    m_document->setValue(isSilly ? m_values.oneOf<int>({0, -1, std::numeric_limits<int>::max()})
                                 : m_values.number(1, 300),
                         m_values.oneIn(2) ? "OutputWidth" : "OutputHeight");
}

void RandomWalk::addScreen()
{
    if (layers().rowCount() < mostRows)
        m_document->AddScreen();
}

void RandomWalk::addImage()
{
    m_person.openPanelAnswer = m_values.oneOf<std::optional<QString>>(
        {std::nullopt, pathOf("plate.png"), pathOf("missing.png"), pathOf("a.Orv")});
    if (layers().rowCount() < mostRows)
        m_document->AddImage();
}

void RandomWalk::addChart()
{
    if (layers().rowCount() < mostRows)
        m_document->addChart(m_values.oneOf<QString>({"rp219 range=narrow", "field colour=red", "nonsense"}));
}

void RandomWalk::chooseChart()
{
    m_document->setValueOfSelection(m_values.oneOf<QString>({{}, "steps steps=7", "grid", "walk"}),
                                    "arrangedObjects.chart");
}

void RandomWalk::duplicate()
{
    if (layers().rowCount() < mostRows)
        m_document->copyLayer();
}

void RandomWalk::select()
{
    m_document->tableViewSelectionDidChange(m_values.number(-1, layers().rowCount()));
    presets().setSelectionIndex(m_values.number(-1, presets().rowCount()));
}

std::vector<qsizetype> RandomWalk::randomRows(const LayerList &list)
{
    std::vector<qsizetype> rows(static_cast<std::size_t>(m_values.number(0, list.rowCount() + 1)));
    for (qsizetype &row : rows)
        row = m_values.number(-1, list.rowCount());
    return rows;
}

void RandomWalk::selectSeveral()
{
    LayerList &list = anyList();
    std::vector<qsizetype> rows = randomRows(list);
    if (m_values.oneIn(5)) {
        rows.resize(list.layers().size());
        std::iota(rows.begin(), rows.end(), 0);
    }
    list.setSelectionIndexes(rows, m_values.number(-1, list.rowCount()));
}

void RandomWalk::beginDrag()
{
    const LayerList &list = anyList();
    QModelIndexList rows;
    for (const qsizetype row : randomRows(list)) {
        if (list.layer(row))
            rows.append(list.index(static_cast<int>(row)));
    }
    m_drag.reset(rows.isEmpty() ? nullptr : list.mimeData(rows));
}

void RandomWalk::drop()
{
    LayerList &list = anyList();
    if (!m_drag || list.rowCount() > mostRows)
        return;
    const int row = m_values.number(-1, list.rowCount());
    const QModelIndex parent = m_values.oneIn(4) ? list.index(m_values.number(0, list.rowCount())) : QModelIndex();
    EXPECT_TRUE(list.dropMimeData(m_drag.get(), Qt::CopyAction, row, 0, parent));
}

void RandomWalk::undo()
{
    const QByteArray here = archive();
    const bool canUndo = stack().canUndo();
    stack().undo();
    expectArchiveOfHere();
    if (!canUndo || m_values.oneIn(2))
        return;
    stack().redo();
    expectSame(archive(), here);
}

void RandomWalk::redo()
{
    stack().redo();
    expectArchiveOfHere();
}

void RandomWalk::compose()
{
    m_document->timerupdate();
    m_document->update();
}

void RandomWalk::expectSavedUnless(bool wasCancelled, qsizetype alertsBefore)
{
    const Result<QByteArray> now = ProjectFile::encode(project());
    ASSERT_EQ(m_person.alerts.size() > alertsBefore, !wasCancelled && !now);
    if (wasCancelled || !now)
        return;
    EXPECT_TRUE(stack().isClean());
    const Result<Project> saved = ProjectFile::read(m_document->projectPath(), m_host);
    ASSERT_TRUE(saved.has_value()) << qPrintable(saved.error().text);
    EXPECT_EQ(ProjectFile::encode(*saved), now);
}

void RandomWalk::saveProject()
{
    const qsizetype alerts = m_person.alerts.size();
    m_person.savePanelAnswer =
        m_values.oneOf<std::optional<QString>>({std::nullopt, pathOf("a"), pathOf("b.Orv"), pathOf("c")});
    m_document->saveProject();
    expectSavedUnless(!m_person.savePanelAnswer, alerts);
}

void RandomWalk::save()
{
    const qsizetype alerts = m_person.alerts.size();
    m_person.savePanelAnswer = pathOf("d");
    const qsizetype told = m_person.filesChangedElsewhere.size();
    m_document->save();
    if (m_person.filesChangedElsewhere.size() > told) // undoing has led to a document before the one in the file
        m_document->saveAnyway();
    expectSavedUnless(false, alerts);
}

void RandomWalk::expectUnchangedOrOneStep(const QByteArray &before, int indexBefore, qsizetype alertsBefore)
{
    if (m_person.alerts.size() == alertsBefore) {
        // No presets in the place of none are no edit.
        const int steps = presets().layers().empty() && archive() == before ? 0 : 1;
        EXPECT_TRUE(stack().index() == indexBefore + steps || stack().index() == DocumentHistory::mostSteps)
            << stack().index() << " steps after " << indexBefore;
        return;
    }
    EXPECT_EQ(archive(), before);
    EXPECT_EQ(stack().index(), indexBefore);
}

void RandomWalk::openProject()
{
    compose(); // opening does so too, and a composition may change the selected layer
    checkHistory();
    const QByteArray before = archive();
    const int index = stack().index();
    const qsizetype alerts = m_person.alerts.size();
    const QString path =
        pathOf(m_values.oneOf<QString>({"a.Orv", "b.Orv", "c.Orv", "d.Orv", "damaged.Orv", "library", "plate.png"}));
    m_person.openPanelAnswer = path;

    m_document->openProject();

    expectUnchangedOrOneStep(before, index, alerts);
    const Result<Project> onDisk = ProjectFile::read(path, m_host);
    ASSERT_EQ(onDisk.has_value(), m_person.alerts.size() == alerts);
    if (!onDisk)
        return;
    EXPECT_EQ(m_document->projectPath(), path);
    EXPECT_TRUE(stack().isClean());
    EXPECT_EQ(ProjectFile::encode(project()), ProjectFile::encode(*onDisk));
}

void RandomWalk::savePresets()
{
    const qsizetype alerts = m_person.alerts.size();
    m_person.savePanelAnswer = pathOf("saved library");
    m_document->savePresets();
    const Result<QByteArray> now = PresetLibrary::encode(m_document->presetScreensArray());
    ASSERT_EQ(now.has_value(), m_person.alerts.size() == alerts);
    const Result<std::vector<LayerPointer>> saved = PresetLibrary::read(pathOf("saved library"), m_host);
    if (now) {
        ASSERT_TRUE(saved.has_value()) << qPrintable(saved.error().text);
        EXPECT_EQ(PresetLibrary::encode(*saved), now);
    }
}

void RandomWalk::openPresets()
{
    const QByteArray before = archive();
    const int index = stack().index();
    const qsizetype alerts = m_person.alerts.size();
    m_person.openPanelAnswer =
        pathOf(m_values.oneOf<QString>({"library", "saved library", "a.Orv", "damaged.Orv", "missing"}));
    m_document->openPresets();
    expectUnchangedOrOneStep(before, index, alerts);
}

void RandomWalk::exportPng()
{
    m_person.savePanelAnswer = pathOf("output");
    m_document->saveAction();
}

void RandomWalk::exportPsd()
{
    m_person.savePanelAnswer = pathOf("layers");
    m_document->savePSD();
}

void RandomWalk::recover()
{
    m_document->keepUnsavedWork();
    const std::vector<FoundCopy> copies = m_document->recoverable();
    if (copies.empty())
        return;
    if (m_values.oneIn(2))
        return m_document->discardRecoverable(m_values.oneOf(copies));
    const int index = stack().index();
    const FoundCopy copy = m_values.oneOf(copies);
    const Result<Project> onDisk = ProjectFile::read(copy.path, m_host);
    m_document->recover(copy);
    ASSERT_TRUE(onDisk.has_value()) << qPrintable(onDisk.error().text);
    EXPECT_EQ(ProjectFile::encode(project()), ProjectFile::encode(*onDisk));
    EXPECT_TRUE(stack().index() == index + 1 || index == DocumentHistory::mostSteps);
    EXPECT_FALSE(stack().isClean());
}
