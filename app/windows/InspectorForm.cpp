#include "app/windows/InspectorForm.h"

#include "app/windows/ColourButton.h"
#include "app/windows/NumberField.h"
#include "app/windows/Theme.h"
#include "screen/LWScreen.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <algorithm>
#include <optional>
#include <utility>

namespace {
constexpr int captionWidth = 108;
constexpr int controlWidth = 148;

InspectorForm::Kinds kindOf(const Layer &layer)
{
    return qobject_cast<const LWScreen *>(&layer) ? InspectorForm::Screens : InspectorForm::Stills;
}

/// The value that all layers have; nullopt where they differ.
std::optional<QVariant> commonValue(const std::vector<LayerPointer> &layers, const QString &property)
{
    const QByteArray name = property.toLatin1();
    const QVariant first = layers.front()->property(name);
    const bool isCommon = std::all_of(layers.begin() + 1, layers.end(),
                                      [&](const LayerPointer &layer) { return layer->property(name) == first; });
    return isCommon ? std::optional(first) : std::nullopt;
}

QString propertyOfCaption(int number)
{
    return "label" + QString::number(number);
}
} // namespace

InspectorForm::InspectorForm(QVBoxLayout &column, Edit edit) : m_column(column), m_edit(std::move(edit)) {}

void InspectorForm::beginGroup(const QString &title, Kinds kinds)
{
    Group group{title, kinds, nullptr, new QWidget, nullptr};
    group.grid = new QGridLayout(group.body);
    group.grid->setContentsMargins(Theme::edge, Theme::gap / 2, Theme::edge, Theme::gap);
    group.grid->setHorizontalSpacing(Theme::gap);
    group.grid->setVerticalSpacing(Theme::gap / 2);
    group.grid->setColumnMinimumWidth(0, captionWidth);
    group.grid->setColumnMinimumWidth(1, controlWidth);
    group.grid->setColumnStretch(1, 1);
    if (!title.isEmpty()) {
        group.head = new QToolButton;
        group.head->setText(title);
        group.head->setFont(Theme::titleFont());
        group.head->setCheckable(true);
        group.head->setChecked(true);
        group.head->setArrowType(Qt::DownArrow);
        group.head->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        group.head->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        group.head->setObjectName("groupHead");
        group.head->setToolTip("Folds and unfolds the group");
        QObject::connect(group.head, &QToolButton::toggled, group.head,
                         [this, head = group.head, body = group.body](bool isOpen) {
                             head->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
                             body->setVisible(isOpen);
                             if (foldingDidChange)
                                 foldingDidChange();
                         });
        m_column.addWidget(group.head);
    }
    m_column.addWidget(group.body);
    m_groups.push_back(group);
}

void InspectorForm::addRow(const Caption &caption, QWidget *control, Kinds kinds)
{
    QGridLayout &grid = *m_groups.back().grid;
    const int row = grid.rowCount();
    auto *label = new QLabel(caption.text);
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, Theme::dimText);
    label->setPalette(colours);
    label->setBuddy(control);
    label->setFixedWidth(captionWidth);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(caption.text);
    if (control->toolTip().isEmpty())
        control->setToolTip(caption.tip.isEmpty() ? caption.text : caption.tip);
    grid.addWidget(label, row, 0);
    grid.addWidget(control, row, 1);
    const auto both = static_cast<Kinds>(kinds & m_groups.back().kinds);
    m_rows.push_back({caption, both, label, control});
}

QWidget *InspectorForm::number(const Caption &caption, const QString &property, const Range &range)
{
    auto *field = new NumberField(range.lowest, range.highest, range.unit);
    field->setAccessibleName(caption.text);
    QObject::connect(field, &NumberField::edited, field, [this, property](int value) { m_edit(property, value); });
    m_shows.push_back([field, property](const std::vector<LayerPointer> &layers) {
        if (const std::optional<QVariant> value = commonValue(layers, property))
            field->show(value->toInt());
        else
            field->showMixed();
    });
    return field;
}

QWidget *InspectorForm::colour(const QString &name, const QString &property)
{
    auto *button = new ColourButton(name);
    QObject::connect(button, &ColourButton::edited, button, [this, property](const Colour &chosen) {
        m_edit(property, QVariant::fromValue(OptionalColour(chosen)));
    });
    m_shows.push_back([button, property](const std::vector<LayerPointer> &layers) {
        if (const std::optional<QVariant> value = commonValue(layers, property))
            button->show(value->value<OptionalColour>());
        else
            button->showMixed();
    });
    return button;
}

QWidget *InspectorForm::switchOf(const Caption &caption, const QString &property, const QString &colour)
{
    auto *box = new QCheckBox;
    box->setAccessibleName(caption.text);
    QObject::connect(box, &QCheckBox::clicked, box, [this, box, property, colour] {
        const bool isOn = box->checkState() != Qt::Unchecked; // a press on "some" means all
        box->setTristate(false);
        for (const LayerPointer &layer : m_layers) {
            const QByteArray name = colour.toLatin1();
            if (isOn && !colour.isEmpty() && !layer->property(name).value<OptionalColour>())
                layer->setProperty(name, QVariant::fromValue(OptionalColour(NamedColour::white)));
        }
        m_edit(property, isOn);
    });
    m_shows.push_back([box, property](const std::vector<LayerPointer> &layers) {
        const std::optional<QVariant> value = commonValue(layers, property);
        box->setTristate(!value);
        box->setCheckState(!value ? Qt::PartiallyChecked : value->toBool() ? Qt::Checked : Qt::Unchecked);
    });
    return box;
}

void InspectorForm::addNumber(const Caption &caption, const QString &property, const Range &range, Kinds kinds)
{
    addRow(caption, number(caption, property, range), kinds);
}

void InspectorForm::addNumberWith(QWidget *button, const Caption &caption, const QString &property, const Range &range)
{
    addControlWith(button, caption, number(caption, property, range));
}

void InspectorForm::addSwitch(const Caption &caption, const QString &property, Kinds kinds)
{
    addRow(caption, switchOf(caption, property), kinds);
}

void InspectorForm::addColour(const Caption &caption, const QString &property)
{
    addRow(caption, colour(caption.text, property), All);
}

void InspectorForm::addText(const Caption &caption, const QString &property)
{
    auto *field = new QLineEdit;
    QObject::connect(field, &QLineEdit::textEdited, field,
                     [this, property](const QString &text) { m_edit(property, text); });
    m_shows.push_back([field, property](const std::vector<LayerPointer> &layers) {
        const std::optional<QVariant> value = commonValue(layers, property);
        const QString text = value ? value->toString() : QString();
        field->setPlaceholderText(value ? QString() : "—");
        if (field->text() != text)
            field->setText(text);
    });
    addRow(caption, field, All);
}

void InspectorForm::addSwitchRow(const Caption &caption, const QString &property, const QString &numberProperty,
                                 const Range &range, const QString &colourProperty)
{
    auto *parts = new QWidget;
    auto *row = new QHBoxLayout(parts);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::gap / 2);
    row->addWidget(switchOf(caption, property, colourProperty));
    if (!numberProperty.isEmpty())
        row->addWidget(number({caption.text + " size"}, numberProperty, range), 1);
    else
        row->addStretch(1);
    row->addWidget(colour(caption.text + " colour", colourProperty));
    for (int i = 0; i < row->count(); ++i) {
        QWidget *part = row->itemAt(i)->widget();
        if (part && part->toolTip().isEmpty())
            part->setToolTip(part->accessibleName());
    }
    addRow(caption, parts, All);
    m_rows.back().label->setBuddy(row->itemAt(0)->widget());
}

void InspectorForm::addControl(const Caption &caption, QWidget *control, Kinds kinds)
{
    addRow(caption, control, kinds);
}

void InspectorForm::addControlWith(QWidget *button, const Caption &caption, QWidget *control)
{
    auto *both = new QWidget;
    auto *row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::gap / 2);
    row->addWidget(control, 1);
    row->addWidget(button);
    control->setAccessibleName(caption.text);
    control->setToolTip(caption.tip.isEmpty() ? caption.text : caption.tip);
    addRow(caption, both, All);
    m_rows.back().label->setBuddy(control);
}

void InspectorForm::addWide(const QString &name, QWidget *control, Kinds kinds)
{
    control->setAccessibleName(name);
    QGridLayout &grid = *m_groups.back().grid;
    grid.addWidget(control, grid.rowCount(), 0, 1, 2);
    m_rows.push_back({{}, static_cast<Kinds>(kinds & m_groups.back().kinds), nullptr, control});
}

void InspectorForm::addSummary(const QString &name, std::function<QString(const Layer &)> text, Kinds kinds)
{
    auto *line = new QLabel;
    line->setWordWrap(true);
    line->setFont(Theme::smallFont());
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    addWide(name, line, kinds);
    m_shows.push_back([line, text = std::move(text), kinds](const std::vector<LayerPointer> &layers) {
        if ((kindOf(*layers.front()) & kinds) != 0)
            line->setText(text(*layers.front()));
    });
}

void InspectorForm::show(const std::vector<LayerPointer> &layers)
{
    m_layers = layers;
    int kinds = All;
    for (const LayerPointer &layer : layers)
        kinds &= kindOf(*layer);
    const auto applies = [&](Kinds wanted) { return kinds != 0 ? (wanted & kinds) != 0 : wanted == All; };
    for (const Group &group : m_groups) {
        const bool isShown = applies(group.kinds);
        if (group.head)
            group.head->setVisible(isShown);
        group.body->setVisible(isShown && (!group.head || group.head->isChecked()));
    }
    for (const Row &row : m_rows)
        showRow(row, *layers.front(), applies(row.kinds));
    for (const Show &show : m_shows)
        show(layers);
}

void InspectorForm::showRow(const Row &row, const Layer &layer, bool isShown) const
{
    const QString caption = row.caption.number == 0 ? QString() : propertyOfCaption(row.caption.number);
    const bool isHidden = !caption.isEmpty() && layer.property((caption + "Hidden").toLatin1()).toBool();
    row.control->setVisible(isShown && !isHidden);
    if (!row.label)
        return;
    row.label->setVisible(isShown && !isHidden);
    const QString own = caption.isEmpty() ? QString() : layer.property(caption.toLatin1()).toString();
    row.label->setText(own.isEmpty() ? row.caption.text : own);
}

QStringList InspectorForm::foldedGroups() const
{
    QStringList titles;
    for (const Group &group : m_groups) {
        if (group.head && !group.head->isChecked())
            titles.append(group.title);
    }
    return titles;
}

void InspectorForm::fold(const QStringList &titles)
{
    for (const Group &group : m_groups) {
        if (group.head)
            group.head->setChecked(!titles.contains(group.title));
    }
}
