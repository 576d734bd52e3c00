#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <utility>
#include <vector>

/// Where a figure comes from.
struct FigureSource
{
    QString key;
    QString title;
    QString where; ///< address or document; empty: nothing is published
    QString grade; ///< "A" (read at the maker's) to "D" (second hand), "N" (nothing published)
    QStringList via;
    QString says;
};

/// What one port carries at a depth and a rate. Pixels of a panel, each counted once.
struct CapacityCell
{
    int bits = 0; ///< of a colour
    int hz = 0;
    qint64 pixels = 0;
};

/// How the pixels that a port carries follow from colour depth and frame rate.
struct CapacityModel
{
    enum class Kind
    {
        Link,  ///< a bandwidth, shared by the pixels; a printed cell that is lower counts
        Table, ///< what is printed, and nothing between
        None   ///< nothing is published
    };
    struct Link
    {
        qint64 payloadBps = 0; ///< bits a second that are left for pixels
        int bitsPerPixel = 0;  ///< on the cable
    };

    QString id;
    QString label;
    Kind kind = Kind::None;
    std::map<int, Link> links; ///< by colour depth; empty unless it is a link
    int maxHz = 0;             ///< of a link
    std::vector<CapacityCell> published;
    QString grade;
    QString source; ///< key
    QString note;
};

/// Which port of a processor feeds a loop from its other end.
enum class BackupPair
{
    None,     ///< nothing is published
    Adjacent, ///< 1 with 2, 3 with 4
    Half,     ///< the first with the first of the second half
    Trunk,    ///< ten ports with the ten behind them
    Device    ///< a second processor
};

/// What a family of processors asks of the panels on one port.
struct PortRules
{
    enum class LowLatency
    {
        Unsaid,
        Free,
        Half,      ///< half of the pixels, rounded down
        TopAligned ///< less, the lower the port's panels begin on the canvas
    };

    QString id;
    std::optional<bool> rectangle; ///< the box around a port's panels counts; nullopt: nobody says
    qint64 minLoadWidth = 0;       ///< a narrower port loses what it lacks, times its height; 0: any width will do
    qint64 maxPortWidth = 0;       ///< in pixels; 0: none is published
    qint64 maxPortHeight = 0;
    LowLatency lowLatency = LowLatency::Unsaid;
    QStringList lowLatencyModels; ///< that have it; empty: all of the family
    int lowLatencyHeight = 0;     ///< most rows of the canvas with it; 0: as many as without
    int maxPanelsPerPort = 0;     ///< 0: none is published
    int maxPanelsPerLoop = 0;     ///< likewise
    BackupPair backupPair = BackupPair::None;
    QString backup; ///< in words
    QStringList sources;
};

/// What a whole processor carries.
struct DeviceCap
{
    enum class Kind
    {
        Unsaid,
        Pixels,
        Canvas,   ///< the raster of its input: the box around all its panels counts
        PixelRate ///< up to 60 Hz; above it falls as the rate grows
    };

    Kind kind = Kind::Unsaid;
    qint64 pixels = 0;
};

/// A processor that can be bought, or one that a person has described.
struct ProcessorModel
{
    /// A cell of the ready table that comes with a model.
    struct Figure : CapacityCell
    {
        QString kind; ///< "published", "derived" or "next-higher-rate"
    };
    /// Receiving cards that change the figure, by the names on the list, and what then holds.
    using Card = std::pair<QString, QString>;

    QString family;
    QString model; ///< its one name in files
    QString form;  ///< "sender", "all-in-one" ...
    int ports = 0; ///< 0: nobody says
    QString portKind;
    QString capacityModel;
    std::vector<Card> cards;     ///< empty: the card does not matter
    std::vector<int> bits;       ///< depths that it has
    std::vector<Figure> perPort; ///< as printed beside the model
    DeviceCap deviceCap;
    std::map<int, qint64> cardPixels; ///< of all its output cards at 60 Hz, by colour depth; empty: it has none
    std::vector<QSize> canvases;      ///< shapes of its canvas at 60 Hz; empty: none is published
    int maxWidth = 0;                 ///< of all its panels, in pixels; 0: none is published
    int maxHeight = 0;
    QString rules;
    std::optional<BackupPair> backupPair; ///< nullopt: that of the rules
    QString distribution;                 ///< how its ports are led out, in words
    QString grade;
    QStringList sources;
    QString note;
};
