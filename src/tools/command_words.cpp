#include "tools/command_words.h"

namespace quillet {

bool isWordSeparator(char c) {
    return c == ' ' || c == '\t';
}

std::vector<std::string> splitArguments(std::string_view argumentText) {
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;  // a word has begun, possibly as an empty pair of quotes
    bool quoted = false;
    std::size_t i = 0;
    while (i < argumentText.size()) {
        const char c = argumentText[i];
        if (c == '\\') {
            std::size_t run = argumentText.find_first_not_of('\\', i);
            if (run == std::string_view::npos) run = argumentText.size();
            const std::size_t count = run - i;
            inWord = true;
            if (run < argumentText.size() && argumentText[run] == '"') {
                // 2n backslashes before a quote give n and let the quote group; 2n+1 give n and a
                // literal quote.
                word.append(count / 2, '\\');
                if (count % 2 == 1) {
                    word += '"';
                    i = run + 1;
                } else {
                    i = run;
                }
            } else {
                word.append(count, '\\');
                i = run;
            }
        } else if (c == '"') {
            inWord = true;
            if (quoted && i + 1 < argumentText.size() && argumentText[i + 1] == '"') {
                word += '"';  // a doubled quote inside a group stands for itself
                i += 2;
            } else {
                quoted = !quoted;
                ++i;
            }
        } else if (isWordSeparator(c) && !quoted) {
            if (inWord) words.push_back(std::move(word));
            word.clear();
            inWord = false;
            ++i;
        } else {
            word += c;
            inWord = true;
            ++i;
        }
    }
    if (inWord) words.push_back(std::move(word));
    return words;
}

std::string quoteArgument(std::string_view text) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char c : text) {
        if (c == '\\') {
            ++backslashes;
        } else if (c == '"') {
            // The backslashes right before a quote are doubled, and one more escapes the quote.
            quoted.append(backslashes + 1, '\\');
            backslashes = 0;
        } else {
            backslashes = 0;
        }
        quoted += c;
    }
    // Backslashes right before the closing quote are doubled so that they do not escape it.
    quoted.append(backslashes, '\\');
    quoted += '"';
    return quoted;
}

std::string joinArguments(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) {
        if (!line.empty()) line += ' ';
        line += quoteArgument(word);
    }
    return line;
}

}  // namespace quillet
