// Choosing the source video and finding its running time.
#include <QLabel>
#include <QLineEdit>

#include "app/forms.h"
#include "app/program_folder.h"
#include "app/tool_check.h"
#include "base/platform_names.h"
#include "jobs/output_name.h"
#include "main/form1.h"
#include "tools/duration_probe.h"
#include "widgets/mouse_up.h"
#include "widgets/source_file.h"
#include "widgets/source_video.h"

namespace quillet {

void Form1::connectSourceLabel() {
    onMouseUp(c_.Label21, [this](int button) { Label21_MouseUp(button); });
}

void Form1::showSourceName(const QString& name) {
    c_.Label3->setText(name);
    c_.Label24->setVisible(name.isEmpty());
}

void Form1::Label21_MouseUp(int Button) {
    if (Button != 1) return;
    ProgramState& state = forms_.state();
    Dialogs& dialogs = forms_.dialogs();
    const char separator = kThisPlatform.separator;
    checkToolPresence(programFolderPath(), kThisPlatform, dialogs);
    const std::string chosen =
        dialogs.openFile(kSourceDialogTitle, state.DesktopFolder, kSourceDialogFilter);
    if (chosen.empty()) return;

    state.SourceVideo.clear();
    showSourceName({});
    state.SourceVideo = trimmedSourcePath(chosen);
    if (!state.SourceVideo.empty()) enableMethodItems();
    if (const auto output = compressedFileName(state.SourceVideo, separator)) {
        state.OutputVideo = *output;
    }
    if (isRefusedSourceFormat(state.SourceVideo, separator)) {
        dialogs.messageBox("Video Format not currently supported", "Format Error",
                           MessageBoxFlags::Exclamation + MessageBoxFlags::OkCancel);
        state.SourceVideo.clear();
        showSourceName({});
        return;
    }
    // A path without a folder shows nothing of the file.
    const auto name = sourceFileName(state.SourceVideo, separator);
    if (!name) return;
    showSourceName(QString::fromStdString(*name));
    // The size box drives the target-size arithmetic.
    if (const auto size = sourceFileSizeText(state.SourceVideo)) {
        c_.Text6->setText(QString::fromStdString(*size));
    }
    // A probe of an earlier source is ended by its replacement, without waiting for it.
    durationProbe_ = probeRunningTime(state.SourceVideo);
    Timer3.start();
}

void Form1::Timer3_Timer() {
    const std::optional<double> seconds = durationProbe_ ? durationProbe_->seconds() : std::nullopt;
    const std::string shown = runningTimeText(seconds);
    c_.Text1->setText(QString::fromStdString(shown));
    // Until a time is known the box reads empty, and polling goes on; the probe is never asked
    // again, so a file without a running time costs one ffprobe in all.
    if (runningTimeKnown(shown)) Timer3.stop();
    // The seconds box drives the bit rate of the target-size arithmetic.
    if (const auto videoSeconds = videoSecondsShown(shown, seconds)) {
        c_.Text8->setText(QString::number(*videoSeconds));
    }
}

}  // namespace quillet
