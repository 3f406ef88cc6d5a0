#include "paper.h"

#include "tests/render/page_pixels.h"
#include "tests/render/render_device.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

/// A folder that goes with its contents.
class Folder {
public:
    Folder()
    {
        std::string path = (std::filesystem::temp_directory_path() / "paperXXXXXX").string();
        _path = mkdtemp(path.data()) == nullptr ? "" : path;
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(_path); }

    [[nodiscard]] std::string file(const std::string& name) const { return _path + "/" + name; }

private:
    std::string _path;
};

bool print(const std::vector<Scene>& scenes, const Printing& printing, const SceneDrawing& draw,
           const std::string& file)
{
    QsdMemoryDisplay display;
    const std::unique_ptr<QsdPSDevice> device = makeDevice(printing.device, display, QsdPSRGB);
    device->setPaperWidth(PageWidth);
    device->setPaperHeight(PageHeight);
    device->setPostScriptLevel(printing.level);
    if (printing.middles) {
        device->setPageTransformer(QsdTransformer(1, 0, 0, -1, 0.5, PageHeight - 0.5));
    }
    if (!device->initDevice(file.c_str(), nullptr)) {
        return false;
    }
    for (const Scene& scene : scenes) {
        if (&scene != &scenes.front()) {
            device->clip(static_cast<const QsdRect*>(nullptr));
            device->newPage();
        }
        draw(*device, scene);
    }
    device->end();
    return !device->writeFailed();
}

/// Without smoothing, and with the pixels whose middles lie in an area, not all that it touches.
std::string render(const std::string& document, const std::string& pages, const std::string& log)
{
    const std::string size = std::to_string(PageWidth) + "x" + std::to_string(PageHeight);
    const std::string command = "gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -dTextAlphaBits=1 "
                                "-dGraphicsAlphaBits=1 -g" +
                                size + " -sOutputFile='" + pages +
                                "' -c '0 0 .setfilladjust2 false setstrokeadjust' -f '" + document + "' >'" + log +
                                "' 2>&1 </dev/null";
    const int status = std::system(command.c_str());
    std::ifstream in(log);
    const std::string messages{std::istreambuf_iterator<char>(in), {}};
    return messages.empty() && status != 0 ? "gs failed" : messages;
}

} // namespace

void drawScene(QsdPSDevice& device, const Scene& scene)
{
    for (const Call& call : scene) {
        call.draw(device, *paletteOf(*device.display()));
    }
}

Pages onPaper(const std::vector<Scene>& scenes, const Printing& printing, const SceneDrawing& draw)
{
    const Folder folder;
    Pages result;
    if (!print(scenes, printing, draw, folder.file("pages.ps"))) {
        result.messages = "not written";
        return result;
    }
    result.messages = render(folder.file("pages.ps"), folder.file("%d.ppm"), folder.file("log"));
    for (std::size_t page = 1; page <= scenes.size(); ++page) {
        const PagePixels pixels(folder.file(std::to_string(page) + ".ppm").c_str());
        if (!pixels.hasSize(PageWidth, PageHeight)) {
            if (result.messages.empty()) {
                result.messages = "page " + std::to_string(page) + " is missing";
            }
            break;
        }
        std::vector<QsdRGB> colors;
        for (int y = 0; y < static_cast<int>(PageHeight); ++y) {
            for (int x = 0; x < static_cast<int>(PageWidth); ++x) {
                colors.push_back(pixels.pixel(x, y));
            }
        }
        result.pictures.emplace_back(PageWidth, PageHeight, std::move(colors));
    }
    return result;
}
