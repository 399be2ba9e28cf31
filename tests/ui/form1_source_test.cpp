#include <QDir>
#include <QFile>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "form1_test_window.h"
#include "widgets/option_array.h"

namespace quillet {
namespace {

// The test program's folder holds no ffmpeg, so every choice starts with the tool check's box,
// which the script closes.
class SourceSelection : public Form1Window {
protected:
    // A file of `bytes` bytes, named as the dialog would give it.
    std::string makeFile(const QString& name, qint64 bytes) {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(bytes));
        return QDir::toNativeSeparators(path).toStdString();
    }

    void choose(const std::string& answer) {
        dialogs.answerFile(answer);
        form.Label21_MouseUp(1);
    }

    QTemporaryDir folder;
};

TEST_F(SourceSelection, OnlyALeftReleaseOnBrowseChecksTheToolsAndOpensTheDialog) {
    state.DesktopFolder = "/home/user/Desktop";
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_TRUE(dialogs.shown().empty());  // the tools are not checked at start-up
    QTest::mouseClick(c.Label21, Qt::RightButton);
    EXPECT_TRUE(dialogs.shown().empty());

    QTest::mouseClick(c.Label21, Qt::LeftButton);
    const auto& shown = dialogs.shown();
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].title, "FFmpeg Components Not Found");
    EXPECT_EQ(shown[1].title, "Compress Video");
    EXPECT_EQ(shown[1].folder, "/home/user/Desktop");
    EXPECT_EQ(shown[1].text,
              "All Files (*.*)|*.*|AVI Files (*.avi)|*.avi|MP4 Files (*.mp4)|*.mp4|"
              "MPG Files (*.mpg)|*.mpg|MPEG Files (*.mpeg)|*.mpeg |MTS Files (*.mts)|*.mts|"
              "MOV Files (*.mov)|*.mov|M4V Files (*.m4v)|*.m4v|M4A Files (*.m4a)|*.m4a|"
              "WMV Files (*.wmv)|*.wmv|WEBM Files (*.webm)|*.webm");
}

TEST_F(SourceSelection, AChosenFileIsShownAndACancelLeavesIt) {
    const std::string path = makeFile("holiday clip.mp4", 3 * 1048576 + 1);
    choose("  " + path + " ");
    EXPECT_EQ(state.SourceVideo, path);
    EXPECT_EQ(
        state.OutputVideo,
        QDir::toNativeSeparators(folder.filePath("Compressed-holiday clip.mp4")).toStdString());
    EXPECT_EQ(text(c.Label3), "holiday clip.mp4");
    EXPECT_TRUE(c.Label24->isHidden());
    EXPECT_EQ(text(c.Text6), "0,003");
    EXPECT_TRUE(c.xpOption1->item(3)->isEnabled());
    // Without ffprobe the running time stays unknown: the poll shows it empty and goes on.
    EXPECT_TRUE(QTest::qWaitFor([&] { return text(c.Text1).empty(); }, 2000));
    c.Text1->setText("0:00:00");
    EXPECT_TRUE(QTest::qWaitFor([&] { return text(c.Text1).empty(); }, 2000));
    EXPECT_EQ(text(c.Text8), "0000");

    form.Label21_MouseUp(1);  // cancelled
    EXPECT_EQ(state.SourceVideo, path);
    EXPECT_EQ(text(c.Label3), "holiday clip.mp4");
    EXPECT_TRUE(c.Label24->isHidden());
}

TEST_F(SourceSelection, MkvIsRefusedAndLeavesNoSource) {
    choose(makeFile("accepted.mp4", 10));
    choose(makeFile("Clip.MKV", 10));
    const ScriptedDialogs::Shown& box = dialogs.shown().back();
    EXPECT_EQ(box.text, "Video Format not currently supported");
    EXPECT_EQ(box.title, "Format Error");
    EXPECT_EQ(box.flags, 49);
    EXPECT_EQ(state.SourceVideo, "");
    EXPECT_EQ(text(c.Label3), "");
    EXPECT_FALSE(c.Label24->isHidden());
}

TEST_F(SourceSelection, APathWithoutAFolderIsTakenButShowsNothing) {
    state.OutputVideo = "earlier output";
    choose("clip.mp4");
    EXPECT_EQ(state.SourceVideo, "clip.mp4");
    EXPECT_EQ(state.OutputVideo, "earlier output");
    EXPECT_TRUE(c.xpOption1->item(3)->isEnabled());
    EXPECT_EQ(text(c.Label3), "");
    EXPECT_FALSE(c.Label24->isHidden());
    EXPECT_EQ(text(c.Text6), "0,000");
    QTest::qWait(400);  // no running time is asked for
    EXPECT_EQ(text(c.Text1), "0:00:00");
}

}  // namespace
}  // namespace quillet
