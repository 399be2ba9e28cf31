// child_trickle PAUSE-MS SIZE...: writes SIZE bytes of one letter per SIZE ('a', then 'b', ...)
// with a pause between the writes, so that each write arrives as a piece of its own.
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "write_all.h"

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const auto pause = std::chrono::milliseconds(std::atoi(argv[1]));
    for (int i = 2; i < argc; ++i) {
        if (i > 2) std::this_thread::sleep_for(pause);
        const std::string piece(std::strtoull(argv[i], nullptr, 10),
                                static_cast<char>('a' + i - 2));
        if (!quillet::children::writeAll(1, piece)) return 1;
    }
    return 0;
}
