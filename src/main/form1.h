#pragma once

#include <QMainWindow>

namespace quillet {

class Forms;

// The main window, where a user composes a compression job and watches it run.
class Form1 : public QMainWindow {
    Q_OBJECT

public:
    explicit Form1(Forms& forms);

    void Form_Load();

    // Gives the window its outer size (frame included); the user can neither resize nor maximise
    // it.
    void setOuterSize(QSize outer);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_QueryUnload();

    Forms& forms_;
};

}  // namespace quillet
