#pragma once

#include "layer/Layer.h"
#include "layer/LayerValues.h"

#include <QString>
#include <QVBoxLayout>
#include <QVariant>

#include <functional>
#include <optional>
#include <vector>

class NumberField;
class QGridLayout;
class QLabel;
class QToolButton;
class QWidget;

/// What stands before a control, and what it is called for those who cannot see it. Where the layer has a caption
/// of its own under `number`, 1 to 8, that stands there instead, or nothing where the layer hides it; 0: none has.
/// Empty texts of a control for a value are those of LayerValues.
struct InspectorCaption
{
    QString text = {};
    int number = 0;
    QString tip = {};  ///< empty: the name
    QString name = {}; ///< the words in full; empty: `text` is all
    const QString &inFull() const { return name.isEmpty() ? text : name; }
};

/// A value that can be chosen, and what it is called.
struct InspectorChoice
{
    QString text;
    QVariant value;

    bool operator==(const InspectorChoice &) const = default;
};

/// Rows of controls, each bound to a property of the selected layers, in groups that fold.
class InspectorForm
{
public:
    /// What is selected.
    enum Kinds
    {
        Screens = 1,
        Stills = 2,
        Both = 4, ///< screens and stills together
        None = 8, ///< there are no layers
        All = Screens | Stills | Both,
        Always = All | None
    };
    /// Writes a value into the property of all selected layers.
    using Edit = std::function<void(const QString &property, const QVariant &value)>;

    using Caption = InspectorCaption;

    /// Rows go into `column`, which outlives this and is that of a widget.
    InspectorForm(QVBoxLayout &column, Edit edit);

    /// Later rows belong to a group of this title, shown where these kinds are selected. Empty: a group without a
    /// title. Returns what stands at its top.
    const QWidget &beginGroup(const QString &title, Kinds kinds);

    /// A number, in the range of LayerValues where none is given.
    void addNumber(const QString &property, const Caption &caption = {}, const std::optional<NumberRange> &range = {});
    /// A number with a button that offers common values for it.
    /// Returns both.
    QWidget *addNumberWith(QWidget *button, const QString &property, const Caption &caption = {});
    void addText(const QString &property, const Caption &caption = {}, const QString &placeholder = {});
    /// One of some values; a value that is not among them is shown as it is.
    void addChoice(const QString &property, std::function<std::vector<InspectorChoice>()> choices,
                   const Caption &caption = {});
    /// Turning it on gives a layer that has no such `colour` black or white, as it stands off from the panels.
    void addSwitch(const QString &property, const Caption &caption = {}, const QString &colour = {});
    void addColour(const QString &property, const Caption &caption = {});
    /// A switch as addSwitch() makes it and, in the same row, the number and the colour that belong to it.
    void addSwitchRow(const QString &property, const QString &number, const QString &colour,
                      const Caption &caption = {});
    /// Any other control; it looks after itself.
    void addControl(const Caption &caption, QWidget *control);
    /// The same with a button behind it.
    QWidget *addControlWith(QWidget *button, const Caption &caption, QWidget *control);
    /// A control that needs the whole width.
    void addWide(const QString &name, QWidget *control);
    /// A line that is only read, made from the selected layers; a warning where `isWrong` says so.
    void addSummary(const QString &name, std::function<QString(const std::vector<LayerPointer> &)> text,
                    std::function<bool(const std::vector<LayerPointer> &)> isWrong = {});

    /// Called with the selected layers, one at least, whenever they are shown.
    using Show = std::function<void(const std::vector<LayerPointer> &layers)>;
    void addShow(Show show) { m_shows.push_back(std::move(show)); }

    /// Shows what the layers have: the first is the one before the inspector.
    void show(const std::vector<LayerPointer> &layers);
    static Kinds kindsOf(const std::vector<LayerPointer> &layers);

    /// The value that all layers, at least one, have under the property; nullopt where they differ.
    static std::optional<QVariant> commonValue(const std::vector<LayerPointer> &layers, const QString &property);

    /// Titles of the folded groups.
    QStringList foldedGroups() const;
    void fold(const QStringList &titles);
    void unfold(const QString &title);
    /// Called whenever a group was folded or unfolded.
    std::function<void()> foldingDidChange;

private:
    struct Group
    {
        QString title;
        Kinds kinds;
        QToolButton *head; ///< null without a title
        QWidget *body;
        QGridLayout *grid;
    };
    struct Row
    {
        Caption caption;
        QLabel *label;
        QWidget *control;
    };

    QToolButton *headOf(const QString &title, QWidget *body);
    QWidget *number(const QString &name, const QString &property, const NumberRange &range);
    QWidget *colour(const QString &name, const QString &property);
    QWidget *switchOf(const Caption &caption, const QString &property, const QString &colour);
    void addRow(const Caption &caption, QWidget *control);
    void addFaultLine(NumberField &field);
    static void showRow(const Row &row, const Layer &layer);

    QVBoxLayout &m_column;
    Edit m_edit;
    std::vector<Group> m_groups;
    std::vector<Row> m_rows;
    std::vector<Show> m_shows;
    std::vector<LayerPointer> m_layers; ///< as last shown
};
