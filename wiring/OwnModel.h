#pragma once

#include "wiring/ProcessorCatalogue.h"

#include <QByteArray>

#include <memory>

/// A model of processor that a person has described: a list of processors with that one alone, see
/// ProcessorCatalogue::read(). Kept as its text, so that a show takes it along wherever it is opened. Never changes;
/// copies share it.
class OwnModel
{
public:
    /// What is mostly known of a processor.
    struct Description
    {
        QString name;
        int ports = 0;            ///< 1 to 10,000
        qint64 pixels = 0;        ///< that a port carries at 8 bit and 60 Hz, and at lower rates; 1 and more
        bool isRectangle = false; ///< the box around a port's panels counts
        int maxPanelsPerPort = 0; ///< 0: as many as there are pixels for
    };
    static constexpr char family[] = "My own";

    /// None.
    OwnModel() = default;
    /// Error: it is no such list, or has not one model; the message says what is wrong with it.
    [[nodiscard]] static Result<OwnModel> of(const QByteArray &text);
    /// Error: a value is out of range, or there is no name.
    [[nodiscard]] static Result<OwnModel> of(const Description &description);

    /// Without blanks; empty: none.
    QByteArray text() const;
    /// What comes with the program, and in it this model in the place of one of its name.
    const ProcessorCatalogue &catalogue() const;
    /// Null: none.
    const ProcessorModel *model() const;

    bool operator==(const OwnModel &other) const { return text() == other.text(); }

private:
    struct Held
    {
        QByteArray text;
        ProcessorCatalogue catalogue;
        QString name;
    };

    std::shared_ptr<const Held> m_held; ///< null: none
};
