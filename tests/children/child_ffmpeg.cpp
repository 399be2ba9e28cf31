// child_ffmpeg: stands in for ffmpeg and ffprobe where the real ones cannot run (the Windows
// build). Named ffprobe*, it answers the running-time and picture-size queries of a 10-second
// 1280x720 clip. Named anything else, it acts as ffmpeg encoding that clip: the input banner, then
// one progress line a second of video, CHILD_FFMPEG_PAUSE_MS apart (default 150), on its error
// stream; then it writes its last argument as the output and ends. A "q" on its input, the end of
// its input or the termination signal stops it early as ffmpeg stops, with what it wrote so far.
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>

#include "write_all.h"

namespace {

constexpr int kClipSeconds = 10;

std::atomic<bool> stop = false;
static_assert(std::atomic<bool>::is_always_lock_free, "set from a signal handler");

std::string twoDigits(int value) {
    return (value < 10 ? "0" : "") + std::to_string(value);
}

std::string progressLine(int second) {
    return "frame=" + std::to_string(second * 25) +
           " fps= 50 q=28.0 size=" + std::to_string(second * 128) +
           "kB time=00:00:" + twoDigits(second) + ".00 bitrate=1048.6kbits/s speed=2.00x    \r";
}

int probe(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "format=duration") return quillet::children::writeAll(1, "10.000000\n") ? 0 : 1;
        if (word == "stream=width,height") {
            return quillet::children::writeAll(1, "width=1280\nheight=720\n") ? 0 : 1;
        }
    }
    return 1;
}

int encode(int argc, char** argv) {
    const char* pauseText = std::getenv("CHILD_FFMPEG_PAUSE_MS");
    const auto pause = std::chrono::milliseconds(pauseText ? std::atoi(pauseText) : 150);
    std::signal(SIGTERM, [](int) { stop = true; });
    std::thread([] {
        int byte = 0;
        while ((byte = std::getchar()) != EOF && byte != 'q') {
        }
        stop = true;
    }).detach();

    quillet::children::writeAll(2,
                                "Input #0, mov,mp4,m4a,3gp,3g2,mj2, from 'clip.mp4':\n"
                                "  Duration: 00:00:10.00, start: 0.000000, bitrate: 1200 kb/s\n");
    int second = 0;
    while (second < kClipSeconds && !stop) {
        // A stop is taken at once, however slow the clip goes, as ffmpeg takes it.
        const auto next = std::chrono::steady_clock::now() + pause;
        while (!stop && std::chrono::steady_clock::now() < next) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        if (stop) break;
        ++second;
        quillet::children::writeAll(2, progressLine(second));
    }
    std::ofstream(argv[argc - 1], std::ios::binary) << std::string(second * 1024, 'v');
    quillet::children::writeAll(2, "\n");
    std::_Exit(0);  // the input reader may still be waiting
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const std::string self = argv[0];
    return self.find("ffprobe") != std::string::npos ? probe(argc, argv) : encode(argc, argv);
}
