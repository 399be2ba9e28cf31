#include "cli/stop_requests.h"

#include <chrono>

#ifdef _WIN32
#include "tools/windows_api.h"
#else
#include <signal.h>
#endif

namespace quillet::cli {

namespace {

constexpr auto kFirmStopAfter = std::chrono::seconds(3);

StopRequests* installed = nullptr;

#ifdef _WIN32
BOOL WINAPI onConsoleEvent(DWORD) {
    if (installed) installed->request();
    return TRUE;  // handled: the companion ends in its own order
}

void listenForStops() {
    ::SetConsoleCtrlHandler(onConsoleEvent, TRUE);
}
#else
// The signals are blocked in every thread and taken by one thread of their own, so no handler ever
// runs at an arbitrary point.
void listenForStops() {
    // A reader that goes away ("| head") must not end the companion in the middle of a job, with
    // its partial output and working files left behind: the writes fail quietly instead.
    ::signal(SIGPIPE, SIG_IGN);
    sigset_t stops;
    sigemptyset(&stops);
    sigaddset(&stops, SIGINT);
    sigaddset(&stops, SIGTERM);
    sigaddset(&stops, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &stops, nullptr);
    std::thread([stops] {
        for (;;) {
            int number = 0;
            if (sigwait(&stops, &number) == 0 && installed) installed->request();
        }
    }).detach();
}
#endif

}  // namespace

StopRequests::StopRequests() {
    installed = this;
    listenForStops();
    stopper_ = std::thread([this] { stopChildren(); });
}

StopRequests::~StopRequests() {
    {
        std::lock_guard lock(mutex_);
        closing_ = true;
    }
    changed_.notify_all();
    stopper_.join();
    installed = nullptr;
}

void StopRequests::setChild(std::shared_ptr<ChildProcess> child) {
    {
        std::lock_guard lock(mutex_);
        child_ = std::move(child);
    }
    changed_.notify_all();
}

void StopRequests::request() {
    {
        std::lock_guard lock(mutex_);
        requested_ = true;
    }
    changed_.notify_all();
}

void StopRequests::stopChildren() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return closing_ || (requested_ && child_); });
        if (closing_) return;
        const std::shared_ptr<ChildProcess> child = child_;
        child->askToStop();
        if (!changed_.wait_for(lock, kFirmStopAfter, [&] { return closing_ || child_ != child; })) {
            child->forceEnd();
        }
        // A child set after a stop was asked for is stopped the same way.
        changed_.wait(lock, [&] { return closing_ || child_ != child; });
    }
}

}  // namespace quillet::cli
