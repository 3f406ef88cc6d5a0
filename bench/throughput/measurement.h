// One document, measured in a process of its own.
#pragma once

#include "bench/throughput/subject.h"

#include <optional>

namespace bench {

struct Measurement {
    double seconds = 0;       ///< of processor time, the system's share included
    std::uint64_t bytes = 0;  ///< of the document, 0 for a device file
    std::uint64_t growth = 0; ///< of the peak of resident memory, KiB
};

/// Measures in this process. Throws std::exception when the document fails.
[[nodiscard]] Measurement measure(const SubjectEntry& entry, Workload workload, std::uint64_t calls,
                                  const char* fileName);
/// The same in a child process, which may use `addressSpace` bytes (0: any). None when it fails.
[[nodiscard]] std::optional<Measurement> measureInChild(const SubjectEntry& entry, Workload workload,
                                                        std::uint64_t calls, const char* fileName,
                                                        std::uint64_t addressSpace);

} // namespace bench
