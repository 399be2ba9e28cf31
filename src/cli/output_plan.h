#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/cli_options.h"

namespace quillet::cli {

// The sources that the inputs name, in order: a file as it is, a folder's video files (by their
// ending, sorted by name, not those of its subfolders). An input that names neither is reported
// in `problems`, one line each.
std::vector<std::filesystem::path> sourcesOf(const std::vector<std::string>& inputs,
                                             std::vector<std::string>& problems);

// Of `sources`, those this batch writes or wrote itself, each with the source it is the output
// of: "Compressed-<name>", or a numbered one ("Compressed-<stem> (2)<ending>"), of another source
// among them, in the folder that source's output goes to (`outputFolder`, or its own).
std::vector<std::pair<std::filesystem::path, std::filesystem::path>> ownOutputs(
    const std::vector<std::filesystem::path>& sources, const std::string& outputFolder);

// The folders a batch reads and writes in: each input folder, each input file's folder, and
// `outputFolder` when given.
std::vector<std::filesystem::path> batchFolders(const std::vector<std::string>& inputs,
                                                const std::string& outputFolder);

// What to do about one source's output.
struct OutputPlan {
    enum class Action { Write, Skip, Refuse } action = Action::Write;
    std::filesystem::path output;  // absolute
    std::string reason;            // for Skip and Refuse
};

// "Compressed-<name>" beside the source or in `outputFolder`. An existing output is skipped,
// replaced, or left for the first free "Compressed-<stem> (N)<ending>" (N from 2), as asked; an
// output that is the source itself, under whatever name, is refused.
OutputPlan planOutput(const std::filesystem::path& source, const std::string& outputFolder,
                      ExistingOutput existing);

// What marks a partial output's name.
inline constexpr std::string_view kPartialTag = ".quillet-partial";

// Where a job writes until it has succeeded, beside its output with the same ending (which tells
// ffmpeg the format) and the run's mark: "Compressed-clip.quillet-partial-4242.mp4". An output
// that existed is replaced only by a finished job, and a job that fails or is stopped leaves
// neither; a killed one's is removed by the next run over the folder.
std::filesystem::path partialOutput(const std::filesystem::path& output);

// The size of a file in bytes; 0 when it cannot be had.
long long fileSize(const std::filesystem::path& path);

// Puts `partial` in `output`'s place, replacing what is there; false when the system refuses.
bool finishOutput(const std::filesystem::path& partial, const std::filesystem::path& output);

}  // namespace quillet::cli
