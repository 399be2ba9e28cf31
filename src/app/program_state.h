#pragma once

#include <cstdint>
#include <string>

#include "base/default_settings.h"

namespace quillet {

// The values every window shares for the whole run. One object exists; each window receives it by
// reference. Job settings are kept as text because the main window copies them from its labels and
// the job windows insert them into command lines as they stand.
struct ProgramState {
    // Job settings: written by the main window, read by the job windows.
    std::string SourceVideo;
    std::string OutputVideo;
    std::string CompressionMethod;  // "TFS", "CRF", "ABR", "QP" or empty
    std::string TargetSizeMb;
    std::string VideoSeconds = "0";
    std::string VideoBitRate;
    std::string CRFValue;
    std::string ABRBitRate;
    std::string ABRUnit;
    std::string MinBitRate;
    std::string MaxBitRate;
    std::string BufferSize;
    std::string AudioBitRate;
    std::string SampleRate;
    std::string PresetName;
    std::string QPValue;
    std::string QPLookAhead;

    // Progress values: written while ffmpeg runs, read by the main window's displays.
    double EncodedSeconds = 0;
    std::int16_t SpeedLevel = 0;
    bool JobFinished = false;
    bool OutputOpened = false;
    bool ToolBusy = false;

    // Values of the side tools.
    int ToolCRFValue = defaults::numberOf(defaults::kCrf);
    std::string ToolPresetName = defaults::kStartup.preset;
    std::int16_t AudioQScale = defaults::kMp3Quality;

    std::string DesktopFolder;
    bool CpuMonitorEnabled = true;
    bool SplashFinished = false;
};

// The compression defaults that start-up puts in place before the first job.
void applyStartupDefaults(ProgramState& state);

}  // namespace quillet
