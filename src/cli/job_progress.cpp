#include "cli/job_progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

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
    if (!job.runningSeconds || *job.runningSeconds <= 0) return std::nullopt;
    return std::clamp(job.progress.encodedSeconds / *job.runningSeconds, 0.0, 1.0);
}

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
        progress.speed = exactNumber<double>(value);
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

std::string clockText(double seconds) {
    const auto whole = static_cast<long long>(std::max(0.0, std::floor(seconds)));
    char text[32];
    std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60,
                  whole % 60);
    return text;
}

std::string terminalLine(const JobView& job) {
    const Progress& progress = job.progress;
    std::string line = job.name;
    const std::optional<double> share = shareDone(job);
    if (share) line += "  " + fixed(*share * 100, 1) + "%";
    line += "  " + clockText(progress.encodedSeconds);
    if (progress.speed) line += "  " + fixed(*progress.speed, 2) + "x";
    line += "  " + megabytesText(progress.bytesWritten);
    if (share && *share > 0 && progress.speed && *progress.speed > 0) {
        const double left = (*job.runningSeconds - progress.encodedSeconds) / *progress.speed;
        line += "  left " + clockText(left);
        line += "  about " + megabytesText(progress.bytesWritten / *share);
    }
    return line;
}

std::string jsonString(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
            quoted += escaped;
        } else {
            quoted += c;
        }
    }
    return quoted + "\"";
}

std::string jsonUpdate(const JobView& job) {
    const Progress& progress = job.progress;
    std::string json = "{\"event\":\"progress\",\"source\":" + jsonString(job.name) +
                       ",\"encoded_seconds\":" + fixed(progress.encodedSeconds, 3) +
                       ",\"bytes_written\":" + std::to_string(progress.bytesWritten);
    if (const auto share = shareDone(job)) json += ",\"percent\":" + fixed(*share * 100, 2);
    if (progress.speed) json += ",\"speed\":" + fixed(*progress.speed, 3);
    return json + "}";
}

std::string statusName(JobEnd::Status status) {
    switch (status) {
        case JobEnd::Status::Done:
            return "done";
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
    std::string json = "{\"event\":\"end\",\"status\":\"" + statusName(end.status) +
                       "\",\"source\":" + jsonString(end.source) +
                       ",\"output\":" + jsonString(end.output) +
                       ",\"message\":" + jsonString(end.message);
    if (end.status == JobEnd::Status::Done) {
        json += ",\"source_bytes\":" + std::to_string(end.sourceBytes) +
                ",\"output_bytes\":" + std::to_string(end.outputBytes);
    }
    return json + "}";
}

std::string plainEnd(const JobEnd& end) {
    std::string line = statusName(end.status) + ": " + end.source;
    if (end.status == JobEnd::Status::Done && !end.output.empty()) {
        line += " -> " + end.output + " (" + megabytesText(end.sourceBytes) + " -> " +
                megabytesText(end.outputBytes) + ")";
    }
    if (!end.message.empty()) line += ": " + end.message;
    return line;
}

}  // namespace quillet::cli
