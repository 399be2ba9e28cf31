#include "app/program_state.h"

#include "base/default_settings.h"

namespace quillet {

void applyStartupDefaults(ProgramState& state) {
    state.PresetName = defaults::kStartup.preset;
    state.ABRBitRate = defaults::kStartup.averageRate;
    state.SampleRate = defaults::kSampleRate;
    state.AudioBitRate = defaults::kStartup.audioBitRate;
    state.QPValue = defaults::kStartup.qp;
    state.QPLookAhead = defaults::kLookAhead;
}

}  // namespace quillet
