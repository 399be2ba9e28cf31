#include "app/file_filter.h"

#include "base/text_format.h"

namespace quillet {

namespace {

std::vector<std::string> splitBars(const std::string& text) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t bar = text.find('|'); bar != std::string::npos; bar = text.find('|', start)) {
        parts.push_back(text.substr(start, bar - start));
        start = bar + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

}  // namespace

std::vector<std::string> fileDialogFilters(const std::string& filter) {
    std::vector<std::string> entries;
    if (filter.empty()) return entries;
    const std::vector<std::string> parts = splitBars(filter);
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        const std::string description(trimBlanks(parts[i]));
        const std::string pattern(trimBlanks(parts[i + 1]));
        if (!description.empty() && description.back() == ')') {
            entries.push_back(description);
        } else {
            entries.push_back(description + " (" + pattern + ")");
        }
    }
    return entries;
}

}  // namespace quillet
