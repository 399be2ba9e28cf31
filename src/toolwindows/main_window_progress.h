#pragma once

#include "app/forms.h"
#include "app/main_window.h"
#include "tools/progress_display.h"

namespace quillet {

// The part of a tool's progress that the main window shows, as it does for a compression: the
// size written and the speed cells. The tool window shows the rest as it wishes.
class MainWindowProgress : public ProgressDisplay {
public:
    explicit MainWindowProgress(Forms& forms) : forms_(forms) {}

    void setWrittenText(const std::string& text) override {
        if (ProgressDisplay* display = mainDisplay()) display->setWrittenText(text);
    }
    void highlightProgress() override {}
    void CompressionSpeedDisplay(int ProcSpeed) override {
        if (ProgressDisplay* display = mainDisplay()) display->CompressionSpeedDisplay(ProcSpeed);
    }

protected:
    // The main window's display; null once the main window has gone (the program ending).
    ProgressDisplay* mainDisplay() {
        MainWindow* mainWindow = forms_.mainWindow();
        return mainWindow ? &mainWindow->progressDisplay() : nullptr;
    }

private:
    Forms& forms_;
};

}  // namespace quillet
