#include <gtest/gtest.h>

#include "app/splash_fade.h"

namespace quillet {
namespace {

TEST(SplashFade, FullFadeDestroysAtOpacityOneAfter127TicksWithoutFinishing) {
    SplashFade fade;
    int ticks = 0;
    SplashFade::Step step{};
    do {
        step = fade.tick();
        ++ticks;
        ASSERT_FALSE(step.finished);
    } while (!step.destroyWindow && ticks < 1000);
    EXPECT_EQ(ticks, 127);
    EXPECT_EQ(step.opacity, 1);
    // A further step would go below zero and is skipped.
    EXPECT_EQ(fade.tick().opacity, 1);
}

TEST(SplashFade, EvenStartReachesZeroAndFinishes) {
    SplashFade fade(4);
    EXPECT_FALSE(fade.tick().destroyWindow);  // 2
    const SplashFade::Step last = fade.tick();
    EXPECT_EQ(last.opacity, 0);
    EXPECT_TRUE(last.destroyWindow);
    EXPECT_TRUE(last.finished);
}

}  // namespace
}  // namespace quillet
