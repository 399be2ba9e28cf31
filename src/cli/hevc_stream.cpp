#include "cli/hevc_stream.h"

#include <cstddef>

namespace quillet::cli {

namespace {

// Where the next start code (00 00 01) at or after `from` begins, or the stream's end.
std::size_t nextStartCode(std::string_view stream, std::size_t from) {
    const std::size_t found = stream.find(std::string_view("\0\0\1", 3), from);
    return found == std::string_view::npos ? stream.size() : found;
}

}  // namespace

StreamTally tallyStream(std::string_view stream) {
    StreamTally tally;
    tally.bytes = static_cast<double>(stream.size());
    bool inKeyPicture = false;
    std::size_t start = nextStartCode(stream, 0);
    while (start < stream.size()) {
        const std::size_t unit = start + 3;
        const std::size_t end = nextStartCode(stream, unit);
        // Two header bytes and the slice's first flag: the unit's type, and whether it starts a
        // picture. Types 0-31 carry pictures; 16-23 are key pictures.
        if (end - unit >= 3) {
            const int type = (static_cast<unsigned char>(stream[unit]) >> 1) & 0x3f;
            const bool startsPicture = (static_cast<unsigned char>(stream[unit + 2]) & 0x80) != 0;
            if (type < 32 && startsPicture) {
                ++tally.pictures;
                inKeyPicture = type >= 16 && type <= 23;
                if (inKeyPicture) ++tally.keyPictures;
            }
            // The parameter sets and other units before a key picture travel with it.
            if (inKeyPicture || type >= 32) tally.keyBytes += static_cast<double>(end - start);
        }
        start = end;
    }
    return tally;
}

}  // namespace quillet::cli
