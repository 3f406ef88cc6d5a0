// The workloads as calls of a port.
#pragma once

#include "bench/throughput/scene.h"
#include "toolkit/graphics/QsdPattern.h"
#include "toolkit/port/QsdBitmap.h"
#include "toolkit/port/QsdPort.h"

#include <array>
#include <memory>

namespace bench {

/// Draws through any port.
class PortScene {
public:
    /// For ports of `display`, which is not owned.
    explicit PortScene(QsdDisplay& display);

    void prepare(Workload workload);
    void draw(const QsdPort& port, Workload workload, std::uint64_t calls) const;

private:
    using Palettes = std::array<QsdHandle<QsdPalette>, 4>;

    void prepareImage(Workload workload);
    void drawStrings(const QsdPort& port, std::uint64_t calls, std::size_t fonts) const;
    void drawLines(const QsdPort& port, std::uint64_t calls, std::size_t pens) const;

    QsdDisplay& _display;
    std::array<QsdPoint, Points.size()> _points;
    Palettes _pens;
    Palettes _fonts;
    QsdHandle<QsdPalette> _tiled;
    std::unique_ptr<QsdBitmap> _image;
};

} // namespace bench
