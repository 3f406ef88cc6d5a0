#include "qsdview/viewer.h"

#include "command/output_check.h"
#include "qsdview/print.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iostream>

namespace qsdview {

namespace {

constexpr double ZoomStep = 1.25;
constexpr double WheelStep = 48; ///< pixels
constexpr double KeyStep = 0.1;  ///< of the window
constexpr std::uint16_t LeftButton = 1;

/// The size asked for, else that of the page, as far as the screen has room for it beside everything else.
WindowGeometry::Size sizeFor(const qsdps::DocumentPage& page, const WindowGeometry& geometry, const QsdRect& screen)
{
    if (geometry.size) {
        return *geometry.size;
    }
    static constexpr double Least = 200;
    constexpr double PartOfScreen = 0.85;
    const double scale = std::min({1.0, PartOfScreen * screen.width / std::max(page.size().width, 1.0),
                                   PartOfScreen * screen.height / std::max(page.size().height, 1.0)});
    const auto held = [scale](double side, double most) {
        return static_cast<std::uint32_t>(std::min(std::max(std::ceil(side * scale), Least), most));
    };
    return {held(page.size().width, screen.width), held(page.size().height, screen.height)};
}

bool isOneOf(const std::vector<std::string>& files, const std::string& other)
{
    return !qsdps::inputUnderOutput(documentOptions(files, other)).empty();
}

} // namespace

Viewer::Viewer(QsdXDisplay& display, Pages pages, const qsdps::Options& options, const WindowGeometry& geometry)
    : _display(display), _pages(std::move(pages)), _options(options),
      _size(sizeFor(*_pages.front(), geometry, display.screenArea())),
      _window(&display, _size.width, _size.height, "qsdview"),
      _palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display))), _buffer(display, options),
      _view(_size.width, _size.height), _reported(_pages.size())
{
    goTo(0);
    // A small page is not blown up unless somebody asks for it.
    if (_view.zoom() > 1) {
        _view.setZoom(1);
    }
    if (const std::optional<QsdPoint> corner = geometry.corner(_size, display.screenArea())) {
        _window.move(*corner);
    }
    _window.show();
}

bool Viewer::run()
{
    for (;;) {
        if (_isStale) {
            paint();
        }
        QsdXEvent event;
        bool isThere = _display.nextEvent(event, -1);
        // What has piled up meanwhile is painted once.
        while (isThere) {
            const Outcome outcome = handle(event);
            if (outcome != Outcome::GoOn) {
                return outcome == Outcome::Quit;
            }
            isThere = _display.nextEvent(event, 0);
        }
    }
}

Viewer::Outcome Viewer::handle(const QsdXEvent& event)
{
    switch (event.kind) {
    case QsdXEvent::Resized:
        _view.resize(static_cast<std::uint32_t>(_window.width()), static_cast<std::uint32_t>(_window.height()));
        _isStale = true;
        return Outcome::GoOn;
    case QsdXEvent::KeyPressed:
        return obey(commandOf(event.key));
    case QsdXEvent::ButtonPressed:
        pressed(event);
        return Outcome::GoOn;
    case QsdXEvent::ButtonReleased:
        _isDragging = _isDragging && event.button != LeftButton;
        return Outcome::GoOn;
    case QsdXEvent::Moved:
        if (_isDragging) {
            _view.scroll(_dragged.x - event.at.x, _dragged.y - event.at.y);
            _dragged = event.at;
            _isStale = true;
        }
        return Outcome::GoOn;
    case QsdXEvent::CloseAsked:
        return Outcome::Quit;
    case QsdXEvent::Gone:
    case QsdXEvent::ConnectionLost:
        return Outcome::Lost;
    }
    return Outcome::GoOn;
}

void Viewer::pressed(const QsdXEvent& event)
{
    constexpr std::uint16_t WheelUp = 4;
    constexpr std::uint16_t WheelRight = 7;
    if (event.button == LeftButton) {
        _isDragging = true;
        _dragged = event.at;
        return;
    }
    if (event.button < WheelUp || event.button > WheelRight) {
        return;
    }
    // Up and left have even numbers.
    const bool isBack = event.button % 2 == 0;
    const double step = isBack ? -WheelStep : WheelStep;
    const bool isSideways = event.button > WheelUp + 1 || (event.modifiers & QsdXShift) != 0;
    if ((event.modifiers & QsdXControl) != 0) {
        _view.setZoom(isBack ? _view.zoom() * ZoomStep : _view.zoom() / ZoomStep, event.at);
    } else {
        _view.scroll(isSideways ? step : 0, isSideways ? 0 : step);
    }
    _isStale = true;
}

Viewer::Outcome Viewer::obey(Command command)
{
    const double across = KeyStep * static_cast<double>(_window.width());
    const double down = KeyStep * static_cast<double>(_window.height());
    _isStale = _isStale || command != Command::None;
    if (command != Command::None) {
        _note.clear();
    }
    // Modifier keys come with the keys that they modify and are no answer.
    const bool mayReplace = _isAsking && command == Command::Print;
    _isAsking = _isAsking && command == Command::None;
    switch (command) {
    case Command::None:
        break;
    case Command::Quit:
        return Outcome::Quit;
    case Command::NextPage:
        goTo(_page + 1);
        break;
    case Command::PreviousPage:
        goTo(_page == 0 ? 0 : _page - 1);
        break;
    case Command::FirstPage:
        goTo(0);
        break;
    case Command::LastPage:
        goTo(_pages.size() - 1);
        break;
    case Command::ZoomIn:
        _view.setZoom(_view.zoom() * ZoomStep);
        break;
    case Command::ZoomOut:
        _view.setZoom(_view.zoom() / ZoomStep);
        break;
    case Command::Fit:
        _view.fit();
        break;
    case Command::ActualSize:
        _view.setZoom(1);
        break;
    case Command::Left:
        _view.scroll(-across, 0);
        break;
    case Command::Right:
        _view.scroll(across, 0);
        break;
    case Command::Up:
        _view.scroll(0, -down);
        break;
    case Command::Down:
        _view.scroll(0, down);
        break;
    case Command::Print:
        print(mayReplace);
        break;
    }
    return Outcome::GoOn;
}

void Viewer::goTo(std::size_t page)
{
    _page = std::min(page, _pages.size() - 1);
    _view.setPage(_pages[_page]->size().width, _pages[_page]->size().height);
}

void Viewer::print(bool mayReplace)
{
    std::vector<std::string> files;
    for (const auto& page : _pages) {
        files.push_back(page->name());
    }
    const std::string document = documentNameFor(files.front());
    std::error_code problem;
    // What is printed over an input is refused without a question.
    if (!mayReplace && std::filesystem::exists(document, problem) && !isOneOf(files, document)) {
        _note = document + " is there; P again replaces it";
        _isAsking = true;
        return;
    }
    const bool isWritten = qsdview::print(files, document) == 0;
    _note = isWritten ? "printed to " + document : "not printed";
    if (isWritten) {
        std::cerr << "qsdview: printed to " << document << '\n';
    }
}

void Viewer::paint()
{
    static constexpr std::uint16_t DeskGrey = 0x8000;
    const auto desk = QsdHandle<QsdColor>::Adopt(new QsdColor(DeskGrey, DeskGrey, DeskGrey));
    const QsdRect window = _view.window();
    const QsdRect shown = window.intersected(_view.page());
    const QsdPoint at{shown.x - window.x, shown.y - window.y};
    _palette->setForeground(desk.get());
    if (shown != window) {
        _window.fillRectangle(_palette.get(), {0, 0, window.width, window.height});
    }
    qsdps::DocumentPage& page = *_pages[_page];
    const qsdps::Status isShown = _buffer.show(page, _view.zoom(), _view.page(), shown, _window, at);
    if (!isShown) {
        _note = isShown.error().message();
        std::cerr << "qsdview: " << isShown.error().file << ": " << _note << '\n';
    }
    if (!_reported[_page]) {
        _reported[_page] = true;
        _buffer.report().print(std::cerr, "qsdview: " + page.name());
    }
    showTitle();
    _isStale = false;
}

void Viewer::showTitle()
{
    std::string title = std::filesystem::path(_pages[_page]->name()).filename().string();
    if (_pages.size() > 1) {
        title.append(" (").append(std::to_string(_page + 1)).append("/").append(std::to_string(_pages.size())) += ")";
    }
    title.append(" ").append(std::to_string(std::lround(100 * _view.zoom()))) += "%";
    if (!_note.empty()) {
        title.append(", ").append(_note);
    }
    _window.setTitle(title.c_str());
}

} // namespace qsdview
