#pragma once

#include "facts/Finding.h"

#include <optional>
#include <vector>

class LWAppDelegate;

/// What may be wrong in a document's show. Main thread only.
class Checks
{
public:
    /// Of `document`, which has it.
    explicit Checks(LWAppDelegate &document) : m_document(document) {}

    /// Those of ShowChecks, worked out once a change for all who ask; to be read until the document changes.
    const std::vector<Finding> &findings() const;
    /// Somebody means what a check finds in the layer of that row, or does not any more: a step. Nothing where there is
    /// no such row, or where it is said already.
    void setMeant(qsizetype row, const char *check, bool isMeant);

private:
    LWAppDelegate &m_document;
    mutable std::vector<Finding> m_findings;
    mutable std::optional<quint64> m_revision; ///< of the document that they were found in
};
