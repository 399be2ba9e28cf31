// child_quit_on_q: ignores the termination signal, says "ready", and ends only when it reads "q"
// on its input (saying "bye") or when its input ends.
#include <unistd.h>

#include <csignal>

#include "write_all.h"

int main() {
    std::signal(SIGTERM, SIG_IGN);
    quillet::children::writeAll(1, "ready\n");
    char byte = 0;
    while (::read(0, &byte, 1) == 1) {
        if (byte == 'q') return quillet::children::writeAll(1, "bye\n") ? 0 : 1;
    }
    return 1;
}
