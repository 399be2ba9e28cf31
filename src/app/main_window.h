#pragma once

#include <optional>
#include <string>

namespace quillet {

class ProgressDisplay;

// The cells of the main window's status strip, left to right.
enum class StatusCell { Method, Cpu, SourceSize, Written, SampleRate, Count };

// What the other windows ask of the main window, so that they need not know it: the splash window
// and start-up, the processor monitor, and the windows that run jobs.
class MainWindow {
public:
    virtual ~MainWindow() = default;

    // What start-up does to the window once it is up (its size, the controls' first looks).
    virtual void prepareAtStartup() = 0;
    // The CPU cell of the status strip.
    virtual void showCpuText(const std::string& text) = 0;

    // Where a compression job shows its progress.
    virtual ProgressDisplay& progressDisplay() = 0;
    // The running-job and finished-job elements: the speed cells follow the speed level or stop.
    virtual void setSpeedDisplayRunning(bool running) = 0;
    // Whether "Play on completion" is ticked.
    virtual bool playOnCompletion() const = 0;
    // The end of a target-size or CRF job: the bar empty and the caption back to the start.
    virtual void resetProgressDisplay() = 0;
    // Every speed cell but the last back to the normal colour.
    virtual void normalSpeedCellsButLast() = 0;
    // The tool windows write the status strip directly.
    virtual void showStatusText(StatusCell cell, const std::string& text) = 0;
    // A tool's source: the size boxes back to "0,000", the target caption to its start, and the
    // size cell "Init Size: <sizeText>Mb".
    virtual void showToolSourceSize(const std::string& sizeText) = 0;
    // The running-time box ("0:02:05").
    virtual void showRunningTime(const std::string& clock) = 0;
    // The highlight colour on a cell, until something puts the normal colour back.
    virtual void markStatusCell(StatusCell cell) = 0;
    // The two sample-rate items the window offers itself, 0 "44100 Hz" and 1 "48000 Hz": which is
    // selected, if either, and selecting one or neither (without the item's click).
    virtual std::optional<int> selectedSampleRateItem() const = 0;
    virtual void selectSampleRateItem(std::optional<int> item) = 0;

    // The reset procedure: the controls and the shared values back to their initial state, the
    // job and tool windows unloaded.
    virtual void ResetApp() = 0;
};

}  // namespace quillet
