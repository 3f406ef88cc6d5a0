// What was measured of all subjects, and what the one is beside the other.
#pragma once

#include "bench/throughput/measurement.h"

#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace bench {

/// The measurements of one workload, round by round. Subjects take turns within a round, so what disturbs the machine
/// for a while disturbs all of them, and a ratio is one of neighbours.
class Results {
public:
    void add(std::string_view subject, const Measurement& measurement);

    /// Medians of all rounds; none for a subject that was not measured.
    [[nodiscard]] std::optional<double> seconds(std::string_view subject) const;
    [[nodiscard]] std::optional<double> bytes(std::string_view subject) const;
    /// How many times as long as `other` a subject takes: the median of the ratios of all rounds.
    [[nodiscard]] std::optional<double> ratio(std::string_view subject, std::string_view other) const;
    /// The peer that takes least time, and the least bytes of all peers.
    [[nodiscard]] std::optional<std::string_view> fastestPeer() const;
    [[nodiscard]] std::optional<double> smallestPeerBytes() const;

private:
    std::map<std::string_view, std::vector<Measurement>> _rounds;
};

/// Measures the subjects that draw a workload, `rounds` times, in documents of that name.
[[nodiscard]] Results measureAll(const WorkloadEntry& workload, unsigned rounds, const char* fileName);

} // namespace bench
