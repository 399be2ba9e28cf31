// quillet-cli: the command-line companion. Compresses, converts and tags videos in batches from a
// terminal or a script; every path reaches ffmpeg as one argument of its own.
#include <cstdio>
#include <string>
#include <vector>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "cli/batch.h"
#include "cli/cli_options.h"
#include "cli/tool_location.h"
#include "tools/utf8_arguments.h"
#include "tools/windows_api.h"

namespace {

using namespace quillet::cli;

// The arguments after the program name.
std::vector<std::string> programArguments(int argc, char** argv) {
    std::vector<std::string> words = quillet::utf8Arguments(argc, argv);
    if (!words.empty()) words.erase(words.begin());
    return words;
}

bool isTerminal(std::FILE* stream) {
#ifdef _WIN32
    return ::_isatty(::_fileno(stream)) != 0;
#else
    return ::isatty(::fileno(stream)) != 0;
#endif
}

std::optional<std::filesystem::path> requireTool(const std::string& name) {
    std::vector<std::string> lookedAt;
    const auto tool = findTool(name, ownFolder(), lookedAt);
    if (!tool) {
        std::fprintf(stderr, "quillet-cli: %s was not found. Looked at:\n", name.c_str());
        for (const std::string& place : lookedAt) std::fprintf(stderr, "  %s\n", place.c_str());
        std::fprintf(stderr, "Put %s beside quillet-cli or in a folder of the PATH.\n",
                     name.c_str());
    }
    return tool;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
    ::SetConsoleOutputCP(CP_UTF8);
#endif
    StopRequests stops;  // first, before any other thread
    const Parsed parsed = parseArguments(programArguments(argc, argv));
    if (!parsed.options) {
        if (!parsed.text.empty()) {
            std::fputs(parsed.text.c_str(), stdout);
            return kAllDone;
        }
        std::fprintf(stderr, "quillet-cli: %s\nTry quillet-cli --help.\n", parsed.error.c_str());
        return kBadUsage;
    }
    const Options& options = *parsed.options;
    const auto ffprobe = requireTool("ffprobe");
    const auto ffmpeg = options.command == Command::Probe ? ffprobe : requireTool("ffmpeg");
    if (!ffprobe || !ffmpeg) return kSomeFailed;
    return runBatch(options, Tools{*ffmpeg, *ffprobe}, stops, stdout, stderr, isTerminal(stdout));
}
