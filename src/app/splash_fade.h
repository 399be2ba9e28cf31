#pragma once

#include <cstdint>

namespace quillet {

// The splash window's fade-out, one 10 ms tick at a time. The opacity is a byte that starts at
// 255 and drops by 2 a tick; a step that would go below 0 is skipped, so from 255 the opacity
// ends at 1, where the window is destroyed after 127 ticks. The "finished" branch for exactly 0
// is therefore never reached from a full fade, and the splash-finished flag stays unset by it.
class SplashFade {
public:
    struct Step {
        std::uint8_t opacity;  // the alpha to apply to the window
        bool destroyWindow;    // the fade is over: the window goes
        bool finished;         // opacity reached exactly 0: the splash counts as finished
    };

    explicit SplashFade(std::uint8_t start = 255) : opacity_(start) {}

    Step tick();
    std::uint8_t opacity() const { return opacity_; }

private:
    std::uint8_t opacity_;
};

}  // namespace quillet
