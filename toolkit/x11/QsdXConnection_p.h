// The connection to an X server and what goes wrong on it.
#pragma once

#include <X11/Xlib.h>

#include <memory>
#include <string>
#include <vector>

class QsdXTrial;

/// An open connection. Display, drawables and fonts share it. Errors that the server sends are collected as texts,
/// because Xlib forbids to talk to the server while it hands one over, and a receiver of warnings might.
class QsdXConnection {
public:
    /// Null when there is no server `name` (null: the default one).
    [[nodiscard]] static std::shared_ptr<QsdXConnection> Open(const char* name);
    QsdXConnection(const QsdXConnection&) = delete;
    QsdXConnection& operator=(const QsdXConnection&) = delete;
    ~QsdXConnection();

    [[nodiscard]] Display* display() const { return _display; }
    [[nodiscard]] int screen() const { return DefaultScreen(_display); }
    [[nodiscard]] Window root() const { return RootWindow(_display, screen()); }
    [[nodiscard]] bool isLost() const { return _lost; }

    /// Reports what was collected: errors as warnings, the loss of the connection as a fatal error.
    void report();

private:
    friend class QsdXTrial;

    explicit QsdXConnection(Display* display);
    [[nodiscard]] static QsdXConnection* Find(const Display* display);
    static int TakeError(Display* display, XErrorEvent* event);
    static int TakeLoss(Display* display);
    static void GoOn(Display* display, void* connection);
    void add(const XErrorEvent& event);

    Display* _display;
    bool _lost = false;
    bool _lossReported = false;
    std::vector<std::string> _errors;
    unsigned long _moreErrors = 0; ///< those for which there was no room
    QsdXTrial* _trial = nullptr;
};

/// Requests that may fail: errors that come while it lives belong to it and are not reported.
class QsdXTrial {
public:
    explicit QsdXTrial(QsdXConnection& connection);
    QsdXTrial(const QsdXTrial&) = delete;
    QsdXTrial& operator=(const QsdXTrial&) = delete;
    ~QsdXTrial();

    /// Waits for the server; whether all requests since the beginning went well.
    [[nodiscard]] bool succeeded();
    /// The first error in words.
    [[nodiscard]] const std::string& error() const { return _error; }

private:
    friend class QsdXConnection;

    QsdXConnection& _connection;
    QsdXTrial* _outer;
    std::string _error;
};
