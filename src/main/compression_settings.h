#pragma once

#include <array>
#include <string>

#include "app/program_state.h"
#include "base/text_format.h"

namespace quillet {

// The texts of the main window's boxes and labels that a job is made from, as shown.
struct ShownSettings {
    std::array<bool, 4> methodSelected{};   // xpOption1 items 0 to 3: TFS, CRF, ABR, QP
    std::string targetSize;                 // Text7
    std::string videoSeconds;               // Text8
    std::string videoBitRate;               // Text10
    std::string crf;                        // Label12
    std::string abrValue;                   // Label30
    std::string minRateValue, minRateUnit;  // Label35, Label39
    std::string maxRateValue, maxRateUnit;  // Label36, Label40
    std::string bufferValue, bufferUnit;    // Label45, Label46
    std::string qp;                         // Label33
    std::string audioBitRate;               // Label14
    std::string preset;                     // Label9
};

// The method code of an xpOption1 item (0 "TFS", 1 "CRF", 2 "ABR", 3 "QP"), "" otherwise.
std::string methodCode(int index);

// Copies the shown settings into the job settings, in the order a job start does it: clears
// CompressionMethod, JobFinished and OutputOpened, sets the code of the selected method (none
// selected leaves it empty; were several selected, the last would count), copies the texts (trimmed
// and joined with their units where they have one, "k" after the audio rate), then runs the
// bit-rate step (applyBitRateStep).
void copyShownSettings(const ShownSettings& shown, ProgramState& state, const FormatLocale& locale);

}  // namespace quillet
