#pragma once

#include <cstdio>
#include <string>

#include "cli/job_progress.h"

namespace quillet::cli {

// What the companion tells while a batch runs: on a terminal one line per job updated in place,
// with --json one JSON object a line, otherwise one line per finished job; then a summary. The
// line in place is rewritten after a carriage return, with blanks over what a longer one left,
// since not every console takes escape sequences.
class BatchReport {
public:
    BatchReport(std::FILE* out, std::FILE* errors, bool json, bool terminal)
        : out_(out), errors_(errors), json_(json), terminal_(terminal && !json) {}

    void progress(const JobView& job);
    void finished(const JobEnd& end);
    void problem(const std::string& text);
    // A partial output or working folder a killed run left, now removed.
    void removed(const std::string& path);
    // "N done, N skipped, N failed, X MB saved", with "N kept the source (not smaller)" after the
    // done and "N stopped" after the failed when there are any, and what estimates foretell in all
    // instead of the saving; `inputProblems`: some input named nothing.
    void summary(bool inputProblems);
    bool anyFailed() const { return failed_ > 0; }

private:
    void overwriteLine(const std::string& text);
    void clearLine();

    std::FILE* out_;
    std::FILE* errors_;
    bool json_;
    bool terminal_;
    bool lineOpen_ = false;
    int lineColumns_ = 0;  // of the text on the line in place
    int done_ = 0;
    int keptSource_ = 0;  // the output was not enough smaller, and is gone
    int skipped_ = 0;
    int failed_ = 0;
    int stopped_ = 0;
    long long bytesSaved_ = 0;
    int foretold_ = 0;  // estimates
    double predictedBytes_ = 0;
    double predictedSeconds_ = 0;
};

}  // namespace quillet::cli
