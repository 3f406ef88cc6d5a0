// Encoders of image data, memory to memory, beside a plain copy of the same bytes.
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"
#include "toolkit/encoder/QsdLZWEncoder.h"
#include "toolkit/encoder/QsdRunLengthEncoder.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <ostream>
#include <streambuf>
#include <vector>

namespace {

constexpr std::size_t Size = std::size_t{16} << 20;

std::vector<unsigned char> samples()
{
    std::vector<unsigned char> data(Size);
    for (std::size_t i = 0; i < Size; ++i) {
        data[i] = static_cast<unsigned char>(i * 2654435761U >> 13);
    }
    return data;
}

/// Takes everything into the same piece of memory.
class Sink : public std::streambuf {
public:
    std::streamsize xsputn(const char* text, std::streamsize count) override
    {
        std::memcpy(_memory, text, static_cast<std::size_t>(count));
        benchmark::DoNotOptimize(_memory);
        return count;
    }

private:
    char _memory[1 << 16];
};

template <class Encoder>
void encode(benchmark::State& state, Encoder& encoder)
{
    const std::vector<unsigned char> data = samples();
    for ([[maybe_unused]] auto step : state) {
        encoder.startData();
        encoder.putBytes(data.size(), data.data());
        encoder.endData();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(Size));
}

void Ascii85(benchmark::State& state)
{
    Sink sink;
    std::ostream out(&sink);
    QsdASCII85Encoder encoder(&out);
    encode(state, encoder);
}
BENCHMARK(Ascii85);

void Hexadecimal(benchmark::State& state)
{
    Sink sink;
    std::ostream out(&sink);
    QsdASCIIHexEncoder encoder(&out, false);
    encode(state, encoder);
}
BENCHMARK(Hexadecimal);

void RunLength(benchmark::State& state)
{
    Sink sink;
    std::ostream out(&sink);
    QsdRunLengthEncoder encoder(&out);
    encode(state, encoder);
}
BENCHMARK(RunLength);

void Lzw(benchmark::State& state)
{
    Sink sink;
    std::ostream out(&sink);
    QsdLZWEncoder encoder(&out);
    encode(state, encoder);
}
BENCHMARK(Lzw);

void Copy(benchmark::State& state)
{
    const std::vector<unsigned char> data = samples();
    std::vector<unsigned char> copy(Size);
    for ([[maybe_unused]] auto step : state) {
        std::memcpy(copy.data(), data.data(), Size);
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(Size));
}
BENCHMARK(Copy);

} // namespace

BENCHMARK_MAIN();
