#include "cli/job_progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "base/text_format.h"
#include "cli/display_width.h"
#include "tools/exact_number.h"

namespace quillet::cli {

namespace {

std::string fixed(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

// The share done, from 0 to 1, when the running time is known.
std::optional<double> shareDone(const JobView& job) {
    if (!job.runningSeconds || !std::isfinite(*job.runningSeconds) || *job.runningSeconds <= 0) {
        return std::nullopt;
    }
    return std::clamp(job.progress.encodedSeconds / *job.runningSeconds, 0.0, 1.0);
}

void appendEscape(std::string& quoted, unsigned code) {
    char escaped[16];
    std::snprintf(escaped, sizeof escaped, "\\u%04x", code);
    quoted += escaped;
}

// The terminal line's figures in the order they give way when the line is short of room.
enum class Rank { Speed, Encoded, Written, Place, About, Left, Pass, Percent };

struct Figure {
    std::string text;
    Rank rank;
};

// The columns the figures take, each with the two blanks before it.
int columnsOf(const std::vector<Figure>& figures) {
    int columns = 0;
    for (const Figure& figure : figures) columns += 2 + displayColumns(figure.text);
    return columns;
}

// The least the name is shortened to while there are figures that can give way to it.
constexpr int kNameColumns = 20;

}  // namespace

bool readProgressLine(std::string_view line, Progress& progress) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    const std::string_view key = line.substr(0, equals);
    std::string_view value = line.substr(equals + 1);
    while (!value.empty() && (value.back() == '\r' || value.back() == ' ')) value.remove_suffix(1);
    if (key == "out_time_us") {
        if (const auto micros = exactNumber<long long>(value); micros && *micros >= 0) {
            progress.encodedSeconds = static_cast<double>(*micros) / 1e6;
        }
    } else if (key == "total_size") {
        if (const auto bytes = exactNumber<long long>(value); bytes && *bytes >= 0) {
            progress.bytesWritten = *bytes;
        }
    } else if (key == "speed") {
        if (!value.empty() && value.back() == 'x') value.remove_suffix(1);
        while (!value.empty() && value.front() == ' ') value.remove_prefix(1);
        // "N/A" at the start, and "nan" or "inf" when ffmpeg divides by a time of zero: no speed.
        progress.speed = exactNumber<double>(value);
        if (progress.speed && !(std::isfinite(*progress.speed) && *progress.speed >= 0)) {
            progress.speed.reset();
        }
    } else if (key == "progress") {
        progress.ended = value == "end";
        return true;
    }
    return false;
}

std::string megabytesText(double bytes, int decimals) {
    std::string text = fixed(bytes / kBytesPerMb, decimals);
    // A small negative size rounds to zero, which has no sign.
    if (text.find_first_not_of("-0.") == std::string::npos && text.front() == '-') text.erase(0, 1);
    return text + " MB";
}

std::string percentText(double percent) {
    return formatNumber(percent, kOneDecimalPattern, FormatLocale{}).value_or("?");
}

std::string clockText(double seconds) {
    const auto whole = static_cast<long long>(std::max(0.0, std::floor(seconds)));
    char text[32];
    std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60,
                  whole % 60);
    return text;
}

std::optional<Projection> projectionOf(const JobView& job) {
    const Progress& progress = job.progress;
    const std::optional<double> share = shareDone(job);
    if (!share || *share <= 0) return std::nullopt;
    std::optional<Projection> projection;
    if (!job.profile.empty()) {
        projection = project(job.profile, progress.encodedSeconds,
                             static_cast<double>(progress.bytesWritten), job.elapsedSeconds,
                             job.heldPictures);
    } else if (progress.speed && *progress.speed > 0) {
        projection = Projection{progress.bytesWritten / *share,
                                (*job.runningSeconds - progress.encodedSeconds) / *progress.speed};
    }
    if (projection && job.aimedBytes) projection->finalBytes = *job.aimedBytes;
    return projection;
}

std::string terminalLine(const JobView& job, int terminalColumns) {
    const Progress& progress = job.progress;
    const std::optional<double> share = shareDone(job);
    std::vector<Figure> figures;
    if (job.count > 1) {
        figures.push_back(
            {std::to_string(job.index) + " of " + std::to_string(job.count), Rank::Place});
    }
    if (job.pass) {
        figures.push_back(
            {"pass " + std::to_string(job.pass->number) + "/2" +
                 (job.pass->tryNumber > 1 ? " try " + std::to_string(job.pass->tryNumber)
                                          : std::string()),
             Rank::Pass});
    }
    if (share) figures.push_back({fixed(*share * 100, 1) + "%", Rank::Percent});
    figures.push_back({clockText(progress.encodedSeconds), Rank::Encoded});
    if (progress.speed) figures.push_back({fixed(*progress.speed, 2) + "x", Rank::Speed});
    figures.push_back({megabytesText(progress.bytesWritten), Rank::Written});
    if (const auto projection = projectionOf(job)) {
        figures.push_back({"left " + clockText(projection->secondsLeft), Rank::Left});
        figures.push_back({"about " + megabytesText(projection->finalBytes), Rank::About});
    }
    const std::string name = printableText(job.name);
    const int room = terminalColumns - 1;
    const int nameAtLeast = std::min(displayColumns(name), kNameColumns);
    for (int rank = 0; !figures.empty() && nameAtLeast + columnsOf(figures) > room; ++rank) {
        std::erase_if(figures, [rank](const Figure& figure) {
            return static_cast<int>(figure.rank) == rank;
        });
    }
    std::string line = shortenedToColumns(name, room - columnsOf(figures));
    for (const Figure& figure : figures) line += "  " + figure.text;
    return line;
}

std::string jsonString(std::string_view text) {
    std::string quoted = "\"";
    while (!text.empty()) {
        const unsigned char c = static_cast<unsigned char>(text.front());
        const std::size_t length = utf8Length(text);
        if (length == 0) {
            // A byte outside valid UTF-8 stands as U+DC80..U+DCFF, a code point valid UTF-8 never
            // holds, so the name's bytes can be had back whole.
            appendEscape(quoted, 0xDC00 + c);
            text.remove_prefix(1);
            continue;
        }
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += static_cast<char>(c);
        } else if (c < 0x20) {
            appendEscape(quoted, c);
        } else {
            quoted.append(text.substr(0, length));
        }
        text.remove_prefix(length);
    }
    return quoted + "\"";
}

std::string jsonNumber(std::optional<double> value, int decimals) {
    return value && std::isfinite(*value) ? fixed(*value, decimals) : "null";
}

std::string jsonUpdate(const JobView& job) {
    const Progress& progress = job.progress;
    const std::string pass = job.pass ? std::to_string(job.pass->number) : "null";
    const std::string tryNumber = job.pass ? std::to_string(job.pass->tryNumber) : "null";
    std::string json = "{\"event\":\"progress\",\"source\":" + jsonString(job.source) +
                       ",\"index\":" + std::to_string(job.index) +
                       ",\"count\":" + std::to_string(job.count) + ",\"pass\":" + pass +
                       ",\"try\":" + tryNumber +
                       ",\"encoded_seconds\":" + jsonNumber(progress.encodedSeconds, 3) +
                       ",\"bytes_written\":" + std::to_string(progress.bytesWritten);
    if (const auto share = shareDone(job)) json += ",\"percent\":" + jsonNumber(*share * 100, 2);
    json += ",\"speed\":" + jsonNumber(progress.speed, 3);
    if (const auto projection = projectionOf(job)) {
        json += ",\"seconds_left\":" + jsonNumber(projection->secondsLeft, 1) +
                ",\"projected_bytes\":" + jsonNumber(projection->finalBytes, 0);
    }
    return json + "}";
}

std::string statusName(JobEnd::Status status) {
    switch (status) {
        case JobEnd::Status::Done:
            return "done";
        case JobEnd::Status::KeptSource:
            return "kept the source (not smaller)";
        case JobEnd::Status::Skipped:
            return "skipped";
        case JobEnd::Status::Failed:
            return "failed";
        case JobEnd::Status::Stopped:
            return "stopped";
    }
    return "failed";
}

std::string jsonEnd(const JobEnd& end) {
    std::string json = "{\"event\":\"end\",\"status\":" + jsonString(statusName(end.status)) +
                       ",\"source\":" + jsonString(end.source) +
                       ",\"output\":" + jsonString(end.output) +
                       ",\"message\":" + jsonString(end.message);
    if (end.status == JobEnd::Status::Done || end.status == JobEnd::Status::KeptSource ||
        end.status == JobEnd::Status::Stopped) {
        json += ",\"source_bytes\":" + std::to_string(end.sourceBytes) +
                ",\"output_bytes\":" + std::to_string(end.outputBytes) +
                ",\"encodes\":" + std::to_string(end.encodes) +
                ",\"seconds\":" + jsonNumber(end.seconds, 1);
    }
    if (end.predictedBytes) json += ",\"predicted_bytes\":" + jsonNumber(end.predictedBytes, 0);
    if (end.predictedSeconds) {
        json += ",\"predicted_seconds\":" + jsonNumber(end.predictedSeconds, 1);
    }
    return json + end.factFields + "}";
}

std::string plainEnd(const JobEnd& end) {
    std::string line = statusName(end.status) + ": " + end.source;
    if (end.status == JobEnd::Status::Done && !end.output.empty()) {
        line += " -> " + end.output + " (" + megabytesText(end.sourceBytes) + " -> " +
                megabytesText(end.outputBytes) + ", " + std::to_string(end.encodes) +
                (end.encodes == 1 ? " encode, " : " encodes, ") + clockText(end.seconds) + ")";
    }
    if (!end.message.empty()) line += ": " + end.message;
    return line;
}

}  // namespace quillet::cli
