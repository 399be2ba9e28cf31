#pragma once

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "form1_test_window.h"
#include "media.h"
#include "processes.h"
#include "widgets/option_array.h"

namespace quillet {

// A main window driven as a person drives it: through its menus and controls.
class JobDriver : public Form1Window {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        form.show();
    }

    void trigger(const char* item) {
        QAction* action = form.findChild<QAction*>(item);
        ASSERT_TRUE(action) << item;
        action->trigger();
    }

    // File > Select Video, the dialog answered with `path`; waits until its running time shows
    // when `seconds` is given.
    void selectVideo(const QString& path, const char* seconds = nullptr) {
        dialogs.answerFile(QDir::toNativeSeparators(path).toStdString());
        trigger("mnu_Select");
        if (seconds) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return text(c.Text8) == seconds; }, 10000));
        }
    }

    // The method item (0 target size, 1 CRF, 2 ABR, 3 QP), then Compress > Start Compression.
    void startJob(int method) {
        c.xpOption1->item(method)->click();
        trigger("mnu_StartCompress");
    }

    // Waits for the job's window to go once its job has finished.
    bool waitForJobEnd(FormId window, int milliseconds = 60000) {
        return QTest::qWaitFor([&] { return state.JobFinished && !forms.isLoaded(window); },
                               milliseconds);
    }

    bool waitForFfmpeg() {
        return QTest::qWaitFor([] { return ffmpegChildren().size() == 1; }, 10000);
    }

    // Opens a tool window from the Tools menu and chooses its source with its own File > Select
    // Video.
    QWidget& openTool(const char* item, FormId window, const QString& source,
                      const char* selectItem = "mnu_SelectVideo") {
        trigger(item);
        QWidget& tool = *forms.loaded(window);
        dialogs.answerFile(QDir::toNativeSeparators(source).toStdString());
        tool.findChild<QAction*>(selectItem)->trigger();
        return tool;
    }

    // Waits until ffmpeg has made `path`, so that a stop lands on a half-written file.
    static bool waitForFile(const QString& path) {
        return QTest::qWaitFor([&] { return QFileInfo::exists(path); }, 15000);
    }

    QString output(const QString& source) const {
        return QFileInfo(source).dir().filePath("Compressed-" + QFileInfo(source).fileName());
    }

    QTemporaryDir folder;
};

}  // namespace quillet
