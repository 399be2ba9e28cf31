// child_ignore_stop: ignores the termination signal and its input, says "ready", sleeps half a
// minute.
#include <chrono>
#include <csignal>
#include <thread>

#include "write_all.h"

int main() {
    std::signal(SIGTERM, SIG_IGN);
    quillet::children::writeAll(1, "ready\n");
    std::this_thread::sleep_for(std::chrono::seconds(30));
    return 0;
}
