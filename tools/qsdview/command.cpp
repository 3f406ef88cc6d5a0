#include "qsdview/command.h"

#include <algorithm>
#include <iterator>

namespace qsdview {

namespace {

struct Key {
    std::string_view name;
    Command command;
};

constexpr Key Keys[] = {
    {"q", Command::Quit},
    {"Escape", Command::Quit},
    {"Next", Command::NextPage},
    {"KP_Next", Command::NextPage},
    {"n", Command::NextPage},
    {"space", Command::NextPage},
    {"Prior", Command::PreviousPage},
    {"KP_Prior", Command::PreviousPage},
    {"p", Command::PreviousPage},
    {"BackSpace", Command::PreviousPage},
    {"Home", Command::FirstPage},
    {"KP_Home", Command::FirstPage},
    {"End", Command::LastPage},
    {"KP_End", Command::LastPage},
    {"plus", Command::ZoomIn},
    {"equal", Command::ZoomIn},
    {"KP_Add", Command::ZoomIn},
    {"minus", Command::ZoomOut},
    {"KP_Subtract", Command::ZoomOut},
    {"f", Command::Fit},
    {"1", Command::ActualSize},
    {"KP_1", Command::ActualSize},
    {"Left", Command::Left},
    {"KP_Left", Command::Left},
    {"Right", Command::Right},
    {"KP_Right", Command::Right},
    {"Up", Command::Up},
    {"KP_Up", Command::Up},
    {"Down", Command::Down},
    {"KP_Down", Command::Down},
    {"P", Command::Print},
};

} // namespace

Command commandOf(std::string_view key)
{
    const auto* const found =
        std::find_if(std::begin(Keys), std::end(Keys), [&](const Key& known) { return known.name == key; });
    return found == std::end(Keys) ? Command::None : found->command;
}

} // namespace qsdview
