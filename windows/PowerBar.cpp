#include "windows/PowerBar.h"

#include "app/Settings.h"
#include "base/NumberText.h"
#include "canvas/LWCanvasImageView.h"
#include "layer/Supply.h"
#include "windows/ElidedLabel.h"
#include "windows/Theme.h"
#include "windows/ZoomField.h"
#include "windows/inspector/NumberField.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace {
constexpr int choiceGap = 4;
constexpr int otherVoltage = 0; ///< the tag of the third choice, whose volts are in the field
constexpr int leastMessage = 160;
constexpr QLatin1StringView longReadOut{"x 00000  y 00000  MAIN AA00  #000000"};
constexpr char powerTip[] = "Current of all walls, hidden ones too: watts / (volts x phases)";

template <class Label>
Label *plainLabel(const QString &tip, QHBoxLayout &row)
{
    auto *label = new Label;
    label->setTextFormat(Qt::PlainText);
    label->setToolTip(tip);
    row.addWidget(label);
    return label;
}

/// A part of the bar without edges of its own.
QHBoxLayout *rowOf(QWidget *part)
{
    auto *row = new QHBoxLayout(part);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::gap);
    return row;
}

/// Sets a text; returns whether it is another one, which takes other room.
bool changeText(QLabel &label, const QString &text)
{
    const bool isOther = label.text() != text;
    label.setText(text);
    return isOther;
}

int widthOf(const QWidget &widget)
{
    return widget.sizeHint().width() + Theme::gap;
}
} // namespace

PowerBar::PowerBar(QWidget *parent)
    : QWidget(parent), m_lines(new QGridLayout(this)), m_supply(new QWidget(this)), m_told(new QWidget(this)),
      m_view(new QWidget(this))
{
    setAttribute(Qt::WA_StyledBackground);
    m_lines->setContentsMargins(Theme::edge, Theme::barMargin, Theme::edge, Theme::barMargin);
    m_lines->setHorizontalSpacing(Theme::gap);
    m_lines->setVerticalSpacing(Theme::barMargin);
    m_lines->setColumnStretch(1, 1);
    m_lines->addWidget(m_supply, 0, 0);
    m_lines->addWidget(m_told, 1, 0, 1, 3);
    m_lines->addWidget(m_view, 0, 2);
    addSupply();
    addTold();
    addZoom();
}

void PowerBar::addSupply()
{
    QHBoxLayout &row = *rowOf(m_supply);
    row.setSpacing(choiceGap);
    m_voltages = addChoices(row, {{110, "110 V", "Walls are supplied with 110 V"},
                                  {208, "208 V", "Walls are supplied with 208 V"},
                                  {otherVoltage, "Other", "Walls are supplied with the volts beside this"}});
    addVolts(row);
    row.addSpacing(Theme::edge);
    m_phases = addChoices(
        row, {{1, "1 phase", "The load is on one phase"}, {3, "3 phases", "The load is spread over three phases"}});
    m_voltages->button(Supply().volts)->setChecked(true);
    m_phases->button(Supply().phases)->setChecked(true);
    connect(m_voltages, &QButtonGroup::idClicked, this,
            [this](int tag) { tag == otherVoltage ? chooseOther(m_volts->value()) : emit voltageChosen(tag); });
    connect(m_phases, &QButtonGroup::idClicked, this, &PowerBar::phaseChosen);
}

QButtonGroup *PowerBar::addChoices(QHBoxLayout &row, const std::vector<Choice> &choices)
{
    auto *group = new QButtonGroup(this);
    for (const Choice &choice : choices) {
        auto *button = new QRadioButton(choice.title);
        button->setToolTip(choice.tip);
        group->addButton(button, choice.tag);
        row.addWidget(button);
    }
    return group;
}

void PowerBar::addVolts(QHBoxLayout &row)
{
    m_volts = new NumberField(1, Supply::mostVolts, "V");
    m_volts->setTakenAtEnd();
    m_volts->setAccessibleName("Volts");
    m_volts->setToolTip("Volts of another supply, 1 to " + NumberText::grouped(Supply::mostVolts));
    connect(m_volts, &NumberField::edited, this, [this](int volts) { m_typedVolts = volts; });
    connect(m_volts, &NumberField::takenBack, this, [this] { m_typedVolts.reset(); });
    // No crew wants the current at 2 V on the way to 230.
    connect(m_volts, &NumberField::editingFinished, this, [this] {
        if (const std::optional<int> volts = std::exchange(m_typedVolts, std::nullopt))
            chooseOther(*volts);
    });
    connect(m_volts, &NumberField::faultDidChange, this,
            [this](const QString &sentence) { showFault(m_volts, sentence); });
    row.addWidget(m_volts);
}

void PowerBar::chooseOther(int volts)
{
    if (!m_voltages->button(volts))
        Settings::setOtherVolts(m_otherVolts.emplace(volts));
    emit voltageChosen(volts);
}

void PowerBar::addTold()
{
    QHBoxLayout &row = *rowOf(m_told);
    m_powerResult = plainLabel<QLabel>(powerTip, row);
    m_supplyInWords = plainLabel<QLabel>(powerTip, row);
    m_supplyInWords->setObjectName(supplyName);
    m_message = plainLabel<ElidedLabel>({}, row);
    m_message->setObjectName(messageName);
    row.setStretchFactor(m_message, 1);
    m_pointer = plainLabel<ElidedLabel>("Pixel, panel and colour under the pointer", row);
    m_pointer->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    m_outputSize = plainLabel<QLabel>("Size of the output", row);
    for (QLabel *label : std::initializer_list<QLabel *>{m_supplyInWords, m_pointer, m_outputSize})
        Theme::colourText(*label, Theme::dimText);
}

void PowerBar::addZoom()
{
    QHBoxLayout &row = *rowOf(m_view);
    m_zoom = new ZoomField;
    auto *fit = new QToolButton;
    fit->setText("Fit");
    fit->setToolTip("Shows the whole output");
    connect(fit, &QToolButton::clicked, this, &PowerBar::fitChosen);
    connect(m_zoom, &ZoomField::fitChosen, this, &PowerBar::fitChosen);
    connect(m_zoom, &ZoomField::zoomChosen, this, &PowerBar::zoomChosen);
    connect(m_zoom, &ZoomField::faultDidChange, this, [this](const QString &sentence) { showFault(m_zoom, sentence); });
    row.addWidget(m_zoom);
    row.addWidget(fit);
}

void PowerBar::showPowerResult(const QString &text)
{
    if (changeText(*m_powerResult, text))
        fit();
}

void PowerBar::showSupply(qint64 volts, qint64 phases, const QString &inWords)
{
    QAbstractButton *known = volts == otherVoltage ? nullptr : m_voltages->button(static_cast<int>(volts));
    (known ? known : m_voltages->button(otherVoltage))->setChecked(true);
    if (!m_otherVolts)
        m_otherVolts = Settings::otherVolts();
    m_volts->showBeneath(known ? *m_otherVolts : static_cast<int>(volts));
    if (QAbstractButton *phase = m_phases->button(static_cast<int>(phases)))
        phase->setChecked(true);
    if (changeText(*m_supplyInWords, inWords))
        fit();
}

void PowerBar::showFailure(const QString &sentence)
{
    showMessage(sentence, Theme::warning, "What could not be done");
    m_isFailure = true;
}

void PowerBar::showFault(const QObject *part, const QString &sentence)
{
    const bool isTold = m_faulty == part;
    std::erase_if(m_faults, [part](const Fault &fault) { return fault.part == part; });
    if (!sentence.isEmpty())
        m_faults.push_back({part, sentence});
    else if (!isTold)
        return;
    if (m_faults.empty())
        return clearMessage();
    const Fault last = m_faults.back();
    showFailure(last.sentence);
    m_faulty = last.part;
}

void PowerBar::showStatus(const QString &sentence)
{
    showMessage(sentence, Theme::text, "What was done");
}

void PowerBar::clearStatus()
{
    if (!m_isFailure)
        clearMessage();
}

void PowerBar::showMessage(const QString &sentence, const QColor &colour, const QString &kind)
{
    m_isFailure = false;
    m_faulty = nullptr;
    const bool isOther = changeText(*m_message, sentence);
    if (!isOther && m_message->accessibleDescription() == kind)
        return;
    Theme::colourText(*m_message, colour);
    m_message->setToolTip(sentence.isEmpty() ? QString() : "<qt>" + sentence.toHtmlEscaped() + "</qt>");
    m_message->setAccessibleName(sentence);
    m_message->setAccessibleDescription(kind);
    fit();
}

void PowerBar::showReadOut(const CanvasReadOut &readOut, const QString &panel)
{
    QStringList pointer;
    if (readOut.pixel)
        pointer = {QString("x %1").arg(readOut.pixel->x()), QString("y %1").arg(readOut.pixel->y()), panel,
                   readOut.colour.isValid() ? readOut.colour.name() : QString()};
    pointer.removeAll(QString());
    const bool wasEmpty = m_pointer->text().isEmpty();
    m_pointer->setText(pointer.join("  "));
    const QString size = readOut.output.isEmpty() ? QString() : NumberText::size(readOut.output) + " px";
    const bool isOtherSize = changeText(*m_outputSize, size);
    m_zoom->show(readOut.zoomPercent);
    if (isOtherSize || wasEmpty != pointer.isEmpty())
        fit();
}

void PowerBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fit();
}

QSize PowerBar::minimumSizeHint() const
{
    return {widthOf(*m_supply) + m_view->sizeHint().width() + 2 * Theme::edge, QWidget::minimumSizeHint().height()};
}

void PowerBar::fit()
{
    const int told = widthOf(*m_powerResult) + fontMetrics().horizontalAdvance(longReadOut) + leastMessage;
    const bool isOneLine = width() >= minimumSizeHint().width() + told + 2 * Theme::gap;
    const bool wasOneLine = m_lines->itemAtPosition(0, 1);
    if (isOneLine && !wasOneLine)
        m_lines->addWidget(m_told, 0, 1);
    if (!isOneLine && wasOneLine)
        m_lines->addWidget(m_told, 1, 0, 1, 3);
    m_lines->activate();
    fitTold();
}

/// Where there is no room for all, the output's size goes first, then the message is cut, then what the pointer is on.
void PowerBar::fitTold()
{
    const int steady = fontMetrics().horizontalAdvance(longReadOut); // labels do not come and go as it moves
    int room = m_told->width() - m_powerResult->sizeHint().width() - 2 * Theme::gap - m_message->sizeHint().width();
    room -= m_pointer->text().isEmpty() ? 0 : steady;
    for (QLabel *label : {m_supplyInWords, m_outputSize}) {
        label->setVisible(!label->text().isEmpty() && widthOf(*label) <= room);
        room -= label->isHidden() ? 0 : widthOf(*label);
    }
    m_pointer->setMaximumWidth(steady + std::max(0, room));
}
