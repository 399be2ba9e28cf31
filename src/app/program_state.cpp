#include "app/program_state.h"

namespace quillet {

void applyStartupDefaults(ProgramState& state) {
    state.PresetName = "veryfast";
    state.ABRBitRate = "900";
    state.SampleRate = "44100";
    state.AudioBitRate = "160";
    state.QPValue = "14";
    state.QPLookAhead = "18";
}

}  // namespace quillet
