#pragma once

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QRadioButton>
#include <QString>
#include <QTemporaryDir>

#include "app/forms.h"
#include "app/scripted_dialogs.h"
#include "base/platform_names.h"
#include "event_loop.h"
#include "jobs/output_name.h"
#include "main/form1.h"
#include "media.h"
#include "program_windows.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

// A target-size job through the program's own windows, started with Compress > Start Compression;
// returns once its window has gone. The source's size and running time are given as the main
// window would show them.
inline void runTargetSizeJob(quillet::Forms& forms, const QString& source, const char* sizeText,
                             const char* secondsText, int targetMb) {
    quillet::Form1& form = forms.get<quillet::Form1>();
    quillet::Form1Controls& c = form.controls();
    quillet::ProgramState& state = forms.state();
    state.SourceVideo = QDir::toNativeSeparators(source).toStdString();
    state.OutputVideo =
        quillet::compressedFileName(state.SourceVideo, quillet::kThisPlatform.separator).value();
    c.Text6->setText(sizeText);
    c.Text8->setText(secondsText);
    c.xpSlider4->setValue(targetMb);
    form.enableMethodItems();
    c.xpOption1->item(0)->click();
    form.findChild<QAction*>("mnu_StartCompress")->trigger();
    runEventLoopUntilDestroyed(forms.load(quillet::FormId::Form5));
}

// The benches' source: a 20-second 640x360 clip with a tone, made by ffmpeg.
inline void makeBenchClip(const QString& path) {
    quillet::runTool("ffmpeg", {"-v",
                                "error",
                                "-y",
                                "-f",
                                "lavfi",
                                "-i",
                                "testsrc2=size=640x360:rate=25:duration=20",
                                "-f",
                                "lavfi",
                                "-i",
                                "sine=frequency=440:duration=20",
                                "-c:v",
                                "libx264",
                                "-preset",
                                "ultrafast",
                                "-crf",
                                "18",
                                "-c:a",
                                "aac",
                                "-shortest",
                                path});
}

// The program's windows as start-up leaves them, and the benches' clip in a folder of its own.
struct BenchProgram {
    BenchProgram() {
        makeBenchClip(source);
        quillet::applyStartupDefaults(state);
        forms.get<quillet::Form1>().show();
        forms.get<quillet::Form1>().prepareAtStartup();
    }

    QTemporaryDir folder;
    const QString source = folder.filePath("clip.mp4");
    quillet::ScriptedDialogs dialogs;
    quillet::ProgramState state;
    quillet::ProgramForms forms{state, dialogs};
};
