#include "tests/structure/structure_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <sstream>

namespace {

/// The sections in the order in which they must come.
constexpr std::array<std::string_view, 7> Sections = {"%%EndComments", "%%BeginProlog", "%%EndProlog", "%%BeginSetup",
                                                      "%%EndSetup",    "%%Trailer",     "%%EOF"};

/// Comments that are open until the one of the same name that ends them.
constexpr std::array<std::string_view, 5> Brackets = {"Prolog", "Setup", "PageSetup", "Resource", "Feature"};

/// Header comments that every document has.
constexpr std::array<std::string_view, 6> Required = {
    "%%BoundingBox:", "%%HiResBoundingBox:", "%%Creator:", "%%CreationDate:", "%%Pages:", "%%LanguageLevel:"};

/// Operators that an encapsulated document must not use.
constexpr std::array<std::string_view, 17> Denied = {
    "banddevice",  "clear",       "cleardictstack", "copypage",     "erasepage",  "exitserver",
    "framedevice", "grestoreall", "initclip",       "initgraphics", "initmatrix", "quit",
    "renderbands", "setglobal",   "setpagedevice",  "setshared",    "startjob"};

constexpr std::size_t MaxLine = 255;

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

class Checker {
public:
    explicit Checker(std::string_view document)
    {
        while (!document.empty()) {
            const std::size_t end = document.find('\n');
            _lines.push_back(document.substr(0, end));
            if (end == std::string_view::npos) {
                fault("the last line has no end");
                break;
            }
            document.remove_prefix(end + 1);
        }
    }

    std::vector<std::string> check()
    {
        if (_lines.empty() || !startsWith(_lines.front(), "%!PS-Adobe-3.0")) {
            fault("no document of the conventions 3.0");
            return _faults;
        }
        _encapsulated = _lines.front() == "%!PS-Adobe-3.0 EPSF-3.0";
        std::string_view dataEnd;
        for (_number = 1; _number < _lines.size(); ++_number) {
            const std::string_view line = _lines[_number];
            checkBytes(line);
            if (!dataEnd.empty()) {
                if (line.size() >= dataEnd.size() && line.substr(line.size() - dataEnd.size()) == dataEnd) {
                    dataEnd = {};
                }
            } else if (startsWith(line, "%%")) {
                checkComment(line);
            } else {
                checkCode(line);
                dataEnd = endOfDataBehind(line);
            }
        }
        checkEnd();
        return _faults;
    }

private:
    void fault(const std::string& text) { _faults.push_back("line " + std::to_string(_number + 1) + ": " + text); }

    void checkBytes(std::string_view line)
    {
        if (line.size() > MaxLine) {
            fault("longer than a line may be");
        }
        const bool clean =
            std::all_of(line.begin(), line.end(), [](char c) { return (c >= ' ' && c < 0x7F) || c == '\t'; });
        if (_header.count("%%DocumentData:") != 0 && _header["%%DocumentData:"] == "Clean7Bit" && !clean) {
            fault("not 7 bits, or control characters");
        }
        if (line.find('\r') != std::string_view::npos) {
            fault("another kind of line end");
        }
    }

    /// Samples follow an operator that reads them through a filter, up to its end mark; empty where there are none.
    static std::string_view endOfDataBehind(std::string_view line)
    {
        constexpr std::array<std::string_view, 6> Readers = {"I", "Ig", "Im", "Ix", "Ik", "rs"};
        const std::string_view last = line.substr(line.rfind(' ') + 1);
        if (line.find("filter") == std::string_view::npos ||
            std::find(Readers.begin(), Readers.end(), last) == Readers.end()) {
            return {};
        }
        return line.find("ASCIIHexDecode") != std::string_view::npos ? ">" : "~>";
    }

    void checkComment(std::string_view line)
    {
        const std::size_t blank = line.find(' ');
        const std::string keyword(line.substr(0, blank));
        const std::string value(blank == std::string_view::npos ? "" : line.substr(blank + 1));
        const auto section = std::find(Sections.begin(), Sections.end(), keyword);
        if (section != Sections.end()) {
            const auto place = static_cast<std::size_t>(section - Sections.begin());
            if (place != _section) {
                fault(keyword + " is out of order");
            }
            _section = place + 1;
        }
        if (_section == 0) {
            checkHeader(keyword, value);
        }
        for (const std::string_view name : Brackets) {
            checkBracket(keyword, name, value);
        }
        checkPageComment(keyword, value);
        if (keyword == "%%IncludeResource:" && _declared.count(value) == 0) {
            fault(value + " is included, but not declared");
        }
        if (keyword == "%%IncludeResource:") {
            _included.insert(value);
        }
    }

    void checkHeader(const std::string& keyword, const std::string& value)
    {
        if (keyword == "%%+") {
            declare(_list, value);
            return;
        }
        if (!_header.emplace(keyword, value).second) {
            fault(keyword + " stands twice in the header");
        }
        _list = keyword;
        declare(keyword, value);
        if (keyword == "%%BoundingBox:") {
            checkBox(value, false);
        } else if (keyword == "%%HiResBoundingBox:") {
            checkFineBox(value);
        }
        if (value == "(atend)") {
            fault(keyword + " is not told in the header");
        }
    }

    void declare(const std::string& list, const std::string& value)
    {
        if (list == "%%DocumentNeededResources:") {
            _needed.insert(value);
            _declared.insert(value);
        } else if (list == "%%DocumentSuppliedResources:") {
            _supplied.insert(value);
            _declared.insert(value);
        }
    }

    void checkBracket(const std::string& keyword, std::string_view name, const std::string& value)
    {
        const auto is = [&](std::string_view prefix) {
            return startsWith(keyword, prefix) &&
                   std::string_view(keyword).substr(prefix.size(), name.size()) == name &&
                   (keyword.size() == prefix.size() + name.size() || keyword.back() == ':');
        };
        if (is("%%Begin")) {
            _open.emplace_back(name);
            if (name == "Resource") {
                _defined.insert(value);
            }
        } else if (is("%%End")) {
            if (_open.empty() || _open.back() != name) {
                fault(keyword + " ends what is not open");
            } else {
                _open.pop_back();
            }
        }
    }

    void checkPageComment(const std::string& keyword, const std::string& value)
    {
        constexpr std::size_t AfterSetup = 5;
        if (keyword == "%%Page:") {
            closePage();
            ++_pages;
            if (_section != AfterSetup || !_open.empty()) {
                fault("a page begins inside of something else");
            }
            if (value != std::to_string(_pages) + " " + std::to_string(_pages)) {
                fault("page " + value + " is out of order");
            }
            _pageHasBox = _pageHasFineBox = _pageHasSetup = _pageHasTrailer = false;
        } else if (keyword == "%%PageBoundingBox:") {
            _pageHasBox = true;
            checkBox(value, true);
        } else if (keyword == "%%PageHiResBoundingBox:") {
            _pageHasFineBox = true;
            checkFineBox(value);
        } else if (keyword == "%%BeginPageSetup") {
            _pageHasSetup = true;
        } else if (keyword == "%%PageTrailer") {
            _pageHasTrailer = true;
        } else if (keyword == "%%Trailer") {
            closePage();
        } else if (keyword == "%%PageResources:" && _declared.count(value) == 0 &&
                   value.find("-QSD-H") == std::string::npos) {
            fault(value + " is used, but not declared");
        }
    }

    void closePage()
    {
        if (_pages != 0 && !(_pageHasBox && _pageHasFineBox && _pageHasSetup && _pageHasTrailer)) {
            fault("the page lacks its box, its setup or its trailer");
        }
    }

    void checkBox(const std::string& value, bool ofPage)
    {
        std::istringstream numbers(value);
        std::array<long, 4> box{};
        numbers >> box[0] >> box[1] >> box[2] >> box[3];
        if (numbers.fail() || !(numbers >> std::ws).eof()) {
            fault("no box: " + value);
            return;
        }
        if (box[0] > box[2] || box[1] > box[3]) {
            fault("a box inside out: " + value);
        }
        const bool empty = box[0] == box[2] || box[1] == box[3];
        _lastBox = box;
        if (!ofPage) {
            _box = box;
        } else if (!empty && (box[0] < _box[0] || box[1] < _box[1] || box[2] > _box[2] || box[3] > _box[3])) {
            fault("the page reaches beyond the document's box");
        }
    }

    /// A box in parts of points, whose whole-number box stands before it.
    void checkFineBox(const std::string& value)
    {
        std::istringstream numbers(value);
        std::array<double, 4> box{};
        numbers >> box[0] >> box[1] >> box[2] >> box[3];
        if (numbers.fail() || !(numbers >> std::ws).eof()) {
            fault("no box: " + value);
            return;
        }
        for (std::size_t i = 0; i < box.size(); ++i) {
            const auto whole = static_cast<long>(i < 2 ? std::floor(box[i]) : std::ceil(box[i]));
            if (whole != _lastBox[i]) {
                fault("not the box before it in parts of points: " + value);
                return;
            }
        }
    }

    void checkCode(std::string_view line)
    {
        if (!_encapsulated) {
            return;
        }
        for (const std::string_view denied : Denied) {
            const std::size_t at = line.find(denied);
            const auto regular = [&](std::size_t i) {
                return i < line.size() && std::string_view(" ()<>[]{}/%").find(line[i]) == std::string_view::npos;
            };
            if (at != std::string_view::npos && !(at != 0 && regular(at - 1)) && !regular(at + denied.size())) {
                fault(std::string(denied) + " in an encapsulated document");
            }
        }
    }

    void checkEnd()
    {
        for (const std::string_view keyword : Required) {
            if (_header.count(std::string(keyword)) == 0) {
                fault(std::string(keyword) + " is missing");
            }
        }
        if (_section != Sections.size() || _lines.back() != "%%EOF") {
            fault("the document has no end");
        }
        if (!_open.empty()) {
            fault(_open.back() + " is not ended");
        }
        if (_header["%%Pages:"] != std::to_string(_pages)) {
            fault("there are " + std::to_string(_pages) + " pages, not " + _header["%%Pages:"]);
        }
        if (_encapsulated && _pages != 1) {
            fault("an encapsulated document of several pages");
        }
        for (const std::string& needed : _needed) {
            if (_included.count(needed) == 0) {
                fault(needed + " is needed, but not included");
            }
        }
        for (const std::string& supplied : _supplied) {
            if (_defined.count(supplied) == 0) {
                fault(supplied + " is not supplied");
            }
        }
    }

    std::vector<std::string_view> _lines;
    std::vector<std::string> _faults;
    std::size_t _number = 0;
    bool _encapsulated = false;
    std::size_t _section = 0; ///< how many of the sections have come
    std::vector<std::string> _open;
    std::map<std::string, std::string> _header;
    std::string _list; ///< the header comment that "%%+" goes on with
    std::set<std::string> _needed;
    std::set<std::string> _supplied;
    std::set<std::string> _declared; ///< both
    std::set<std::string> _included;
    std::set<std::string> _defined;
    std::array<long, 4> _box{};
    std::array<long, 4> _lastBox{}; ///< of the document or a page
    std::size_t _pages = 0;
    bool _pageHasBox = true;
    bool _pageHasFineBox = true;
    bool _pageHasSetup = true;
    bool _pageHasTrailer = true;
};

} // namespace

std::vector<std::string> structureFaults(std::string_view document)
{
    return Checker(document).check();
}
