#pragma once

#include "facts/Finding.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <vector>

class Layer;
class LWAppDelegate;

/// What the checks of a document have found when nobody edited it for a moment: they look at all layers, which is too
/// much for each movement of a hand. Main thread only.
class RestedChecks final : public QObject
{
    Q_OBJECT

public:
    /// The document outlives the last event of this.
    explicit RestedChecks(LWAppDelegate &document, QObject *parent = nullptr);

    /// As it was at the last rest; rows may have changed since.
    const std::vector<Finding> &findings() const { return m_findings; }
    /// What is wrong with a layer and is not meant: what LayerText::warnings() tells is as it is now.
    QStringList sentences(const Layer &layer) const;
    /// Ends the wait.
    void catchUp();

signals:
    /// findings() are those of the document as it is.
    void rested();

private:
    LWAppDelegate &m_document;
    QTimer m_wait;
    std::vector<Finding> m_findings;
    QHash<const Layer *, QStringList> m_late; ///< of each layer what LayerText::warnings() does not tell
};
