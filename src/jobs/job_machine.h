#pragma once

#include <QObject>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "app/form_id.h"
#include "jobs/job_steps.h"
#include "tools/ffmpeg_progress.h"
#include "tools/running_commands.h"

class QWidget;

namespace quillet {

class Forms;
class ProgressDisplay;

// What a window hands the job machine: its steps, its command line, and where its progress goes.
// Every field has a default, so that a window names only the fields it sets.
struct JobDescription {
    FormId window{};
    std::span<const JobStep> steps{};
    std::function<std::string()> commandLine{};  // built when the command runs
    bool followsTime = true;
    std::string_view captionEnding = kCaptionCompleted;
    std::function<ProgressDisplay*()> display{};  // null while there is nowhere to show it
    bool readsCpuWithEachPiece = false;  // the processor monitor reads the load before each piece
    // The source's running time for the percentage; the job settings' VideoSeconds when null.
    std::function<std::string()> videoSeconds{};
    // The file the command writes, which the play steps open and which a stopped run leaves
    // nothing under; the job settings' OutputVideo when null.
    std::function<std::string()> output{};
    std::function<void()> ending{};  // the WindowEnding step
    bool readsOutput = true;  // false: ffmpeg's output is not looked at, its progress unknown
    // ffmpeg works in an empty folder of its own, removed after the run, so that a name the
    // command leaves relative (a quote typed into a value can cut a path short) writes nothing
    // anywhere else.
    bool worksInScratchFolder = false;
};

// The main window's progress display, where a job shows what the main window shows of it; null once
// the main window has gone (the program ending).
ProgressDisplay* mainWindowDisplay(Forms& forms);

// Runs one window's job as an object rather than a call stack: it takes the window's steps one
// after the other, and where a step takes time (a wait, a run of ffmpeg) it returns to the event
// loop and goes on from a timer or from the end of ffmpeg's output. So every handler returns at
// once, the windows stay live throughout, and a window unloaded in the middle (Reset App, Exit)
// leaves nothing that could later run on it.
class JobMachine : public QObject {
    Q_OBJECT

public:
    JobMachine(Forms& forms, QWidget& window, JobDescription job);

    // From the window's load: the steps from the first.
    void start();
    // From the window's unload: no step starts after the one under way, and a running ffmpeg is
    // asked to stop, then ended firmly.
    void abandon();
    // From start() until the job stops, is abandoned, or has only its closing pause left (a
    // pause that leads to nothing more need not hold up the next run).
    bool busy() const;

private:
    // Takes the steps that need no time, up to a wait, a run or the end of the steps.
    void advance();
    // Carries out a step that needs no time.
    void perform(const JobStep& step);
    void objDOS_ReceiveOutputs(const std::string& CommandOutputs);
    void playOnCompletion();
    void openOutput();
    std::string outputFile() const;

    Forms& forms_;
    QWidget& window_;
    const JobDescription job_;
    std::size_t next_ = 0;
    bool abandoned_ = false;
    bool busy_ = false;
    QTimer wait_;
    RunningCommands::RunnerHandle objDOS_;
    std::unique_ptr<QTemporaryDir> scratch_;  // the folder ffmpeg works in, during a run
};

}  // namespace quillet
