#pragma once

#include <unistd.h>

#include <cstddef>
#include <string_view>

namespace quillet::children {

// Writes all of `bytes` to `fd` unbuffered, so that what goes to two streams keeps its order.
inline bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace quillet::children
