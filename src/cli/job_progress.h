#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/forecast.h"

namespace quillet::cli {

// What ffmpeg's progress lines (-progress, one key=value a line) have said so far.
struct Progress {
    double encodedSeconds = 0;
    long long bytesWritten = 0;
    std::optional<double> speed;  // times real time, when ffmpeg gave a finite one
    bool ended = false;           // "progress=end"
};

// Takes one line into `progress`. True when the line closes a block of progress ("progress=..."),
// the moment to show it; a line that is not progress changes nothing.
bool readProgressLine(std::string_view line, Progress& progress);

// Which encoder run of a two-pass job is under way.
struct PassView {
    int number = 1;     // 1 or 2
    int tryNumber = 1;  // from 1; the second pass is run again at corrected rates until it lands
};

// One job as the reports show it.
struct JobView {
    std::string name;                      // the source's file name, for the terminal
    std::optional<double> runningSeconds;  // the source's, when known
    Progress progress;
    ComplexityProfile profile{};  // the source's cost along its length, when it was measured
    double heldPictures = 0;      // those the encoder holds back before the file has them
    double elapsedSeconds = 0;    // since the encoder started
    // Two passes: the size the second pass aims at, which its rate control reaches to within a
    // few percent whatever the share done, so it stands for the final size.
    std::optional<double> aimedBytes{};
    std::string source{};            // the source's path, as every JSON event names it
    std::optional<PassView> pass{};  // two passes: the one under way; the share done is its own
    int index = 1;                   // the job's place in the batch, from 1
    int count = 1;                   // the jobs of the batch
};

// Where the job will end: from the profile scaled to what is done, when there is one, otherwise
// from the rate so far and ffmpeg's speed; unknown before anything is done.
std::optional<Projection> projectionOf(const JobView& job);

// The terminal's line for a running job: the name, then the job's place in a batch of more than
// one, the pass, percentage, encoded time, speed, size written, time left and the projected final
// size, each when it can be known. It takes at most `terminalColumns` - 1 columns, so that it
// never wraps and a carriage return brings the cursor back to its start: the name is shortened
// to fit, keeping 20 columns at least while the least telling figures (speed first) give way.
std::string terminalLine(const JobView& job, int terminalColumns);

// One JSON object (one line) per progress update, naming the source by its path; its speed is
// null while ffmpeg gives no finite one ("N/A" at the start, "nan" or "inf" after a time of
// zero); "pass" and "try" are null in one-pass jobs; "seconds_left" and "projected_bytes" come
// when they can be known.
std::string jsonUpdate(const JobView& job);

// How a job ended, for the reports and the summary.
struct JobEnd {
    enum class Status { Done, KeptSource, Skipped, Failed, Stopped } status = Status::Done;
    std::string source;  // path
    std::string output;  // path, when one was written or meant
    std::string message;
    long long sourceBytes = 0;
    long long outputBytes = 0;
    int encodes = 0;     // encoder runs: each pass and each correction
    double seconds = 0;  // the whole job, probe included
    // What an estimate foretells of the job: the output's size and the encoding time.
    std::optional<double> predictedBytes;
    std::optional<double> predictedSeconds;
    // What probe found, as JSON fields (",\"key\":value..."), for the end object.
    std::string factFields;
};

std::string statusName(JobEnd::Status status);

// One JSON object (one line) per finished job, and the plain line of the same. A job done, kept
// as its source or stopped gives its sizes and encodes in JSON.
std::string jsonEnd(const JobEnd& end);
std::string plainEnd(const JobEnd& end);

// Sizes are counted in MB of 1,048,576 bytes, as the program's windows count them.
inline constexpr double kBytesPerMb = 1048576.0;

// "12.3 MB" of a number of bytes, with `decimals` decimals (never "-0.0").
std::string megabytesText(double bytes, int decimals = 1);

// A share in percent as the companion's messages give it: "7.5".
std::string percentText(double percent);

// "h:mm:ss" of a number of seconds, rounded down.
std::string clockText(double seconds);

// Text in a JSON string, quotes included, for any bytes: valid UTF-8 passes as it is, with `"`,
// `\` and the control characters escaped; each byte that is not part of valid UTF-8 (a file name
// need not be) is written as the escaped code point U+DC00 + byte, "\udc80" to "\udcff", the way
// some languages keep undecodable bytes. The line stays valid UTF-8 and the bytes can be had back.
std::string jsonString(std::string_view text);

// A number in JSON with `decimals` decimals, or null when it is not known or not finite.
std::string jsonNumber(std::optional<double> value, int decimals);

}  // namespace quillet::cli
