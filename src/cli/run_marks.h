#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillet::cli {

// The companion's working files carry the process id of the run that made them, so that a later
// run can tell the files of a run still going from those a killed run left behind.

// "-<this process's id>", to put in a working file's name.
std::string runMark();

// The run a working file belongs to: the id after `tag` ("...<tag><id>..."); none when the name
// has no such mark.
std::optional<long long> markedRun(const std::string& name, const std::string& tag);

// Whether the process with this id is still running.
bool runGoing(long long processId);

// Removes, from each of `folders` (not their subfolders), the partial outputs and set-aside
// attempts that killed runs left, and from the temporary folder their working folders; gives
// what it removed.
std::vector<std::filesystem::path> removeLeftovers(
    const std::vector<std::filesystem::path>& folders);

// Whether a file is a partial output or a set-aside attempt of any run, which is never a source.
bool isWorkingFile(const std::filesystem::path& file);

}  // namespace quillet::cli
