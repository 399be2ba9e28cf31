#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillet::cli {

// How the source's own picture bytes lie along its running time, from its packets: where the
// source spent bytes, the content is hard to compress, and an output will spend bytes there too.
class SourceBytes {
public:
    struct Packet {
        double time;  // seconds
        double bytes;
        bool key = false;
    };
    SourceBytes() = default;
    // The key pictures' bytes are left out, since their size tells how often the source starts
    // afresh more than how hard its content is; unless most pictures are key pictures, when they
    // are all there is.
    explicit SourceBytes(std::vector<Packet> packets);

    // The bytes of the packets whose time is in [from, to).
    double between(double from, double to) const;
    // How many pictures have a time in [from, to), key pictures among them.
    double picturesBetween(double from, double to) const;
    bool empty() const { return times_.empty(); }

private:
    std::ptrdiff_t indexOf(double time) const;
    std::vector<double> times_;   // sorted
    std::vector<double> before_;  // bytes of the packets before each, and of all at the end
};

// Reads ffprobe's answer to packetArguments: "pts_time=", "dts_time=", "size=" and "flags=" a
// line each per packet. A packet with neither time is left out.
SourceBytes parsePacketAnswer(const std::string& answer);

}  // namespace quillet::cli
