#include "cli/batch.h"

#include <chrono>
#include <cmath>
#include <random>
#include <system_error>

#include "base/text_format.h"
#include "cli/batch_report.h"
#include "cli/ffmpeg_run.h"
#include "cli/job_arguments.h"
#include "cli/output_plan.h"
#include "cli/source_facts.h"
#include "cli/target_search.h"
#include "tools/utf8_paths.h"

namespace quillet::cli {

namespace fs = std::filesystem;

namespace {

// How many times the second pass of a two-pass target size may run, the first included.
constexpr int kSecondPassesAllowed = 3;

// A share in percent as the companion's messages give it: "7.5".
std::string percentText(double percent) {
    return formatNumber(percent, kOneDecimalPattern, FormatLocale{}).value_or("?");
}

long long fileSize(const fs::path& path) {
    std::error_code error;
    const auto size = fs::file_size(path, error);
    return error ? 0 : static_cast<long long>(size);
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

    JobEnd run(const fs::path& source) {
        const auto started = std::chrono::steady_clock::now();
        encodes_ = 0;
        JobEnd end = probedAndEncoded(source);
        end.encodes = encodes_;
        end.seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
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
        if (!probe.succeeded() || !facts.hasVideo) {
            return failed(end, "not a video ffprobe can read:" + lastLinesOf(probe));
        }
        const OutputPlan plan = planOutput(source, options_.outputFolder, options_.existing);
        end.output = utf8Of(plan.output);
        if (plan.action == OutputPlan::Action::Skip) {
            return endedAs(end, JobEnd::Status::Skipped, plan.reason);
        }
        if (plan.action == OutputPlan::Action::Refuse) return failed(end, plan.reason);
        std::error_code error;
        fs::create_directories(plan.output.parent_path(), error);
        if (error) return failed(end, "the output folder cannot be made: " + error.message());
        return encode(end, source, plan.output, facts);
    }

    // An encoder run of the job, counted: each pass and each correction is one.
    RunOutcome runEncoder(const std::string& ffmpeg, std::vector<std::string> arguments,
                          const fs::path& folder, const ProgressHandler& show) {
        ++encodes_;
        return runTool(ProgramCall{ffmpeg, std::move(arguments)},
                       folder.empty() ? "" : utf8Of(folder), stops_, show);
    }

    // The video rate that leaves room for `audioBits` within the target size.
    TargetRate videoRateBeside(double audioBits, const SourceFacts& facts) const {
        return targetRate(*options_.compress.targetMb, *facts.seconds, audioBits);
    }

    // Runs ffmpeg into a partial output beside `output`, which takes its name only when the job
    // is done.
    JobEnd encode(JobEnd& end, const fs::path& source, const fs::path& output,
                  const SourceFacts& facts) {
        long long videoRate = 0;
        const bool targetSize =
            options_.command == Command::Compress && options_.compress.method == Method::TargetSize;
        if (targetSize) {
            if (!facts.seconds) return failed(end, "the running time is unknown");
            const TargetRate rate = videoRateBeside(
                facts.hasAudio ? audioBitsAt(options_.audioKbps, *facts.seconds) : 0, facts);
            if (!rate.refusal.empty()) return failed(end, rate.refusal);
            videoRate = rate.videoBitsPerSecond;
        }
        const fs::path partial = partialOutput(output);
        const JobFiles files{utf8Of(tools_.ffmpeg), end.source, utf8Of(partial)};
        JobView view{utf8Of(source.filename()), facts.seconds, {}};
        const ProgressHandler show = [&](const Progress& progress) {
            view.progress = progress;
            report_.progress(view);
        };
        std::string searchNote;
        const RunOutcome outcome =
            targetSize && options_.compress.twoPass
                ? twoPasses(files, videoRate, facts, show, searchNote)
                : runEncoder(files.ffmpeg, jobArguments(options_, files, videoRate), {}, show);
        ended(end, outcome, partial, output);
        if (end.status == JobEnd::Status::Done) end.message = searchNote;
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

    // The first pass at the rate the audio's nominal size leaves, the second at the rate its
    // measured size leaves. The statistics and the audio live in a folder of their own, gone
    // afterwards.
    RunOutcome twoPasses(const JobFiles& files, long long firstRate, const SourceFacts& facts,
                         const ProgressHandler& show, std::string& searchNote) {
        std::error_code error;
        const fs::path folder = fs::temp_directory_path(error) /
                                ("quillet-cli-passes-" + std::to_string(std::random_device{}()));
        fs::create_directories(folder, error);
        const bool audio = facts.hasAudio;
        RunOutcome outcome = runEncoder(
            files.ffmpeg, firstPassArguments(options_, files, firstRate, audio), folder, show);
        if (outcome.succeeded() && !stops_.requested()) {
            const double audioBits = audio ? fileSize(folder / kPassAudio) * 8.0 : 0;
            const TargetRate rate = videoRateBeside(audioBits, facts);
            if (rate.refusal.empty()) {
                outcome = secondPasses(files, rate.videoBitsPerSecond, audio, audioBits, folder,
                                       show, searchNote);
            } else {
                outcome.exitCode = -1;
                outcome.lastLines = {rate.refusal};
            }
        }
        fs::remove_all(folder, error);
        return outcome;
    }

    // The second pass, run again on the same statistics at the rates the search asks. The best
    // attempt not over the target is set aside beside the output, so that a later attempt cannot
    // overwrite it; an attempt over the target is never kept, and with none under, the job fails.
    RunOutcome secondPasses(const JobFiles& files, long long rate, bool audio, double audioBits,
                            const fs::path& folder, const ProgressHandler& show,
                            std::string& searchNote) {
        TargetSearch search(*options_.compress.targetMb * kBytesPerMb, audioBits / 8,
                            kSecondPassesAllowed);
        const fs::path output = pathFromUtf8(files.output);
        fs::path best = output;
        best += pathFromUtf8(".best");
        bool setAside = true;  // the best attempt so far is where it belongs
        RunOutcome outcome;
        for (;;) {
            outcome = runEncoder(files.ffmpeg, secondPassArguments(options_, files, rate, audio),
                                 folder, show);
            if (!outcome.succeeded() || stops_.requested()) break;
            if (search.record(rate, static_cast<double>(fileSize(output)))) {
                setAside = finishOutput(output, best);
            }
            if (!setAside || search.finished()) break;
            rate = search.nextRate();
        }
        if (outcome.succeeded() && !stops_.requested() && setAside) {
            if (search.bestUnder()) {
                setAside = finishOutput(best, output);
                searchNote = targetNote(search);
            } else {
                outcome.exitCode = -1;
                outcome.lastLines = {targetNote(search)};
            }
        }
        if (!setAside) {
            outcome.exitCode = -1;
            outcome.lastLines = {"the best attempt cannot be set aside beside the output"};
        }
        std::error_code ignored;
        fs::remove(best, ignored);
        return outcome;
    }

    // What a two-pass target size came to, unless it landed where it aims.
    static std::string targetNote(const TargetSearch& search) {
        const std::string tries = std::to_string(search.encodes()) + " tries at the second pass";
        const auto best = search.bestUnder();
        if (!best) return "none of " + tries + " came within the target; nothing is kept";
        if (search.landed()) return {};
        const double under = 100 * (1 - best->bytes / search.targetBytes());
        return "kept the best of " + tries + ", " + percentText(under) + "% under the target";
    }

    JobEnd probed(JobEnd& end, const RunOutcome& probe, const SourceFacts& facts) {
        if (!probe.succeeded()) return failed(end, "ffprobe cannot read it:" + lastLinesOf(probe));
        end.message = describeFacts(facts);
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
};

}  // namespace

int runBatch(const Options& options, const Tools& tools, StopRequests& stops, std::FILE* out,
             std::FILE* errors, bool terminal) {
    BatchReport report(out, errors, options.json, terminal);
    std::vector<std::string> problems;
    const std::vector<fs::path> sources = sourcesOf(options.inputs, problems);
    for (const std::string& problem : problems) report.problem(problem);
    Batch batch(options, tools, stops, report);
    for (const fs::path& source : sources) {
        if (stops.requested()) break;
        report.finished(batch.run(source));
    }
    report.summary(!problems.empty());
    if (stops.requested()) return kStopped;
    return report.anyFailed() || !problems.empty() ? kSomeFailed : kAllDone;
}

}  // namespace quillet::cli
