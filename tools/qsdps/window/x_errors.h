// What the X server objects to.
#pragma once

#include "toolkit/x11/QsdXDisplay.h"

#include <string>

namespace qsdps {

/// Keeps, as long as it lives, what the toolkit would report, for somebody who asks. Only one at a time.
class XErrors {
public:
    XErrors();
    ~XErrors();
    XErrors(const XErrors&) = delete;
    XErrors& operator=(const XErrors&) = delete;

    /// The first error since the last call; empty when there was none.
    [[nodiscard]] std::string take();
    /// The same once the server has done all that it was asked for.
    [[nodiscard]] std::string take(const QsdXDisplay& display);

private:
    static void Keep(const char* message, void* self);

    std::string _first;
};

} // namespace qsdps
