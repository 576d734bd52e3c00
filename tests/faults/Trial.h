#pragma once

#include "tests/faults/FaultShim.h"
#include "tests/faults/Operation.h"

#include <QString>

/// One operation under one fault, each part in a program of its own, forked from this one.
namespace Trial {

enum class Result
{
    Held,
    Broken,
    Untouched ///< there were fewer such calls
};

struct Verdict
{
    Result result;
    QString why; ///< of a broken one
};

/// Work in `folder`; `notes` is another one for the trial's own files. To be called once before the trials of an
/// operation.
void prepare(const OperationKind &kind, const QString &folder, const QString &notes);
Verdict run(const OperationKind &kind, const QString &folder, const QString &notes, const FaultShim::Fault &fault);

} // namespace Trial
