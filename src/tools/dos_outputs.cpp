#include "tools/dos_outputs.h"

#include <deque>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

#include "tools/child_process.h"

namespace quillet {

namespace {

constexpr std::size_t kPieceSize = 256;

// Pieces read by the reading thread and not yet handed to the owner, oldest first. It grows as
// needed: the reader never waits for the owner, so the child never stalls on a full pipe.
class PieceQueue {
public:
    // Returns whether the queue was empty, the only case in which the owner may need waking.
    bool push(std::string piece) {
        std::lock_guard lock(mutex_);
        pieces_.push_back(std::move(piece));
        return pieces_.size() == 1;
    }

    bool hasPieces() const {
        std::lock_guard lock(mutex_);
        return !pieces_.empty();
    }

    std::deque<std::string> takeAll() {
        std::lock_guard lock(mutex_);
        return std::exchange(pieces_, {});
    }

private:
    mutable std::mutex mutex_;
    std::deque<std::string> pieces_;
};

// Starts the thread that reads the child's output into `pieces`, ending with an empty piece. It
// is done with `waiter` once `readerDone` is set, and then stays only to release the child when it
// ends, which may be later than its output. False when no thread can be started.
bool startReader(std::shared_ptr<ChildProcess> child, std::shared_ptr<PieceQueue> pieces,
                 OutputWaiter& waiter, std::promise<void> readerDone) {
    auto read = [child = std::move(child), pieces = std::move(pieces), &waiter,
                 readerDone = std::move(readerDone)]() mutable {
        char buffer[kPieceSize];
        for (;;) {
            const std::size_t count = child->read(buffer, sizeof buffer);
            if (pieces->push(std::string(buffer, count))) waiter.wake();
            if (count == 0) break;
        }
        readerDone.set_value();
        child->awaitExit();
    };
    try {
        std::thread(std::move(read)).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

}  // namespace

DOSOutputs::DOSOutputs(std::shared_ptr<OutputWaiter> waiter) : waiter_(std::move(waiter)) {}

DOSOutputs::~DOSOutputs() = default;

void DOSOutputs::setCommandLine(std::string commandLine) {
    commandLine_ = std::move(commandLine);
}

const std::string& DOSOutputs::CommandLine() const {
    return commandLine_;
}

const std::string& DOSOutputs::Outputs() const {
    return outputs_;
}

std::string DOSOutputs::ExecuteCommand(const std::string& commandLine) {
    if (executing_) return {};
    if (!commandLine.empty()) commandLine_ = commandLine;
    if (commandLine_.empty()) return {};

    const std::shared_ptr<ChildProcess> child = ChildProcess::start(commandLine_);
    if (!child) return {};
    auto pieces = std::make_shared<PieceQueue>();
    std::promise<void> readerDonePromise;
    std::future<void> readerDone = readerDonePromise.get_future();
    if (!startReader(child, pieces, *waiter_, std::move(readerDonePromise))) {
        child->forceEnd();
        child->awaitExit();
        return {};
    }

    {
        std::lock_guard lock(childMutex_);
        child_ = child;
    }
    outputs_.clear();
    executing_ = true;
    // The reader uses the waiter until it is done, so the run ends only after that, also when a
    // handler leaves it early by an exception (the child is then ended so that the reader is done).
    auto endRun = [&] {
        readerDone.wait();
        executing_ = false;
        if (ExecutionChanged) ExecutionChanged(false);
    };
    bool outputEnded = false;
    try {
        if (ExecutionChanged) ExecutionChanged(true);
        while (!outputEnded) {
            waiter_->waitUntil([&] { return pieces->hasPieces(); });
            for (const std::string& piece : pieces->takeAll()) {
                outputEnded = piece.empty();
                outputs_ += piece;
                if (ReceiveOutputs) ReceiveOutputs(piece);
            }
        }
    } catch (...) {
        if (!outputEnded) child->forceEnd();
        endRun();
        throw;
    }
    endRun();
    return outputs_;
}

std::shared_ptr<ChildProcess> DOSOutputs::currentChild() const {
    std::lock_guard lock(childMutex_);
    return child_;
}

void DOSOutputs::StopChild() {
    if (const auto child = currentChild()) child->askToStop();
}

void DOSOutputs::KillChild() {
    if (const auto child = currentChild()) child->forceEnd();
}

}  // namespace quillet
