#include "jobs/job_machine.h"

#include <QDir>
#include <QWidget>

#include "app/form3.h"
#include "app/forms.h"
#include "app/main_window.h"
#include "app/qt_format_locale.h"
#include "app/window_placement.h"
#include "base/platform_names.h"
#include "jobs/output_name.h"
#include "tools/ffmpeg_progress.h"
#include "tools/progress_display.h"

namespace quillet {

namespace {

void nameOutput(ProgramState& state) {
    if (const auto output = compressedFileName(state.SourceVideo, kThisPlatform.separator)) {
        state.OutputVideo = *output;
    }
}

void closeSampleRateChooser(Forms& forms) {
    if (const QWidget* chooser = forms.loaded(FormId::Form9); chooser && chooser->isVisible()) {
        forms.unload(FormId::Form9);
    }
}

}  // namespace

ProgressDisplay* mainWindowDisplay(Forms& forms) {
    MainWindow* mainWindow = forms.mainWindow();
    return mainWindow ? &mainWindow->progressDisplay() : nullptr;
}

JobMachine::JobMachine(Forms& forms, QWidget& window, JobDescription job)
    : forms_(forms), window_(window), job_(std::move(job)) {
    wait_.setSingleShot(true);
    wait_.setTimerType(Qt::PreciseTimer);
    connect(&wait_, &QTimer::timeout, this, &JobMachine::advance);
}

void JobMachine::start() {
    wait_.stop();
    next_ = 0;
    busy_ = true;
    advance();
}

void JobMachine::abandon() {
    abandoned_ = true;
    busy_ = false;
    wait_.stop();
    objDOS_.reset();
}

bool JobMachine::busy() const {
    return busy_ && !(wait_.isActive() && next_ == job_.steps.size());
}

void JobMachine::advance() {
    while (next_ < job_.steps.size()) {
        const JobStep& step = job_.steps[next_++];
        switch (step.action) {
            case JobAction::StopIfFinished:
                if (forms_.state().JobFinished) {
                    busy_ = false;
                    return;
                }
                break;
            case JobAction::Wait:
                if (abandoned_) return;
                wait_.start(step.milliseconds);
                return;
            case JobAction::RunCommand:
                if (abandoned_) return;
                if (!objDOS_) {
                    objDOS_ = forms_.runningCommands().newRunner();
                    objDOS_->ReceiveOutputs = [this](const std::string& piece) {
                        objDOS_ReceiveOutputs(piece);
                    };
                    objDOS_->OutputEnded = [this] {
                        scratch_.reset();
                        advance();
                    };
                }
                if (job_.worksInScratchFolder) {
                    scratch_ = std::make_unique<QTemporaryDir>();
                    objDOS_->setWorkingFolder(
                        scratch_->isValid()
                            ? QDir::toNativeSeparators(scratch_->path()).toStdString()
                            : std::string());
                }
                objDOS_->setOutputFile(outputFile());
                // A command that cannot start has no output to wait for: the job goes on at once.
                if (objDOS_->start(job_.commandLine())) return;
                scratch_.reset();
                break;
            default:
                perform(step);
        }
    }
    busy_ = false;
}

void JobMachine::perform(const JobStep& step) {
    ProgramState& state = forms_.state();
    MainWindow* mainWindow = forms_.mainWindow();
    switch (step.action) {
        case JobAction::PlaceWindow:
            placeBesideMainWindow(forms_, window_);
            window_.show();
            break;
        case JobAction::NameOutput:
            nameOutput(state);
            break;
        case JobAction::SpeedDisplayOn:
        case JobAction::SpeedDisplayOff:
            if (mainWindow)
                mainWindow->setSpeedDisplayRunning(step.action == JobAction::SpeedDisplayOn);
            break;
        case JobAction::TakeCpuReading:
            if (forms_.isLoaded(FormId::Form3)) forms_.get<Form3>().Timer1_Timer();
            break;
        case JobAction::MarkFinished:
            state.JobFinished = true;
            break;
        case JobAction::CloseSampleRateChooser:
            closeSampleRateChooser(forms_);
            break;
        case JobAction::ForgetSpeedLevel:
            state.SpeedLevel = -1;
            break;
        case JobAction::PlayOnCompletion:
            playOnCompletion();
            break;
        case JobAction::PlayUnlessJobFinished:
            if (mainWindow && mainWindow->playOnCompletion() && !state.JobFinished) openOutput();
            break;
        case JobAction::WindowEnding:
            if (job_.ending) job_.ending();
            break;
        case JobAction::ResetProgressDisplay:
            if (mainWindow) mainWindow->resetProgressDisplay();
            break;
        case JobAction::ResetMainWindow:
            if (mainWindow) mainWindow->ResetApp();
            break;
        case JobAction::NormalSpeedCells:
            if (mainWindow) mainWindow->normalSpeedCellsButLast();
            break;
        case JobAction::UnloadWindow:
            forms_.unload(job_.window);
            break;
        case JobAction::StopIfFinished:
        case JobAction::Wait:
        case JobAction::RunCommand:
            break;  // taken by advance()
    }
}

void JobMachine::objDOS_ReceiveOutputs(const std::string& CommandOutputs) {
    if (!job_.readsOutput) return;
    if (job_.readsCpuWithEachPiece) perform({JobAction::TakeCpuReading});
    ProgramState& state = forms_.state();
    const std::string videoSeconds = job_.videoSeconds ? job_.videoSeconds() : state.VideoSeconds;
    const ProgressSoFar soFar{videoSeconds, state.EncodedSeconds, state.SpeedLevel,
                              job_.followsTime, job_.captionEnding};
    const ProgressReading reading = readProgressPiece(CommandOutputs, soFar, formatLocale());
    state.EncodedSeconds = reading.encodedSeconds;
    state.SpeedLevel = reading.speedLevel;
    if (ProgressDisplay* display = job_.display ? job_.display() : nullptr) {
        showProgressReading(reading, job_.followsTime, *display);
    }
}

void JobMachine::playOnCompletion() {
    ProgramState& state = forms_.state();
    MainWindow* mainWindow = forms_.mainWindow();
    if (!mainWindow || !mainWindow->playOnCompletion() || state.OutputOpened) return;
    openOutput();
    state.OutputOpened = true;
}

std::string JobMachine::outputFile() const {
    return job_.output ? job_.output() : forms_.state().OutputVideo;
}

void JobMachine::openOutput() {
    forms_.dialogs().openExternally(outputFile());
}

}  // namespace quillet
