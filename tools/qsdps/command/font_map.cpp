#include "command/font_map.h"

#include "command/input.h"
#include "ps/QsdPSFonts_.h"
#include "toolkit/base/QsdMessages.h"

#include <filesystem>
#include <memory>
#include <sstream>
#include <string_view>
#include <system_error>

namespace qsdps {

namespace {

/// Receives the warnings of the toolkit while it lives, and keeps the reason that the registry gives.
class KeptReason {
public:
    KeptReason() { QsdSetWarningHandler(keep, &_text); }
    ~KeptReason() { QsdSetWarningHandler(nullptr, nullptr); }
    KeptReason(const KeptReason&) = delete;
    KeptReason& operator=(const KeptReason&) = delete;

    [[nodiscard]] const std::string& text() const { return _text; }

private:
    static void keep(const char* message, void* kept)
    {
        std::string_view text(message);
        // The function that finds it is no business of the user.
        constexpr std::string_view Finder = "QsdPSFonts::readHeader ";
        if (text.starts_with(Finder)) {
            text.remove_prefix(Finder.size());
        }
        static_cast<std::string*>(kept)->append(": ").append(text);
    }

    std::string _text;
};

bool enterText(const std::string& text)
{
    std::istringstream stream(text);
    return QsdPSFonts_::GetInstance()->read(stream, "");
}

} // namespace

Result<FontMap> FontMap::enter(const std::string& path)
{
    // A device may never come to its end; a pipe is what a shell gives for a command's output.
    std::error_code problem;
    const std::filesystem::file_status status = std::filesystem::status(path, problem);
    if (std::filesystem::is_character_file(status) || std::filesystem::is_block_file(status)) {
        return Error{"not read: a font map cannot be a device"};
    }
    // A hyphen is no name for standard input here, which drawings may come through.
    const auto file = Input::open(path == "-" ? "./-" : path);
    Result<std::string> text = file ? (*file)->readAll() : file.error();
    if (!text) {
        return Error{"not read: " + text.error().text};
    }
    FontMap map;
    map._text = *std::move(text);
    const KeptReason reason;
    if (!enterText(map._text)) {
        return Error{"not a font map file that can be used" + reason.text()};
    }
    return map;
}

void FontMap::enterAgain() const
{
    if (!_text.empty()) {
        static_cast<void>(enterText(_text));
    }
}

const char* mappedFamily(const std::string& family, QsEncoding encoding)
{
    const QsdPSFontNames_* const names = QsdPSFonts_::GetInstance()->getPSFontNames(encoding, family.c_str());
    return names == nullptr ? nullptr : names->family();
}

} // namespace qsdps
