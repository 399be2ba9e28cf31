// child_sizes: stands in for ffprobe and ffmpeg in a two-pass target size whose outputs have
// chosen sizes. Asked to show entries, it answers as ffprobe does for a 10-second 1280x720 clip
// with no sound. Asked for a first pass ("pass=1:" among the encoder's parameters), it writes
// nothing, and asked for a sample of a forecast (a bare "hevc" stream) it writes nothing either.
// Otherwise it writes its last argument with as many bytes as the first line of the file
// CHILD_SIZES names says, and drops that line, so that each run takes the next size.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "-show_entries") {
            std::printf(
                "index=0\ncodec_name=hevc\ncodec_type=video\nwidth=1280\nheight=720\n"
                "duration=10.000000\n");
            return 0;
        }
        if (word.starts_with("pass=1:") || word == "hevc") return 0;
    }
    const char* sizesFile = std::getenv("CHILD_SIZES");
    if (!sizesFile || argc < 2) return 2;
    std::string first;
    std::stringstream rest;
    {
        std::ifstream sizes(sizesFile);
        if (!std::getline(sizes, first)) return 3;
        rest << sizes.rdbuf();
    }
    std::ofstream(sizesFile, std::ios::trunc) << rest.str();
    std::ofstream(argv[argc - 1], std::ios::binary) << std::string(std::stoul(first), 'v');
    return 0;
}
