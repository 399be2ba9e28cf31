// job_subject SOURCE: the program as it runs for a user, with its windows on the offscreen
// platform, that chooses SOURCE with File > Select Video, starts a CRF compression with
// Compress > Start Compression and prints "ffmpeg PID" once its ffmpeg runs. The termination
// tests end it with a signal and look for what it leaves behind.
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QRadioButton>
#include <QTimer>
#include <cstdio>

#include "app/program_end.h"
#include "app/scripted_dialogs.h"
#include "app/termination_signals.h"
#include "main/form1.h"
#include "processes.h"
#include "program_windows.h"
#include "widgets/option_array.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc < 2) return 2;
    quillet::ScriptedDialogs dialogs;
    dialogs.answerFile(QDir::toNativeSeparators(argv[1]).toStdString());
    quillet::ProgramState state;
    quillet::applyStartupDefaults(state);
    quillet::ProgramForms forms(state, dialogs);
    quillet::endOnTerminationSignals([&forms] { quillet::endProgram(forms); });

    quillet::Form1& form = forms.get<quillet::Form1>();
    form.show();
    form.prepareAtStartup();
    form.findChild<QAction*>("mnu_Select")->trigger();
    form.controls().xpOption1->item(1)->click();
    form.findChild<QAction*>("mnu_StartCompress")->trigger();

    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        const std::vector<int> running = quillet::ffmpegChildren();
        if (running.empty()) return;
        std::printf("ffmpeg %d\n", running.front());
        std::fflush(stdout);
        watch.stop();
    });
    watch.start(50);
    return QApplication::exec();
}
