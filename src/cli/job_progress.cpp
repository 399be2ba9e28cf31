#include "cli/job_progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "base/text_format.h"
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

// The length of the valid UTF-8 sequence that starts `text`, or 0 when its first byte starts none:
// a stray continuation byte, a sequence cut short, an overlong form, a surrogate or a code point
// above U+10FFFF.
std::size_t utf8Length(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    std::size_t length = 0;
    // The second byte's range depends on the lead; the bytes after it are always 80..BF.
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;   // below: overlong
        if (lead == 0xED) high = 0x9F;  // above: the surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;   // below: overlong
        if (lead == 0xF4) high = 0x8F;  // above: past U+10FFFF
    } else {
        return 0;
    }
    if (text.size() < length || byte(1) < low || byte(1) > high) return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (byte(i) < 0x80 || byte(i) > 0xBF) return 0;
    }
    return length;
}

void appendEscape(std::string& quoted, unsigned code) {
    char escaped[16];
    std::snprintf(escaped, sizeof escaped, "\\u%04x", code);
    quoted += escaped;
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
                             static_cast<double>(progress.bytesWritten), job.elapsedSeconds);
    } else if (progress.speed && *progress.speed > 0) {
        projection = Projection{progress.bytesWritten / *share,
                                (*job.runningSeconds - progress.encodedSeconds) / *progress.speed};
    }
    if (projection && job.aimedBytes) projection->finalBytes = *job.aimedBytes;
    return projection;
}

std::string terminalLine(const JobView& job) {
    const Progress& progress = job.progress;
    std::string line = job.name;
    const std::optional<double> share = shareDone(job);
    if (share) line += "  " + fixed(*share * 100, 1) + "%";
    line += "  " + clockText(progress.encodedSeconds);
    if (progress.speed) line += "  " + fixed(*progress.speed, 2) + "x";
    line += "  " + megabytesText(progress.bytesWritten);
    if (const auto projection = projectionOf(job)) {
        line += "  left " + clockText(projection->secondsLeft);
        line += "  about " + megabytesText(projection->finalBytes);
    }
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
    std::string json = "{\"event\":\"progress\",\"source\":" + jsonString(job.name) +
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
    if (end.status == JobEnd::Status::Done || end.status == JobEnd::Status::KeptSource) {
        json += ",\"source_bytes\":" + std::to_string(end.sourceBytes) +
                ",\"output_bytes\":" + std::to_string(end.outputBytes) +
                ",\"encodes\":" + std::to_string(end.encodes) +
                ",\"seconds\":" + jsonNumber(end.seconds, 1);
    }
    if (end.predictedBytes) json += ",\"predicted_bytes\":" + jsonNumber(end.predictedBytes, 0);
    if (end.predictedSeconds) {
        json += ",\"predicted_seconds\":" + jsonNumber(end.predictedSeconds, 1);
    }
    return json + "}";
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
