#include "jobs/job_window.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

#include "app/forms.h"
#include "app/program_folder.h"
#include "app/qt_format_locale.h"
#include "app/waits.h"
#include "jobs/command_lines.h"
#include "jobs/output_name.h"
#include "main/form1.h"
#include "tools/dos_outputs.h"
#include "tools/ffmpeg_progress.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

const JobKind kTargetSize{FormId::Form5, "Compressing to a Target File Size", targetSizeCommandLine,
                          true, false};
const JobKind kConstantRate{FormId::Form6, "Compressing with a Constant Rate Factor",
                            crfCommandLine, true, false};
const JobKind kAverageRate{FormId::Form7, "Compressing at an Average Bit Rate", abrCommandLine,
                           false, true};
const JobKind kQuantizer{FormId::Form8, "Compressing with a Constant Quantizer", qpCommandLine,
                         true, true};

}  // namespace

JobWindow::JobWindow(Forms& forms, const JobKind& kind)
    : QWidget(nullptr, Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      forms_(forms),
      kind_(kind),
      sourceLabel_(new QLabel(this)),
      outputLabel_(new QLabel(this)) {
    setWindowTitle(kind.title);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sourceLabel_);
    layout->addWidget(outputLabel_);
    setMinimumWidth(360);
}

Form1* JobWindow::mainWindow() {
    return forms_.isLoaded(FormId::Form1) ? &forms_.form1() : nullptr;
}

void JobWindow::placeOnScreen() {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    adjustSize();
    // Beside the main window when there is room, so that its progress display stays in sight.
    QPoint place(screen.right() - width() - 20, screen.top() + 40);
    if (Form1* form1 = mainWindow()) {
        const QRect main = form1->frameGeometry();
        if (main.right() + 10 + width() <= screen.right()) place = {main.right() + 10, main.top()};
    }
    move(place);
    show();
}

void JobWindow::GenerateFileName(const std::string& path) {
    if (const auto output = compressedFileName(path, kThisPlatform.separator)) {
        forms_.state().OutputVideo = *output;
    }
}

void JobWindow::Form_Load() {
    Forms::Busy busy(this);
    ProgramState& state = forms_.state();
    sourceLabel_->setText("Source: " + QString::fromStdString(state.SourceVideo));
    if (!kind_.standsAlone) {
        if (state.JobFinished) return;
        placeOnScreen();
        waitHandlingEvents(1s);
    } else {
        placeOnScreen();
        handlePendingEvents();
        GenerateFileName(state.SourceVideo);
        waitHandlingEvents(2s);
        if (Form1* form1 = mainWindow()) form1->setSpeedDisplayRunning(true);
    }
    CompressVideo();
}

void JobWindow::CompressVideo() {
    Forms::Busy busy(this);
    ProgramState& state = forms_.state();
    if (state.JobFinished) return;
    const std::unique_ptr<DOSOutputs> objDOS = forms_.runningCommands().newRunner();
    objDOS->ReceiveOutputs = [this](const std::string& piece) { objDOS_ReceiveOutputs(piece); };
    if (!kind_.standsAlone) {
        if (Form1* form1 = mainWindow()) form1->setSpeedDisplayRunning(true);
    }
    outputLabel_->setText("Output: " + QString::fromStdString(state.OutputVideo));
    adjustSize();
    objDOS->setCommandLine(kind_.commandLine(programFolder(), state, kThisPlatform));
    objDOS->ExecuteCommand("");

    if (kind_.standsAlone) {
        state.JobFinished = true;
        state.SpeedLevel = -1;
    }
    waitHandlingEvents(2s);
    Form1* form1 = mainWindow();
    if (form1 && form1->playOnCompletion() && !state.OutputOpened) {
        forms_.dialogs().openExternally(state.OutputVideo);
        state.OutputOpened = true;
    }
    if (!kind_.standsAlone) {
        if (form1) form1->setSpeedDisplayRunning(false);
        state.JobFinished = true;
        if (form1) form1->resetProgressDisplay();
    }
    if (form1) form1->ResetApp();
    if (kind_.standsAlone) {
        forms_.unload(kind_.formId);
    } else if (form1) {
        form1->normalSpeedCellsButLast();
    }
}

void JobWindow::ExitCompression() {
    if (forms_.state().JobFinished) forms_.unload(kind_.formId);
}

void JobWindow::objDOS_ReceiveOutputs(const std::string& CommandOutputs) {
    ProgramState& state = forms_.state();
    handlePendingEvents();
    const ProgressReading reading =
        readProgressPiece(CommandOutputs, kind_.followsTime, state, formatLocale());
    Form1* form1 = mainWindow();
    if (!form1) return;
    if (reading.timeSeen && reading.barMaximum) form1->setProgressMaximum(*reading.barMaximum);
    handlePendingEvents();
    if (reading.writtenText) form1->setWrittenText(QString::fromStdString(*reading.writtenText));
    handlePendingEvents();
    if (kind_.followsTime) form1->setProgressValue(reading.barValue);
    if (reading.percentText) {
        form1->setProgressCaption(QString::fromStdString(progressCaption(*reading.percentText)));
        handlePendingEvents();
        form1->highlightProgress();
    }
    form1->CompressionSpeedDisplay(state.SpeedLevel);
}

Form5::Form5(Forms& forms) : JobWindow(forms, kTargetSize) {}
Form6::Form6(Forms& forms) : JobWindow(forms, kConstantRate) {}
Form7::Form7(Forms& forms) : JobWindow(forms, kAverageRate) {}
Form8::Form8(Forms& forms) : JobWindow(forms, kQuantizer) {}

}  // namespace quillet
