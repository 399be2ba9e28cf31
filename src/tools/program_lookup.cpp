#include "tools/program_lookup.h"

#include "tools/command_words.h"

namespace quillet {

namespace {

std::optional<std::string> locate(const std::string& name, std::string_view searchPath,
                                  const ExecutableTest& isExecutable) {
    if (name.empty()) return std::nullopt;
    if (name.find('/') != std::string::npos) {
        if (isExecutable(name)) return name;
        return std::nullopt;
    }
    for (const std::string& folder : searchFolders(searchPath, ':')) {
        const std::string candidate = folder + "/" + name;
        if (isExecutable(candidate)) return candidate;
    }
    return std::nullopt;
}

ProgramCall makeCall(std::string file, std::string written, std::string_view argumentText) {
    ProgramCall call{std::move(file), {std::move(written)}};
    for (std::string& word : splitArguments(argumentText))
        call.arguments.push_back(std::move(word));
    return call;
}

}  // namespace

std::vector<std::string> searchFolders(std::string_view searchPath, char separator) {
    std::vector<std::string> folders;
    std::size_t start = 0;
    while (start <= searchPath.size()) {
        std::size_t end = searchPath.find(separator, start);
        if (end == std::string_view::npos) end = searchPath.size();
        folders.emplace_back(end > start ? searchPath.substr(start, end - start) : ".");
        start = end + 1;
    }
    return folders;
}

std::optional<ProgramCall> resolveProgram(std::string_view commandLine, std::string_view searchPath,
                                          const ExecutableTest& isExecutable) {
    std::size_t first = 0;
    while (first < commandLine.size() && isWordSeparator(commandLine[first])) ++first;
    const std::string_view line = commandLine.substr(first);
    if (line.empty()) return std::nullopt;

    if (line.front() == '"') {
        const std::size_t close = line.find('"', 1);
        const std::string name(
            line.substr(1, close == std::string_view::npos ? line.npos : close - 1));
        const std::string_view rest =
            close == std::string_view::npos ? std::string_view{} : line.substr(close + 1);
        if (auto file = locate(name, searchPath, isExecutable)) return makeCall(*file, name, rest);
        return std::nullopt;
    }

    // Every blank that ends a word is a place where the program name may end.
    for (std::size_t end = 1; end <= line.size(); ++end) {
        const bool wordEnds = end == line.size() || isWordSeparator(line[end]);
        if (!wordEnds || isWordSeparator(line[end - 1])) continue;
        const std::string name(line.substr(0, end));
        if (auto file = locate(name, searchPath, isExecutable)) {
            return makeCall(*file, name, line.substr(end));
        }
    }
    return std::nullopt;
}

}  // namespace quillet
