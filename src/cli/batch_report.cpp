#include "cli/batch_report.h"

#include <algorithm>

#include "cli/display_width.h"
#include "cli/terminal_width.h"

namespace quillet::cli {

namespace {

constexpr const char* kLeftByAKilledRun = "left by a run that was killed";

}  // namespace

void BatchReport::overwriteLine(const std::string& text) {
    const int columns = displayColumns(text);
    std::fprintf(out_, "\r%s%*s", text.c_str(), std::max(0, lineColumns_ - columns), "");
    lineColumns_ = columns;
}

// Blanks the line in place and leaves the cursor at its start, for what is written next.
void BatchReport::clearLine() {
    if (!lineOpen_) return;
    overwriteLine("");
    std::fputs("\r", out_);
    std::fflush(out_);
    lineOpen_ = false;
}

void BatchReport::progress(const JobView& job) {
    if (json_) {
        std::fprintf(out_, "%s\n", jsonUpdate(job).c_str());
    } else if (terminal_) {
        overwriteLine(terminalLine(job, terminalColumns(out_)));
        lineOpen_ = true;
    }
    std::fflush(out_);
}

void BatchReport::finished(const JobEnd& end) {
    if (end.predictedBytes) {
        ++foretold_;
        predictedBytes_ += *end.predictedBytes;
        predictedSeconds_ += end.predictedSeconds.value_or(0);
    }
    switch (end.status) {
        case JobEnd::Status::Done:
            ++done_;
            if (!end.output.empty()) bytesSaved_ += end.sourceBytes - end.outputBytes;
            break;
        case JobEnd::Status::KeptSource:
            ++keptSource_;
            break;
        case JobEnd::Status::Skipped:
            ++skipped_;
            break;
        case JobEnd::Status::Failed:
            ++failed_;
            break;
        case JobEnd::Status::Stopped:
            ++stopped_;
            break;
    }
    const std::string text = json_ ? jsonEnd(end) : plainEnd(end);
    if (lineOpen_) {
        // The job's line takes the place of its progress.
        overwriteLine(text);
        lineOpen_ = false;
    } else {
        std::fputs(text.c_str(), out_);
    }
    std::fputs("\n", out_);
    std::fflush(out_);
}

void BatchReport::removed(const std::string& path) {
    clearLine();
    if (json_) {
        std::fprintf(out_, "{\"event\":\"removed\",\"path\":%s,\"reason\":%s}\n",
                     jsonString(path).c_str(), jsonString(kLeftByAKilledRun).c_str());
    } else {
        std::fprintf(out_, "removed: %s (%s)\n", path.c_str(), kLeftByAKilledRun);
    }
    std::fflush(out_);
}

void BatchReport::problem(const std::string& text) {
    clearLine();
    std::fprintf(errors_, "quillet-cli: %s\n", text.c_str());
}

void BatchReport::summary(bool inputProblems) {
    clearLine();
    if (json_) {
        const std::string foretold =
            foretold_ > 0 ? ",\"predicted_bytes\":" + jsonNumber(predictedBytes_, 0) +
                                ",\"predicted_seconds\":" + jsonNumber(predictedSeconds_, 1)
                          : "";
        std::fprintf(out_,
                     "{\"event\":\"summary\",\"done\":%d,\"kept_source\":%d,\"skipped\":%d,"
                     "\"failed\":%d,\"stopped\":%d,\"input_problems\":%s,\"bytes_saved\":%lld%s}\n",
                     done_, keptSource_, skipped_, failed_, stopped_,
                     inputProblems ? "true" : "false", bytesSaved_, foretold.c_str());
    } else {
        const std::string keptSource =
            keptSource_ > 0 ? ", " + std::to_string(keptSource_) + " kept the source (not smaller)"
                            : "";
        const std::string stopped =
            stopped_ > 0 ? ", " + std::to_string(stopped_) + " stopped" : "";
        // An estimate saves nothing; what it foretells in all is the news.
        const std::string outcome =
            foretold_ > 0 ? "about " + megabytesText(predictedBytes_) + " and " +
                                clockText(predictedSeconds_) + " of encoding in all"
                          : megabytesText(static_cast<double>(bytesSaved_)) + " saved";
        std::fprintf(out_, "%d done%s, %d skipped, %d failed%s, %s\n", done_, keptSource.c_str(),
                     skipped_, failed_, stopped.c_str(), outcome.c_str());
    }
    std::fflush(out_);
}

}  // namespace quillet::cli
