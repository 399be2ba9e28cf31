#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "text_fits.h"
#include "tool_window_test.h"
#include "toolwindows/form11.h"

namespace quillet {
namespace {

// The down-scale tool, opened from the main window's Tools menu.
class DownScaleTool : public ToolWindowTest<Form11> {
protected:
    DownScaleTool() : ToolWindowTest("mnu_DownScaleRes") {}
    std::string label(const char* name) { return control<QLabel>(name)->text().toStdString(); }
    bool anySelected(const char* group, int count) {
        for (int index = 0; index < count; ++index) {
            if (control<QRadioButton>(QString("%1(%2)").arg(group).arg(index).toUtf8())
                    ->isChecked())
                return true;
        }
        return false;
    }
    // A file of `bytes` bytes, chosen with File > Select Video.
    void selectFileOf(qint64 bytes) {
        const QString path = folder.filePath("clip.mp4");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(bytes, '\0'));
        file.close();
        dialogs.answerFile(path.toStdString());
        control<QAction>("mnu_Select")->trigger();
    }
    QTemporaryDir folder;
};

TEST_F(DownScaleTool, OpensAt240pWithNoRateFactorAndNoMp3) {
    EXPECT_EQ(tool().windowTitle(), "Reduce Resolution");
    EXPECT_EQ(label("Label8"), "Waiting for Source Video");
    EXPECT_EQ(label("Label2"), "426:240");
    EXPECT_EQ(control<QCheckBox>("Check2")->text(), "Encode Video Audio to MP3 ");
    EXPECT_FALSE(control<QRadioButton>("Option2(0)")->isEnabled());
    EXPECT_FALSE(anySelected("Option2", 6));
    EXPECT_FALSE(anySelected("Option3", 3));
    EXPECT_TRUE(commandHas(" -c:v libx265 -vf scale=426:240,setsar=1:1 -y "));
    control<QRadioButton>("Option1(2)")->click();
    EXPECT_EQ(label("Label2"), "854:480");
    EXPECT_TRUE(commandHas("scale=854:480,"));
}

TEST_F(DownScaleTool, TickingABoxLandsOnItsLargestChoiceAndSetCrfAloneIsForty) {
    control<QCheckBox>("Check1")->click();
    EXPECT_TRUE(control<QRadioButton>("Option2(5)")->isChecked());
    EXPECT_TRUE(commandHas(" -c:v libx265 -crf 40 -vf "));
    control<QCheckBox>("Check2")->click();
    EXPECT_TRUE(control<QRadioButton>("Option3(2)")->isChecked());
    EXPECT_TRUE(
        commandHas(" -crf 45 -vf scale=426:240,setsar=1:1 -codec:a libmp3lame "
                   "-qscale:a 9 -y "));
    control<QRadioButton>("Option2(1)")->click();
    control<QRadioButton>("Option3(0)")->click();
    EXPECT_TRUE(
        commandHas(" -crf 25 -vf scale=426:240,setsar=1:1 -codec:a libmp3lame "
                   "-qscale:a 5 -y "));

    control<QCheckBox>("Check1")->click();  // off: the choices go, the command has no rate
    EXPECT_FALSE(anySelected("Option2", 6));
    EXPECT_FALSE(control<QRadioButton>("Option2(1)")->isEnabled());
    EXPECT_TRUE(commandHas(" -c:v libx265 -vf "));
}

TEST_F(DownScaleTool, ASourceShowsItsSizeAndTheStatesFollowEachOther) {
    selectFileOf(999'999);
    EXPECT_EQ(label("Label8"), "Reading Source Video Data");
    EXPECT_EQ(label("Label13"), "0000 x 000");  // no ffprobe here: the placeholder stays
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return label("Label8") == "Ready to Modify Video Resolution"; }, 2000));
    EXPECT_EQ(text(c.status(StatusCell::SourceSize)), "Init Size: 0,001Mb");
    EXPECT_TRUE(commandHas(" -i \"" + folder.filePath("clip.mp4").toStdString() + "\" "));

    selectFileOf(0);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return text(c.status(StatusCell::SourceSize)) == "Init Size: 0,000Mb"; }, 2000));
}

TEST_F(DownScaleTool, EveryTextIsWholeInEachState) {
    control<QRadioButton>("Option1(3)")->click();  // "1280:720"
    control<QCheckBox>("Check1")->click();
    control<QCheckBox>("Check2")->click();
    control<QLabel>("Label13")->setText("1920 x 1080");
    for (const char* state : {"Waiting for Source Video", "Reading Source Video Data",
                              "Ready to Modify Video Resolution", "Working On Video Resolution"}) {
        control<QLabel>("Label8")->setText(state);
        EXPECT_TRUE(textIsWhole(tool())) << state;
    }
}

}  // namespace
}  // namespace quillet
