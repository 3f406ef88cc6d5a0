// The same drawings through our devices, through the peers that the system has, and as mere bytes: bench-throughput
// [ROUNDS] prints the tables of docs/performance.md. Documents go to TMPDIR, else /tmp.
#include "bench/throughput/results.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <sstream>
#include <string>
#include <unistd.h>
#include <utility>

namespace {

using namespace bench;

constexpr unsigned DefaultRounds = 7;
constexpr std::uint64_t Gibibyte = std::uint64_t{1} << 30;
constexpr std::uint64_t AddressSpace = 4 * Gibibyte; ///< of a subject whose memory is measured
constexpr const char* NullFile = "/dev/null";

using Rows = std::vector<std::pair<WorkloadEntry, Results>>;

/// Three significant digits, or a dash.
std::string number(std::optional<double> value)
{
    if (!value) {
        return "–";
    }
    std::ostringstream out;
    const int digits = *value < 1e-9 ? 0 : static_cast<int>(std::floor(std::log10(*value)));
    out.setf(std::ios::fixed);
    out.precision(std::max(0, 2 - digits));
    out << *value;
    return out.str();
}

/// The same with a mark that says whether a target is reached.
std::string judged(std::optional<double> value, bool reached)
{
    return number(value) + (!value ? "" : reached ? "" : " ✗");
}

void printRow(std::string_view first, const std::vector<std::string>& cells)
{
    std::cout << "| " << first;
    for (const std::string& cell : cells) {
        std::cout << " | " << cell;
    }
    std::cout << " |" << std::endl;
}

void printHead(std::string_view first, const std::vector<std::string>& cells)
{
    printRow(first, cells);
    printRow("---", std::vector<std::string>(cells.size(), "---:"));
}

std::vector<std::string> subjectNames()
{
    std::vector<std::string> names;
    for (const SubjectEntry& entry : subjects()) {
        names.emplace_back(entry.name);
    }
    return names;
}

/// A table of one value of every subject.
template <class Value>
void printTable(const Rows& rows, std::string_view title, Value value)
{
    std::cout << "\n### " << title << "\n\n";
    printHead("", subjectNames());
    for (const auto& [workload, results] : rows) {
        std::vector<std::string> cells;
        for (const SubjectEntry& entry : subjects()) {
            cells.push_back(number(value(workload, results, entry.name)));
        }
        printRow(workload.name, cells);
    }
}

std::optional<double> perCall(std::optional<double> whole, const WorkloadEntry& workload, double unit)
{
    if (whole) {
        *whole *= unit / static_cast<double>(workload.calls);
    }
    return whole;
}

void printTimes(const Rows& rows, const std::string& where)
{
    printTable(rows, "Microseconds per call, " + where,
               [](const WorkloadEntry& workload, const Results& results, std::string_view subject) {
                   return perCall(results.seconds(subject), workload, 1e6);
               });
}

void printBytes(const Rows& rows)
{
    printTable(rows, "Bytes per call",
               [](const WorkloadEntry& workload, const Results& results, std::string_view subject) {
                   return perCall(results.bytes(subject), workload, 1);
               });
}

void printRatios(const Rows& rows, const std::string& where)
{
    std::cout << "\n### Ratios, " << where << "\n\n";
    printHead("", {"fastest peer", "fastest peer / bulk, ≥ 2", "fastest peer / bulk print, ≥ 2",
                   "bulk / formatting, ≤ 2.5", "QsdPSDevice / write per line, ≤ 1.25",
                   "bulk / smallest peer, bytes, ≤ 1.1", "bulk print (images: Flate) / smallest peer, bytes, ≤ 1.1"});
    for (const auto& [workload, results] : rows) {
        const auto peer = results.fastestPeer();
        const auto fromPeer = [&](std::string_view subject) {
            return peer ? results.ratio(*peer, subject) : std::nullopt;
        };
        const auto bulk = fromPeer("bulk");
        const auto bulkPrint = fromPeer("bulk print");
        const auto formatting = results.ratio("bulk", "formatting");
        const auto line = results.ratio("QsdPSDevice", "write per line");
        const auto smallest = results.smallestPeerBytes();
        const auto size = [&](std::string_view subject) {
            const auto own = results.bytes(subject);
            return own && smallest ? std::optional(*own / *smallest) : std::nullopt;
        };
        // Peers compress their images; beside them stands the subject that does.
        const auto bulkSize = isImage(workload.workload) ? std::nullopt : size("bulk");
        const auto printSize = size(isImage(workload.workload) ? "Flate" : "bulk print");
        printRow(workload.name,
                 {peer ? std::string(*peer) : "–", judged(bulk, bulk >= 2.0), judged(bulkPrint, bulkPrint >= 2.0),
                  judged(formatting, formatting <= 2.5), judged(line, line <= 1.25), judged(bulkSize, bulkSize <= 1.1),
                  judged(printSize, printSize <= 1.1)});
    }
}

/// The growth of a document's memory, or that it failed with the address space that it may have.
std::string growth(const SubjectEntry& entry, Workload workload, std::uint64_t calls)
{
    const auto measurement = measureInChild(entry, workload, calls, NullFile, AddressSpace);
    return measurement ? std::to_string(measurement->growth) : "above 4 GiB";
}

void printMemory()
{
    constexpr std::uint64_t Counts[] = {100000, 1000000, 10000000};
    std::cout << "\n### Growth of resident memory, KiB\n\n";
    printHead("", {"10^5 calls", "10^6 calls", "10^7 calls"});
    for (const SubjectEntry& entry : subjects()) {
        if (entry.kind == Kind::Floor || !entry.make()->draws(Workload::FourPens)) {
            continue;
        }
        std::vector<std::string> cells;
        for (const std::uint64_t calls : Counts) {
            cells.push_back(growth(entry, Workload::FourPens, calls));
        }
        printRow(std::string(entry.name) + ": lines, four pens", cells);
    }
    for (const WorkloadEntry& workload : Workloads) {
        if (isImage(workload.workload) || workload.workload == Workload::FourPens) {
            continue;
        }
        for (const SubjectEntry& entry : subjects()) {
            if (entry.name == "bulk") {
                printRow("bulk: " + std::string(workload.name),
                         {"", "", growth(entry, workload.workload, Counts[std::size(Counts) - 1])});
            }
        }
    }
    std::cout << "\n### Growth for an RGB image of 20,000 x 20,000, KiB\n\n";
    printHead("", {"one call"});
    for (const SubjectEntry& entry : subjects()) {
        if (entry.kind == Kind::Own) {
            printRow(entry.name, {growth(entry, Workload::HugeImage, 1)});
        }
    }
}

Rows measureWorkloads(unsigned rounds, const char* fileName)
{
    Rows rows;
    for (const WorkloadEntry& workload : Workloads) {
        rows.emplace_back(workload, measureAll(workload, rounds, fileName));
    }
    return rows;
}

std::string temporaryFile()
{
    const char* const folder = std::getenv("TMPDIR");
    std::string name = std::string(folder == nullptr ? "/tmp" : folder) + "/bench-throughput-XXXXXX";
    const int file = mkstemp(name.data());
    if (file >= 0) {
        close(file);
    }
    return name;
}

} // namespace

int main(int argc, char** argv)
{
    unsigned rounds = DefaultRounds;
    if (argc > 1) {
        const char* const end = argv[1] + std::strlen(argv[1]);
        if (std::from_chars(argv[1], end, rounds).ptr != end || rounds == 0) {
            std::cerr << "usage: " << argv[0] << " [ROUNDS]\n";
            return 2;
        }
    }
    const std::string fileName = temporaryFile();
    const Rows file = measureWorkloads(rounds, fileName.c_str());
    unlink(fileName.c_str());
    const Rows null = measureWorkloads(rounds, NullFile);
    printRatios(file, "regular file");
    printRatios(null, NullFile);
    printTimes(file, "regular file");
    printTimes(null, NullFile);
    printBytes(file);
    printMemory();
    return 0;
}
