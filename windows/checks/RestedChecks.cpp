#include "windows/checks/RestedChecks.h"

#include "app/LWAppDelegate.h"
#include "windows/LayerText.h"

#include <chrono>

namespace {
constexpr std::chrono::milliseconds restBeforeChecks{200};

QStringList told(const Layer &layer, const LWAppDelegate &document)
{
    return LayerText::warnings(layer, {document.OutputWidth(), document.OutputHeight()});
}

bool isWrong(const Finding &finding)
{
    return finding.level == Finding::Level::Error || finding.level == Finding::Level::Warning;
}
} // namespace

RestedChecks::RestedChecks(LWAppDelegate &document, QObject *parent) : QObject(parent), m_document(document)
{
    m_wait.setSingleShot(true);
    m_wait.setInterval(restBeforeChecks);
    connect(&m_wait, &QTimer::timeout, this, &RestedChecks::catchUp);
    connect(&document, &LWAppDelegate::changed, &m_wait, qOverload<>(&QTimer::start));
}

QStringList RestedChecks::sentences(const Layer &layer) const
{
    return told(layer, m_document) + m_late.value(&layer);
}

void RestedChecks::catchUp()
{
    m_wait.stop();
    m_findings = m_document.checks().findings();
    m_late.clear();
    const std::vector<LayerPointer> &layers = m_document.allScreensArray();
    for (const Finding &finding : m_findings) {
        if (!finding.layer || !isWrong(finding))
            continue;
        const Layer &layer = *layers[static_cast<std::size_t>(*finding.layer)];
        if (!told(layer, m_document).contains(finding.sentence))
            m_late[&layer].append(finding.sentence);
    }
    emit rested();
}
