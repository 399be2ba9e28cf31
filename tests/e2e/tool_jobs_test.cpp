// The tool windows run with the real ffmpeg, driven through their menus and controls.
#include <QCheckBox>
#include <QCryptographicHash>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTimer>
#include <set>

#include "job_driver.h"

namespace quillet {
namespace {

class ToolJob : public JobDriver {
protected:
    // Every text `label` shows until `done` holds.
    std::set<QString> watchUntil(const QLabel* label, const std::function<bool()>& done) {
        std::set<QString> shown;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] { shown.insert(label->text()); });
        watch.start(10);
        EXPECT_TRUE(QTest::qWaitFor(done, 60000));
        return shown;
    }

    static bool anyMatches(const std::set<QString>& texts, const char* pattern) {
        const QRegularExpression expression(pattern);
        return std::any_of(texts.begin(), texts.end(),
                           [&](const QString& text) { return expression.match(text).hasMatch(); });
    }

    static QByteArray fingerprint(const QString& path) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
    }
};

TEST_F(ToolJob, Mp3ToolWritesMp3AudioAtTheChosenRateBesideAHevcPicture) {
    QDir(folder.path()).mkpath("my clips/é 日本");
    const QString source = folder.filePath("my clips/é 日本/clip é.mp4");
    ASSERT_TRUE(makeClip(source, 3));
    QWidget& tool = openTool("mnu_mp3Audio", FormId::Form10, source);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return tool.findChild<QLabel*>("Label12")->text() == "3"; }, 10000));
    EXPECT_EQ(tool.findChild<QLabel*>("Label11")->text(), "0:00:03");
    auto* rates = tool.findChild<QListWidget*>("List1");
    rates->setCurrentRow(2);
    emit rates->itemClicked(rates->item(2));  // "32000kHz"

    tool.findChild<QAction*>("mnu_ReEncode")->trigger();
    EXPECT_EQ(text(c.status(StatusCell::Method)), "Method:MP3Lame");
    const auto captions = watchUntil(tool.findChild<QLabel*>("Label8"), [&] {
        return text(c.status(StatusCell::Method)) == "Method:Target Size";
    });
    EXPECT_TRUE(anyMatches(captions, R"(^Compression Progress \d\d+\.\d\d% Complete$)"));

    const QString shown = probe(output(source));
    EXPECT_TRUE(shown.contains("codec_name=hevc")) << shown.toStdString();
    EXPECT_TRUE(shown.contains("codec_name=mp3"));
    EXPECT_TRUE(shown.contains("sample_rate=32000"));
    // The source stays chosen, so that the user can encode again at once.
    EXPECT_EQ(tool.findChild<QLabel*>("Label1")->text(), QDir::toNativeSeparators(source));
}

TEST_F(ToolJob, FrameRateToolWritesTheChosenRateAndAnImpossibleOneEndsAndResets) {
    const QString source = folder.filePath("holiday clip.mp4");
    ASSERT_TRUE(makeClip(source, 3));
    const QByteArray original = fingerprint(source);
    trigger("mnu_AlterFPS");
    QWidget& tool = *forms.loaded(FormId::Form13);
    tool.findChild<QRadioButton*>("Option1(0)")->click();  // 15
    dialogs.answerFile(source.toStdString());
    tool.findChild<QAction*>("mnu_EncodeVideo")->trigger();  // no source yet: the dialog
    // The running time, which the percentage needs.
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return tool.findChild<QLabel*>("Label2")->text() == "Running Time 00:03"; }, 10000));
    tool.findChild<QAction*>("mnu_EncodeVideo")->trigger();
    const auto captions = watchUntil(c.Label1, [&] {
        return state.JobFinished && tool.findChild<QLabel*>("Label1")->text() == "Video Name";
    });
    EXPECT_TRUE(anyMatches(captions, R"(^Compression Progress \d\d+\.\d\d% Complete$)"));
    const QString shown = probe(output(source));
    EXPECT_TRUE(shown.contains("r_frame_rate=15/1")) << shown.toStdString();
    EXPECT_TRUE(shown.contains("codec_name=hevc"));
    EXPECT_TRUE(shown.contains("codec_name=aac"));
    EXPECT_TRUE(tool.findChild<QRadioButton*>("Option1(5)")->isChecked());  // back to 30

    // A rate of 0 makes ffmpeg refuse the run: the window ends it and resets all the same.
    QFile::remove(output(source));
    state.JobFinished = false;
    tool.findChild<QCheckBox*>("Check1")->click();
    tool.findChild<QLineEdit*>("Text1")->setText("0");
    dialogs.answerFile(source.toStdString());
    tool.findChild<QAction*>("mnu_SelectVideo")->trigger();
    tool.findChild<QAction*>("mnu_EncodeVideo")->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return state.JobFinished; }, 20000));
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return !tool.findChild<QCheckBox*>("Check1")->isChecked(); }, 5000));
    EXPECT_EQ(fingerprint(source), original);
}

TEST_F(ToolJob, DownScaleToolWrites480pWithSquarePixelsAndMp3Audio) {
    const QString source = folder.filePath("wide clip é.mp4");
    runTool("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i",
                       "testsrc2=size=1280x720:rate=10:duration=2", "-f", "lavfi", "-i",
                       "sine=duration=2", "-c:v", "mpeg4", "-c:a", "aac", "-shortest", source});
    ASSERT_TRUE(QFile::exists(source));
    QWidget& tool = openTool("mnu_DownScaleRes", FormId::Form11, source, "mnu_Select");
    const QLabel* resolution = tool.findChild<QLabel*>("Label13");
    EXPECT_TRUE(QTest::qWaitFor([&] { return resolution->text() == "1280 x 720"; }, 10000));
    // The probe's window goes a second after its answer.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !forms.isLoaded(FormId::Form14); }, 3000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return state.VideoSeconds == "2"; }, 10000));
    tool.findChild<QRadioButton*>("Option1(2)")->click();
    tool.findChild<QCheckBox*>("Check2")->click();
    tool.findChild<QAction*>("mnu_EncVideo")->trigger();
    // The main window's reset closes the tool at the end.
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return state.JobFinished && !forms.isLoaded(FormId::Form11); }, 60000));
    const QString shown = runTool("ffprobe", {"-v", "error", "-show_entries",
                                              "stream=codec_name,width,height,sample_aspect_ratio",
                                              "-of", "default=noprint_wrappers=1", output(source)});
    EXPECT_TRUE(shown.contains("codec_name=hevc")) << shown.toStdString();
    EXPECT_TRUE(shown.contains("width=854\nheight=480"));
    EXPECT_TRUE(shown.contains("sample_aspect_ratio=1:1"));
    EXPECT_TRUE(shown.contains("codec_name=mp3"));
}

TEST_F(ToolJob, AnAudioOnlySourceKeepsTheResolutionPlaceholder) {
    const QString source = folder.filePath("tone.m4a");
    runTool("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "sine=duration=2", source});
    ASSERT_TRUE(QFile::exists(source));
    QWidget& tool = openTool("mnu_DownScaleRes", FormId::Form11, source, "mnu_Select");
    EXPECT_TRUE(QTest::qWaitFor([&] { return state.VideoSeconds == "2"; }, 10000));
    QTest::qWait(500);  // ffprobe's answer about the picture has come by now
    EXPECT_EQ(tool.findChild<QLabel*>("Label13")->text(), "0000 x 000");
}

TEST_F(ToolJob, DownScalingWithNoSourceEndsResetsAndWritesNothing) {
    const QStringList before = QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden);
    trigger("mnu_DownScaleRes");
    forms.loaded(FormId::Form11)->findChild<QAction*>("mnu_EncVideo")->trigger();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return state.JobFinished && !forms.isLoaded(FormId::Form11); }, 20000));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden), before);
}

TEST_F(ToolJob, ARateChosenInTheChooserReachesTheNextCompression) {
    const QString source = folder.filePath("chooser.mp4");
    ASSERT_TRUE(makeClip(source, 2));
    c.Option1->item(0)->click();
    QWidget* chooser = forms.loaded(FormId::Form9);
    ASSERT_TRUE(chooser);
    QTest::mouseClick(chooser->findChild<QRadioButton*>("Option2(3)"), Qt::LeftButton);
    EXPECT_EQ(text(c.status(StatusCell::SampleRate)), "22050kHz");
    selectVideo(source, "2");
    startJob(1);
    EXPECT_TRUE(waitForJobEnd(FormId::Form6));
    EXPECT_TRUE(probe(output(source)).contains("sample_rate=22050"));
}

}  // namespace
}  // namespace quillet
