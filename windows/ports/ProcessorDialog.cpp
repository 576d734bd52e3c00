#include "windows/ports/ProcessorDialog.h"

#include "base/NumberText.h"
#include "windows/TextField.h"
#include "windows/Theme.h"
#include "windows/inspector/NumberField.h"
#include "windows/inspector/SummaryLine.h"
#include "wiring/ProcessorCatalogue.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <limits>

namespace {
constexpr int formWidth = 460;
constexpr int mostHeadroom = 99;
constexpr std::array<double, 11> usualRates{23.976, 24, 25, 29.97, 30, 50, 59.94, 60, 100, 120, 240};

QString rateText(double rate)
{
    return QLocale::c().toString(rate, 'g', 6) + " Hz";
}

QComboBox *comboBox(const QString &name)
{
    auto *box = new QComboBox;
    box->setAccessibleName(name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

/// "printed", "from the bandwidth"
QString originText(PortCapacity::Origin origin)
{
    switch (origin) {
    case PortCapacity::Origin::Published:
        return "as printed";
    case PortCapacity::Origin::Derived:
        return "from the bandwidth";
    case PortCapacity::Origin::NextHigherRate:
        return "as printed for a higher rate";
    case PortCapacity::Origin::Typed:
        break;
    }
    return "typed by hand";
}
} // namespace

ProcessorDialog::ProcessorDialog(const ProcessorSettings &settings, const QStringList &others, QWidget &window)
    : QDialog(&window), m_settings(settings), m_others(others)
{
    setWindowTitle("Processor " + settings.name);
    auto *column = new QVBoxLayout(this);
    auto *form = new QFormLayout;
    form->setHorizontalSpacing(Theme::edge);
    form->setVerticalSpacing(Theme::gap);
    column->addLayout(form);
    addName(*form);
    addModel(*form);
    addDepthAndRate(*form);
    addCard(*form);
    addBackup(*form);
    addFigures(*form);
    column->addWidget(m_figure = new SummaryLine("Pixels per port"));
    column->addWidget(m_source = new SummaryLine("Source of the figure"));
    column->addStretch(1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_accept = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    setMinimumWidth(formWidth);
    offerOfModel();
    refresh();
}

const ProcessorModel *ProcessorDialog::model() const
{
    return catalogueOf(m_settings).model(m_settings.model);
}

void ProcessorDialog::addName(QFormLayout &form)
{
    m_name = new TextField;
    m_name->setText(m_settings.name);
    m_name->setToolTip("Its ports are called by it: A1, A2 ...");
    connect(m_name, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_settings.name = text;
        refresh();
    });
    form.addRow("Name", m_name);
}

void ProcessorDialog::addModel(QFormLayout &form)
{
    m_model = comboBox("Model");
    for (const ProcessorModel &model : catalogueOf(m_settings).models())
        m_model->addItem(model.family + ", " + model.model, model.model);
    if (!model())
        m_model->addItem(m_settings.model, m_settings.model);
    m_model->setCurrentIndex(m_model->findData(m_settings.model));
    connect(m_model, &QComboBox::activated, this,
            [this](int index) { takeModel(m_model->itemData(index).toString()); });
    form.addRow("Model", m_model);
}

void ProcessorDialog::addDepthAndRate(QFormLayout &form)
{
    m_bits = comboBox("Colour depth");
    connect(m_bits, &QComboBox::activated, this, [this](int index) {
        m_settings.bits = m_bits->itemData(index).toInt();
        refresh();
    });
    form.addRow("Colour depth", m_bits);
    m_rate = comboBox("Frame rate");
    m_rate->setEditable(true);
    m_rate->setInsertPolicy(QComboBox::NoInsert);
    m_rate->setToolTip("23.976 to 240 Hz");
    for (const double rate : usualRates)
        m_rate->addItem(rateText(rate));
    m_rate->setCurrentIndex(m_rate->findText(rateText(m_settings.rate))); // the list opens there
    m_rate->setCurrentText(rateText(m_settings.rate));
    connect(m_rate, &QComboBox::currentTextChanged, this, &ProcessorDialog::takeRate);
    form.addRow("Frame rate", m_rate);
}

void ProcessorDialog::addCard(QFormLayout &form)
{
    m_card = comboBox("Receiving card");
    m_card->setToolTip("The lower figure counts until one is chosen");
    connect(m_card, &QComboBox::activated, this, [this](int index) {
        m_settings.card = m_card->itemData(index).toString();
        refresh();
    });
    form.addRow("Receiving card", m_card);
    m_lowLatency = new QCheckBox;
    m_lowLatency->setAccessibleName("Low latency");
    m_lowLatency->setChecked(m_settings.lowLatency);
    connect(m_lowLatency, &QCheckBox::toggled, this, [this](bool isOn) {
        m_settings.lowLatency = isOn;
        refresh();
    });
    form.addRow("Low latency", m_lowLatency);
}

void ProcessorDialog::addBackup(QFormLayout &form)
{
    m_backup = comboBox("Backup");
    m_backup->addItems({"None", "Loop back to this one", "Second processor"});
    m_backup->setCurrentIndex(static_cast<int>(m_settings.backup));
    connect(m_backup, &QComboBox::activated, this, [this](int index) {
        m_settings.backup = static_cast<ProcessorSettings::Backup>(index);
        refresh();
    });
    form.addRow("Backup", m_backup);
    m_backupProcessor = comboBox("Second processor");
    m_backupProcessor->setPlaceholderText("Choose one");
    m_backupProcessor->addItems(m_others);
    m_backupProcessor->setCurrentIndex(int(m_others.indexOf(m_settings.backupProcessor)));
    connect(m_backupProcessor, &QComboBox::activated, this, [this](int index) {
        m_settings.backupProcessor = m_others.value(index);
        refresh();
    });
    form.addRow("Second processor", m_backupProcessor);
}

void ProcessorDialog::addFigures(QFormLayout &form)
{
    m_headroom = new NumberField(0, mostHeadroom, "%");
    m_headroom->setAccessibleName("Headroom");
    m_headroom->setToolTip("What stays free on each port");
    m_headroom->show(m_settings.headroom);
    takeFrom(*m_headroom, [this](int value) { m_settings.headroom = value; });
    form.addRow("Headroom", m_headroom);
    m_capacity = new NumberField(0, std::numeric_limits<int>::max(), "px");
    m_capacity->setAccessibleName("Pixels per port, typed");
    m_capacity->setToolTip("Counts instead of the model's figure; 0: none is typed");
    m_capacity->show(static_cast<int>(m_settings.capacity));
    takeFrom(*m_capacity, [this](int value) { m_settings.capacity = value; });
    form.addRow("Typed figure", m_capacity);
}

/// Takes what is typed, and the value before it where that is taken back.
void ProcessorDialog::takeFrom(const NumberField &field, const std::function<void(int)> &take)
{
    const auto takeAndShow = [this, &field, take] {
        take(field.taken());
        refresh();
    };
    connect(&field, &NumberField::edited, this, takeAndShow);
    connect(&field, &NumberField::takenBack, this, takeAndShow);
}

void ProcessorDialog::takeModel(const QString &name)
{
    m_settings.model = name;
    offerOfModel();
    refresh();
}

void ProcessorDialog::offerOfModel()
{
    const ProcessorModel *const chosen = model();
    m_bits->clear();
    for (const int bits : chosen ? chosen->bits : std::vector<int>())
        m_bits->addItem(QString("%1 bit").arg(bits), bits);
    if (m_bits->count() == 0)
        m_bits->addItem(QString("%1 bit").arg(m_settings.bits), m_settings.bits);
    m_bits->setCurrentIndex(std::max(m_bits->findData(m_settings.bits), 0));
    m_settings.bits = m_bits->currentData().toInt();

    m_card->clear();
    m_card->addItem(chosen && chosen->cards.empty() ? "Makes no difference" : "Not chosen yet", QString());
    for (const auto &[cards, capacity] : chosen ? chosen->cards : std::vector<ProcessorModel::Card>())
        m_card->addItem(cards, cards);
    if (!m_settings.card.isEmpty() && m_card->findData(m_settings.card) < 0)
        m_card->addItem(m_settings.card, m_settings.card);
    m_card->setCurrentIndex(std::max(m_card->findData(m_settings.card), 0));
    m_card->setEnabled(m_card->count() > 1);
}

/// Nobody leaves the dialog with what is no rate.
void ProcessorDialog::takeRate(const QString &text)
{
    bool isNumber = false;
    const double rate = QString(text).remove("Hz").trimmed().replace(',', '.').toDouble(&isNumber);
    m_isRate = isNumber && rate >= ProcessorSettings::lowestRate && rate <= ProcessorSettings::highestRate;
    if (m_isRate)
        m_settings.rate = rate;
    refresh();
}

void ProcessorDialog::refresh()
{
    const bool needsOther = m_settings.backup == ProcessorSettings::Backup::SecondProcessor;
    m_backupProcessor->setEnabled(needsOther);
    const QString fault = this->fault();
    const bool hasFigure = PortCapacity::of(m_settings).has_value();
    m_figure->show(fault.isEmpty() ? figureText() : fault, !fault.isEmpty() || !hasFigure);
    m_source->show(fault.isEmpty() ? sourceText() : QString(), false);
    m_accept->setEnabled(fault.isEmpty());
}

/// Why the settings cannot be taken as they stand; empty: they can.
QString ProcessorDialog::fault() const
{
    if (m_settings.name.isEmpty())
        return "A processor needs a name, as its ports are called by it.";
    if (m_others.contains(m_settings.name))
        return QString("Another processor is called %1.").arg(m_settings.name);
    if (!m_isRate)
        return QString("The frame rate is a number from %1 to %2 Hz.")
            .arg(ProcessorSettings::lowestRate)
            .arg(ProcessorSettings::highestRate);
    return {};
}

/// "659,722 px per port, as printed; 626,735 px with the headroom"
QString ProcessorDialog::figureText() const
{
    const auto capacity = PortCapacity::of(m_settings);
    if (!capacity)
        return capacity.error().sentence;
    QString text = NumberText::grouped(capacity->figure) + " px per port, " + originText(capacity->origin);
    if (capacity->limit != capacity->figure)
        text += "; " + NumberText::grouped(capacity->limit) + " px are left of them";
    return text + '.';
}

QString ProcessorDialog::sourceText() const
{
    const auto capacity = PortCapacity::of(m_settings);
    if (!capacity || !capacity->model)
        return {};
    // No catalogue is read in which a model has a source that is not there.
    const FigureSource &source = catalogueOf(m_settings).sources().at(capacity->model->source);
    return QString("Source: %1 (grade %2).").arg(source.title, source.grade);
}
