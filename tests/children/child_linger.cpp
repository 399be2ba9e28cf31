// child_linger MILLISECONDS: closes its output at once, then stays alive for MILLISECONDS.
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    ::close(1);
    ::close(2);
    std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(argv[1])));
    return 0;
}
