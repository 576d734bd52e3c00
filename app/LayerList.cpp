#include "app/LayerList.h"

#include "app/RowPasteboard.h"

#include <QMetaProperty>

#include <algorithm>

namespace {
/// The name of the property that a key path names; empty where it names none.
QByteArray propertyName(const QString &keyPath)
{
    return keyPath.startsWith(LayerList::keyPathPrefix) ? keyPath.mid(LayerList::keyPathPrefix.size()).toLatin1()
                                                        : QByteArray();
}

QString keyPathOfRole(int role)
{
    if (role == Qt::EditRole || role == Qt::DisplayRole)
        return LayerList::keyPathPrefix + QString("label");
    return role == Qt::CheckStateRole ? LayerList::keyPathPrefix + QString("visible") : QString();
}
} // namespace

LayerPointer LayerList::layer(qsizetype index) const
{
    return index >= 0 && index < std::ssize(m_layers) ? m_layers[static_cast<std::size_t>(index)] : nullptr;
}

void LayerList::setSelectionIndex(qsizetype index)
{
    if (!layer(index) || index == m_selectionIndex)
        return;
    m_selectionIndex = index;
    emit selectionIndexDidChange(index);
}

void LayerList::insertObjectAtArrangedObjectIndex(const LayerPointer &layer, qsizetype index)
{
    const qsizetype row = std::clamp<qsizetype>(index, 0, std::ssize(m_layers));
    beginInsertRows({}, static_cast<int>(row), static_cast<int>(row));
    m_layers.insert(m_layers.begin() + row, layer);
    const bool selectionMoves = row <= m_selectionIndex || m_selectionIndex < 0;
    if (selectionMoves)
        m_selectionIndex = m_selectionIndex < 0 ? row : m_selectionIndex + 1;
    endInsertRows();
    if (selectionMoves)
        emit selectionIndexDidChange(m_selectionIndex);
}

void LayerList::removeObjectAtArrangedObjectIndex(qsizetype index)
{
    if (!layer(index))
        return;
    beginRemoveRows({}, static_cast<int>(index), static_cast<int>(index));
    m_layers.erase(m_layers.begin() + index);
    const bool isAnother = index <= m_selectionIndex;
    const bool selectionMovesUp = index < m_selectionIndex || m_selectionIndex == std::ssize(m_layers);
    if (selectionMovesUp)
        --m_selectionIndex;
    endRemoveRows();
    if (isAnother)
        emit selectionIndexDidChange(m_selectionIndex);
}

void LayerList::removeObjectsAtArrangedObjectIndexes(std::vector<qsizetype> indexes)
{
    // From the end, so that no index moves before its turn.
    std::sort(indexes.begin(), indexes.end(), std::greater<>());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    for (const qsizetype index : indexes)
        removeObjectAtArrangedObjectIndex(index);
}

void LayerList::moveObjectAtArrangedObjectIndex(qsizetype index, qsizetype row)
{
    const bool staysInPlace = row == index || row == index + 1;
    if (!layer(index) || row < 0 || row > std::ssize(m_layers) || staysInPlace)
        return;
    beginMoveRows({}, static_cast<int>(index), static_cast<int>(index), {}, static_cast<int>(row));
    const auto moved = m_layers.begin() + index;
    const auto place = m_layers.begin() + row;
    if (row < index)
        std::rotate(place, moved, moved + 1);
    else
        std::rotate(moved, moved + 1, place);

    const qsizetype previousSelection = m_selectionIndex;
    if (m_selectionIndex == index)
        m_selectionIndex = row < index ? row : row - 1;
    else if (m_selectionIndex > index && m_selectionIndex < row)
        --m_selectionIndex;
    else if (m_selectionIndex < index && m_selectionIndex >= row)
        ++m_selectionIndex;
    endMoveRows();
    if (m_selectionIndex != previousSelection)
        emit selectionIndexDidChange(m_selectionIndex);
}

bool LayerList::setValue(const QVariant &value, const QString &keyPath)
{
    return setLayerValue(m_selectionIndex, value, keyPath);
}

bool LayerList::setLayerValue(qsizetype index, const QVariant &value, const QString &keyPath)
{
    const LayerPointer edited = layer(index);
    const QByteArray property = propertyName(keyPath);
    // Only declared properties: QObject would make a new one of any other name.
    if (!edited || edited->metaObject()->indexOfProperty(property) < 0 || !edited->setProperty(property, value))
        return false;
    const QModelIndex row = this->index(static_cast<int>(index));
    emit dataChanged(row, row);
    emit valueDidChange(keyPath);
    return true;
}

QVariant LayerList::value(const QString &keyPath) const
{
    const LayerPointer selected = selectedLayer();
    return selected ? selected->property(propertyName(keyPath)) : QVariant();
}

int LayerList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_layers.size());
}

QVariant LayerList::data(const QModelIndex &index, int role) const
{
    const LayerPointer shown = layer(index.row());
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shown->label();
    case Qt::CheckStateRole:
        return shown->visible() ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool LayerList::setData(const QModelIndex &index, const QVariant &value, int role)
{
    // The observer renders the selected layer, so what is edited in the table is selected first.
    setSelectionIndex(index.row());
    // A check state of 2 is the flag's "yes", as for every other whole number.
    return setLayerValue(index.row(), value, keyPathOfRole(role));
}

Qt::ItemFlags LayerList::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags ofRows = Qt::ItemIsEditable | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled;
    return QAbstractListModel::flags(index) | Qt::ItemIsDropEnabled | (index.isValid() ? ofRows : Qt::NoItemFlags);
}

QStringList LayerList::mimeTypes() const
{
    return {RowPasteboard::type};
}

QMimeData *LayerList::mimeData(const QModelIndexList &indexes) const
{
    return RowPasteboard::write(indexes);
}

Qt::DropActions LayerList::supportedDragActions() const
{
    return Qt::CopyAction;
}

Qt::DropActions LayerList::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
}

bool LayerList::dropMimeData(const QMimeData *data, [[maybe_unused]] Qt::DropAction action, int row,
                             [[maybe_unused]] int column, const QModelIndex &parent)
{
    const Result<std::vector<qsizetype>> dropped = RowPasteboard::read(*data);
    if (!dropped) {
        qWarning("Nothing was dropped: %s", qUtf8Printable(dropped.error().text));
        return false;
    }
    // On a row means before it, beside all rows behind them.
    const bool isOnRow = row < 0 && parent.isValid();
    const int place = isOnRow ? parent.row() : row;
    emit rowWasDropped(dropped->front(), place < 0 ? rowCount() : place);
    return true;
}
