#include "main/shared_values_reset.h"

#include "base/default_settings.h"

namespace quillet {

void resetSharedValues(ProgramState& state) {
    state.SourceVideo.clear();
    state.OutputVideo.clear();
    state.CompressionMethod.clear();
    state.PresetName = defaults::kReset.preset;
    state.SampleRate = defaults::kSampleRate;
    state.AudioBitRate = defaults::kReset.audioBitRate;
    state.ABRUnit = defaults::kAverageRateUnit;
    state.ABRBitRate = defaults::kReset.averageRate;
    state.MinBitRate = defaults::kMinRate;
    state.MaxBitRate = defaults::kMaxRate;
    state.BufferSize = defaults::kReset.bufferSize;
    state.VideoSeconds = "0000";
    state.TargetSizeMb = "0,000";
    state.VideoBitRate = "0,000";
    state.QPValue = defaults::kReset.qp;
    state.QPLookAhead = defaults::kLookAhead;
    state.AudioQScale = defaults::kMp3Quality;
    state.ToolPresetName = defaults::kStartup.preset;
    state.ToolCRFValue = defaults::numberOf(defaults::kCrf);
    state.ToolBusy = false;
}

}  // namespace quillet
