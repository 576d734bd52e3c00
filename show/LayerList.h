#pragma once

#include "layer/Layer.h"

#include <QAbstractListModel>

#include <functional>
#include <utility>
#include <vector>

/// An ordered list of layers with a selection of one or more rows: what a layer table shows and an inspector edits.
/// Index 0 is the first row and the topmost layer. Every change of the list goes through here, so that views follow.
///
/// Views see one column: the label (DisplayRole, EditRole), the eye (CheckStateRole), and for those who cannot see them
/// both in words (AccessibleTextRole) and a description (AccessibleDescriptionRole); layer() gives the rest.
/// Rows are dragged as a RowPasteboard and dropped anywhere, under every operation; what a drop does is up to the
/// receiver of rowWasDropped().
class LayerList : public QAbstractListModel
{
    Q_OBJECT

public:
    /// What the key path of a layer's property begins with.
    static constexpr QLatin1StringView keyPathPrefix{"arrangedObjects."};

    /// The name of the value that such a key path leads to; empty where it leads to none of a layer.
    static QByteArray nameIn(const QString &keyPath);

    const std::vector<LayerPointer> &layers() const { return m_layers; }
    /// The layer of a row; null where there is no such row.
    LayerPointer layer(qsizetype index) const;

    /// The selected row that the inspector shows; -1 only while the list is empty.
    qsizetype selectionIndex() const { return m_selectionIndex; }
    /// Selects this row alone. Rows that do not exist are not selected; the selection stays.
    void setSelectionIndex(qsizetype index);
    /// All selected rows, rising; selectionIndex() is among them.
    const std::vector<qsizetype> &selectionIndexes() const { return m_selectionIndexes; }
    /// Selects several rows; `shown`, one of them, becomes selectionIndex(), or else the first does. Rows that do not
    /// exist are left out; without any row the selection stays.
    void setSelectionIndexes(std::vector<qsizetype> indexes, qsizetype shown = -1);
    /// Null while the list is empty.
    LayerPointer selectedLayer() const { return layer(m_selectionIndex); }

    /// Inserts before the row `index` (0 to the number of layers; others are moved to the nearer end). The selection
    /// stays with its layer.
    void insertObjectAtArrangedObjectIndex(const LayerPointer &layer, qsizetype index);
    /// The same for several layers, which stand there in their order; views are told once.
    void insertObjectsAtArrangedObjectIndex(const std::vector<LayerPointer> &layers, qsizetype index);
    /// Removes a row, if it exists. The selection stays with its layer; if that goes, the one that takes its row is
    /// selected, or the last one.
    void removeObjectAtArrangedObjectIndex(qsizetype index);
    /// The same for several rows, of which views are told once for each run of neighbours; the selection changes once.
    /// Rows that do not exist are left out.
    void removeObjectsAtArrangedObjectIndexes(std::vector<qsizetype> indexes);
    /// Moves the row `index` before what is now the row `row` (0 to the number of layers): 1 before 4 ends at 3,
    /// 4 before 1 ends at 1. The selection stays with its layer. Rows that do not exist change nothing.
    void moveObjectAtArrangedObjectIndex(qsizetype index, qsizetype row);

    /// Replaces all layers at once, and selects as setSelectionIndexes() does, or the first row.
    void setLayers(std::vector<LayerPointer> layers, std::vector<qsizetype> selection, qsizetype shown = -1);

    /// Edits a property of the selected layer, "arrangedObjects.panelWidth", and tells it with valueDidChange().
    /// Returns whether there was such a property to edit and the value fits it; otherwise nothing happens.
    bool setValue(const QVariant &value, const QString &keyPath);
    /// Edits a property of any row and tells nobody, for an edit of several rows that setValue() of the last one tells.
    /// Returns as that does.
    bool setPlainValue(qsizetype index, const QVariant &value, const QString &keyPath);
    /// The selected layer's property; an invalid value where there is none.
    QVariant value(const QString &keyPath) const;

    /// How a view describes a row to those who cannot see it; none at first.
    void setDescription(std::function<QString(const Layer &layer)> description)
    {
        m_description = std::move(description);
    }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    /// An edit in the table: like setValue(), of the row that was edited.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    /// Copies only, since views clear the rows that they believe to have moved; the drop does the moving.
    Qt::DropActions supportedDragActions() const override;
    Qt::DropActions supportedDropActions() const override;
    /// Tells the drop with rowWasDropped(). Returns whether `data` was a drag of rows; anything else changes nothing.
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

signals:
    /// A property was edited by its key path; plain setters of a layer do not lead here.
    void valueDidChange(const QString &keyPath);
    void selectionIndexDidChange(qsizetype index);
    /// Any change of selectionIndexes(); after selectionIndexDidChange() where that changes too.
    void selectionIndexesDidChange();
    /// A drag of rows has begun.
    void dragDidStart() const;
    /// Rows were dropped before the row `row`, 0 to the number of layers. Only the first of them, `index`, counts; it
    /// is a row of the list that the drag began in, and may be beyond it.
    void rowWasDropped(qsizetype index, qsizetype row);

private:
    bool setLayerValue(qsizetype index, const QVariant &value, const QString &keyPath);

    void select(std::vector<qsizetype> indexes, qsizetype shown);
    void removeRange(qsizetype first, qsizetype last);
    void deselect(const std::vector<qsizetype> &removed);
    void moveSelection(const std::function<qsizetype(qsizetype)> &placeOf);

    std::function<QString(const Layer &layer)> m_description;
    std::vector<LayerPointer> m_layers;
    std::vector<qsizetype> m_selectionIndexes;
    qsizetype m_selectionIndex = -1;
};
