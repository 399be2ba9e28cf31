#include "toolwindows/form11.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>

#include "app/main_window.h"
#include "app/program_folder.h"
#include "base/platform_names.h"
#include "jobs/output_name.h"
#include "toolwindows/down_scale_choices.h"
#include "toolwindows/form14.h"
#include "toolwindows/mp3_tool_choices.h"
#include "toolwindows/tool_job_steps.h"
#include "widgets/option_array.h"
#include "widgets/source_file.h"
#include "widgets/source_video.h"

namespace quillet {

namespace {

constexpr const char* kWaiting = "Waiting for Source Video";

}  // namespace

Form11::Form11(Forms& forms)
    : ToolWindow(forms, kId,
                 {.steps = downScaleToolSteps(),
                  .display = [&forms] { return mainWindowDisplay(forms); },
                  .output = [this] { return output_; }}) {
    setObjectName("Form11");
    setWindowTitle("Reduce Resolution");
    buildControls();
    connectHandlers();
}

void Form11::Form_Load() {
    scale_ = "426:240";
    Label8->setText(kWaiting);
    Timer2.stop();
    Check1->setChecked(false);
    Check2->setChecked(false);
    crf_ = 25;
    qscale_ = 7;
    tickChoices(Option2, false);
    tickChoices(Option3, false);
}

void Form11::showResolution(const std::string& text) {
    Label13->setText(QString::fromStdString(text));
}

std::string Form11::commandLine() const {
    const DownScaleJob job{source_, scale_, Check1->isChecked(), Check2->isChecked(), crf_,
                           qscale_, output_};
    return downScaleCommandLine(programFolder(), job, kThisPlatform);
}

void Form11::mnu_Select_Click() {
    const std::string chosen = chooseVideo("All Files (*.*)|*.*");
    if (chosen.empty()) return;
    forms_.state().VideoSeconds = "0";
    sizeText_ = sourceFileSizeText(chosen).value_or(sizeText_);
    output_ = compressedFileName(chosen, kThisPlatform.separator).value_or(output_);
    Label6->setText(QString::fromStdString(chosen));
    forms_.get<Form14>().GetVideoWidthHeightData(chosen);
    GetDuration(chosen);
}

void Form11::GetDuration(const std::string& path) {
    source_ = path;
    Label8->setText("Reading Source Video Data");
    askRunningTime(path, Timer2);
}

void Form11::Timer2_Timer() {
    const std::optional<double> seconds = probedSeconds();
    if (runningTimeKnown(runningTimeText(seconds))) Timer2.stop();
    MainWindow* mainWindow = forms_.mainWindow();
    if (const auto whole = videoSecondsShown(runningTimeText(seconds), seconds)) {
        forms_.state().VideoSeconds = std::to_string(*whole);
        if (mainWindow) mainWindow->showRunningTime(toolRunningTimeText(seconds));
    }
    Label8->setText("Ready to Modify Video Resolution");
    if (mainWindow) mainWindow->showToolSourceSize(sizeText_);
}

void Form11::mnu_EncVideo_Click() {
    // One run at a time: the command of a run under way is already fixed.
    if (machine_.busy()) return;
    Label8->setText("Working On Video Resolution");
    forms_.state().JobFinished = false;
    if (MainWindow* mainWindow = forms_.mainWindow()) mainWindow->showToolSourceSize(sizeText_);
    machine_.start();
}

void Form11::Option1_Click(int index) {
    Label2->setText(kScales.at(static_cast<std::size_t>(index)));
    scale_ = Label2->text().trimmed().toStdString();
}

void Form11::Option2_Click(int index) {
    crf_ = kDownScaleCrfs.at(static_cast<std::size_t>(index));
}

void Form11::Option3_Click(int index) {
    qscale_ = kDownScaleQScales.at(static_cast<std::size_t>(index));
}

void Form11::Check1_Click() {
    tickChoices(Option2, Check1->isChecked());
}

void Form11::Check2_Click() {
    tickChoices(Option3, Check2->isChecked());
}

void Form11::tickChoices(OptionArray* choices, bool ticked) {
    for (int index = 0; index < choices->count(); ++index) {
        if (ticked) {
            choices->item(index)->setEnabled(true);
            choices->select(index);
            emit choices->Click(index);
        } else {
            choices->deselect(index);
            choices->item(index)->setEnabled(false);
        }
    }
}

void Form11::finishRun() {
    source_.clear();
    output_.clear();
    Option1->select(0);
    Option1_Click(0);
    Label6->clear();
    forms_.state().VideoSeconds = "0";
    Form_Load();
}

}  // namespace quillet
