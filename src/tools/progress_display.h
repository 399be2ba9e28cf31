#pragma once

#include <string>

namespace quillet {

// Where a window that runs ffmpeg shows its progress: the main window for the compression jobs,
// a tool window for its own bar and caption.
class ProgressDisplay {
public:
    virtual ~ProgressDisplay() = default;

    virtual void setProgressMaximum(double seconds) = 0;
    virtual void setProgressValue(double seconds) = 0;
    virtual void setProgressCaption(const std::string& caption) = 0;
    virtual void setWrittenText(const std::string& text) = 0;
    // A piece that moved the percentage: shown in the highlight colour for a moment.
    virtual void highlightProgress() = 0;
    // Lights the speed cells 0 up to and including `ProcSpeed`.
    virtual void CompressionSpeedDisplay(int ProcSpeed) = 0;
};

}  // namespace quillet
