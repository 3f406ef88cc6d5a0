// How far a long run has come.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace qsdps {

/// Shows on one line of standard error, which is written over, what is being drawn; only on a terminal, only when a run
/// takes long enough to make people wonder, and gone in the end.
class Progress {
public:
    enum class When { Never, Late, AtOnce };

    explicit Progress(When when);
    ~Progress() { hide(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Says that a page has begun, counted from 1.
    void beginPage(std::size_t page, std::size_t count);
    /// Says how much of the page is drawn, 0 to 1.
    void advance(double part);
    /// Takes the line away, before something else is told.
    void hide();

private:
    using Clock = std::chrono::steady_clock;

    void show(const std::string& text);

    bool _possible;
    bool _visible = false;
    Clock::time_point _next; ///< when the line may be shown again
    std::string _page;
};

} // namespace qsdps
