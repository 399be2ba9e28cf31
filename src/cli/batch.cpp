#include "cli/batch.h"

#include <chrono>
#include <cmath>
#include <system_error>

#include "cli/batch_report.h"
#include "cli/batch_sources.h"
#include "cli/ffmpeg_run.h"
#include "cli/job_arguments.h"
#include "cli/kept_streams.h"
#include "cli/output_plan.h"
#include "cli/sample_encoder.h"
#include "cli/source_facts.h"
#include "cli/target_search.h"
#include "cli/two_pass_encode.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

// Two passes cost about two encodes, as the target bench measured them: a first pass at the
// fastest preset, then the second pass, and often a correction of it.
constexpr double kTwoPassWork = 2.0;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::string lastLinesOf(const RunOutcome& outcome) {
    std::string text;
    for (const std::string& line : outcome.lastLines) text += "\n    " + line;
    return text.empty() ? " (it said nothing)" : text;
}

class Batch {
public:
    Batch(const Options& options, const Tools& tools, StopRequests& stops, BatchReport& report)
        : options_(options), tools_(tools), stops_(stops), report_(report) {}

    // The job at `index` (from 1) of a batch of `count`.
    JobEnd run(const fs::path& source, int index, int count) {
        index_ = index;
        count_ = count;
        const auto started = Clock::now();
        encodes_ = 0;
        JobEnd end = probedAndEncoded(source);
        end.encodes = encodes_;
        end.seconds = secondsSince(started);
        return end;
    }

private:
    JobEnd probedAndEncoded(const fs::path& source) {
        JobEnd end;
        end.source = utf8Of(source);
        end.sourceBytes = fileSize(source);
        const RunOutcome probe = runTool(
            ProgramCall{utf8Of(tools_.ffprobe), probeArguments(utf8Of(tools_.ffprobe), end.source)},
            {}, stops_, {}, true);
        const SourceFacts facts = parseProbeAnswer(probe.output);
        if (options_.command == Command::Probe) return probed(end, probe, facts);
        if (!probe.succeeded() || !facts.hasVideo()) {
            return failed(end, "not a video ffprobe can read:" + lastLinesOf(probe));
        }
        long long videoRate = 0;
        if (targetSize()) {
            if (!facts.seconds) return failed(end, "the running time is unknown");
            const TargetRate rate = videoRateBeside(facts);
            if (!rate.refusal.empty()) return failed(end, rate.refusal);
            videoRate = rate.videoBitsPerSecond;
        }
        if (options_.command == Command::Estimate) return estimated(end, facts, videoRate);
        const OutputPlan plan = planOutput(source, options_.outputFolder, options_.existing);
        end.output = utf8Of(plan.output);
        if (plan.action == OutputPlan::Action::Skip) {
            return endedAs(end, JobEnd::Status::Skipped, plan.reason);
        }
        if (plan.action == OutputPlan::Action::Refuse) return failed(end, plan.reason);
        std::error_code error;
        fs::create_directories(plan.output.parent_path(), error);
        if (error) return failed(end, "the output folder cannot be made: " + error.message());
        return encode(end, source, plan.output, facts, videoRate);
    }

    bool targetSize() const {
        return (options_.command == Command::Compress || options_.command == Command::Estimate) &&
               options_.compress.method == Method::TargetSize;
    }
    bool twoPass() const { return targetSize() && options_.compress.twoPass; }

    // The video rate that leaves room for the audio's nominal size within the target size.
    TargetRate videoRateBeside(const SourceFacts& facts) const {
        return targetRate(*options_.compress.targetMb, *facts.seconds,
                          audioBitsAt(soundKbps(options_, facts), *facts.seconds));
    }

    ComplexityProfile sampledProfile(const JobEnd& end, const SourceFacts& facts,
                                     long long videoRate) {
        return jobProfile(options_, utf8Of(tools_.ffmpeg), utf8Of(tools_.ffprobe), end.source,
                          facts, videoRate, stops_);
    }

    // What a job would come to, from its samples; nothing is written.
    JobEnd estimated(JobEnd& end, const SourceFacts& facts, long long videoRate) {
        const ComplexityProfile profile = sampledProfile(end, facts, videoRate);
        if (stops_.requested()) return endedAs(end, JobEnd::Status::Stopped, "stopped");
        if (profile.empty()) return failed(end, "ffmpeg could not encode a sample of it");
        const double seconds = profile.seconds();
        end.predictedBytes =
            twoPass() ? *options_.compress.targetMb * kBytesPerMb * TargetSearch::kAimedShare
                      : profile.bytesBetween(0, seconds);
        const double work = profile.workBetween(0, seconds) * (twoPass() ? kTwoPassWork : 1);
        if (work > 0) end.predictedSeconds = work;
        end.message = "about " + megabytesText(*end.predictedBytes) +
                      (end.predictedSeconds ? ", about " + clockText(work) + " to encode" : "");
        return end;
    }

    // An encoder run of the job, counted: each pass and each correction is one.
    RunOutcome runEncoder(std::vector<std::string> arguments, const fs::path& folder,
                          const ProgressHandler& show) {
        ++encodes_;
        return runTool(ProgramCall{utf8Of(tools_.ffmpeg), std::move(arguments)},
                       folder.empty() ? "" : utf8Of(folder), stops_, show);
    }

    // Runs ffmpeg into a partial output beside `output`, which takes its name only when the job
    // is done. One pass first encodes samples, so that what it shows of the time left and of
    // the final size follows the source's content.
    JobEnd encode(JobEnd& end, const fs::path& source, const fs::path& output,
                  const SourceFacts& facts, long long videoRate) {
        const fs::path partial = partialOutput(output);
        const JobFiles files{utf8Of(tools_.ffmpeg), end.source, utf8Of(partial)};
        JobView view{utf8Of(source.filename()), facts.seconds, {}};
        view.source = end.source;
        view.index = index_;
        view.count = count_;
        view.heldPictures = heldPictures(options_);
        if (twoPass()) {
            view.aimedBytes = *options_.compress.targetMb * kBytesPerMb;
            view.pass = PassView{1, 1};
        }
        auto started = Clock::now();
        const auto show = [&](const ProgressHandler& watch) {
            return [&, watch](const Progress& progress) {
                view.progress = progress;
                view.elapsedSeconds = secondsSince(started);
                report_.progress(view);
                if (watch) watch(progress);
            };
        };
        std::string note;
        RunOutcome outcome;
        if (twoPass()) {
            const TwoPassJob job{options_,
                                 files,
                                 facts,
                                 stops_,
                                 [&](std::vector<std::string> arguments, const fs::path& folder,
                                     const ProgressHandler& watch) {
                                     return runEncoder(std::move(arguments), folder, show(watch));
                                 },
                                 [&](double aim, const ComplexityProfile& pace) {
                                     const bool again = view.pass && view.pass->number == 2;
                                     view.pass = PassView{2, again ? view.pass->tryNumber + 1 : 1};
                                     view.aimedBytes = aim;
                                     view.profile = pace;
                                     started = Clock::now();
                                 }};
            outcome = twoPassEncode(job, videoRate, note);
        } else {
            view.profile = sampledProfile(end, facts, videoRate);
            // An average rate is held over the whole, spent unevenly along the way: the size
            // written so far says less of the end than the rate does.
            if (options_.compress.method == Method::Abr && !view.profile.empty()) {
                view.aimedBytes = view.profile.bytesBetween(0, view.profile.seconds());
            }
            started = Clock::now();
            if (!stops_.requested()) {
                outcome = runEncoder(jobArguments(options_, files, facts, videoRate), {}, show({}));
            }
        }
        ended(end, outcome, partial, output);
        if (end.status == JobEnd::Status::Done) {
            for (const std::string& kept :
                 keepingNotes(options_, facts, utf8Of(output.extension()))) {
                note += (note.empty() ? "" : "; ") + kept;
            }
            end.message = note;
        }
        return end;
    }

    // The end of a job that ran: a stopped or failed one leaves nothing half-written behind.
    JobEnd ended(JobEnd& end, const RunOutcome& outcome, const fs::path& partial,
                 const fs::path& output) {
        if (stops_.requested() || !outcome.succeeded()) {
            std::error_code ignored;
            fs::remove(partial, ignored);
            if (stops_.requested()) return endedAs(end, JobEnd::Status::Stopped, "stopped");
            return failed(end, outcome.started ? "ffmpeg failed:" + lastLinesOf(outcome)
                                               : "ffmpeg could not be started");
        }
        if (!finishOutput(partial, output)) {
            return failed(end, "the output cannot take its name; it is left as " + utf8Of(partial));
        }
        end.outputBytes = fileSize(output);
        return keptIfSmaller(end, output);
    }

    // With --min-saving, an output not that much smaller than its source goes: the source is
    // the better copy to keep.
    JobEnd keptIfSmaller(JobEnd& end, const fs::path& output) const {
        const int percent = options_.minSavingPercent;
        if (percent == 0 || end.outputBytes <= end.sourceBytes * (100.0 - percent) / 100) {
            return end;
        }
        std::error_code ignored;
        fs::remove(output, ignored);
        const double saved =
            end.sourceBytes > 0 ? 100 * (1 - static_cast<double>(end.outputBytes) / end.sourceBytes)
                                : 0;
        end.status = JobEnd::Status::KeptSource;
        end.message = "the output, " + megabytesText(static_cast<double>(end.outputBytes)) + ", " +
                      (saved > 0 ? "was only " + percentText(saved) + "% smaller"
                                 : std::string("was not smaller")) +
                      ", and is removed";
        return end;
    }

    JobEnd probed(JobEnd& end, const RunOutcome& probe, const SourceFacts& facts) {
        if (!probe.succeeded()) return failed(end, "ffprobe cannot read it:" + lastLinesOf(probe));
        end.message = describeFacts(facts);
        end.factFields = factFields(facts);
        return end;
    }

    static JobEnd endedAs(JobEnd& end, JobEnd::Status status, const std::string& message) {
        end.status = status;
        end.message = message;
        return end;
    }

    static JobEnd failed(JobEnd& end, const std::string& reason) {
        return endedAs(end, JobEnd::Status::Failed, reason);
    }

    const Options& options_;
    const Tools& tools_;
    StopRequests& stops_;
    BatchReport& report_;
    int encodes_ = 0;  // of the job under way
    int index_ = 1;    // its place in the batch, from 1
    int count_ = 1;    // the batch's jobs
};

}  // namespace

int runBatch(const Options& options, const Tools& tools, StopRequests& stops, std::FILE* out,
             std::FILE* errors, bool terminal) {
    BatchReport report(out, errors, options.json, terminal);
    const BatchSources batch = batchSources(options);
    for (const fs::path& left : batch.removed) report.removed(utf8Of(left));
    for (const std::string& problem : batch.problems) report.problem(problem);
    for (const auto& [file, reason] : batch.notSources) {
        JobEnd skipped;
        skipped.status = JobEnd::Status::Skipped;
        skipped.source = utf8Of(file);
        skipped.message = reason;
        report.finished(skipped);
    }
    Batch jobs(options, tools, stops, report);
    const int count = static_cast<int>(batch.sources.size());
    for (int index = 1; index <= count; ++index) {
        if (stops.requested()) break;
        report.finished(jobs.run(batch.sources[index - 1], index, count));
    }
    report.summary(!batch.problems.empty());
    if (stops.requested()) return kStopped;
    return report.anyFailed() || !batch.problems.empty() ? kSomeFailed : kAllDone;
}

}  // namespace quillet::cli
