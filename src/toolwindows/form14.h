#pragma once

#include <QTimer>
#include <QWidget>
#include <string>

#include "app/forms.h"
#include "tools/running_commands.h"

namespace quillet {

// The resolution probe: a window never shown, which asks ffprobe for a video's picture size and
// writes the answer into the down-scale tool's resolution label. It unloads itself a second after
// an answer; without one it stays, and the label keeps its placeholder.
class Form14 : public QWidget, public FormEvents {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form14;

    explicit Form14(Forms& forms);

    // Shows the placeholder and starts ffprobe on `path`; returns at once. A probe still running
    // for an earlier video is ended.
    void GetVideoWidthHeightData(const std::string& path);
    void Form_Unload() override;

private:
    void objDOS_ReceiveOutputs(const std::string& CommandOutputs);
    void showResolution(const std::string& text);

    Forms& forms_;
    RunningCommands::RunnerHandle objDOS_;
    QTimer unloadTimer_;  // the second between an answer and the unload
};

}  // namespace quillet
