#include "jobs/job_window.h"

#include <QVBoxLayout>

#include "app/program_folder.h"
#include "app/title_bar.h"
#include "base/platform_names.h"

namespace quillet {

JobWindow::JobWindow(Forms& forms, FormId id)
    : QWidget(nullptr, Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      forms_(forms),
      job_(compressionJobOfWindow(id)),
      sourceLabel_(new QLabel(this)),
      outputLabel_(new QLabel(this)),
      machine_(
          forms, *this,
          {.window = id,
           .steps = job_.steps,
           .commandLine =
               [this] { return job_.commandLine(programFolder(), forms_.state(), kThisPlatform); },
           .followsTime = job_.followsTime,
           .display = [&forms] { return mainWindowDisplay(forms); },
           .readsCpuWithEachPiece = job_.readsCpuWithEachPiece}) {
    setWindowTitle(job_.title);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sourceLabel_);
    layout->addWidget(outputLabel_);
    // Wide enough for the title bar to show the method whole.
    setMinimumWidth(titleBarWidth(*this));
}

void JobWindow::Form_Load() {
    const ProgramState& state = forms_.state();
    sourceLabel_->setText("Source: " + QString::fromStdString(state.SourceVideo));
    outputLabel_->setText("Output: " + QString::fromStdString(state.OutputVideo));
    machine_.start();
}

void JobWindow::Form_Unload() {
    machine_.abandon();
}

void JobWindow::ExitCompression() {
    if (forms_.state().JobFinished) forms_.unload(job_.window);
}

}  // namespace quillet
