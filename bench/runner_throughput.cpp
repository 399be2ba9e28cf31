// Throughput of the console command runner: a child writes the given number of megabytes to its
// standard error as fast as it can, while a handler does a little work with every piece.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tools/dos_outputs.h"

int main(int argc, char** argv) {
    const std::size_t megabytes = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 100;
    const std::size_t size = megabytes << 20;

    quillet::DOSOutputs runner;
    std::size_t bytes = 0;
    std::size_t pieces = 0;
    std::size_t newlines = 0;
    runner.ReceiveOutputs = [&](const std::string& piece) {
        bytes += piece.size();
        ++pieces;
        for (const char c : piece) newlines += c == '\n';
    };

    const auto started = std::chrono::steady_clock::now();
    const std::string all = runner.ExecuteCommand(std::string(CHILD_WRITE_BYTES) + " " +
                                                  std::to_string(size) + " stderr");
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - started;

    std::printf("%zu bytes in %zu pieces (%zu lines) in %.3f s: %.1f MB/s\n", bytes, pieces,
                newlines, took.count(), static_cast<double>(bytes) / (1 << 20) / took.count());
    return bytes == size && all.size() == size ? 0 : 1;
}
