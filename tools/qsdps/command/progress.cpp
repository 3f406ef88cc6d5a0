#include "command/progress.h"

#include <iostream>
#include <unistd.h>

namespace qsdps {

namespace {

constexpr std::chrono::milliseconds Patience{1000};
constexpr std::chrono::milliseconds Pause{100};

} // namespace

Progress::Progress(When when)
    : _possible(when != When::Never && isatty(STDERR_FILENO) != 0),
      _next(when == When::AtOnce ? Clock::now() : Clock::now() + Patience)
{
}

void Progress::beginPage(std::size_t page, std::size_t count)
{
    _page = "page " + std::to_string(page) + " of " + std::to_string(count);
    show(_page);
}

void Progress::advance(double part)
{
    show(_page + ", " + std::to_string(static_cast<int>(part * 100)) + " %");
}

void Progress::show(const std::string& text)
{
    if (_possible && Clock::now() >= _next) {
        std::cerr << "\r\x1B[K" << text << std::flush;
        _visible = true;
        _next = Clock::now() + Pause;
    }
}

void Progress::hide()
{
    if (_visible) {
        std::cerr << "\r\x1B[K" << std::flush;
        _visible = false;
    }
}

} // namespace qsdps
