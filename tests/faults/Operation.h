#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// Something a person has the program do with files. Each lives in a program of its own, and in one folder.
class Operation
{
public:
    struct Outcome
    {
        bool isDone = false;
        bool isInPart = false; ///< done as far as could be, with sentences that tell what is missing
        QStringList told;      ///< sentences for the person, of what could not be done
    };

    Operation() = default;
    virtual ~Operation() = default;
    Q_DISABLE_COPY_MOVE(Operation)

    /// The program starts, in a folder that holds what fill() has put there or what the last program has left.
    virtual void start() {}
    virtual Outcome run() = 0;
    /// What the program itself holds, in words.
    virtual QString memory() { return {}; }
};

struct OperationKind
{
    const char *name;
    /// What a sentence that tells of a failure has to name; empty: nobody is told, by design.
    QString named;
    /// Puts what is there before into the folder; in a program of its own.
    std::function<void()> fill;
    std::function<std::unique_ptr<Operation>()> make;
};

/// All of them, to work in `folder`, an absolute path without links. `large`: with pictures and files of several
/// MiB, so that memory for them has to be asked for.
std::vector<OperationKind> operationsIn(const QString &folder, bool large);
