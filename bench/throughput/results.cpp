#include "bench/throughput/results.h"

#include <algorithm>
#include <iostream>

namespace {

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

namespace bench {

void Results::add(std::string_view subject, const Measurement& measurement)
{
    _rounds[subject].push_back(measurement);
}

std::optional<double> Results::seconds(std::string_view subject) const
{
    const auto found = _rounds.find(subject);
    if (found == _rounds.end()) {
        return std::nullopt;
    }
    std::vector<double> values;
    for (const Measurement& measurement : found->second) {
        values.push_back(measurement.seconds);
    }
    return median(values);
}

std::optional<double> Results::bytes(std::string_view subject) const
{
    const auto found = _rounds.find(subject);
    if (found == _rounds.end() || found->second.front().bytes == 0) {
        return std::nullopt;
    }
    return static_cast<double>(found->second.front().bytes);
}

std::optional<double> Results::ratio(std::string_view subject, std::string_view other) const
{
    const auto first = _rounds.find(subject);
    const auto second = _rounds.find(other);
    if (first == _rounds.end() || second == _rounds.end()) {
        return std::nullopt;
    }
    std::vector<double> values;
    for (std::size_t i = 0; i < std::min(first->second.size(), second->second.size()); ++i) {
        values.push_back(first->second[i].seconds / second->second[i].seconds);
    }
    return median(values);
}

std::optional<std::string_view> Results::fastestPeer() const
{
    std::optional<std::string_view> fastest;
    for (const SubjectEntry& entry : subjects()) {
        const auto time = seconds(entry.name);
        if (entry.kind == Kind::Peer && time && (!fastest || *time < *seconds(*fastest))) {
            fastest = entry.name;
        }
    }
    return fastest;
}

std::optional<double> Results::smallestPeerBytes() const
{
    std::optional<double> smallest;
    for (const SubjectEntry& entry : subjects()) {
        const auto size = bytes(entry.name);
        if (entry.kind == Kind::Peer && size && (!smallest || *size < *smallest)) {
            smallest = size;
        }
    }
    return smallest;
}

Results measureAll(const WorkloadEntry& workload, unsigned rounds, const char* fileName)
{
    Results results;
    for (unsigned round = 0; round < rounds; ++round) {
        for (const SubjectEntry& entry : subjects()) {
            if (!entry.make()->draws(workload.workload)) {
                continue;
            }
            if (const auto measurement = measureInChild(entry, workload.workload, workload.calls, fileName, 0)) {
                results.add(entry.name, *measurement);
            } else {
                std::cerr << entry.name << " failed: " << workload.name << '\n';
            }
        }
    }
    return results;
}

} // namespace bench
