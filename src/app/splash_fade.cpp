#include "app/splash_fade.h"

namespace quillet {

SplashFade::Step SplashFade::tick() {
    if (opacity_ >= 2) opacity_ = static_cast<std::uint8_t>(opacity_ - 2);
    return {opacity_, opacity_ < 2, opacity_ == 0};
}

}  // namespace quillet
