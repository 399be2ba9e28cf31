#pragma once

#include <filesystem>
#include <string>

namespace quillet {

// Paths from and to the UTF-8 text the program keeps its names in, whatever the system's code
// page.
inline std::filesystem::path pathFromUtf8(const std::string& text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

inline std::string utf8Of(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

}  // namespace quillet
