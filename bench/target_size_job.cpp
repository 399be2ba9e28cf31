// A target-size job through the program against the same ffmpeg command run directly, on a
// 20-second 640x360 clip with preset veryfast: encode time, the program's own processor time and
// peak memory, and how far the output lands from its target for targets of 1, 2 and 5 MB.
#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <cstdio>
#include <cstdlib>

#include "jobs/command_lines.h"
#include "media.h"
#include "process_time.h"
#include "program_job.h"

namespace {

using quillet::Forms;

// The fixed waits of a target-size job: one second before ffmpeg starts, two after it ends.
constexpr double kFixedWaits = 3.0;

struct Run {
    double seconds;
    double ownCpu;
    double childCpu;
    double outputMb;
};

double childTime() {
    rusage usage{};
    ::getrusage(RUSAGE_CHILDREN, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

Run runThroughProgram(Forms& forms, const QString& source, int targetMb) {
    const QString output = QFileInfo(source).dir().filePath("Compressed-clip.mp4");
    const double ownBefore = processTime().count();
    const double childBefore = childTime();
    QElapsedTimer clock;
    clock.start();
    runTargetSizeJob(forms, source, "0,010", "20", targetMb);
    const double seconds = clock.elapsed() / 1000.0 - kFixedWaits;
    return {seconds, processTime().count() - ownBefore, childTime() - childBefore,
            QFileInfo(output).size() / 1048576.0};
}

Run runDirectly(const std::string& commandLine) {
    const double childBefore = childTime();
    QElapsedTimer clock;
    clock.start();
    const int status = std::system((commandLine + " -v error 2>/dev/null").c_str());
    return {clock.elapsed() / 1000.0, 0, childTime() - childBefore, status == 0 ? 0.0 : -1.0};
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    BenchProgram bench;
    quillet::Forms& forms = bench.forms;
    const QString& source = bench.source;

    const Run program = runThroughProgram(forms, source, 2);
    // The same command line, as the job composed it, with the output elsewhere.
    quillet::ProgramState job = bench.state;
    job.SourceVideo = QDir::toNativeSeparators(source).toStdString();
    job.OutputVideo = bench.folder.filePath("direct.mp4").toStdString();
    job.PresetName = "VeryFast";
    job.SampleRate = "44100";
    job.AudioBitRate = "160";
    job.VideoBitRate = "659.2";  // 2 MB x 8192 / 20 s - 160
    const Run direct = runDirectly(quillet::targetSizeCommandLine(
        QCoreApplication::applicationDirPath().toStdString(), job, quillet::kThisPlatform));

    std::printf("encode time: program %.2f s (fixed waits left out), direct %.2f s, ratio %.3f\n",
                program.seconds, direct.seconds, program.seconds / direct.seconds);
    std::printf("processor time: program %.3f s, its ffmpeg %.2f s: %.2f%% of ffmpeg's\n",
                program.ownCpu, program.childCpu, 100 * program.ownCpu / program.childCpu);
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("peak memory of the program: %.1f MB\n", usage.ru_maxrss / 1024.0);
    for (const int target : {1, 2, 5}) {
        const Run run = target == 2 ? program : runThroughProgram(forms, source, target);
        std::printf("target %d MB: output %.3f MB, %+.1f%% from the target\n", target, run.outputMb,
                    100 * (run.outputMb - target) / target);
    }
    return 0;
}
