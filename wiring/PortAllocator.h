#pragma once

#include "wiring/ShowWiring.h"

#include <map>
#include <set>

/// Gives the runs of a show's walls their ports; see ShowWiring. Ports that somebody chose come first: those wired by
/// hand, those that walls keep; the other walls take what is free, in the order of the list.
class PortAllocator
{
public:
    explicit PortAllocator(const ShowToWire &show);

    ShowWiring allocate();

private:
    /// A processor while its ports are given away.
    struct Device
    {
        std::map<qint64, std::size_t> ports = {}; ///< those that begin a cable, by number: places in the list
        std::set<qint64> partners = {};           ///< those that end one
        PortLoad total = {};
        qint64 nextPort = 1; ///< no free one is before it
    };
    /// Processors that the show would need besides.
    struct Extra
    {
        std::size_t processor;
        std::vector<Device> devices = {};
        qint64 ports = 0;
        std::vector<std::size_t> walls = {};
    };

    void addProcessor(const ProcessorSettings &settings);
    ShowWiring::State stateOf(std::size_t wall);
    std::size_t processorOf(std::size_t wall) const;
    WallSplit splitOf(std::size_t wall, const PortLoad &before) const;

    void wireByHand(std::size_t wall);
    void keepPorts(std::size_t wall);
    void wireInOrder(std::size_t wall);
    void wire(std::size_t wall, std::size_t processor);
    void noteLastPorts(std::size_t wallByHand);
    std::size_t goOn(std::size_t wall, std::size_t processor);
    void wireFrom(std::size_t wall, std::size_t run, std::optional<std::size_t> on);

    bool canGoOn(std::size_t wall, std::size_t port, const WallSplit::Run &run) const;
    static std::optional<qint64> freePort(Device &device, const DeviceBounds &bounds, const PortLoad &load);
    std::size_t portOf(std::size_t processor, qint64 number);
    std::size_t portWithoutNumber(std::size_t processor);
    void countMissing(std::size_t wall, std::size_t processor, std::size_t port, const PortLoad &load);
    PortLoad loadOf(std::size_t wall, std::size_t run) const;
    void hang(std::size_t wall, std::size_t run, std::size_t port, const PortLoad &load, int piece = 0);

    void finishPort(ShowWiring::Port &port) const;
    void sortPorts();

    const ShowToWire &m_show;
    qint64 m_panels = 0; ///< of the walls that are listed
    ShowWiring m_wiring;
    std::vector<std::optional<std::size_t>> m_behind; ///< of each processor: the next one like it
    std::vector<Device> m_devices;
    std::vector<Extra> m_extras;
    std::map<std::size_t, std::size_t> m_lastPorts; ///< by processor: of the wall before, its place in the list
};
