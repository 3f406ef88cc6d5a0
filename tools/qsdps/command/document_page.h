// What becomes one page of a document.
#pragma once

#include "command/options.h"
#include "drawing/geometry.h"
#include "drawing/report.h"
#include "page/painter.h"
#include "values/result.h"

#include <functional>
#include <memory>
#include <string>

class QsdPSDevice;

namespace qsdps {

/// The page that is being drawn, in a document or elsewhere.
struct Sheet {
    QsdPort& port;
    QsdPSDevice* document; ///< the port, where it is one that writes a document; else null
    QsdTransformer toPort; ///< maps points of the paper to the port
    PaintTools& tools;
    const Options& options;
    PaperSize paper;
    Units units;
    Rgb paperColor;
};

/// A drawing or picture that was opened. It can be drawn once; one of a file that is there to stay, again and again.
class DocumentPage {
public:
    /// Opens an input and looks what it is. An error of it when it cannot be drawn.
    [[nodiscard]] static Result<std::unique_ptr<DocumentPage>> open(const Source& input, const Options& options);
    virtual ~DocumentPage() = default;
    DocumentPage(const DocumentPage&) = delete;
    DocumentPage& operator=(const DocumentPage&) = delete;

    /// What messages call it.
    [[nodiscard]] const std::string& name() const { return _name; }
    /// The title of a document of this page alone; empty when it has none of its own.
    [[nodiscard]] const std::string& title() const { return _title; }
    /// Its own size in CSS pixels.
    [[nodiscard]] const Box& size() const { return _size; }
    /// Draws it; the port's transformer maps the units of the sheet to the port. What cannot be drawn as asked is
    /// counted in `report`; `advance` is told how much is done, 0 to 1. An error when the input turns out broken
    /// only now; then the document is spoilt.
    [[nodiscard]] virtual Status draw(const Sheet& sheet, Report& report,
                                      const std::function<void(double)>& advance) = 0;

protected:
    DocumentPage(std::string name, std::string title, const Box& size)
        : _name(std::move(name)), _title(std::move(title)), _size(size)
    {
    }

private:
    std::string _name;
    std::string _title;
    Box _size;
};

/// What messages call an input.
[[nodiscard]] std::string nameOfInput(const Source& input);

} // namespace qsdps
