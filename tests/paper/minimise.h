// The few calls of a scene that make it fail.
#pragma once

#include "call.h"

#include <algorithm>
#include <cstddef>

/// Drops calls of `scene` as long as `fails` still says so of the rest: first halves, then less, at last single ones.
/// Without any of the calls that are left the rest does not fail. The scene itself must fail.
template <class Fails>
Scene minimised(Scene scene, Fails fails)
{
    for (std::size_t part = (scene.size() + 1) / 2; part != 0;) {
        bool dropped = false;
        for (std::size_t begin = 0; begin < scene.size();) {
            Scene rest = scene;
            const auto first = rest.begin() + static_cast<std::ptrdiff_t>(begin);
            rest.erase(first, first + static_cast<std::ptrdiff_t>(std::min(part, rest.size() - begin)));
            if (!rest.empty() && fails(rest)) {
                scene = rest;
                dropped = true;
            } else {
                begin += part;
            }
        }
        // Single calls again until none can go.
        part = part == 1 && dropped ? 1 : part / 2;
    }
    return scene;
}
