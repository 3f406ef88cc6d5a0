// Draws the texts of a drawing.
#pragma once

#include "drawing/report.h"
#include "drawing/text.h"
#include "toolkit/port/QsdPort.h"

namespace qsdps {

struct PaintTools;

class TextPainter {
public:
    /// Draws on `port` with the clip of the tools' palette; `opacity` is that of the groups around the text.
    TextPainter(const QsdPort& port, PaintTools& tools, Report& report, double opacity)
        : _port(port), _tools(tools), _report(report), _opacity(opacity)
    {
    }

    /// Draws the spans one after the other, aligned together; `toUnits` maps the text's user space.
    void paint(const TextChunk& chunk, const Matrix& toUnits);

private:
    struct Run;

    [[nodiscard]] Run runOf(const TextSpan& span, const Matrix& toUnits);
    void paintRun(const Run& run, Point at, const Matrix& toUnits);
    void paintAlong(const Path& path, double offset, const std::vector<Run>& runs, const Matrix& toUnits);
    void paintPiece(const Run& run, const std::string& bytes, Point at, double degrees, const Matrix& toUnits,
                    QsdPosition position);
    void paintRules(const Run& run, Point at, const Matrix& toUnits);

    const QsdPort& _port;
    PaintTools& _tools;
    Report& _report;
    double _opacity;
};

} // namespace qsdps
