#pragma once

namespace quillet {

// Window sizes are given in twips; Qt scales pixels for the screen itself.
constexpr int twipsToPixels(int twips) {
    return twips / 15;
}

}  // namespace quillet
