// Draws the texts of a drawing.
#pragma once

#include "drawing/report.h"
#include "drawing/text.h"
#include "page/colors.h"
#include "toolkit/port/QsdPort.h"

#include <functional>
#include <utility>

namespace qsdps {

struct PaintTools;

class TextPainter {
public:
    /// Gives the colour that an ink has on the page at a point in units.
    using Blender = std::function<Rgb(const Ink&, QsdPoint)>;

    /// Draws on `port` with the clip of the tools' palette, all of a chunk on the ground that it begins on.
    TextPainter(const QsdPort& port, PaintTools& tools, Report& report, Blender blender)
        : _port(port), _tools(tools), _report(report), _blender(std::move(blender))
    {
    }

    /// Draws the spans one after the other, aligned together; `toUnits` maps the text's user space.
    void paint(const TextChunk& chunk, const Matrix& toUnits);

private:
    struct Run;

    [[nodiscard]] Run runOf(const TextSpan& span, const Matrix& toUnits, QsdPoint ground);
    /// Counts the runs of families whose metrics are not known, where the place of something follows from them;
    /// `placesAll` says that it does for every run.
    void reportGuessedWidths(const std::vector<Run>& runs, bool placesAll);
    void paintRun(const Run& run, Point at, const Matrix& toUnits);
    void paintAlong(const Path& path, double offset, const std::vector<Run>& runs, const Matrix& toUnits);
    void paintPiece(const Run& run, const std::string& bytes, Point at, double degrees, const Matrix& toUnits,
                    QsdPosition position);
    void showPiece(const Run& run, Rgb color, const std::string& bytes, Point at, double degrees, const Matrix& toUnits,
                   QsdPosition position);
    void paintRules(const Run& run, Point at, const Matrix& toUnits);

    const QsdPort& _port;
    PaintTools& _tools;
    Report& _report;
    Blender _blender;
};

} // namespace qsdps
