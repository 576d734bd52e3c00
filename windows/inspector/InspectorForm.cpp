#include "windows/inspector/InspectorForm.h"

#include "base/NearestInt.h"
#include "screen/LWScreen.h"
#include "windows/TextField.h"
#include "windows/Theme.h"
#include "windows/inspector/ColourButton.h"
#include "windows/inspector/FaultLine.h"
#include "windows/inspector/NumberField.h"
#include "windows/inspector/SummaryLine.h"
#include "windows/inspector/TextColour.h"

#include <QCheckBox>
#include <QComboBox>
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

QString propertyOfCaption(int number)
{
    return "label" + QString::number(number);
}

NumberRange rangeOf(const QString &property)
{
    return LayerValues::find(property.toLatin1())->range.value();
}

/// The caption with the value's own words where it has none.
InspectorForm::Caption worded(InspectorForm::Caption caption, const QString &property)
{
    const QString words = LayerValues::find(property.toLatin1())->caption();
    if (caption.name.isEmpty())
        caption.name = words;
    if (caption.text.isEmpty())
        caption.text = words;
    return caption;
}
} // namespace

InspectorForm::InspectorForm(QVBoxLayout &column, Edit edit) : m_column(column), m_edit(std::move(edit)) {}

const QWidget &InspectorForm::beginGroup(const QString &title, Kinds kinds)
{
    Group group{title, kinds, nullptr, new QWidget, nullptr};
    group.grid = new QGridLayout(group.body);
    group.grid->setContentsMargins(Theme::edge, Theme::gap / 2, Theme::edge, Theme::gap);
    group.grid->setHorizontalSpacing(Theme::gap);
    group.grid->setVerticalSpacing(Theme::gap / 2);
    group.grid->setColumnMinimumWidth(0, captionWidth);
    group.grid->setColumnMinimumWidth(1, controlWidth);
    group.grid->setColumnStretch(1, 1);
    if (!title.isEmpty())
        m_column.addWidget(group.head = headOf(title, group.body));
    m_column.addWidget(group.body);
    m_groups.push_back(group);
    return group.head ? *group.head : *group.body;
}

QToolButton *InspectorForm::headOf(const QString &title, QWidget *body)
{
    auto *head = new QToolButton;
    head->setText(title);
    head->setFont(Theme::titleFont());
    head->setCheckable(true);
    head->setChecked(true);
    head->setArrowType(Qt::DownArrow);
    head->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    head->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    head->setObjectName("groupHead");
    head->setToolTip("Folds and unfolds the group");
    QObject::connect(head, &QToolButton::toggled, head, [this, head, body](bool isOpen) {
        head->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
        body->setVisible(isOpen);
        if (foldingDidChange)
            foldingDidChange();
    });
    return head;
}

void InspectorForm::addRow(const Caption &caption, QWidget *control)
{
    QGridLayout &grid = *m_groups.back().grid;
    const int row = grid.rowCount();
    auto *label = new QLabel(caption.text);
    Theme::colourText(*label, Theme::dimText);
    label->setBuddy(control);
    label->setFixedWidth(captionWidth);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(caption.inFull());
    if (control->toolTip().isEmpty())
        control->setToolTip(caption.tip.isEmpty() ? caption.inFull() : caption.tip);
    grid.addWidget(label, row, 0);
    grid.addWidget(control, row, 1);
    m_rows.push_back({caption, label, control});
    auto *only = qobject_cast<NumberField *>(control);
    if (NumberField *field = only ? only : control->findChild<NumberField *>())
        addFaultLine(*field);
}

void InspectorForm::addFaultLine(NumberField &field)
{
    auto *line = new FaultLine(field, *m_column.parentWidget());
    QObject::connect(&field, &NumberField::faultDidChange, line, &FaultLine::tell);
}

QWidget *InspectorForm::number(const QString &name, const QString &property, const NumberRange &range)
{
    auto *field = new NumberField(range.lowest, range.highest, range.unit);
    field->setAccessibleName(name);
    QObject::connect(field, &NumberField::edited, field, [this, property](int value) { m_edit(property, value); });
    m_shows.push_back([field, property](const std::vector<LayerPointer> &layers) {
        if (const std::optional<QVariant> value = commonValue(layers, property))
            field->show(nearestInt(value->toLongLong()));
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
    box->setAccessibleName(caption.inFull());
    QObject::connect(box, &QCheckBox::clicked, box, [this, box, property, colour] {
        const bool isOn = box->checkState() != Qt::Unchecked; // a press on "some" means all
        box->setTristate(false);
        for (const LayerPointer &layer : m_layers) {
            const QByteArray name = colour.toLatin1();
            if (isOn && !colour.isEmpty() && !layer->value(name).value<OptionalColour>())
                layer->setValue(name, QVariant::fromValue(OptionalColour(textColourFor(*layer))));
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

void InspectorForm::addNumber(const QString &property, const Caption &caption, const std::optional<NumberRange> &range)
{
    const Caption words = worded(caption, property);
    addRow(words, number(words.inFull(), property, range.value_or(rangeOf(property))));
}

QWidget *InspectorForm::addNumberWith(QWidget *button, const QString &property, const Caption &caption)
{
    const Caption words = worded(caption, property);
    return addControlWith(button, words, number(words.inFull(), property, rangeOf(property)));
}

void InspectorForm::addSwitch(const QString &property, const Caption &caption, const QString &colour)
{
    const Caption words = worded(caption, property);
    addRow(words, switchOf(words, property, colour));
}

void InspectorForm::addColour(const QString &property, const Caption &caption)
{
    const Caption words = worded(caption, property);
    addRow(words, colour(words.inFull(), property));
}

void InspectorForm::addText(const QString &property, const Caption &caption, const QString &placeholder)
{
    auto *field = new TextField;
    QObject::connect(field, &QLineEdit::textEdited, field,
                     [this, property](const QString &text) { m_edit(property, text); });
    m_shows.push_back([field, property, placeholder](const std::vector<LayerPointer> &layers) {
        const std::optional<QVariant> value = commonValue(layers, property);
        const QString text = value ? value->toString() : QString();
        field->setPlaceholderText(value ? placeholder : "—");
        if (field->text() == text.left(field->maxLength()))
            return;
        field->setText(text);
        if (!field->hasFocus())
            field->home(false); // of a long text the beginning is seen
    });
    addRow(worded(caption, property), field);
}

namespace {
/// A list that is open stays as it is where nothing else is offered.
void offer(QComboBox &box, const std::vector<InspectorChoice> &choices)
{
    std::vector<InspectorChoice> there;
    there.reserve(static_cast<std::size_t>(box.count()));
    for (int i = 0; i < box.count(); ++i)
        there.push_back({box.itemText(i), box.itemData(i)});
    if (there == choices)
        return;
    box.clear();
    for (const auto &[text, value] : choices)
        box.addItem(text, value);
}
} // namespace

void InspectorForm::addChoice(const QString &property, std::function<std::vector<InspectorChoice>()> choices,
                              const Caption &caption)
{
    auto *box = new QComboBox;
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setPlaceholderText("—");
    QObject::connect(box, &QComboBox::activated, box,
                     [this, box, property](int index) { m_edit(property, box->itemData(index)); });
    m_shows.push_back([box, property, choices = std::move(choices)](const std::vector<LayerPointer> &layers) {
        const std::optional<QVariant> value = commonValue(layers, property);
        std::vector<InspectorChoice> offered = choices();
        if (value && std::ranges::find(offered, *value, &InspectorChoice::value) == offered.end())
            offered.push_back({value->toString(), *value});
        offer(*box, offered);
        box->setCurrentIndex(value ? box->findData(*value) : -1);
    });
    addRow(worded(caption, property), box);
}

void InspectorForm::addSwitchRow(const QString &property, const QString &numberProperty, const QString &colourProperty,
                                 const Caption &caption)
{
    const Caption words = worded(caption, property);
    auto *parts = new QWidget;
    auto *row = new QHBoxLayout(parts);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::gap / 2);
    row->addWidget(switchOf(words, property, colourProperty));
    row->addWidget(number(worded({}, numberProperty).inFull(), numberProperty, rangeOf(numberProperty)), 1);
    row->addWidget(colour(worded({}, colourProperty).inFull(), colourProperty));
    for (int i = 0; i < row->count(); ++i) {
        QWidget *part = row->itemAt(i)->widget();
        if (part->toolTip().isEmpty())
            part->setToolTip(part->accessibleName());
    }
    addRow(words, parts);
    m_rows.back().label->setBuddy(row->itemAt(0)->widget());
}

void InspectorForm::addControl(const Caption &caption, QWidget *control)
{
    addRow(caption, control);
}

QWidget *InspectorForm::addControlWith(QWidget *button, const Caption &caption, QWidget *control)
{
    auto *both = new QWidget;
    auto *row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::gap / 2);
    row->addWidget(control, 1);
    row->addWidget(button);
    control->setAccessibleName(caption.inFull());
    control->setToolTip(caption.tip.isEmpty() ? caption.inFull() : caption.tip);
    addRow(caption, both);
    m_rows.back().label->setBuddy(control);
    return both;
}

void InspectorForm::addWide(const QString &name, QWidget *control)
{
    control->setAccessibleName(name);
    QGridLayout &grid = *m_groups.back().grid;
    grid.addWidget(control, grid.rowCount(), 0, 1, 2);
    m_rows.push_back({{}, nullptr, control});
}

void InspectorForm::addSummary(const QString &name, std::function<QString(const std::vector<LayerPointer> &)> text,
                               std::function<bool(const std::vector<LayerPointer> &)> isWrong)
{
    auto *line = new SummaryLine(name);
    addWide({}, line);
    m_shows.push_back(
        [line, text = std::move(text), isWrong = std::move(isWrong)](const std::vector<LayerPointer> &layers) {
            line->show(text(layers), isWrong && isWrong(layers));
        });
}

InspectorForm::Kinds InspectorForm::kindsOf(const std::vector<LayerPointer> &layers)
{
    if (layers.empty())
        return None;
    const auto isScreen = [](const LayerPointer &layer) { return qobject_cast<LWScreen *>(layer.get()) != nullptr; };
    if (std::all_of(layers.begin(), layers.end(), isScreen))
        return Screens;
    return std::any_of(layers.begin(), layers.end(), isScreen) ? Both : Stills;
}

void InspectorForm::show(const std::vector<LayerPointer> &layers)
{
    m_layers = layers;
    const Kinds kinds = kindsOf(layers);
    for (const Group &group : m_groups) {
        const bool isShown = (group.kinds & kinds) != 0;
        if (group.head)
            group.head->setVisible(isShown);
        group.body->setVisible(isShown && (!group.head || group.head->isChecked()));
    }
    if (layers.empty())
        return;
    for (const Row &row : m_rows)
        showRow(row, *layers.front());
    for (const Show &show : m_shows)
        show(layers);
}

void InspectorForm::showRow(const Row &row, const Layer &layer)
{
    const QString caption = row.caption.number == 0 ? QString() : propertyOfCaption(row.caption.number);
    const bool isHidden = !caption.isEmpty() && layer.value((caption + "Hidden").toLatin1()).toBool();
    row.control->setVisible(!isHidden);
    if (!row.label)
        return;
    row.label->setVisible(!isHidden);
    const QString own = caption.isEmpty() ? QString() : layer.value(caption.toLatin1()).toString();
    row.label->setText(own.isEmpty() ? row.caption.text : own);
}

std::optional<QVariant> InspectorForm::commonValue(const std::vector<LayerPointer> &layers, const QString &property)
{
    const QByteArray name = property.toLatin1();
    const QVariant first = layers.front()->value(name);
    const bool isCommon = std::all_of(layers.begin() + 1, layers.end(),
                                      [&](const LayerPointer &layer) { return layer->value(name) == first; });
    return isCommon ? std::optional(first) : std::nullopt;
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

void InspectorForm::unfold(const QString &title)
{
    for (const Group &group : m_groups) {
        if (group.head && group.title == title)
            group.head->setChecked(true);
    }
}
