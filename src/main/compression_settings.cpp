#include "main/compression_settings.h"

#include "main/target_size.h"

namespace quillet {

namespace {

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string methodCode(int index) {
    static const char* const codes[] = {"TFS", "CRF", "ABR", "QP"};
    return index >= 0 && index < 4 ? codes[index] : "";
}

void copyShownSettings(const ShownSettings& shown, ProgramState& state,
                       const FormatLocale& locale) {
    state.CompressionMethod.clear();
    state.JobFinished = false;
    state.OutputOpened = false;
    for (int index = 0; index < 4; ++index) {
        if (shown.methodSelected[static_cast<std::size_t>(index)]) {
            state.CompressionMethod = methodCode(index);
        }
    }
    state.TargetSizeMb = shown.targetSize;
    state.VideoSeconds = shown.videoSeconds;
    state.VideoBitRate = shown.videoBitRate;
    state.CRFValue = shown.crf;
    state.ABRBitRate = trimmed(shown.abrValue);
    state.MinBitRate = trimmed(shown.minRateValue) + trimmed(shown.minRateUnit);
    state.MaxBitRate = trimmed(shown.maxRateValue) + trimmed(shown.maxRateUnit);
    state.BufferSize = trimmed(shown.bufferValue) + trimmed(shown.bufferUnit);
    state.QPValue = shown.qp;
    state.AudioBitRate = trimmed(shown.audioBitRate) + "k";
    state.PresetName = shown.preset;
    applyBitRateStep(state, locale);
}

}  // namespace quillet
