#include "toolwindows/form13.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QRadioButton>

#include "app/main_window.h"
#include "app/program_folder.h"
#include "app/qt_format_locale.h"
#include "base/default_settings.h"
#include "base/platform_names.h"
#include "jobs/output_name.h"
#include "toolwindows/frame_rate_choices.h"
#include "toolwindows/tool_command_lines.h"
#include "toolwindows/tool_job_steps.h"
#include "widgets/label_looks.h"
#include "widgets/option_array.h"
#include "widgets/source_file.h"
#include "widgets/source_video.h"

namespace quillet {

Form13::Form13(Forms& forms)
    : ToolWindow(forms, kId,
                 {.steps = frameRateToolSteps(),
                  .captionEnding = kCaptionComplete,
                  .display = [this]() -> ProgressDisplay* { return this; },
                  .readsCpuWithEachPiece = true,
                  .videoSeconds = [this] { return videoSeconds_; },
                  .output = [this] { return output_; }}),
      MainWindowProgress(forms) {
    setObjectName("Form13");
    setWindowTitle("Alter Video Frame Rate (fps)");
    buildControls();
    connectHandlers();
}

void Form13::Form_Load() {
    Option1->select(kDefaultFrameRateOption);
    Check1->setChecked(false);
    Text1->setText("30");
    Text1->setEnabled(false);
    showHighlighted(Label2, false);
    frameRate_ = 30;
}

std::string Form13::commandLine() const {
    const ProgramState& state = forms_.state();
    const FrameRateJob job{source_,          frameRate_, state.PresetName, state.AudioBitRate,
                           state.SampleRate, output_};
    return frameRateCommandLine(programFolder(), job, kThisPlatform);
}

void Form13::Option1_Click(int Index) {
    frameRate_ = kFrameRates.at(static_cast<std::size_t>(Index));
}

void Form13::Check1_Click() {
    // The options keep their selection: the rate chosen last stays until an encode reads the box.
    const bool custom = Check1->isChecked();
    Option1->setItemsEnabled(!custom);
    Text1->setEnabled(custom);
    if (custom) Text1->setFocus();
}

void Form13::Text1_Change() {
    if (parseNumber(Text1->text().toStdString(), formatLocale(QLocale()))) return;
    forms_.dialogs().messageBox("Frame Rate can only be Integers (Numbers)", "Alpha Characters",
                                MessageBoxFlags::Exclamation + MessageBoxFlags::OkCancel);
}

void Form13::mnu_SelectVideo_Click() {
    const std::string chosen = chooseVideo(kSourceDialogFilter);
    if (chosen.empty()) return;
    source_ = trimmedSourcePath(chosen);
    sizeText_ = sourceFileSizeText(source_).value_or("");
    videoSeconds_.clear();
    Label1->setText(QString::fromStdString(source_));
    Label2->clear();
    askRunningTime(source_, Timer2);
    output_ = compressedFileName(source_, kThisPlatform.separator).value_or(output_);
}

void Form13::Timer2_Timer() {
    const std::optional<double> seconds = probedSeconds();
    const std::string shown = runningTimeText(seconds);
    if (const auto whole = videoSecondsShown(shown, seconds)) {
        videoSeconds_ = std::to_string(*whole);
    }
    if (!runningTimeKnown(shown)) return;
    Timer2.stop();
    Label2->setText(QString::fromStdString("Running Time " + shown));
}

void Form13::mnu_EncodeVideo_Click() {
    // One run at a time: the command of a run under way is already fixed.
    if (machine_.busy()) return;
    ProgramState& state = forms_.state();
    state.ToolBusy = true;
    state.OutputOpened = false;
    if (Check1->isChecked()) {
        // A box that holds no number leaves the rate chosen before in force.
        if (const auto rate = customFrameRate(Text1->text().toStdString(), formatLocale(QLocale())))
            frameRate_ = *rate;
    }
    if (source_.empty()) {
        mnu_SelectVideo_Click();
        return;
    }
    if (MainWindow* mainWindow = forms_.mainWindow()) {
        mainWindow->showStatusText(StatusCell::SourceSize, "Init Size: " + sizeText_ + "Mb");
    }
    enableChoices(false);
    Label2->setText(QString("Changing the frame rate to %1 fps").arg(frameRate_));
    showHighlighted(Label2, true);
    CompressVideo();
}

void Form13::CompressVideo() {
    machine_.start();
}

void Form13::setProgressCaption(const std::string& caption) {
    if (ProgressDisplay* display = mainWindowDisplay(forms_)) display->setProgressCaption(caption);
}

void Form13::finishRun() {
    enableChoices(true);
    Form_Load();
    source_.clear();
    Label1->setText("Video Name");
    Label2->clear();
    ProgramState& state = forms_.state();
    state.PresetName = defaults::kStartup.preset;
    state.AudioBitRate = defaults::kStartup.audioBitRate;
}

void Form13::enableChoices(bool enabled) {
    Option1->setItemsEnabled(enabled);
    Check1->setEnabled(enabled);
    Text1->setEnabled(enabled);
}

}  // namespace quillet
