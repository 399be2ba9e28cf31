#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "tools/dos_outputs.h"
#include "tools/run_output.h"

namespace quillet {

class CommandRunner;
class QueuedWakeup;

// What a runner tells whoever keeps it: that a run has started, and that a run's output has ended
// (before the runner's own OutputEnded, so that the keeper may let go of it first).
class RunWatcher {
public:
    virtual void runStarted(CommandRunner& runner) = 0;
    virtual void runEnded(CommandRunner& runner) = 0;

protected:
    ~RunWatcher() = default;
};

// Runs one command at a time for a window without ever waiting on the window's thread: the
// command is started and returns at once; each piece of its output then arrives on the window's
// thread as an event, in order, and after the last, empty piece the end of the output is told.
// The windows' runners are made and kept by RunningCommands, which may keep one a little longer
// than its window.
class CommandRunner : public QObject {
    Q_OBJECT

public:
    explicit CommandRunner(RunWatcher& watcher);
    ~CommandRunner() override;

    // Starts the command line (see DOSOutputs::StartCommand). False, with nothing told, when no
    // command could be started.
    bool start(const std::string& commandLine);
    bool running() const { return dos_.Executing(); }
    // See DOSOutputs::setWorkingFolder.
    void setWorkingFolder(std::string folder) { dos_.setWorkingFolder(std::move(folder)); }
    // The file (UTF-8, full path) that the next runs write, or "". A run the program stops,
    // whoever stops it, leaves no half-written file under that name: once its output has ended,
    // what the run wrote there is removed. A run that ends by itself leaves it as it is.
    void setOutputFile(std::string path) { outputFile_ = std::move(path); }

    // Asks the child to stop ("q" on its input, and the termination signal where there is one),
    // and ends it firmly once `gracePeriod` has passed if its output has not ended by then.
    void stopThenKill(std::chrono::milliseconds gracePeriod);

    // For the end of the program, when nothing can wait for the run any more: ends its child at
    // once and takes back what the run wrote.
    void killNow();

    // Its window no longer wants it: from now on neither handler below is called.
    void dismiss() { dismissed_ = true; }
    bool dismissed() const { return dismissed_; }

    // Everything read during the latest run.
    const std::string& Outputs() const { return dos_.Outputs(); }

    // Each piece of output, then "" once it has ended; then OutputEnded. Window thread.
    std::function<void(const std::string& CommandOutputs)> ReceiveOutputs;
    std::function<void()> OutputEnded;

private:
    void deliver();

    RunWatcher& watcher_;
    DOSOutputs dos_;
    std::shared_ptr<QueuedWakeup> wakeup_;
    QTimer killTimer_;
    bool dismissed_ = false;
    std::string outputFile_;
    RunOutputMark outputBefore_;  // outputFile_ as the current run started
    bool stopAsked_ = false;      // the program asked the current run to stop
};

}  // namespace quillet
