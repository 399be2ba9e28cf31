#include "jobs/output_name.h"

namespace quillet {

namespace {

std::string trimBlanks(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::optional<std::string> compressedFileName(const std::string& path, char separator) {
    const auto last = path.rfind(separator);
    if (last == std::string::npos) return std::nullopt;
    const std::string name = trimBlanks("Compressed-" + path.substr(last + 1));
    return trimBlanks(path.substr(0, last + 1) + name);
}

}  // namespace quillet
