#include "toolwindows/form10.h"

#include <QLabel>
#include <QListWidget>
#include <QProgressBar>

#include "app/main_window.h"
#include "app/program_folder.h"
#include "base/default_settings.h"
#include "base/platform_names.h"
#include "base/text_format.h"
#include "jobs/output_name.h"
#include "toolwindows/mp3_tool_choices.h"
#include "toolwindows/tool_command_lines.h"
#include "toolwindows/tool_job_steps.h"
#include "widgets/label_looks.h"
#include "widgets/option_array.h"
#include "widgets/source_file.h"
#include "widgets/source_video.h"
#include "widgets/tool_menus.h"
#include "widgets/xp_slider.h"

namespace quillet {

Form10::Form10(Forms& forms)
    : ToolWindow(forms, kId,
                 {.steps = mp3ToolSteps(),
                  .captionEnding = kCaptionComplete,
                  .display = [this]() -> ProgressDisplay* { return this; },
                  .videoSeconds = [this] { return Label12->text().toStdString(); }}),
      MainWindowProgress(forms) {
    setObjectName("Form10");
    setWindowTitle("Encode Video Audio ");
    buildControls();
    buildMenus();
    connectHandlers();
}

void Form10::buildMenus() {
    addToolMenu(*this, "mnu_open", "File",
                {{"mnu_SelectVideo", "Select Video", [this] { mnu_SelectVideo_Click(); }},
                 {"mnu_Reset", "Reset", [this] { mnu_Reset_Click(); }},
                 {"mnu_Exit", "Exit", [this] { forms_.unload(kId); }}});
    addToolMenu(
        *this, "mnu_encode", "Encode",
        {{"mnu_ReEncode", "Encode Video", [this] { mnu_ReEncode_Click(); }},
         {"mnu_ViewffmpegString", "View ffmpeg String", [this] { mnu_ViewffmpegString_Click(); }}});
}

void Form10::connectHandlers() {
    connect(xpSlider1, &XpSlider::ValueChanged, this, &Form10::xpSlider1_ValueChanged);
    connect(xpSlider2, &XpSlider::ValueChanged, this, &Form10::xpSlider2_ValueChanged);
    connect(List1, &QListWidget::itemClicked, this, &Form10::List1_Click);
    connect(Option1, &OptionArray::Click, this, &Form10::Option1_Click);

    connect(&Timer1, &QTimer::timeout, this, &Form10::Timer1_Timer);
    const std::pair<QTimer*, QLabel*> restores[] = {{&Timer2, Label19},
                                                    {&Timer3, Label15},
                                                    {&Timer4, Label14},
                                                    {&Timer5, Label1},
                                                    {&Timer6, Label21}};
    for (const auto& [timer, label] : restores) {
        timer->setInterval(timer == &Timer5 ? 150 : 250);
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [label] { showHighlighted(label, false); });
    }
}

void Form10::Form_Load() {
    for (QTimer* timer : {&Timer2, &Timer5, &Timer6}) timer->stop();
    ChangeColorOfProgBar();
    List1->setCurrentRow(kMp3DefaultSampleRateItem);
    PBar->setMaximum(150);
    PBar->setMinimum(1);
    PBar->reset();
    ProgramState& state = forms_.state();
    state.AudioQScale = defaults::kMp3Quality;
    xpSlider2->setValue(defaults::kMp3Quality);
    sampleRate_ = defaults::kSampleRate;
    state.OutputVideo.clear();
    state.ToolPresetName = defaults::kStartup.preset;
    state.ToolCRFValue = defaults::numberOf(defaults::kCrf);
}

void Form10::ChangeColorOfProgBar() {
    // The bar in blue on the program's dark ground.
    QPalette colours = PBar->palette();
    colours.setColor(QPalette::Highlight, QColor(43, 124, 211));
    colours.setColor(QPalette::Base, kNormalText);
    PBar->setPalette(colours);
}

std::string Form10::commandLine() const {
    const ProgramState& state = forms_.state();
    const Mp3AudioJob job{source_,           state.ToolCRFValue, state.ToolPresetName,
                          state.AudioQScale, sampleRate_,        state.OutputVideo};
    return mp3AudioCommandLine(programFolder(), job, kThisPlatform);
}

void Form10::mnu_SelectVideo_Click() {
    const std::string chosen = chooseVideo(kSourceDialogFilter);
    if (chosen.empty()) return;
    source_ = trimmedSourcePath(chosen);
    Label1->setText(QString::fromStdString(source_));
    flash(Label1, Timer5);
    MainWindow* mainWindow = forms_.mainWindow();
    if (const auto size = sourceFileSizeText(source_); size && mainWindow) {
        mainWindow->showStatusText(StatusCell::SourceSize, "Init Size: " + *size + "Mb");
    }
    if (isRefusedSourceFormat(source_, kThisPlatform.separator)) {
        forms_.dialogs().messageBox("MKV. This Video Type is not currently supported.",
                                    "Matroska Video",
                                    MessageBoxFlags::Exclamation + MessageBoxFlags::OkCancel);
        source_.clear();
        Label1->clear();
        return;
    }
    askRunningTime(source_, Timer1);
    if (const auto output = compressedFileName(source_, kThisPlatform.separator)) {
        forms_.state().OutputVideo = *output;
    }
}

void Form10::Timer1_Timer() {
    const std::optional<double> seconds = probedSeconds();
    const std::string shown = toolRunningTimeText(seconds);
    Label11->setText(QString::fromStdString(shown));
    if (const auto whole = videoSecondsShown(runningTimeText(seconds), seconds)) {
        Label12->setNum(*whole);
        setProgressMaximum(*whole);
        Label4->setNum(PBar->maximum());
    }
    if (runningTimeKnown(shown)) Timer1.stop();
}

void Form10::mnu_Reset_Click() {
    // The choices go back to how the window loads; a run under way goes on with its own.
    xpSlider1->setValue(20);
    Option1->select(kMp3DefaultPreset);
    Label14->setText(QString::fromStdString(presetCaption(kMp3PresetCaptions[kMp3DefaultPreset])));
    Label19->setText(QString::fromStdString(sampleRateCaption("44100")));
    Form_Load();
    Label8->setText("Compression Progress 00.00% Completed");
    Label13->clear();
    // No source either, so that Encode Video asks for one.
    source_.clear();
    forgetRunningTime();
    Timer1.stop();
    Label1->setText("Video Name");
    for (QLabel* label : {Label4, Label11, Label12}) label->clear();
}

void Form10::mnu_ReEncode_Click() {
    // One run at a time: the command of a run under way is already fixed.
    if (machine_.busy()) return;
    ProgramState& state = forms_.state();
    state.ToolBusy = true;
    state.JobFinished = false;
    if (MainWindow* mainWindow = forms_.mainWindow()) {
        mainWindow->showStatusText(StatusCell::Method, "Method:MP3Lame");
    }
    if (source_.empty()) {
        // The user chooses the video, then encodes again.
        mnu_SelectVideo_Click();
    } else {
        CompressVideo();
    }
}

void Form10::CompressVideo() {
    forms_.state().ToolBusy = true;
    machine_.start();
}

void Form10::mnu_ViewffmpegString_Click() {
    const auto text = viewedCommandText(commandLine());
    if (!text) return;
    const MessageBoxButton answer = forms_.dialogs().messageBox(
        *text, "View Commands", MessageBoxFlags::Exclamation + MessageBoxFlags::YesNo);
    if (answer == MessageBoxButton::Yes) mnu_ReEncode_Click();
}

void Form10::finishRun() {
    MainWindow* mainWindow = forms_.mainWindow();
    if (!mainWindow) return;
    mainWindow->showStatusText(StatusCell::Written, "Writen: 0,000Mb");
    mainWindow->showStatusText(StatusCell::Method, "Method:Target Size");
    mainWindow->showStatusText(StatusCell::SourceSize, "Init Size: 0,000Mb");
}

void Form10::List1_Click() {
    const QListWidgetItem* item = List1->currentItem();
    if (!item) return;
    sampleRate_ = sampleRateOfListItem(item->text().toStdString());
    Label19->setText(QString::fromStdString(sampleRateCaption(sampleRate_)));
    flash(Label19, Timer2);
}

void Form10::Option1_Click(int index) {
    const std::string caption = kMp3PresetCaptions.at(static_cast<std::size_t>(index));
    forms_.state().ToolPresetName = lowerCaseAscii(caption);
    Label14->setText(QString::fromStdString(presetCaption(caption)));
    flash(Label14, Timer4);
}

void Form10::xpSlider1_ValueChanged() {
    Label16->setNum(xpSlider1->value());
    forms_.state().ToolCRFValue = xpSlider1->value();
    flash(Label15, Timer3);
}

void Form10::xpSlider2_ValueChanged() {
    forms_.state().AudioQScale = static_cast<std::int16_t>(xpSlider2->value());
    Label5->setNum(xpSlider2->value());
    flash(Label21, Timer6);
}

void Form10::setProgressMaximum(double seconds) {
    if (const auto whole = toInt32(seconds); whole && *whole > PBar->minimum()) {
        PBar->setMaximum(*whole);
    }
}

void Form10::setProgressValue(double seconds) {
    if (const auto whole = toInt32(seconds)) PBar->setValue(*whole);
    Label13->setText(QString::fromStdString(formatClockHms(seconds).value_or("")));
}

void Form10::setProgressCaption(const std::string& caption) {
    Label8->setText(QString::fromStdString(caption));
}

void Form10::flash(QLabel* label, QTimer& restore) {
    showHighlighted(label, true);
    restore.start();
}

}  // namespace quillet
