#include "app/tool_check.h"

#include "base/text_format.h"
#include "tools/utf8_paths.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <system_error>

namespace quillet {

namespace {

// Box lines end with a carriage return and a line feed, as the user's system writes them.
constexpr const char* kLineBreak = "\r\n";

// Windows file names ignore case, so there the check does too.
bool namesIgnoreCase(const PlatformNames& names) {
    return names.separator == '\\';
}

std::string joinLines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (auto line = lines.begin(); line != lines.end(); ++line) {
        if (line != lines.begin()) text += kLineBreak;
        text += *line;
    }
    return text;
}

// The names of the folder's regular files (a link counts as what it points to), or empty when
// the folder cannot be listed. An entry whose type cannot be read is not counted: it cannot be a
// tool the program can run.
std::optional<std::vector<std::string>> regularFileNames(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    if (error) return std::nullopt;
    std::vector<std::string> names;
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code typeError;
        if (entry->is_regular_file(typeError)) names.push_back(utf8Of(entry->path().filename()));
    }
    if (error) return std::nullopt;
    return names;
}

}  // namespace

ToolsFound findTools(const std::vector<std::string>& fileNames, const PlatformNames& names) {
    const bool ignoreCase = namesIgnoreCase(names);
    const std::string suffix(names.executableSuffix);
    ToolsFound found;
    for (const std::string& fileName : fileNames) {
        const std::string name = ignoreCase ? lowerCaseAscii(fileName) : fileName;
        if (name == "ffmpeg" + suffix) found.ffmpeg = true;
        if (name == "ffprobe" + suffix) found.ffprobe = true;
    }
    return found;
}

std::optional<std::string> missingToolsText(ToolsFound found) {
    if (found.ffmpeg && found.ffprobe) return std::nullopt;
    // Each rule overrides the one before; the ffprobe line has never had a full stop.
    const char* reason = "";
    if (!found.ffmpeg) reason = "FFmpeg was not found in the project directory.";
    if (!found.ffprobe) reason = "FFprobe was not found in the project directory";
    if (!found.ffmpeg && !found.ffprobe) {
        reason = "Neither FFprobe or FFmpeg were found in the project directory.";
    }
    return joinLines({"This project needs FFmpeg and FFprobe to run correctly.", reason, "",
                      "Do you want to visit the FFMpeg Download Webpage ?"});
}

void checkToolPresence(const std::filesystem::path& programFolder, const PlatformNames& names,
                       Dialogs& dialogs) {
    const auto fileNames = regularFileNames(programFolder);
    if (!fileNames) {
        dialogs.messageBox("An Error prevented checking of FFmpeg and FFprobe presence.", "",
                           MessageBoxFlags::OkOnly);
        return;
    }
    const auto text = missingToolsText(findTools(*fileNames, names));
    if (!text) return;
    const MessageBoxButton answer =
        dialogs.messageBox(*text, "FFmpeg Components Not Found",
                           MessageBoxFlags::Exclamation + MessageBoxFlags::YesNoCancel);
    if (answer == MessageBoxButton::Yes) {
        dialogs.openExternally(kFfmpegDownloadPage);
    } else if (answer == MessageBoxButton::No) {
        // Despite the words, the program goes on.
        dialogs.messageBox(
            joinLines({"This project cannot perform the tasks required of it.",
                       "FFmpeg and FFprobe are required", "", "Quillet Cannot Continue"}),
            "Most functions will Fail", MessageBoxFlags::Exclamation);
    }
}

}  // namespace quillet
