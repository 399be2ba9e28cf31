#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet::cli {

// The words in order, the last two joined by `last`: "a", "a or b", "a, b or c".
inline std::string wordList(const std::vector<std::string>& words, std::string_view last) {
    std::string text;
    for (std::size_t index = 0; index < words.size(); ++index) {
        if (index > 0) text += index + 1 == words.size() ? " " + std::string(last) + " " : ", ";
        text += words[index];
    }
    return text;
}

}  // namespace quillet::cli
