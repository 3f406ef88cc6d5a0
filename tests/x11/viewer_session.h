// A run of the viewer, with a hand on its keys and an eye on its window.
#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

struct _XDisplay;

/// Pixels as 0xRRGGBB.
struct Screenshot {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    /// The colour at a point, black outside.
    [[nodiscard]] std::uint32_t at(int x, int y) const;
};

/// Bits of the keys held down with a button.
constexpr unsigned WithShift = 1;
constexpr unsigned WithControl = 4;

/// Runs a program to its end; returns its exit status, -1 when it did not end by itself. Its messages go to the file
/// "messages" in the current folder.
int runProgram(const std::vector<std::string>& arguments);

/// A viewer that runs until it quits, or is ended with the session.
class ViewerSession {
public:
    /// Starts a viewer of files, and waits for its window; `viewer` is the program.
    ViewerSession(const std::string& viewer, const std::vector<std::string>& arguments);
    ~ViewerSession();
    ViewerSession(const ViewerSession&) = delete;
    ViewerSession& operator=(const ViewerSession&) = delete;

    /// Whether the window is there.
    [[nodiscard]] bool isShown() const { return _window != 0; }
    /// Presses the key that types a symbol, given by its name in X.
    void press(const char* symbol);
    /// Presses a button of the pointer, or moves it with the left button held, or releases the button.
    void pressButton(unsigned button, int x, int y, unsigned modifiers = 0);
    void movePointer(int x, int y);
    void releaseButton(unsigned button, int x, int y);
    void resize(unsigned width, unsigned height);
    /// Asks the viewer to close its window as window managers do.
    void askToClose();

    [[nodiscard]] std::string title() const;
    [[nodiscard]] Screenshot screenshot() const;
    /// Waits some seconds for a title.
    [[nodiscard]] bool waitForTitle(const std::string& title) const;
    /// Waits some seconds for a colour at a point.
    [[nodiscard]] bool waitForColor(int x, int y, std::uint32_t color) const;
    /// Waits for the viewer's end; its exit status, -1 when it does not end.
    [[nodiscard]] int waitForEnd();

private:
    [[nodiscard]] unsigned long findWindow() const;
    void sendButton(int type, unsigned button, int x, int y, unsigned modifiers);

    _XDisplay* _display;
    pid_t _viewer;
    unsigned long _window = 0;
};
