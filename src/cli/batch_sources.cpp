#include "cli/batch_sources.h"

#include <algorithm>

#include "cli/output_plan.h"
#include "cli/run_marks.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace fs = std::filesystem;

BatchSources batchSources(const Options& options) {
    BatchSources batch;
    const bool writes = options.command != Command::Probe;
    // Before the folders are read, so that a killed run's partial outputs are not among them.
    if (writes) batch.removed = removeLeftovers(batchFolders(options.inputs, options.outputFolder));
    const std::vector<fs::path> found = sourcesOf(options.inputs, batch.problems);
    if (!writes) {
        batch.sources = found;
        return batch;
    }
    const auto own = ownOutputs(found, options.outputFolder);
    for (const fs::path& file : found) {
        const auto output = std::find_if(own.begin(), own.end(),
                                         [&](const auto& pair) { return pair.first == file; });
        if (output != own.end()) {
            batch.notSources.emplace_back(file,
                                          "the output of " + utf8Of(output->second.filename()));
        } else if (isWorkingFile(file)) {
            batch.notSources.emplace_back(file, "a partial output, never a source");
        } else {
            batch.sources.push_back(file);
        }
    }
    return batch;
}

}  // namespace quillet::cli
