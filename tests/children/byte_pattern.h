#pragma once

#include <cstddef>
#include <string>

namespace quillet::children {

// The bytes child_write_bytes writes, so that a test can check every byte and its place.
inline char patternByte(std::size_t index) {
    static constexpr char kAlphabet[] = "0123456789abcdefghijklmnopqrstuvwxyz\n";
    return kAlphabet[index % (sizeof kAlphabet - 1)];
}

inline std::string patternBytes(std::size_t begin, std::size_t count) {
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i) bytes[i] = patternByte(begin + i);
    return bytes;
}

}  // namespace quillet::children
