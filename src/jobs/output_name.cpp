#include "jobs/output_name.h"

#include "base/text_format.h"

namespace quillet {

std::optional<std::string> compressedFileName(const std::string& path, char separator) {
    const auto last = path.rfind(separator);
    if (last == std::string::npos) return std::nullopt;
    const std::string name(trimBlanks("Compressed-" + path.substr(last + 1)));
    return std::string(trimBlanks(path.substr(0, last + 1) + name));
}

}  // namespace quillet
