#include "main/form1.h"

#include <QCloseEvent>

#include "app/forms.h"
#include "app/program_end.h"

namespace quillet {

Form1::Form1(Forms& forms) : QMainWindow(nullptr), forms_(forms) {
    setObjectName("Form1");
    setWindowTitle("Quillet (Version 2.0)");
    // No maximise button and no resizing frame: the window keeps the size start-up gives it.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint |
                   Qt::MSWindowsFixedSizeDialogHint);
}

void Form1::Form_Load() {}

void Form1::setOuterSize(QSize outer) {
    // The frame is known only once the window is on screen; before that it counts as zero.
    const QSize frame = frameGeometry().size() - geometry().size();
    setFixedSize(outer - frame);
}

void Form1::closeEvent(QCloseEvent* event) {
    event->ignore();
    Form_QueryUnload();
}

void Form1::Form_QueryUnload() {
    endProgram(forms_);
}

}  // namespace quillet
