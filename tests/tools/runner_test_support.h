#pragma once

#include <string>
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

}  // namespace quillet
