// What a person changes of the show.
#include "layer/Layer.h"
#include "still/LWStill.h"
#include "tests/soak/Player.h"

#include <QMetaProperty>
#include <QMimeData>

#include <limits>

void Player::editProperty()
{
    const LayerPointer layer = layers().selectedLayer();
    if (!layer)
        return;
    const QMetaObject &meta = *layer->metaObject();
    const QMetaProperty property =
        meta.property(m_values.number(Layer::staticMetaObject.propertyOffset(), meta.propertyCount() - 1));
    if (property.typeId() == QMetaType::QObjectStar || QByteArray(property.name()) == "thumbnail")
        return;
    const QVariant value = m_values.valueFor(property, {path("plate.png"), path("missing.png")});
    const QString keyPath = LayerList::keyPathPrefix + QString(property.name());
    if (m_values.oneIn(3))
        document().setValueOfSelection(value, keyPath);
    else
        document().setValue(value, keyPath);
}

void Player::editOutput()
{
    const bool isSilly = m_values.oneIn(12);
    document().setValue(isSilly ? m_values.oneOf<int>({0, -1, std::numeric_limits<int>::max()})
                                : m_values.number(1, 900),
                        m_values.oneIn(2) ? "OutputWidth" : "OutputHeight");
}

void Player::togglePanel()
{
    const LayerPointer layer = layers().selectedLayer();
    if (!layer)
        return;
    layer->onImageClick(m_values.number(-20, 300), m_values.number(-20, 300));
    document().finishEdit("Panel");
}

void Player::dragRows()
{
    LayerList &from = anyList();
    LayerList &to = anyList();
    if (from.rowCount() == 0)
        return;
    const std::unique_ptr<QMimeData> rows(from.mimeData({from.index(m_values.number(0, from.rowCount() - 1))}));
    to.dropMimeData(rows.get(), Qt::CopyAction, m_values.number(-1, to.rowCount()), 0, {});
}

void Player::selectRows()
{
    LayerList &list = anyList();
    std::vector<qsizetype> rows(static_cast<std::size_t>(m_values.number(0, list.rowCount())));
    for (qsizetype &row : rows)
        row = m_values.number(-1, list.rowCount());
    list.setSelectionIndexes(rows, m_values.number(-1, list.rowCount()));
}

void Player::addProcessor()
{
    Wiring &wiring = document().wiring();
    const auto &models = ProcessorCatalogue::builtIn().models();
    ProcessorSettings settings;
    settings.model = models[static_cast<std::size_t>(m_values.number(0, static_cast<int>(models.size()) - 1))].model;
    if (!wiring.processors().empty() && m_values.oneIn(3))
        (void)wiring.addLike(0, m_values.number(0, 2));
    else
        (void)wiring.add(settings);
}

void Player::changeProcessor()
{
    Wiring &wiring = document().wiring();
    if (wiring.processors().empty())
        return;
    const auto row = static_cast<std::size_t>(m_values.number(0, static_cast<int>(wiring.processors().size())));
    if (m_values.oneIn(4))
        return wiring.remove(row);
    if (row == wiring.processors().size())
        return;
    ProcessorSettings settings = wiring.processors()[row];
    settings.name = m_values.oneOf<QString>({"A", "B", "", "Left", settings.name});
    settings.bits = m_values.oneOf<int>({8, 10, 12, 7});
    settings.rate = m_values.oneOf<double>({24, 59.94, 60, 120, 240, 1e9, -1});
    settings.backup = m_values.oneOf<ProcessorSettings::Backup>(
        {ProcessorSettings::Backup::None, ProcessorSettings::Backup::Loop, ProcessorSettings::Backup::SecondProcessor});
    settings.capacity = m_values.oneOf<qint64>({0, 1, 100, 650'000, -5, std::numeric_limits<qint64>::max()});
    settings.headroom = m_values.number(-1, 100);
    (void)wiring.change(row, settings);
}

void Player::hangOnProcessor()
{
    const QString name = m_values.oneOf<QString>({"A", "B", "", "nobody"});
    document().setValueOfSelection(name, QString(LayerList::keyPathPrefix) + "processor");
}

void Player::addWall()
{
    document().AddScreen();
}

void Player::addPreset()
{
    if (m_values.oneIn(4))
        document().keepAsPresets();
    else
        document().insertPreset(m_values.number(-1, 40));
}

void Player::chooseSupply()
{
    if (m_values.oneIn(2))
        document().voltageSelect(m_values.oneOf<qint64>({110, 208, 230, 0, -1}));
    else
        document().phaseSelect(m_values.oneOf<qint64>({1, 3, 2}));
}
