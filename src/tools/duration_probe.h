#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/platform_names.h"

namespace quillet {

// The ffprobe command that asks for a video's running time in seconds, as a bare number. The
// program path (folder, separator, "ffprobe" and the system's program ending) is not quoted; the
// video path is.
std::string durationProbeCommandLine(const std::string& programFolder, const std::string& videoPath,
                                     const PlatformNames& names);

// The running time in ffprobe's answer: the last line that is a number and nothing else (error
// lines may come before it). Empty when there is none, as for a file ffprobe cannot read or a
// container without a duration ("N/A").
std::optional<double> parseDurationAnswer(const std::string& output);

// Runs one duration command on a thread of its own and keeps the answer for whoever polls it, so
// that no window ever waits for ffprobe.
class DurationProbe {
public:
    explicit DurationProbe(const std::string& commandLine);
    // Returns at once: an ffprobe still running is ended, and the thread that ran it finishes on
    // its own without touching this object.
    ~DurationProbe();
    DurationProbe(const DurationProbe&) = delete;
    DurationProbe& operator=(const DurationProbe&) = delete;

    // The running time once ffprobe has given it; empty before and, for a file without one, for
    // good. Any thread.
    std::optional<double> seconds() const;
    // Whether the command has ended (or could not start), with an answer or without.
    bool finished() const;

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

}  // namespace quillet
