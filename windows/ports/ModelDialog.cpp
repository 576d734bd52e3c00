#include "windows/ports/ModelDialog.h"

#include "windows/TextField.h"
#include "windows/Theme.h"
#include "windows/inspector/NumberField.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <limits>

namespace {
constexpr int leastFormWidth = 420;
constexpr int mostPortsOfModel = 10'000;
constexpr int mostPanelsOfPort = 1'000'000;

template <typename Field>
Field *named(Field *field, const QString &name, const QString &tip)
{
    field->setAccessibleName(name);
    field->setToolTip(tip);
    return field;
}
} // namespace

ModelDialog::ModelDialog(QWidget &window) : QDialog(&window)
{
    setWindowTitle("Model of a processor");
    auto *column = new QVBoxLayout(this);
    auto *form = new QFormLayout;
    form->setHorizontalSpacing(Theme::edge);
    form->setVerticalSpacing(Theme::gap);
    column->addLayout(form);
    m_name = named(new TextField, "Name of the model", "It stands in the list of models by it");
    m_ports = named(new NumberField(0, mostPortsOfModel, {}), "Ports", "That panels can hang on");
    m_pixels = named(new NumberField(0, std::numeric_limits<int>::max(), "px"), "Pixels per port",
                     "At 8 bit and 60 Hz; at lower rates they count, too");
    m_panels = named(new NumberField(0, mostPanelsOfPort, {}), "Panels per port",
                     "At most; 0: as many as there are pixels for");
    m_isRectangle =
        named(new QCheckBox, "The box counts", "A port is loaded with the box around its panels, gaps included");
    form->addRow("Name", m_name);
    form->addRow("Ports", m_ports);
    form->addRow("Pixels per port", m_pixels);
    form->addRow("Panels per port", m_panels);
    form->addRow("The box counts", m_isRectangle);
    column->addStretch(1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_accept = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    connect(m_name, &QLineEdit::textChanged, this, &ModelDialog::refresh);
    for (const NumberField *field : {m_ports, m_pixels}) {
        connect(field, &NumberField::edited, this, &ModelDialog::refresh);
        connect(field, &NumberField::takenBack, this, &ModelDialog::refresh);
    }
    setMinimumWidth(leastFormWidth);
    refresh();
}

OwnModel::Description ModelDialog::description() const
{
    return {.name = m_name->text().trimmed(),
            .ports = m_ports->taken(),
            .pixels = m_pixels->taken(),
            .isRectangle = m_isRectangle->isChecked(),
            .maxPanelsPerPort = m_panels->taken()};
}

void ModelDialog::refresh()
{
    m_accept->setEnabled(OwnModel::of(description()).has_value());
}
