#include "app/Checks.h"

#include "app/LWAppDelegate.h"
#include "facts/ShowChecks.h"

const std::vector<Finding> &Checks::findings() const
{
    if (m_revision != m_document.revision()) {
        m_findings = ShowChecks::of(m_document.project(), m_document.wiring().ports());
        m_revision = m_document.revision();
    }
    return m_findings;
}

void Checks::setMeant(qsizetype row, const char *check, bool isMeant)
{
    const auto &layers = m_document.allScreensArray();
    if (row < 0 || row >= std::ssize(layers))
        return;
    Layer &layer = *layers[static_cast<std::size_t>(row)];
    if (ShowChecks::isMeant(layer, check) == isMeant)
        return;
    QStringList meant = layer.record()->meant.value_or(QStringList());
    if (isMeant)
        meant.append(check);
    else
        meant.removeAll(check);
    layer.setValue("meant", QVariant::fromValue(meant.isEmpty() ? std::optional<QStringList>() : std::optional(meant)));
    m_document.finishEdit(isMeant ? "take as meant" : "take as not meant");
}
