// Throughput of the console command runner: a child writes the given number of megabytes to its
// standard error as fast as it can, while a handler does a little work with every piece. Measured
// twice: with the blocking run, and with the windows' runner, whose pieces arrive as events.
#include <QCoreApplication>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "event_loop.h"
#include "process_time.h"
#include "tools/dos_outputs.h"
#include "tools/running_commands.h"

namespace {

// Runs the command with `runner` and returns all it read.
using RunFunction = std::function<std::string(const std::string& commandLine,
                                              std::function<void(const std::string&)> receive)>;

bool measure(const char* name, const RunFunction& run, std::size_t size) {
    std::size_t bytes = 0;
    std::size_t pieces = 0;
    std::size_t newlines = 0;
    const auto receive = [&](const std::string& piece) {
        bytes += piece.size();
        ++pieces;
        for (const char c : piece) newlines += c == '\n';
    };
    const auto cpuBefore = processTime();
    const auto started = std::chrono::steady_clock::now();
    const std::string all =
        run(std::string(CHILD_WRITE_BYTES) + " " + std::to_string(size) + " stderr", receive);
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

    const RunFunction blocking = [](const std::string& commandLine, auto receive) {
        quillet::DOSOutputs runner;
        runner.ReceiveOutputs = receive;
        return runner.ExecuteCommand(commandLine);
    };
    const RunFunction windowed = [](const std::string& commandLine, auto receive) {
        quillet::RunningCommands commands;
        quillet::RunningCommands::RunnerHandle runner = commands.newRunner();
        runner->ReceiveOutputs = receive;
        runner->OutputEnded = [] { QCoreApplication::quit(); };
        if (!runner->start(commandLine)) return std::string();
        QCoreApplication::exec();
        return runner->Outputs();
    };
    const bool ok = measure("blocking", blocking, size) && measure("as events", windowed, size);
    return ok ? 0 : 1;
}
