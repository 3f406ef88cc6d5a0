#include "recording_canvas.h"

#include <cmath>
#include <cstdio>
#include <sstream>

namespace qsdps {
namespace {

std::string number(double v)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.6g", std::round(v * 1000) / 1000 + 0.0);
    return buffer;
}

std::string point(Point p)
{
    return number(p.x) + "," + number(p.y);
}

std::string pathText(const Path& path, const Matrix& toPage)
{
    std::string text;
    const Point* p = path.points().data();
    for (const Path::Verb verb : path.verbs()) {
        switch (verb) {
        case Path::Verb::Move:
            text += " M" + point(toPage.map(*p++));
            break;
        case Path::Verb::Line:
            text += " L" + point(toPage.map(*p++));
            break;
        case Path::Verb::Cubic:
            text += " C" + point(toPage.map(p[0])) + " " + point(toPage.map(p[1])) + " " + point(toPage.map(p[2]));
            p += 3;
            break;
        case Path::Verb::Close:
            text += " Z";
            break;
        }
    }
    return text;
}

std::string paintText(const Paint& paint)
{
    std::string text = "none";
    if (const auto* rgb = std::get_if<Rgb>(&paint.source)) {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x", rgb->r, rgb->g, rgb->b);
        text = buffer;
    } else if (paint.source.index() == 2) {
        text = "gradient";
    } else if (paint.source.index() == 3) {
        text = "tile";
    }
    return paint.opacity < 1 ? text + "*" + number(paint.opacity) : text;
}

std::string clipText(const ClipPath& clip)
{
    std::string text;
    for (const ClipOutline& outline : clip.outlines) {
        text += outline.rule == FillRule::EvenOdd ? " evenodd" : "";
        text += pathText(outline.path, outline.toPage);
        for (const TextChunk& chunk : outline.texts) {
            text += " text " + point(outline.toPage.map(chunk.at));
            for (const TextSpan& span : chunk.spans)
                text += " [" + span.text + "]" + (span.fill.none() ? "hidden" : "");
        }
        if (outline.inner)
            text += " inner(" + clipText(*outline.inner) + " )";
        if (outline.around)
            text += " around(" + clipText(*outline.around) + " )";
    }
    if (clip.within)
        text += " within(" + clipText(*clip.within) + " )";
    return text;
}

} // namespace

void RecordingCanvas::fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage)
{
    lines.push_back("fill " + paintText(paint) + (rule == FillRule::EvenOdd ? " evenodd" : "") +
                    pathText(path, toPage));
    paints.push_back(paint);
}

void RecordingCanvas::stroke(const Path& path, const StrokeStyle& style, const Paint& paint, const Matrix& toPage)
{
    lines.push_back("stroke " + paintText(paint) + " " + number(style.width) + pathText(path, toPage));
    strokes.push_back(style);
    paints.push_back(paint);
}

void RecordingCanvas::text(const TextChunk& chunk, const Matrix& toPage)
{
    std::string line = "text " + point(toPage.map(chunk.at));
    for (const TextSpan& span : chunk.spans)
        line += " [" + span.text + "]";
    lines.push_back(line);
    chunks.push_back(chunk);
}

void RecordingCanvas::image(const ImageObject& image, double opacity, const Matrix& toPage)
{
    const Box& box = image.viewport;
    lines.push_back("image " + image.data + " " + point(toPage.map({box.x, box.y})) + " " +
                    point(toPage.map({box.x + box.width, box.y + box.height})) +
                    (opacity < 1 ? "*" + number(opacity) : ""));
    images.push_back(image);
}

void RecordingCanvas::pushClip(const ClipPath& clip)
{
    lines.push_back("clip" + clipText(clip));
}

void RecordingCanvas::beginGroup(double opacity)
{
    lines.push_back("group " + number(opacity));
}

Recording drawFile(const std::string& bytes, const SvgOptions& options)
{
    Recording recording;
    const auto loaded = SvgDrawing::load(bytes, options);
    if (!loaded) {
        recording.error = loaded.error().message();
        return recording;
    }
    const std::unique_ptr<SvgDrawing>& drawing = *loaded;
    recording.width = drawing->width();
    recording.height = drawing->height();
    recording.title = drawing->title();
    Report report;
    drawing->draw(recording.canvas, report);
    std::ostringstream messages;
    report.print(messages, "in");
    recording.messages = messages.str();
    return recording;
}

Recording draw(const std::string& content)
{
    return drawFile("<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                    "width='100' height='100'>" +
                    content + "</svg>");
}

std::vector<std::string> linesOf(const std::string& content)
{
    return draw(content).canvas.lines;
}

} // namespace qsdps
