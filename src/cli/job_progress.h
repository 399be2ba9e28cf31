#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillet::cli {

// What ffmpeg's progress lines (-progress, one key=value a line) have said so far.
struct Progress {
    double encodedSeconds = 0;
    long long bytesWritten = 0;
    std::optional<double> speed;  // times real time
    bool ended = false;           // "progress=end"
};

// Takes one line into `progress`. True when the line closes a block of progress ("progress=..."),
// the moment to show it; a line that is not progress changes nothing.
bool readProgressLine(std::string_view line, Progress& progress);

// One job as the reports show it.
struct JobView {
    std::string name;                      // the source's file name
    std::optional<double> runningSeconds;  // the source's, when known
    Progress progress;
};

// The terminal's line for a running job: percentage, encoded time, speed, size written, time left
// and the projected final size, each when it can be known.
std::string terminalLine(const JobView& job);

// One JSON object (one line) per progress update.
std::string jsonUpdate(const JobView& job);

// How a job ended, for the reports and the summary.
struct JobEnd {
    enum class Status { Done, Skipped, Failed, Stopped } status = Status::Done;
    std::string source;  // path
    std::string output;  // path, when one was written or meant
    std::string message;
    long long sourceBytes = 0;
    long long outputBytes = 0;
};

std::string statusName(JobEnd::Status status);

// One JSON object (one line) per finished job, and the plain line of the same.
std::string jsonEnd(const JobEnd& end);
std::string plainEnd(const JobEnd& end);

// Sizes are counted in MB of 1,048,576 bytes, as the program's windows count them.
inline constexpr double kBytesPerMb = 1048576.0;

// "12.3 MB" of a number of bytes, with `decimals` decimals (never "-0.0").
std::string megabytesText(double bytes, int decimals = 1);

// "h:mm:ss" of a number of seconds, rounded down.
std::string clockText(double seconds);

// Text in a JSON string, quotes included.
std::string jsonString(std::string_view text);

}  // namespace quillet::cli
