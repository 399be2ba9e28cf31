#include "main/shared_values_reset.h"

namespace quillet {

void resetSharedValues(ProgramState& state) {
    state.SourceVideo.clear();
    state.OutputVideo.clear();
    state.CompressionMethod.clear();
    state.PresetName = "VeryFast";
    state.SampleRate = "44100";
    state.AudioBitRate = "192k";
    state.ABRUnit = "k";
    state.ABRBitRate = "920";
    state.MinBitRate = "1.1";
    state.MaxBitRate = "2.0";
    state.BufferSize = "1";
    state.VideoSeconds = "0000";
    state.TargetSizeMb = "0,000";
    state.VideoBitRate = "0,000";
    state.QPValue = "20";
    state.QPLookAhead = "18";
    state.AudioQScale = 5;
    state.ToolPresetName = "veryfast";
    state.ToolCRFValue = 20;
    state.ToolBusy = false;
}

}  // namespace quillet
