// The main window's side of a compression job: opening the job window, the progress display the
// job writes, and the end of the job.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <cmath>

#include "base/default_settings.h"
#include "jobs/job_steps.h"
#include "jobs/job_window.h"
#include "main/form1.h"
#include "main/shared_values_reset.h"
#include "main/speed_cell_row.h"
#include "widgets/label_looks.h"
#include "widgets/option_array.h"

namespace quillet {

void Form1::startJobWindow(const std::string& method) {
    const CompressionJob* job = compressionJobForMethod(method);
    if (!job) return;
    // Loading a job window starts its job; a window already loaded, its job under way, starts
    // nothing new. The target-size window is closed from here once its job has finished.
    if (job->window == Form5::kId) Timer11.start();
    forms_.load(job->window);
}

void Form1::Timer11_Timer() {
    if (!forms_.isLoaded(Form5::kId)) {
        Timer11.stop();
        return;
    }
    Form5& job = forms_.get<Form5>();
    if (job.isVisible() && forms_.state().JobFinished) {
        job.ExitCompression();
        Timer11.stop();
    }
}

void Form1::setProgressMaximum(double seconds) {
    if (std::isfinite(seconds)) c_.PBar->setMaximum(static_cast<int>(std::lround(seconds)));
}

void Form1::setProgressValue(double seconds) {
    // A value past the bar's end is not shown, as the bar cannot hold it.
    if (std::isfinite(seconds)) c_.PBar->setValue(static_cast<int>(std::lround(seconds)));
}

void Form1::setProgressCaption(const std::string& caption) {
    c_.Label1->setText(QString::fromStdString(caption));
}

void Form1::setWrittenText(const std::string& text) {
    c_.status(StatusCell::Written)->setText(QString::fromStdString(text));
}

void Form1::highlightProgress() {
    showHighlighted(c_.status(StatusCell::Written), true);
    Timer13.start();
}

bool Form1::playOnCompletion() const {
    return c_.Check1->isChecked();
}

void Form1::resetProgressDisplay() {
    c_.PBar->setValue(0);
    c_.Label1->setText("Compression Progress 00% Completed");
}

void Form1::normalSpeedCellsButLast() {
    for (int index = 0; index + 1 < kSpeedCellCount; ++index) {
        showHighlighted(c_.Label8->cell(index), false);
    }
}

void Form1::ResetApp() {
    // The boxes that drive the target-size arithmetic first, so that it finds nothing to show.
    c_.Text6->setText("0,000");
    c_.Text8->setText("0000");
    c_.Text7->setText("0,000");
    c_.Text10->setText("0,000");
    c_.Text1->setText("0:00:00");
    c_.Text3->setText("0:00:00");
    const std::pair<QLabel*, const char*> labels[] = {
        {c_.Label9, defaults::kReset.preset},
        {c_.Label12, defaults::kCrf},
        {c_.Label30, defaults::kReset.averageRate},
        {c_.Label31, defaults::kAverageRateUnit},
        {c_.Label33, defaults::kStartup.qp},
        {c_.Label35, defaults::kMinRate},
        {c_.Label39, defaults::kRateUnit},
        {c_.Label36, defaults::kMaxRate},
        {c_.Label40, defaults::kRateUnit},
        {c_.Label42, defaults::kLookAhead},
        {c_.Label45, defaults::kStartup.bufferSize},
        {c_.Label46, defaults::kRateUnit},
        {c_.Label2, "Target Size - 60% of Original Video Size"},
        {c_.status(StatusCell::Method), "Method:Target Size"},
        {c_.status(StatusCell::SourceSize), "Init Size: 0,000Mb"},
        {c_.status(StatusCell::Written), "Writen: 0,000Mb"},
        {c_.status(StatusCell::SampleRate), defaults::kSampleRateStatus},
    };
    for (const auto& [label, text] : labels) label->setText(text);
    clearMethodSelection();

    resetSharedValues(forms_.state());
    for (FormId id : kJobAndToolWindows) forms_.unload(id);
}

}  // namespace quillet
