#include "main/compression_settings.h"

#include "main/target_size.h"

namespace quillet {

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
    // A value shown with its unit letter is passed on as one text, "1.1M".
    const auto joined = [](const std::string& value, const std::string& unit) {
        return std::string(trimBlanks(value)) + std::string(trimBlanks(unit));
    };
    state.ABRBitRate = trimBlanks(shown.abrValue);
    state.MinBitRate = joined(shown.minRateValue, shown.minRateUnit);
    state.MaxBitRate = joined(shown.maxRateValue, shown.maxRateUnit);
    state.BufferSize = joined(shown.bufferValue, shown.bufferUnit);
    state.QPValue = shown.qp;
    state.AudioBitRate = joined(shown.audioBitRate, "k");
    state.PresetName = shown.preset;
    applyBitRateStep(state, locale);
}

}  // namespace quillet
