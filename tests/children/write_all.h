#pragma once

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

#include <cstddef>
#include <string_view>

namespace quillet::children {

// Writes all of `bytes` to `fd` unbuffered, so that what goes to two streams keeps its order. The
// bytes go out as they are: on Windows the stream is switched out of text mode, which would turn
// each "\n" into "\r\n".
inline bool writeAll(int fd, std::string_view bytes) {
#ifdef _WIN32
    ::_setmode(fd, _O_BINARY);
#endif
    while (!bytes.empty()) {
        const auto written = ::write(fd, bytes.data(), static_cast<unsigned>(bytes.size()));
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace quillet::children
