// child_write_bytes COUNT stdout|stderr|both [DONE-FILE]: writes COUNT bytes of the test pattern as
// fast as it can; "both" alternates between the two streams every 100 bytes. Creates DONE-FILE
// once everything is written, so that a test can tell that the writer never stalled.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "byte_pattern.h"
#include "write_all.h"

int main(int argc, char** argv) {
    using namespace quillet::children;
    if (argc < 3) return 2;
    const std::size_t count = std::strtoull(argv[1], nullptr, 10);
    const std::string stream = argv[2];
    const bool both = stream == "both";
    const int fd = stream == "stderr" ? 2 : 1;
    const std::size_t chunk = both ? 100 : 64 * 1024;

    for (std::size_t begin = 0, index = 0; begin < count; begin += chunk, ++index) {
        const std::size_t size = std::min(chunk, count - begin);
        const int target = both ? 1 + static_cast<int>(index % 2) : fd;
        if (!writeAll(target, patternBytes(begin, size))) return 1;
    }
    if (argc > 3) {
        if (std::FILE* done = std::fopen(argv[3], "w")) std::fclose(done);
    }
    return 0;
}
