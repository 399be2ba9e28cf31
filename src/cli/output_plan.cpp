#include "cli/output_plan.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "base/text_format.h"
#include "cli/run_marks.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 12> kVideoEndings = {
    ".mp4", ".mkv", ".mov", ".avi", ".m4v", ".wmv", ".webm", ".flv", ".ts", ".mts", ".mpg", ".3gp"};

bool isVideoName(const fs::path& path) {
    const std::string ending = lowerCaseAscii(path.extension().string());
    return std::find(kVideoEndings.begin(), kVideoEndings.end(), ending) != kVideoEndings.end();
}

fs::path outputFolderOf(const fs::path& source, const std::string& outputFolder) {
    return outputFolder.empty() ? source.parent_path()
                                : fs::absolute(pathFromUtf8(outputFolder)).lexically_normal();
}

const fs::path kOutputPrefix = pathFromUtf8("Compressed-");

// Whether `name` is "Compressed-<stem> (N)<ending>" of a source named `stem` and `ending`.
bool numberedOutput(const std::string& name, const std::string& stem, const std::string& ending) {
    const std::string head = utf8Of(kOutputPrefix) + stem + " (";
    const std::string tail = ")" + ending;
    if (name.size() <= head.size() + tail.size() || !name.starts_with(head) ||
        !name.ends_with(tail)) {
        return false;
    }
    const std::string number = name.substr(head.size(), name.size() - head.size() - tail.size());
    return number.find_first_not_of("0123456789") == std::string::npos;
}

bool sameFile(const fs::path& a, const fs::path& b) {
    std::error_code error;
    return fs::equivalent(a, b, error) && !error;
}

}  // namespace

std::vector<fs::path> sourcesOf(const std::vector<std::string>& inputs,
                                std::vector<std::string>& problems) {
    std::vector<fs::path> sources;
    for (const std::string& input : inputs) {
        std::error_code error;
        const fs::path path = fs::absolute(pathFromUtf8(input), error).lexically_normal();
        if (!error && fs::is_directory(path, error)) {
            std::vector<fs::path> found;
            for (const fs::directory_entry& entry : fs::directory_iterator(path, error)) {
                std::error_code ignored;
                if (entry.is_regular_file(ignored) && isVideoName(entry.path()) &&
                    !isWorkingFile(entry.path())) {
                    found.push_back(entry.path());
                }
            }
            std::sort(found.begin(), found.end());
            if (found.empty()) problems.push_back(input + ": no video files in this folder");
            sources.insert(sources.end(), found.begin(), found.end());
        } else if (!error && fs::is_regular_file(path, error)) {
            sources.push_back(path);
        } else {
            problems.push_back(input + ": no such file or folder");
        }
    }
    return sources;
}

std::vector<std::pair<fs::path, fs::path>> ownOutputs(const std::vector<fs::path>& sources,
                                                      const std::string& outputFolder) {
    std::vector<std::pair<fs::path, fs::path>> found;
    const std::string prefix = utf8Of(kOutputPrefix);
    const fs::path sharedFolder =
        outputFolder.empty() ? fs::path() : outputFolderOf({}, outputFolder);
    for (const fs::path& candidate : sources) {
        const std::string name = utf8Of(candidate.filename());
        if (!name.starts_with(prefix)) continue;
        for (const fs::path& source : sources) {
            const fs::path& folder = outputFolder.empty() ? source.parent_path() : sharedFolder;
            if (source == candidate || folder != candidate.parent_path()) continue;
            if (name == prefix + utf8Of(source.filename()) ||
                numberedOutput(name, utf8Of(source.stem()), utf8Of(source.extension()))) {
                found.emplace_back(candidate, source);
                break;
            }
        }
    }
    return found;
}

std::vector<fs::path> batchFolders(const std::vector<std::string>& inputs,
                                   const std::string& outputFolder) {
    std::vector<fs::path> folders;
    const auto add = [&](const fs::path& folder) {
        if (std::find(folders.begin(), folders.end(), folder) == folders.end()) {
            folders.push_back(folder);
        }
    };
    for (const std::string& input : inputs) {
        std::error_code error;
        const fs::path path = fs::absolute(pathFromUtf8(input), error).lexically_normal();
        if (error) continue;
        add(fs::is_directory(path, error) ? path : path.parent_path());
    }
    if (!outputFolder.empty()) add(outputFolderOf({}, outputFolder));
    return folders;
}

OutputPlan planOutput(const fs::path& source, const std::string& outputFolder,
                      ExistingOutput existing) {
    const fs::path folder = outputFolderOf(source, outputFolder);
    const fs::path name = fs::path(kOutputPrefix) += source.filename();
    OutputPlan plan{OutputPlan::Action::Write, folder / name, {}};
    std::error_code error;
    if (!fs::exists(plan.output, error)) return plan;
    if (sameFile(plan.output, source)) {
        return {OutputPlan::Action::Refuse, plan.output, "the output would be the source itself"};
    }
    switch (existing) {
        case ExistingOutput::Skip:
            return {OutputPlan::Action::Skip, plan.output, "the output exists already"};
        case ExistingOutput::Overwrite:
            return plan;
        case ExistingOutput::Rename:
            for (int number = 2;; ++number) {
                fs::path renamed = name.stem();
                renamed += pathFromUtf8(" (" + std::to_string(number) + ")");
                renamed += name.extension();
                plan.output = folder / renamed;
                if (!fs::exists(plan.output, error)) return plan;
            }
    }
    return plan;
}

fs::path partialOutput(const fs::path& output) {
    fs::path partial = output.stem();
    partial += pathFromUtf8(std::string(kPartialTag) + runMark());
    partial += output.extension();
    return output.parent_path() / partial;
}

long long fileSize(const fs::path& path) {
    std::error_code error;
    const auto size = fs::file_size(path, error);
    return error ? 0 : static_cast<long long>(size);
}

bool finishOutput(const fs::path& partial, const fs::path& output) {
    std::error_code error;
    fs::rename(partial, output, error);
    if (error && fs::exists(output)) {
        // A system that will not rename onto an existing file: the old output goes first.
        fs::remove(output, error);
        fs::rename(partial, output, error);
    }
    return !error;
}

}  // namespace quillet::cli
