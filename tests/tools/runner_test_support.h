#pragma once

#include <sys/wait.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "tools/dos_outputs.h"

namespace quillet {

// Records every piece a runner hands on.
struct PieceRecorder {
    explicit PieceRecorder(DOSOutputs& runner) {
        runner.ReceiveOutputs = [this](const std::string& piece) { pieces.push_back(piece); };
    }
    std::vector<std::string> pieces;
};

// Whether every child this test program started has been released once it ended (no zombie is
// left), allowing a few seconds for a release that comes after the run.
inline bool noFinishedChildLeft() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    for (;;) {
        siginfo_t info{};  // looked at, not released: WNOWAIT
        if (::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) != 0 || info.si_pid == 0) {
            return true;
        }
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

}  // namespace quillet
