#pragma once

#include <string>

namespace quillet {

// Where the resolution probe shows a video's picture size ("1920 x 1080"): the down-scale tool.
class ResolutionDisplay {
public:
    virtual ~ResolutionDisplay() = default;
    virtual void showResolution(const std::string& text) = 0;
};

}  // namespace quillet
