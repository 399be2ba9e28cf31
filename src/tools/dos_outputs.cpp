#include "tools/dos_outputs.h"

#include <deque>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "tools/child_process.h"

namespace quillet {

namespace {

constexpr std::size_t kPieceSize = 256;

}  // namespace

// Pieces read by the reading thread and not yet handed to the owner, oldest first. It grows as
// needed: the reader never waits for the owner, so the child never stalls on a full pipe.
struct RunPieces {
    explicit RunPieces(std::shared_ptr<OutputWakeup> w) : wakeup(std::move(w)) {}

    void push(std::string piece) {
        bool wasEmpty = false;
        {
            std::lock_guard lock(mutex);
            wasEmpty = pieces.empty();
            pieces.push_back(std::move(piece));
        }
        // Only the first piece of a batch needs telling: the owner takes all of them at once.
        if (wasEmpty) wakeup->wake();
    }

    bool hasPieces() const {
        std::lock_guard lock(mutex);
        return !pieces.empty();
    }

    std::optional<std::string> takeOldest() {
        std::lock_guard lock(mutex);
        if (pieces.empty()) return std::nullopt;
        std::string piece = std::move(pieces.front());
        pieces.pop_front();
        return piece;
    }

    const std::shared_ptr<OutputWakeup> wakeup;
    mutable std::mutex mutex;
    std::deque<std::string> pieces;
};

namespace {

// Starts the thread that reads the child's output into `run`, ending with an empty piece, then
// stays only to release the child when it ends, which may be later than its output. The thread
// shares what it uses, so its owner may go first. False when no thread can be started.
bool startReader(std::shared_ptr<ChildProcess> child, std::shared_ptr<RunPieces> run) {
    auto read = [child = std::move(child), run = std::move(run)] {
        char buffer[kPieceSize];
        for (;;) {
            const std::size_t count = child->read(buffer, sizeof buffer);
            run->push(std::string(buffer, count));
            if (count == 0) break;
        }
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

bool DOSOutputs::StartCommand(const std::string& commandLine,
                              std::shared_ptr<OutputWakeup> wakeup) {
    if (executing_) return false;
    if (!commandLine.empty()) commandLine_ = commandLine;
    if (commandLine_.empty()) return false;

    const std::shared_ptr<ChildProcess> child = ChildProcess::start(commandLine_, workingFolder_);
    if (!child) return false;
    auto run = std::make_shared<RunPieces>(std::move(wakeup));
    if (!startReader(child, run)) {
        child->forceEnd();
        child->awaitExit();
        return false;
    }
    {
        std::lock_guard lock(childMutex_);
        child_ = child;
    }
    run_ = std::move(run);
    outputs_.clear();
    executing_ = true;
    if (ExecutionChanged) ExecutionChanged(true);
    return true;
}

bool DOSOutputs::DeliverOutputs() {
    // A handler that lets the owner's thread deliver again from inside it (a message box has an
    // event loop of its own) leaves the pieces to the delivery under way, so they stay in order.
    if (!executing_ || delivering_) return false;
    delivering_ = true;
    const std::shared_ptr<RunPieces> run = run_;
    while (std::optional<std::string> piece = run->takeOldest()) {
        const bool last = piece->empty();
        outputs_ += *piece;
        if (ReceiveOutputs) ReceiveOutputs(*piece);
        if (last) {
            endRun();
            return true;
        }
    }
    delivering_ = false;
    return false;
}

void DOSOutputs::endRun() {
    run_.reset();
    executing_ = false;
    delivering_ = false;
    if (ExecutionChanged) ExecutionChanged(false);
}

std::string DOSOutputs::ExecuteCommand(const std::string& commandLine) {
    const auto waiter = std::make_shared<BlockingOutputWaiter>();
    if (!StartCommand(commandLine, waiter)) return {};
    // A handler that leaves by an exception ends the child, so that nothing runs on unseen.
    struct EndChildUnlessOver {
        DOSOutputs& runner;
        ~EndChildUnlessOver() {
            if (!runner.executing_) return;
            runner.KillChild();
            runner.endRun();
        }
    } guard{*this};
    const std::shared_ptr<RunPieces> run = run_;
    do {
        waiter->waitUntil([&] { return run->hasPieces(); });
    } while (!DeliverOutputs());
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
