#include "layer/PortColours.h"

#include <algorithm>
#include <array>

Colour PortColours::of(qint64 port)
{
    static constexpr std::array<QRgb, count> cycle{0xff00e5d1, 0xff5c9dff, 0xffd0ff3c, 0xffff7a2f,
                                                   0xff35d08a, 0xffc9a8ff, 0xfff0e442, 0xffff6a8f};
    return Colour::fromRgba8(cycle[static_cast<std::size_t>((std::max(port, qint64{1}) - 1) % count)]);
}
