// How soon the window's thread answers while a target-size job runs: a 10 ms timer is armed again
// each time it fires, and the lateness of each firing is recorded while ffmpeg runs. A window that
// waited anywhere on its thread would show it here as long delays.
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "program_job.h"

namespace {

constexpr int kIntervalMs = 10;

double percentile(std::vector<double> values, double share) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const auto index = static_cast<std::size_t>(share * static_cast<double>(values.size() - 1));
    return values[index];
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    BenchProgram bench;
    quillet::Forms& forms = bench.forms;

    std::vector<double> lateness;  // milliseconds, while ffmpeg runs
    QElapsedTimer clock;
    QTimer probe;
    probe.setSingleShot(true);
    probe.setTimerType(Qt::PreciseTimer);
    QObject::connect(&probe, &QTimer::timeout, [&] {
        const double late = static_cast<double>(clock.nsecsElapsed()) / 1e6 - kIntervalMs;
        if (forms.runningCommands().count() > 0) lateness.push_back(late);
        clock.restart();
        probe.start(kIntervalMs);
    });
    clock.start();
    probe.start(kIntervalMs);
    runTargetSizeJob(forms, bench.source, "0,010", "20", 2);

    std::printf(
        "timer lateness on the window's thread while ffmpeg ran (%zu firings of a %d ms "
        "timer): p50 %.2f ms, p99 %.2f ms, max %.2f ms (target p99 under 20 ms)\n",
        lateness.size(), kIntervalMs, percentile(lateness, 0.5), percentile(lateness, 0.99),
        lateness.empty() ? 0.0 : *std::max_element(lateness.begin(), lateness.end()));
    return lateness.empty() ? 1 : 0;
}
