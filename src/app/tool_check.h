#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/dialogs.h"
#include "base/platform_names.h"

namespace quillet {

// The program works only with ffmpeg and ffprobe in its own folder. This check looks for them and
// tells the user which is missing; it only warns, and the command that ran it goes on either way.

inline constexpr const char* kFfmpegDownloadPage = "https://ffmpeg.org/download.html";

struct ToolsFound {
    bool ffmpeg = false;
    bool ffprobe = false;
};

// Which tools the names of a folder's files include. On Windows the names are compared without
// regard to case with "ffmpeg.exe" and "ffprobe.exe"; elsewhere only the exact "ffmpeg" and
// "ffprobe" are the tools. Whole names only: "ffmpeg.exe.bak" is not ffmpeg.
ToolsFound findTools(const std::vector<std::string>& fileNames, const PlatformNames& names);

// The text of the box that says which tool is missing and offers the download page; empty when
// both are there.
std::optional<std::string> missingToolsText(ToolsFound found);

// Lists `programFolder` once and, when a tool is missing, asks whether to open the download page
// (Yes opens it, No warns that most functions will fail, Cancel does nothing more). A folder that
// cannot be listed gives a plain error box instead.
void checkToolPresence(const std::filesystem::path& programFolder, const PlatformNames& names,
                       Dialogs& dialogs);

}  // namespace quillet
