// Who draws: our devices, their peers, and programs that do nothing but write.
#pragma once

#include "bench/throughput/scene.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace bench {

/// Draws workloads into documents.
class Subject {
public:
    Subject() = default;
    virtual ~Subject() = default;
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    [[nodiscard]] virtual bool draws(Workload workload) const = 0;
    /// Makes whatever of `write` is not to be measured.
    virtual void prepare(Workload workload, std::uint64_t calls) = 0;
    /// Writes a whole document of so many calls into a file. Throws std::exception when that fails.
    virtual void write(Workload workload, std::uint64_t calls, const char* fileName) = 0;
};

enum class Kind { Own, Peer, Floor };

struct SubjectEntry {
    std::string_view name;
    Kind kind;
    std::unique_ptr<Subject> (*make)();
};

/// All that this program was built with.
[[nodiscard]] std::span<const SubjectEntry> subjects();

[[nodiscard]] std::unique_ptr<Subject> makeDevice();
[[nodiscard]] std::unique_ptr<Subject> makeBulkDevice();
[[nodiscard]] std::unique_ptr<Subject> makePrintDevice();
[[nodiscard]] std::unique_ptr<Subject> makeBulkPrintDevice();
/// Images alone, compressed at level 3.
[[nodiscard]] std::unique_ptr<Subject> makeCompressingDevice();
[[nodiscard]] std::unique_ptr<Subject> makeCairo();
[[nodiscard]] std::unique_ptr<Subject> makePlot();
[[nodiscard]] std::unique_ptr<Subject> makeFltk();
/// Formats the bytes of the bulk device's document into a buffer and writes the buffers.
[[nodiscard]] std::unique_ptr<Subject> makeFormatting();
/// Copies them from memory to memory.
[[nodiscard]] std::unique_ptr<Subject> makeCopying();
/// Writes them line by line.
[[nodiscard]] std::unique_ptr<Subject> makeLineWriting();

} // namespace bench
