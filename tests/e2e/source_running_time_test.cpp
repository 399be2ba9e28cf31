#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "form1_test_window.h"
#include "media.h"

namespace quillet {
namespace {

// Choosing a source through the Browse label with the real ffprobe beside the test program.
class SourceRunningTime : public Form1Window {
protected:
    void choose(const QString& path) {
        dialogs.answerFile(QDir::toNativeSeparators(path).toStdString());
        form.Label21_MouseUp(1);
    }

    bool runningTimeShows(const char* expected) {
        return QTest::qWaitFor([&] { return text(c.Text1) == expected; }, 20000);
    }

    QTemporaryDir folder;
};

// Two hours at the smallest cost: a tiny picture once a second and silence at a low rate.
bool makeTwoHourClip(const QString& path) {
    const QString options =
        "-v error -y -f lavfi -i testsrc2=size=32x32:rate=1:duration=7200 -f lavfi -i "
        "anullsrc=sample_rate=8000:channel_layout=mono -t 7200 -c:v mpeg4 -c:a aac -b:a 8k";
    runTool("ffmpeg", options.split(' ') << path);
    return QFile::exists(path);
}

TEST_F(SourceRunningTime, ShortAndTwoHourClipsShowTheirTimeAndSeconds) {
    const QString shortClip = folder.filePath("short.mp4");
    const QString longClip = folder.filePath("two hours.mp4");
    ASSERT_TRUE(makeClip(shortClip, 3));
    ASSERT_TRUE(makeTwoHourClip(longClip));

    choose(shortClip);
    EXPECT_TRUE(runningTimeShows("00:03")) << text(c.Text1);
    EXPECT_EQ(text(c.Text8), "3");
    choose(longClip);
    EXPECT_TRUE(runningTimeShows("2:00:00")) << text(c.Text1);
    EXPECT_EQ(text(c.Text8), "7200");
    // With both tools beside the program, only the file dialogs were shown.
    EXPECT_EQ(dialogs.shown().size(), 2u);
}

TEST_F(SourceRunningTime, AFileWithoutARunningTimeKeepsThePollGoing) {
    const QString notes = folder.filePath("notes.mp4");
    QFile file(notes);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("a text file, not a video\n");
    file.close();
    choose(notes);
    QTest::qWait(1000);  // ffprobe has long given up
    EXPECT_EQ(text(c.Text1), "");
    EXPECT_EQ(text(c.Text8), "0000");
    c.Text1->setText("0:00:00");
    EXPECT_TRUE(QTest::qWaitFor([&] { return text(c.Text1).empty(); }, 1000));
}

}  // namespace
}  // namespace quillet
