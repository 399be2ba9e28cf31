#pragma once

#include <QLabel>
#include <QWidget>
#include <string>

#include "app/platform_names.h"
#include "app/program_state.h"

namespace quillet {

class Forms;
class Form1;
enum class FormId;

// What sets one compression method's job window apart from the others.
struct JobKind {
    FormId formId;
    const char* title;
    std::string (*commandLine)(const std::string& programFolder, const ProgramState& job,
                               const PlatformNames& names);
    // Whether the window follows ffmpeg's "time" (progress bar and percentage).
    bool followsTime;
    // Whether the window names its output itself, waits two seconds and unloads itself at the end
    // (ABR and QP), rather than waiting one second and being closed by the main window.
    bool standsAlone;
};

// A window that runs one compression: loading it starts the job, which builds the ffmpeg command
// line of its method, runs it while the main window shows the progress, then optionally opens the
// output, resets the main window and marks the job finished. The job runs inside the load, so the
// windows stay responsive only through the waits and the command runner's event loop.
class JobWindow : public QWidget {
    Q_OBJECT

public:
    JobWindow(Forms& forms, const JobKind& kind);

    void Form_Load();
    void CompressVideo();
    // Unloads the window once its job has finished; does nothing before that.
    void ExitCompression();

private:
    void objDOS_ReceiveOutputs(const std::string& CommandOutputs);
    void GenerateFileName(const std::string& path);
    void placeOnScreen();
    // The main window while it is loaded; null once it has gone (the program ending).
    Form1* mainWindow();

    Forms& forms_;
    const JobKind& kind_;
    QLabel* sourceLabel_;
    QLabel* outputLabel_;
};

class Form5 final : public JobWindow {
    Q_OBJECT
public:
    explicit Form5(Forms& forms);
};

class Form6 final : public JobWindow {
    Q_OBJECT
public:
    explicit Form6(Forms& forms);
};

class Form7 final : public JobWindow {
    Q_OBJECT
public:
    explicit Form7(Forms& forms);
};

class Form8 final : public JobWindow {
    Q_OBJECT
public:
    explicit Form8(Forms& forms);
};

}  // namespace quillet
