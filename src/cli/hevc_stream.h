#pragma once

#include <string_view>

namespace quillet::cli {

// What an HEVC stream in start-code form (a raw .hevc file) holds: its pictures, and how much of
// it is key pictures, which a short sample has one of at its start however still its content is.
struct StreamTally {
    int pictures = 0;
    int keyPictures = 0;
    double bytes = 0;
    double keyBytes = 0;
};

// Counts `stream`, a picture for each slice that starts one. Bytes that are not a stream count as
// nothing but their size.
StreamTally tallyStream(std::string_view stream);

}  // namespace quillet::cli
