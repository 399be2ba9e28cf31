#pragma once

#include "app/forms.h"
#include "jobs/job_machine.h"
#include "tools/progress_display.h"

namespace quillet {

// The part of a tool's progress that the main window shows, as it does for a compression: the
// size written and the speed cells. The tool window shows the rest as it wishes.
class MainWindowProgress : public ProgressDisplay {
public:
    explicit MainWindowProgress(Forms& forms) : windows_(forms) {}

    void setWrittenText(const std::string& text) override {
        if (ProgressDisplay* display = mainWindowDisplay(windows_)) display->setWrittenText(text);
    }
    void highlightProgress() override {}
    void CompressionSpeedDisplay(int ProcSpeed) override {
        if (ProgressDisplay* display = mainWindowDisplay(windows_))
            display->CompressionSpeedDisplay(ProcSpeed);
    }

private:
    Forms& windows_;
};

}  // namespace quillet
