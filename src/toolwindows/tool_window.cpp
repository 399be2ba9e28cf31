#include "toolwindows/tool_window.h"

#include <QCloseEvent>
#include <QTimer>

#include "widgets/source_file.h"

namespace quillet {

ToolWindow::ToolWindow(Forms& forms, FormId id, JobDescription job)
    : QMainWindow(nullptr),
      forms_(forms),
      machine_(forms, *this, withWindowParts(std::move(job), id)),
      id_(id) {}

JobDescription ToolWindow::withWindowParts(JobDescription job, FormId id) {
    // Called only once a job runs, when the window is whole: they reach the window's own.
    job.window = id;
    job.commandLine = [this] { return commandLine(); };
    job.ending = [this] { finishRun(); };
    return job;
}

void ToolWindow::Form_Unload() {
    machine_.abandon();
    durationProbe_.reset();
}

void ToolWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    forms_.unload(id_);
}

std::string ToolWindow::chooseVideo(const char* filter) const {
    return forms_.dialogs().openFile("Select Video", forms_.state().DesktopFolder, filter);
}

void ToolWindow::askRunningTime(const std::string& path, QTimer& poll) {
    durationProbe_ = probeRunningTime(path);
    poll.start(500);
}

}  // namespace quillet
