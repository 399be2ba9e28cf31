// child_start_child [COMMAND-LINE]: with a command line, starts it as its own child the way the
// program starts a tool, passes on everything that child writes and ends after it; without one,
// prints its process id and sleeps half a minute, ready to be that child.
#include <unistd.h>

#include <chrono>
#include <string>
#include <string_view>
#include <thread>

#include "tools/child_process.h"
#include "write_all.h"

int main(int argc, char** argv) {
    using quillet::children::writeAll;
    if (argc < 2) {
        writeAll(1, std::to_string(::getpid()) + "\n");
        std::this_thread::sleep_for(std::chrono::seconds(30));
        return 0;
    }
    const auto child = quillet::ChildProcess::start(argv[1]);
    if (!child) return 1;
    char buffer[256];
    while (const std::size_t count = child->read(buffer, sizeof buffer)) {
        if (!writeAll(1, std::string_view(buffer, count))) break;
    }
    child->awaitExit();
    return 0;
}
