#include "toolkit/x11/QsdXConnection_p.h"

#include "toolkit/base/QsdMessages.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t MostErrors = 10; ///< told one by one; a program may make thousands before it looks

std::vector<QsdXConnection*>& openConnections()
{
    static std::vector<QsdXConnection*> connections;
    return connections;
}

XErrorHandler otherErrorHandler = nullptr;
XIOErrorHandler otherLossHandler = nullptr;

std::string textOf(Display* display, const XErrorEvent& event)
{
    char error[256];
    XGetErrorText(display, event.error_code, error, sizeof error);
    const std::string number = std::to_string(event.request_code);
    char request[128];
    XGetErrorDatabaseText(display, "XRequest", number.c_str(), number.c_str(), request, sizeof request);
    return std::string("The X server reports ") + error + " for the request " + request;
}

} // namespace

std::shared_ptr<QsdXConnection> QsdXConnection::Open(const char* name)
{
    Display* const display = XOpenDisplay(name);
    return std::shared_ptr<QsdXConnection>(display == nullptr ? nullptr : new QsdXConnection(display));
}

QsdXConnection::QsdXConnection(Display* display) : _display(display)
{
    if (openConnections().empty()) {
        otherErrorHandler = XSetErrorHandler(TakeError);
        otherLossHandler = XSetIOErrorHandler(TakeLoss);
    }
    openConnections().push_back(this);
#ifdef DRAVONSET_X_IO_ERROR_EXIT
    XSetIOErrorExitHandler(display, GoOn, this);
#endif
}

QsdXConnection::~QsdXConnection()
{
    XCloseDisplay(_display);
    std::erase(openConnections(), this);
    if (openConnections().empty()) {
        XSetErrorHandler(otherErrorHandler);
        XSetIOErrorHandler(otherLossHandler);
    }
}

QsdXConnection* QsdXConnection::Find(const Display* display)
{
    const std::vector<QsdXConnection*>& all = openConnections();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [=](const QsdXConnection* connection) { return connection->_display == display; });
    return found == all.end() ? nullptr : *found;
}

int QsdXConnection::TakeError(Display* display, XErrorEvent* event)
{
    if (QsdXConnection* const connection = Find(display)) {
        connection->add(*event);
        return 0;
    }
    return otherErrorHandler == nullptr ? 0 : otherErrorHandler(display, event);
}

int QsdXConnection::TakeLoss(Display* display)
{
    if (QsdXConnection* const connection = Find(display)) {
        connection->_lost = true;
        return 0;
    }
    return otherLossHandler == nullptr ? 0 : otherLossHandler(display);
}

void QsdXConnection::GoOn(Display*, void* connection)
{
    static_cast<QsdXConnection*>(connection)->_lost = true;
}

void QsdXConnection::add(const XErrorEvent& event)
{
    if (_trial != nullptr) {
        if (_trial->_error.empty()) {
            _trial->_error = textOf(_display, event);
        }
    } else if (_errors.size() < MostErrors) {
        _errors.push_back(textOf(_display, event));
    } else {
        ++_moreErrors;
    }
}

void QsdXConnection::report()
{
    // Whoever receives a warning may draw, and so come here again.
    const std::vector<std::string> errors = std::exchange(_errors, {});
    const unsigned long more = std::exchange(_moreErrors, 0);
    for (const std::string& error : errors) {
        QsdWarning("%s", error.c_str());
    }
    if (more != 0) {
        QsdWarning("The X server reports %lu more errors", more);
    }
    if (_lost && !std::exchange(_lossReported, true)) {
        QsdFatalError("The connection to the X server %s is lost", DisplayString(_display));
    }
}

QsdXTrial::QsdXTrial(QsdXConnection& connection) : _connection(connection), _outer(connection._trial)
{
    // Errors of what was asked for before are not this trial's.
    XSync(connection.display(), False);
    connection._trial = this;
}

QsdXTrial::~QsdXTrial()
{
    XSync(_connection.display(), False);
    _connection._trial = _outer;
}

bool QsdXTrial::succeeded()
{
    XSync(_connection.display(), False);
    if (_connection.isLost() && _error.empty()) {
        _error = "There is no connection to the X server";
    }
    return _error.empty();
}
