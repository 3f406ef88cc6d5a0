// qsdview: drawings in a window.
#include "command/standard_files.h"
#include "command/toolkit_messages.h"
#include "qsdview/print.h"
#include "qsdview/view_options.h"
#include "qsdview/viewer.h"
#include "toolkit/base/QsdGlobalContext.h"

#include <exception>
#include <filesystem>
#include <iostream>

namespace {

void tell(const std::string& name, const std::string& message)
{
    std::cerr << "qsdview: " << name << ": " << message << '\n';
}

/// The pages that could be opened. They are drawn again and again, so they have to be files that stay.
qsdview::Viewer::Pages openPages(const qsdps::Options& options)
{
    qsdview::Viewer::Pages pages;
    for (const qsdps::Source& file : options.inputs) {
        std::error_code problem;
        const bool stays = std::filesystem::is_regular_file(file.name, problem);
        if (file.name == "-" || (!stays && std::filesystem::exists(file.name, problem))) {
            tell(qsdps::nameOfInput(file), "cannot be read again and again, as a window needs it");
            continue;
        }
        auto page = qsdps::DocumentPage::open(file, options);
        if (page) {
            pages.push_back(*std::move(page));
        } else {
            tell(page.error().file, page.error().message());
        }
    }
    return pages;
}

int view(const qsdview::ViewOptions& asked)
{
    const qsdps::Options options = qsdview::documentOptions(asked.files, "-");
    qsdps::tellToolkitMessages("qsdview");
    QsdGlobalContext::GetInstance().setLocale(QsLocale("C", options.encoding));
    qsdview::Viewer::Pages pages = openPages(options);
    const std::size_t opened = pages.size();
    if (opened == 0) {
        return 1;
    }
    const std::unique_ptr<QsdXDisplay> display =
        QsdXDisplay::Open(asked.display ? asked.display->c_str() : nullptr, "qsdview");
    if (display == nullptr) {
        return 1;
    }
    const bool isDone = qsdview::Viewer(*display, std::move(pages), options, asked.geometry).run();
    return isDone && opened == asked.files.size() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (!qsdps::openStandardFiles()) {
        return 1;
    }
    try {
        int exitCode = 0;
        const std::optional<qsdview::ViewOptions> options = qsdview::parseViewOptions(argc, argv, exitCode);
        if (!options) {
            return qsdps::finishStandardOutput("qsdview") ? exitCode : 1;
        }
        return options->printTo ? qsdview::print(options->files, *options->printTo) : view(*options);
    } catch (const std::exception& error) {
        std::cerr << "qsdview: " << error.what() << '\n';
        return 1;
    }
}
