#pragma once

#include <sstream>
#include <string>

namespace quillet::cli {

// Hands each "key=value" line of ffprobe's answer to `take(key, value)`, in order; a line ending
// in "\r" loses it, and a line without "=" is passed over.
template <typename Take>
void forEachKeyValue(const std::string& answer, Take take) {
    std::istringstream lines(answer);
    std::string line;
    while (std::getline(lines, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) continue;
        take(line.substr(0, equals), line.substr(equals + 1));
    }
}

}  // namespace quillet::cli
