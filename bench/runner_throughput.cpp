// Throughput of the console command runner: a child writes the given number of megabytes to its
// standard error as fast as it can, while a handler does a little work with every piece. Measured
// twice: with the plain blocking wait, and with the event-loop wait the windows use.
#include <QCoreApplication>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "process_time.h"
#include "tools/dos_outputs.h"
#include "tools/event_loop_output_waiter.h"

namespace {

bool measure(const char* name, quillet::DOSOutputs& runner, std::size_t size) {
    std::size_t bytes = 0;
    std::size_t pieces = 0;
    std::size_t newlines = 0;
    runner.ReceiveOutputs = [&](const std::string& piece) {
        bytes += piece.size();
        ++pieces;
        for (const char c : piece) newlines += c == '\n';
    };
    const auto cpuBefore = processTime();
    const auto started = std::chrono::steady_clock::now();
    const std::string all = runner.ExecuteCommand(std::string(CHILD_WRITE_BYTES) + " " +
                                                  std::to_string(size) + " stderr");
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - started;
    const double cpu = (processTime() - cpuBefore).count();
    std::printf("%-12s %zu bytes in %zu pieces (%zu lines) in %.3f s: %.1f MB/s, %.3f s CPU\n",
                name, bytes, pieces, newlines, took.count(),
                static_cast<double>(bytes) / (1 << 20) / took.count(), cpu);
    return bytes == size && all.size() == size;
}

}  // namespace

int main(int argc, char** argv) {
    const std::size_t megabytes = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 100;
    const std::size_t size = megabytes << 20;
    QCoreApplication app(argc, argv);

    quillet::DOSOutputs blocking;
    quillet::DOSOutputs windowed(std::make_shared<quillet::EventLoopOutputWaiter>());
    const bool ok = measure("blocking", blocking, size) && measure("event loop", windowed, size);
    return ok ? 0 : 1;
}
