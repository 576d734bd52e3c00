#pragma once

#include "layer/UnknownPart.h"
#include "wiring/OwnModel.h"

#include <tl/expected.hpp>

/// A processor of a show, as a person has set it.
struct ProcessorSettings
{
    enum class Backup
    {
        None,
        Loop,           ///< each run goes back into a second port
        SecondProcessor ///< another one enters at the last panel, at the port of the same number
    };

    static constexpr double lowestRate = 23.976; ///< Hz
    static constexpr double highestRate = 240;

    QString name;  ///< "A"
    QString model; ///< as the catalogue has it
    int bits = 8;
    double rate = 60; ///< Hz, `lowestRate` to `highestRate`
    QString card;     ///< receiving card, where it matters; none of them: the lower figure counts
    bool lowLatency = false;
    Backup backup = Backup::None;
    QString backupProcessor; ///< of a second processor: its name
    int headroom = 0;        ///< per cent that stay free, 0 to 99
    qint64 capacity = 0;     ///< pixels per port, typed by hand; 0: none
    /// How often each pixel is sent: streams of a picture, both eyes of a stereo picture. 1 and more.
    int streams = 1;
    /// Where nobody says whether the box around a port's panels counts, it does.
    bool rectangleWhereUnsaid = true;
    OwnModel own = {}; ///< that `model` is; none: it is one of those that come with the program
    UnknownPartPointer unknown = {};

    bool operator==(const ProcessorSettings &) const = default;
    /// Whether ports of this one can go on at another: all that is known is alike but the names.
    bool isLike(const ProcessorSettings &other) const;
};

/// What is known of the model of a processor, and of all others; to be used as long as the settings are there.
inline const ProcessorCatalogue &catalogueOf(const ProcessorSettings &settings)
{
    return settings.own.catalogue();
}

/// Why nobody can say how many pixels a port carries.
struct NoFigure
{
    enum class Reason
    {
        NoSuchModel,
        NothingPublished, ///< for the model as a whole
        NoSuchDepth,      ///< the model lacks it, or nothing is printed at it
        NoSuchRate        ///< above the highest
    };

    Reason reason;
    QString sentence; ///< "No figure is published for 12 bit at 60 Hz; type the pixels per port."
};

/// The rate that counts, in thousandths of a Hz: what television takes as 1000/1001 of a whole rate is that rate.
qint64 countedRate(double rate);

/// How many pixels one port of a processor carries.
struct PortCapacity
{
    enum class Origin
    {
        Published,      ///< printed so
        Derived,        ///< follows from the bandwidth
        NextHigherRate, ///< printed for a rate above
        Typed           ///< by hand
    };

    qint64 figure = 0; ///< of the model at that depth and rate, or typed
    qint64 pixels = 0; ///< what low latency leaves of it wherever the panels are
    qint64 limit = 0;  ///< of those, what the headroom leaves
    Origin origin = Origin::Derived;
    bool isHalved = false;                ///< by low latency
    int headroom = 0;                     ///< per cent, 0 to 99
    const CapacityModel *model = nullptr; ///< whose figure it is, with its source; null: typed

    /// Error: there is no figure, which is neither 0 nor any number.
    [[nodiscard]] static tl::expected<PortCapacity, NoFigure> of(const ProcessorSettings &settings);

    /// The same with another figure, of 2^41 at most.
    [[nodiscard]] PortCapacity withFigure(qint64 other) const;
    /// The highest rate, in Hz, at which the figure is `least` or more. Nullopt: at none that is published, or the
    /// figure was typed, of which nobody knows the rates.
    [[nodiscard]] std::optional<double> highestRate(const ProcessorSettings &settings, qint64 least) const;
};
