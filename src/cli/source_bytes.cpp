#include "cli/source_bytes.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "cli/key_value_lines.h"
#include "tools/exact_number.h"

namespace quillet::cli {

SourceBytes::SourceBytes(std::vector<Packet> packets) {
    std::sort(packets.begin(), packets.end(),
              [](const Packet& a, const Packet& b) { return a.time < b.time; });
    const auto keys = std::count_if(packets.begin(), packets.end(),
                                    [](const Packet& packet) { return packet.key; });
    const bool mostlyKeys = static_cast<std::size_t>(keys) * 2 >= packets.size();
    before_.push_back(0);
    for (const Packet& packet : packets) {
        times_.push_back(packet.time);
        before_.push_back(before_.back() + (packet.key && !mostlyKeys ? 0 : packet.bytes));
    }
}

std::ptrdiff_t SourceBytes::indexOf(double time) const {
    return std::lower_bound(times_.begin(), times_.end(), time) - times_.begin();
}

double SourceBytes::between(double from, double to) const {
    if (times_.empty() || !(to > from)) return 0;
    return before_[static_cast<std::size_t>(indexOf(to))] -
           before_[static_cast<std::size_t>(indexOf(from))];
}

double SourceBytes::picturesBetween(double from, double to) const {
    if (times_.empty() || !(to > from)) return 0;
    return static_cast<double>(indexOf(to) - indexOf(from));
}

SourceBytes parsePacketAnswer(const std::string& answer) {
    std::vector<SourceBytes::Packet> packets;
    std::optional<double> presented;
    std::optional<double> decoded;
    double size = -1;  // none yet
    const auto number = [](const std::string& text) -> std::optional<double> {
        auto value = exactNumber<double>(text);
        return value && std::isfinite(*value) && *value >= 0 ? value : std::nullopt;
    };
    forEachKeyValue(answer, [&](const std::string& key, const std::string& value) {
        if (key == "pts_time") {
            presented = number(value);
        } else if (key == "dts_time") {
            decoded = number(value);
        } else if (key == "size") {
            size = number(value).value_or(-1);
        } else if (key == "flags") {
            // The last of a packet's entries.
            const auto time = presented ? presented : decoded;
            if (time && size >= 0) {
                packets.push_back({*time, size, value.find('K') != std::string::npos});
            }
            presented.reset();
            decoded.reset();
            size = -1;
        }
    });
    return SourceBytes(std::move(packets));
}

}  // namespace quillet::cli
