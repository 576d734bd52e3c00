#pragma once

#include <QWidget>

class LWAppDelegate;
class LayerTable;
class QLabel;
class QLineEdit;

/// The presets: a search field, their table, and what can be done with the library.
class PresetPanel final : public QWidget
{
    Q_OBJECT

public:
    /// `document` outlives the panel's last event.
    explicit PresetPanel(LWAppDelegate &document, QWidget *parent = nullptr);

    LayerTable &table() { return *m_table; }
    /// Puts the cursor into the search field.
    void search();
    /// Removes the selected presets, unless the search hides them.
    void removeShown();

protected:
    /// In the search, Down leads to what it has found, and Escape ends it.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *head();
    void addShown();
    void showFound(const QString &searched);

    LWAppDelegate &m_document;
    QLineEdit *m_search;
    LayerTable *m_table;
    QLabel *m_nothingFound;
};
