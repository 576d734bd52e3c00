#include "app/LWAppDelegate.h"
#include "facts/Load.h"
#include "layer/PowerCalculator.h"
#include "show/EditNames.h"

namespace {
const QString voltageKey("voltageCalc");
const QString phaseKey("phaseCalc");
} // namespace

void LWAppDelegate::calculatePower()
{
    PowerCalculator::chooseSupply(*this);
    const float amperes = Load::of(allScreensArray()).amperes(m_voltageCalc, m_phaseCalc);
    m_powerResult = PowerCalculator::resultText(amperes);
}

void LWAppDelegate::voltageSelect(qint64 tag)
{
    m_voltageCalc = tag;
    supplyWasChosen(voltageKey);
}

void LWAppDelegate::phaseSelect(qint64 tag)
{
    m_phaseCalc = tag;
    supplyWasChosen(phaseKey);
}

void LWAppDelegate::supplyWasChosen(const QString &keyPath)
{
    calculatePower(); // chooses what is 0
    m_supply = Supply::of(m_voltageCalc, m_phaseCalc);
    if (m_supply)
        m_person.noteSupply(*m_supply);
    renderCurrents();
    finishEdit(EditNames::ofKeyPath(keyPath));
}

void LWAppDelegate::takeSupply(const std::optional<Supply> &chosen)
{
    m_supply = chosen;
    const std::optional<Supply> counts = chosen ? chosen : m_person.lastSupply();
    m_voltageCalc = counts ? counts->volts : 0;
    m_phaseCalc = counts ? counts->phases : 0;
}

void LWAppDelegate::renderCurrents()
{
    for (const auto *list : {&allScreensArray(), &presetScreensArray()})
        PowerCalculator::renderCurrents(*list);
}
