#include "app/windows/PowerBar.h"

#include "app/windows/NumberText.h"
#include "app/windows/Theme.h"
#include "app/windows/ZoomField.h"
#include "canvas/LWCanvasImageView.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QToolButton>

namespace {
constexpr int verticalMargin = 6;

QLabel *plainLabel(const QString &accessibleName, const QString &tip)
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setAccessibleName(accessibleName);
    label->setToolTip(tip);
    return label;
}
} // namespace

PowerBar::PowerBar(QWidget *parent)
    : QWidget(parent), m_row(new QHBoxLayout(this)),
      m_powerResult(plainLabel({}, "Current of all walls, hidden ones too")), m_message(plainLabel({}, {})),
      m_pointer(plainLabel({}, "Pixel, panel and colour under the pointer")),
      m_outputSize(plainLabel({}, "Size of the output")), m_zoom(new ZoomField)
{
    setAttribute(Qt::WA_StyledBackground);
    m_row->setContentsMargins(Theme::edge, verticalMargin, Theme::edge, verticalMargin);
    m_row->setSpacing(Theme::gap);

    m_voltages =
        addChoices({{110, "110 V", "Walls are supplied with 110 V"}, {208, "208 V", "Walls are supplied with 208 V"}});
    m_row->addSpacing(Theme::gap);
    m_phases = addChoices(
        {{1, "1 phase", "The load is on one phase"}, {3, "3 phases", "The load is spread over three phases"}});
    m_row->addSpacing(Theme::gap);
    m_row->addWidget(m_powerResult);
    m_row->addSpacing(Theme::gap);
    m_message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_row->addWidget(m_message, 1);
    Theme::colourText(*m_outputSize, Theme::dimText);
    Theme::colourText(*m_pointer, Theme::dimText);
    m_row->addWidget(m_pointer);
    m_row->addWidget(m_outputSize);
    addZoom();

    connect(m_voltages, &QButtonGroup::idClicked, this, &PowerBar::voltageChosen);
    connect(m_phases, &QButtonGroup::idClicked, this, &PowerBar::phaseChosen);
}

void PowerBar::addZoom()
{
    auto *fit = new QToolButton;
    fit->setText("Fit");
    fit->setToolTip("Shows the whole output");
    connect(fit, &QToolButton::clicked, this, &PowerBar::fitChosen);
    connect(m_zoom, &ZoomField::fitChosen, this, &PowerBar::fitChosen);
    connect(m_zoom, &ZoomField::zoomChosen, this, &PowerBar::zoomChosen);
    connect(m_zoom, &ZoomField::faultDidChange, this, &PowerBar::showFailure);
    m_row->addWidget(m_zoom);
    m_row->addWidget(fit);
}

QButtonGroup *PowerBar::addChoices(const std::vector<Choice> &choices)
{
    auto *group = new QButtonGroup(this);
    for (const Choice &choice : choices) {
        auto *button = new QRadioButton(choice.title);
        button->setToolTip(choice.tip);
        button->setChecked(group->buttons().isEmpty());
        group->addButton(button, choice.tag);
        m_row->addWidget(button);
    }
    return group;
}

void PowerBar::showPowerResult(const QString &text)
{
    m_powerResult->setText(text);
}

void PowerBar::showFailure(const QString &sentence)
{
    showMessage(sentence, Theme::warning, "What could not be done");
    m_isFailure = true;
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
    m_messageSentence = sentence;
    m_isFailure = false;
    Theme::colourText(*m_message, colour);
    m_message->setToolTip(sentence.isEmpty() ? QString() : "<qt>" + sentence.toHtmlEscaped() + "</qt>");
    m_message->setAccessibleName(sentence);
    m_message->setAccessibleDescription(kind);
    elideMessage();
}

void PowerBar::elideMessage()
{
    m_message->setText(m_message->fontMetrics().elidedText(m_messageSentence, Qt::ElideRight, m_message->width()));
}

void PowerBar::showReadOut(const CanvasReadOut &readOut, const QString &panel)
{
    QStringList pointer;
    if (readOut.pixel)
        pointer = {QString("x %1").arg(readOut.pixel->x()), QString("y %1").arg(readOut.pixel->y()), panel,
                   readOut.colour.isValid() ? readOut.colour.name() : QString()};
    pointer.removeAll(QString());
    m_pointer->setText(pointer.join("  "));
    m_outputSize->setText(readOut.output.isEmpty() ? QString() : NumberText::size(readOut.output) + " px");
    m_zoom->show(readOut.zoomPercent);
}

void PowerBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    // The label has its new width only when the layout has had its turn.
    m_row->activate();
    elideMessage();
}
