#include "show/LayerList.h"

#include "layer/LayerValues.h"
#include "show/RowPasteboard.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {
/// What no row has, not even none.
constexpr qsizetype noRow = -2;

QString keyPathOfRole(int role)
{
    if (role == Qt::EditRole || role == Qt::DisplayRole)
        return LayerList::keyPathPrefix + QString("label");
    return role == Qt::CheckStateRole ? LayerList::keyPathPrefix + QString("visible") : QString();
}
} // namespace

QByteArray LayerList::nameIn(const QString &keyPath)
{
    return keyPath.startsWith(keyPathPrefix) ? keyPath.mid(keyPathPrefix.size()).toLatin1() : QByteArray();
}

LayerPointer LayerList::layer(qsizetype index) const
{
    return index >= 0 && index < std::ssize(m_layers) ? m_layers[static_cast<std::size_t>(index)] : nullptr;
}

void LayerList::setSelectionIndex(qsizetype index)
{
    if (layer(index))
        select({index}, index);
}

void LayerList::setSelectionIndexes(std::vector<qsizetype> indexes, qsizetype shown)
{
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    std::erase_if(indexes, [this](qsizetype index) { return !layer(index); });
    if (indexes.empty())
        return;
    const bool isSelected = std::binary_search(indexes.begin(), indexes.end(), shown);
    const qsizetype first = indexes.front();
    select(std::move(indexes), isSelected ? shown : first);
}

void LayerList::select(std::vector<qsizetype> indexes, qsizetype shown)
{
    const bool isSame = indexes == m_selectionIndexes;
    m_selectionIndexes = std::move(indexes);
    if (std::exchange(m_selectionIndex, shown) != shown)
        emit selectionIndexDidChange(shown);
    if (!isSame)
        emit selectionIndexesDidChange();
}

void LayerList::setLayers(std::vector<LayerPointer> layers, std::vector<qsizetype> selection, qsizetype shown)
{
    if (layers == m_layers && !layers.empty()) {
        emit dataChanged(index(0), index(rowCount() - 1)); // views keep their place
        return setSelectionIndexes(std::move(selection), shown);
    }
    beginResetModel();
    m_layers = std::move(layers);
    m_selectionIndexes.clear();
    m_selectionIndex = noRow;
    endResetModel();
    setSelectionIndexes(std::move(selection), shown);
    if (m_selectionIndex == noRow)
        setSelectionIndexes({0});
    if (m_selectionIndex == noRow)
        select({}, -1);
}

/// Takes the selection to where its rows are now.
void LayerList::moveSelection(const std::function<qsizetype(qsizetype)> &placeOf)
{
    std::vector<qsizetype> moved;
    std::transform(m_selectionIndexes.begin(), m_selectionIndexes.end(), std::back_inserter(moved), placeOf);
    std::sort(moved.begin(), moved.end());
    const qsizetype shown = m_selectionIndex < 0 ? -1 : placeOf(m_selectionIndex);
    select(std::move(moved), shown);
}

void LayerList::insertObjectAtArrangedObjectIndex(const LayerPointer &layer, qsizetype index)
{
    insertObjectsAtArrangedObjectIndex({layer}, index);
}

void LayerList::insertObjectsAtArrangedObjectIndex(const std::vector<LayerPointer> &layers, qsizetype index)
{
    if (layers.empty())
        return;
    const qsizetype row = std::clamp<qsizetype>(index, 0, std::ssize(m_layers));
    const qsizetype count = std::ssize(layers);
    beginInsertRows({}, static_cast<int>(row), static_cast<int>(row + count - 1));
    m_layers.insert(m_layers.begin() + row, layers.begin(), layers.end());
    endInsertRows();
    if (m_selectionIndex < 0)
        setSelectionIndex(row);
    else
        moveSelection([row, count](qsizetype selected) { return selected < row ? selected : selected + count; });
}

void LayerList::removeObjectAtArrangedObjectIndex(qsizetype index)
{
    removeObjectsAtArrangedObjectIndexes({index});
}

void LayerList::removeObjectsAtArrangedObjectIndexes(std::vector<qsizetype> indexes)
{
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    std::erase_if(indexes, [this](qsizetype index) { return !layer(index); });
    // Neighbours go together, and the last ones first, so that no row moves before its turn.
    for (auto end = indexes.cend(); end != indexes.cbegin();) {
        auto first = std::prev(end);
        while (first != indexes.cbegin() && *std::prev(first) == *first - 1)
            --first;
        removeRange(*first, *std::prev(end));
        end = first;
    }
    if (!indexes.empty())
        deselect(indexes);
}

void LayerList::removeRange(qsizetype first, qsizetype last)
{
    beginRemoveRows({}, static_cast<int>(first), static_cast<int>(last));
    m_layers.erase(m_layers.begin() + first, m_layers.begin() + last + 1);
    endRemoveRows();
}

/// Takes rows that have been removed, rising, out of the selection.
void LayerList::deselect(const std::vector<qsizetype> &removed)
{
    const auto isRemoved = [&](qsizetype row) { return std::binary_search(removed.begin(), removed.end(), row); };
    const auto placeOf = [&](qsizetype row) {
        return row - (std::lower_bound(removed.begin(), removed.end(), row) - removed.begin());
    };
    std::vector<qsizetype> stay;
    for (const qsizetype selected : m_selectionIndexes) {
        if (!isRemoved(selected))
            stay.push_back(placeOf(selected));
    }
    if (!isRemoved(m_selectionIndex))
        return select(std::move(stay), placeOf(m_selectionIndex));

    // Another comes before the inspector: one that is selected too, or the neighbour.
    if (stay.empty() && !m_layers.empty())
        stay = {std::min<qsizetype>(placeOf(m_selectionIndex), std::ssize(m_layers) - 1)};
    m_selectionIndex = noRow; // it may have the same row
    const qsizetype shown = stay.empty() ? -1 : stay.front();
    select(std::move(stay), shown);
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

    endMoveRows();
    moveSelection([index, row](qsizetype selected) {
        if (selected == index)
            return row < index ? row : row - 1;
        if (selected > index && selected < row)
            return selected - 1;
        return selected < index && selected >= row ? selected + 1 : selected;
    });
}

bool LayerList::setValue(const QVariant &value, const QString &keyPath)
{
    return setLayerValue(m_selectionIndex, value, keyPath);
}

bool LayerList::setLayerValue(qsizetype index, const QVariant &value, const QString &keyPath)
{
    if (!setPlainValue(index, value, keyPath))
        return false;
    const QModelIndex row = this->index(static_cast<int>(index));
    emit dataChanged(row, row);
    emit valueDidChange(keyPath);
    return true;
}

bool LayerList::setPlainValue(qsizetype index, const QVariant &value, const QString &keyPath)
{
    const LayerPointer edited = layer(index);
    const QByteArray name = nameIn(keyPath);
    if (!edited || name.isEmpty())
        return false;
    if (edited->setValue(name, value))
        return true;
    // A declared property that is no value, as the picture is: QObject would make a new one of any other name.
    const bool isDeclared = !LayerValues::find(name) && edited->metaObject()->indexOfProperty(name) >= 0;
    return isDeclared && edited->setProperty(name, value);
}

QVariant LayerList::value(const QString &keyPath) const
{
    const LayerPointer selected = selectedLayer();
    if (!selected)
        return {};
    const QByteArray name = nameIn(keyPath);
    return LayerValues::find(name) ? selected->value(name) : selected->property(name);
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
    case Qt::AccessibleTextRole:
        return shown->visible() ? shown->label() : shown->label() + ", hidden";
    case Qt::AccessibleDescriptionRole:
        return m_description ? m_description(*shown) : QString();
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
    emit dragDidStart();
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
