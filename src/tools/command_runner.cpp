#include "tools/command_runner.h"

#include <mutex>

namespace quillet {

// Turns the reading thread's wake-ups into events of the runner's own, on the window's thread.
// Once the runner goes it is cut off under the lock, so no event is ever posted to a runner that
// is being destroyed; events already posted go with it.
class QueuedWakeup final : public OutputWakeup {
public:
    explicit QueuedWakeup(CommandRunner* runner, std::function<void()> onWake)
        : runner_(runner), onWake_(std::move(onWake)) {}

    void wake() override {
        std::lock_guard lock(mutex_);
        if (runner_) QMetaObject::invokeMethod(runner_, onWake_, Qt::QueuedConnection);
    }

    void cutOff() {
        std::lock_guard lock(mutex_);
        runner_ = nullptr;
    }

private:
    std::mutex mutex_;
    CommandRunner* runner_;
    const std::function<void()> onWake_;
};

CommandRunner::CommandRunner(RunWatcher& watcher)
    : watcher_(watcher), wakeup_(std::make_shared<QueuedWakeup>(this, [this] { deliver(); })) {
    killTimer_.setSingleShot(true);
    connect(&killTimer_, &QTimer::timeout, this, [this] { dos_.KillChild(); });
}

CommandRunner::~CommandRunner() {
    wakeup_->cutOff();
}

bool CommandRunner::start(const std::string& commandLine) {
    dos_.ReceiveOutputs = [this](const std::string& piece) {
        if (!dismissed_ && ReceiveOutputs) ReceiveOutputs(piece);
    };
    const RunOutputMark before = markRunOutput(outputFile_);
    if (!dos_.StartCommand(commandLine, wakeup_)) return false;
    outputBefore_ = before;
    stopAsked_ = false;
    watcher_.runStarted(*this);
    return true;
}

void CommandRunner::stopThenKill(std::chrono::milliseconds gracePeriod) {
    if (!running()) return;
    stopAsked_ = true;
    dos_.StopChild();
    if (!killTimer_.isActive()) killTimer_.start(gracePeriod);
}

void CommandRunner::killNow() {
    if (!running()) return;
    dos_.KillChild();
    removeStoppedRunOutput(outputFile_, outputBefore_);
}

void CommandRunner::deliver() {
    if (!dos_.DeliverOutputs()) return;
    killTimer_.stop();
    if (stopAsked_) removeStoppedRunOutput(outputFile_, outputBefore_);
    // The keeper first: it may let go of the runner, and the window may start the next run.
    watcher_.runEnded(*this);
    if (!dismissed_ && OutputEnded) OutputEnded();
}

}  // namespace quillet
