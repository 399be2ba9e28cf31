#pragma once

#include <QLabel>
#include <QWidget>

#include "app/forms.h"
#include "jobs/job_machine.h"
#include "jobs/job_steps.h"

namespace quillet {

// A window that runs one compression: loading it starts the job of its method (see job_steps.h),
// which builds the ffmpeg command line, runs it while the main window shows the progress, then
// optionally opens the output, resets the main window and marks the job finished.
class JobWindow : public QWidget, public FormEvents {
    Q_OBJECT

public:
    JobWindow(Forms& forms, FormId id);

    void Form_Load() override;
    void Form_Unload() override;
    // Unloads the window once its job has finished; does nothing before that.
    void ExitCompression();

private:
    Forms& forms_;
    const CompressionJob& job_;
    QLabel* sourceLabel_;
    QLabel* outputLabel_;
    JobMachine machine_;
};

template <FormId Id>
class CompressionJobWindow final : public JobWindow {
public:
    static constexpr FormId kId = Id;
    explicit CompressionJobWindow(Forms& forms) : JobWindow(forms, Id) {}
};

using Form5 = CompressionJobWindow<FormId::Form5>;  // target file size
using Form6 = CompressionJobWindow<FormId::Form6>;  // constant rate factor
using Form7 = CompressionJobWindow<FormId::Form7>;  // average bit rate
using Form8 = CompressionJobWindow<FormId::Form8>;  // constant quantizer

}  // namespace quillet
