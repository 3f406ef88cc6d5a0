// The least that writing a document takes whose numbers have to be made into digits.
#pragma once

#include "bench/throughput/output_file.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

/// Collects text in a block of 64 KiB and writes the block when it is full.
class Block {
public:
    explicit Block(const OutputFile& file) : _file(file) {}

    void put(std::string_view text);
    void put(std::int32_t number);
    /// Base-85 characters of `bytes`, four by four, in lines of 75; `bytes` are a multiple of four.
    void putBase85(const std::vector<unsigned char>& bytes);
    void flush();

private:
    /// Makes room for a number, or for five characters and a line end.
    void reserve();

    static constexpr std::size_t Size = std::size_t{64} * 1024;
    static constexpr std::size_t Room = 16;

    const OutputFile& _file;
    std::size_t _used = 0;
    char _block[Size];
};

/// Text taken apart into whole numbers and what stands between them.
class Format {
public:
    Format() = default;
    explicit Format(std::string text);

    void put(Block& block) const;

private:
    struct Piece {
        std::uint32_t begin;
        std::uint32_t length;
        std::int32_t number; ///< behind the text
    };

    std::string _text;
    std::vector<Piece> _pieces;
    std::size_t _rest = 0; ///< where the text behind the last number begins
};

} // namespace bench
