#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "form1_test_window.h"
#include "media.h"

namespace quillet {
namespace {

using SourceRunningTime = Form1Window;

TEST_F(SourceRunningTime, ATwoHourClipShowsTwoHoursAnd7200Seconds) {
    QTemporaryDir folder;
    const QString clip = folder.filePath("two hours.mp4");
    // Two hours at the smallest cost: a tiny picture once a second and silence at a low rate.
    const QString options =
        "-v error -y -f lavfi -i testsrc2=size=32x32:rate=1:duration=7200 -f lavfi -i "
        "anullsrc=sample_rate=8000:channel_layout=mono -t 7200 -c:v mpeg4 -c:a aac";
    runTool("ffmpeg", options.split(' ') << clip);
    ASSERT_TRUE(QFile::exists(clip));

    dialogs.answerFile(QDir::toNativeSeparators(clip).toStdString());
    form.Label21_MouseUp(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return text(c.Text1) == "2:00:00"; }, 20000))
        << text(c.Text1);
    EXPECT_EQ(text(c.Text8), "7200");
    // With both tools beside the program, only the file dialog was shown.
    EXPECT_EQ(dialogs.shown().size(), 1u);
}

}  // namespace
}  // namespace quillet
