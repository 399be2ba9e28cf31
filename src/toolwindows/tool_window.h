#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>
#include <string>

#include "app/forms.h"
#include "jobs/job_machine.h"
#include "tools/duration_probe.h"

class QTimer;

namespace quillet {

// What the MP3, down-scale and frame-rate tools have in common: the user chooses a source, its
// running time is asked of ffprobe and polled for, and Encode Video hands one job at a time to the
// job machine, which builds the window's command line when it runs and ends with the window's own
// ending. Unloading abandons the job and the running time asked; closing the window unloads it.
class ToolWindow : public QMainWindow, public FormEvents {
    Q_OBJECT

public:
    void Form_Unload() override;

    // The command that Encode Video runs, from the choices as they stand.
    virtual std::string commandLine() const = 0;

protected:
    // `job` holds what is the window's own (its steps, caption, display, running time, output);
    // the window, the command line and the ending are this window's.
    ToolWindow(Forms& forms, FormId id, JobDescription job);

    void closeEvent(QCloseEvent* event) override;

    // The video the user picks under `filter`; empty when the dialog is cancelled.
    std::string chooseVideo(const char* filter) const;
    // Asks the running time of `path` and starts `poll`, whose handler reads probedSeconds() every
    // half second until it stops the timer.
    void askRunningTime(const std::string& path, QTimer& poll);
    // The running time once ffprobe has given it; empty before, and with no question asked.
    std::optional<double> probedSeconds() const {
        return durationProbe_ ? durationProbe_->seconds() : std::nullopt;
    }
    void forgetRunningTime() { durationProbe_.reset(); }

    Forms& forms_;
    std::string source_;
    JobMachine machine_;

private:
    JobDescription withWindowParts(JobDescription job, FormId id);
    // The end of a run, after ffmpeg: what the window puts back.
    virtual void finishRun() = 0;

    const FormId id_;
    std::unique_ptr<DurationProbe> durationProbe_;
};

}  // namespace quillet
