// Processor time the program spends on one reading of the processor monitor (the /proc/stat
// sampler, the CPU cell's text and its repaint), with the main window up.
#include <QApplication>
#include <QLabel>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "app/form3.h"
#include "app/forms.h"
#include "app/proc_stat_sampler.h"
#include "app/scripted_dialogs.h"
#include "event_loop.h"
#include "main/form1.h"
#include "process_time.h"
#include "program_windows.h"

namespace {

constexpr double kIntervalSeconds = 2.5;

void report(const char* what, std::chrono::duration<double> spent, int readings) {
    const double each = spent.count() / readings;
    std::printf(
        "%s: %.1f us of processor time per reading, %.4f%% of one core at one reading "
        "per %.1f s\n",
        what, each * 1e6, 100.0 * each / kIntervalSeconds, kIntervalSeconds);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    quillet::ScriptedDialogs dialogs;
    quillet::ProgramState state;
    quillet::ProgramForms forms(state, dialogs);
    forms.get<quillet::Form1>().show();
    // The monitor's own timer stays quiet; only the readings below are taken.
    state.CpuMonitorEnabled = false;
    quillet::Form3& monitor = forms.get<quillet::Form3>();
    runEventLoopFor(std::chrono::milliseconds(500));  // let the window settle

    const int readings = argc > 1 ? std::max(1, std::atoi(argv[1])) : 400;
    // The pause lets the counters move, so that every reading shows a figure as the timer's do;
    // sleeping costs no processor time and is not counted.
    const auto pause = std::chrono::milliseconds(20);
    std::chrono::duration<double> spent{};
    int shown = 0;
    for (int i = 0; i < readings; ++i) {
        std::this_thread::sleep_for(pause);
        const auto before = processTime();
        shown += monitor.takeReading() ? 1 : 0;
        QCoreApplication::processEvents();  // the cell's repaint
        spent += processTime() - before;
    }
    std::printf("%d readings, %d shown, last: %s\n", readings, shown,
                forms.get<quillet::Form1>()
                    .controls()
                    .status(quillet::StatusCell::Cpu)
                    ->text()
                    .toStdString()
                    .c_str());
    report("whole reading", spent, readings);

    quillet::ProcStatSampler sampler;
    std::chrono::duration<double> sampling{};
    for (int i = 0; i < readings; ++i) {
        std::this_thread::sleep_for(pause);
        const auto before = processTime();
        (void)sampler.read();
        sampling += processTime() - before;
    }
    report("sampler alone", sampling, readings);
    return 0;
}
