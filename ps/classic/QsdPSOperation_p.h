// What a drawing operation tells before it writes anything: what it draws with, and the shape of what it draws.
#pragma once

#include "toolkit/geometry/QsdPoint.h"
#include "toolkit/geometry/QsdPointArray.h"
#include "toolkit/geometry/QsdRect.h"
#include "toolkit/geometry/QsdTransformer.h"
#include "toolkit/graphics/QsdPosition.h"

#include <cstdint>

/// What parts of a palette an operation draws with.
enum class QsdPSUse : std::uint8_t { Everything, Stroke, Fill, Text };

/// Learns the shape of an operation, in the coordinates of the transformer in force. A shape is drawn with the
/// palette's line where the operation strokes.
class QsdPSShapeReader {
public:
    QsdPSShapeReader() = default;
    QsdPSShapeReader(const QsdPSShapeReader&) = delete;
    QsdPSShapeReader& operator=(const QsdPSShapeReader&) = delete;

    virtual void line(const QsdPoint& from, const QsdPoint& to) = 0;
    /// A rectangle, or the ellipse in it.
    virtual void box(const QsdRect& rect) = 0;
    /// Lines, or curves that lie inside the polygon of the points. `closed`: also from the last point to the first.
    virtual void path(unsigned long count, const QsdPoint* points, bool closed) = 0;
    /// The same for `count` points, of which each but the first is told by its step from the one before.
    virtual void steps(const QsdPoint& origin, unsigned long count, const QsdDeltaPoint* deltas) = 0;
    /// A text at a point.
    virtual void text(const QsdPoint& at, const char* text, int length, QsdPosition position) = 0;
    /// A text whose top left corner is the origin that `t` maps.
    virtual void text(const QsdTransformer& t, const char* text, int length) = 0;
    /// A rectangle at the origin that the factors of `t` map and `at` moves.
    virtual void mapped(const QsdRect& rect, const QsdTransformer& t, const QsdPoint& at) = 0;

protected:
    ~QsdPSShapeReader() = default;
};

/// The shape of an operation: a function that tells it to a reader. Refers to the function, so it is made and used
/// within one call.
class QsdPSShape {
public:
    template <class Tell>
    QsdPSShape(const Tell& tell)
        : _function(&tell),
          _call([](const void* function, QsdPSShapeReader& reader) { (*static_cast<const Tell*>(function))(reader); })
    {
    }

    void tell(QsdPSShapeReader& reader) const { _call(_function, reader); }

private:
    const void* _function;
    void (*_call)(const void*, QsdPSShapeReader&);
};
