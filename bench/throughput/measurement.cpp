#include "bench/throughput/measurement.h"

#include <algorithm>
#include <ctime>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace bench;

/// The most pages that this process ever had in memory, in KiB.
std::uint64_t peakMemory()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    std::uint64_t amount = 0;
    while (status >> word) {
        if (word == "VmHWM:") {
            status >> amount;
            break;
        }
    }
    return amount;
}

/// Makes what is in memory now the peak, where the system lets us.
void forgetPeak()
{
    std::ofstream("/proc/self/clear_refs") << 5;
}

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

std::uint64_t regularSize(const char* fileName)
{
    struct stat status = {};
    return stat(fileName, &status) == 0 && S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
}

void limitAddressSpace(std::uint64_t bytes)
{
    if (bytes > 0) {
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_AS, &limit);
    }
}

/// What the child process does; its exit status.
int runChild(const SubjectEntry& entry, Workload workload, std::uint64_t calls, const char* fileName, int result)
{
    try {
        const Measurement measurement = measure(entry, workload, calls, fileName);
        return write(result, &measurement, sizeof measurement) == sizeof measurement ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << entry.name << ": " << error.what() << '\n';
        return 1;
    }
}

} // namespace

namespace bench {

Measurement measure(const SubjectEntry& entry, Workload workload, std::uint64_t calls, const char* fileName)
{
    const auto subject = entry.make();
    subject->prepare(workload, calls);
    // A short document first: libraries are bound and their code is in memory.
    constexpr std::uint64_t FirstCalls = 1000;
    subject->write(workload, std::min(calls / FirstCalls, std::uint64_t{1}) * FirstCalls, fileName);
    if (regularSize(fileName) > 0) {
        unlink(fileName);
    }
    Measurement measurement;
    forgetPeak();
    const std::uint64_t memory = peakMemory();
    const double start = processorSeconds();
    subject->write(workload, calls, fileName);
    measurement.seconds = processorSeconds() - start;
    measurement.growth = peakMemory() - memory;
    measurement.bytes = regularSize(fileName);
    return measurement;
}

std::optional<Measurement> measureInChild(const SubjectEntry& entry, Workload workload, std::uint64_t calls,
                                          const char* fileName, std::uint64_t addressSpace)
{
    int ends[2];
    if (pipe(ends) != 0) {
        return std::nullopt;
    }
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        limitAddressSpace(addressSpace);
        _exit(runChild(entry, workload, calls, fileName, ends[1]));
    }
    close(ends[1]);
    Measurement measurement;
    const bool measured = child > 0 && read(ends[0], &measurement, sizeof measurement) == sizeof measurement;
    close(ends[0]);
    int status = 0;
    const bool ended = child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status);
    if (!measured || !ended || WEXITSTATUS(status) != 0) {
        return std::nullopt;
    }
    return measurement;
}

} // namespace bench
