#include <QAction>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QTest>

#include "native_path.h"
#include "text_fits.h"
#include "tool_window_test.h"
#include "toolwindows/form10.h"
#include "widgets/xp_slider.h"

namespace quillet {
namespace {

// The MP3 audio tool, opened from the main window's Tools menu.
class Mp3Tool : public ToolWindowTest<Form10> {
protected:
    Mp3Tool() : ToolWindowTest("mnu_mp3Audio") {}
    void select(const std::string& path) {
        dialogs.answerFile(path);
        trigger("mnu_SelectVideo");
    }
};

TEST_F(Mp3Tool, OpensWithItsDesignDefaults) {
    EXPECT_EQ(tool().windowTitle(), "Encode Video Audio ");
    EXPECT_EQ(control<QLabel>("Label14")->text(), "Preset  VeryFast");
    EXPECT_EQ(control<QLabel>("Label19")->text(), "Audio Sample Rate 44100kHz");
    EXPECT_EQ(control<QListWidget>("List1")->count(), 5);
    EXPECT_EQ(control<QListWidget>("List1")->currentItem()->text(), "44100kHz");
    EXPECT_TRUE(control<QRadioButton>("Option1(1)")->isChecked());
    EXPECT_EQ(control<QProgressBar>("PBar")->maximum(), 150);
    EXPECT_TRUE(commandHas(" -crf 20 -preset veryfast -codec:a libmp3lame -qscale:a 5 -ar 44100 "));
}

TEST_F(Mp3Tool, SliderEndsListItemsAndPresetsReachTheCommand) {
    XpSlider* crf = control<XpSlider>("xpSlider1");
    XpSlider* qscale = control<XpSlider>("xpSlider2");
    crf->setValue(crf->minimum());
    qscale->setValue(qscale->minimum());
    EXPECT_TRUE(commandHas("-c:v libx265 -crf 1 "));
    EXPECT_TRUE(commandHas("-codec:a libmp3lame -qscale:a 1 "));
    crf->setValue(crf->maximum());
    qscale->setValue(qscale->maximum());
    EXPECT_TRUE(commandHas("-c:v libx265 -crf 50 "));
    EXPECT_TRUE(commandHas("-codec:a libmp3lame -qscale:a 9 "));
    EXPECT_EQ(control<QLabel>("Label16")->text(), "50");

    QListWidget* rates = control<QListWidget>("List1");
    for (int row = 0; row < rates->count(); ++row) {
        QListWidgetItem* item = rates->item(row);
        rates->setCurrentItem(item);
        emit rates->itemClicked(item);
        const std::string rate = item->text().left(5).toStdString();
        EXPECT_TRUE(commandHas(" -ar " + rate + " -y ")) << rate;
    }
    control<QRadioButton>("Option1(3)")->click();
    EXPECT_EQ(control<QLabel>("Label14")->text(), "Preset  Slow");
    EXPECT_TRUE(commandHas(" -preset slow "));
}

TEST_F(Mp3Tool, ReloadingStartsFromTheDefaultsWhateverWasChosen) {
    control<XpSlider>("xpSlider1")->setValue(33);
    control<XpSlider>("xpSlider2")->setValue(8);
    control<QRadioButton>("Option1(0)")->click();
    trigger("mnu_Exit");
    EXPECT_FALSE(forms.isLoaded(FormId::Form10));
    EXPECT_EQ(state.ToolCRFValue, 33);  // the values stay until the window loads again
    forms.load(FormId::Form10);
    EXPECT_EQ(state.ToolCRFValue, 20);
    EXPECT_EQ(state.ToolPresetName, "veryfast");
    EXPECT_EQ(state.AudioQScale, 5);
    EXPECT_TRUE(commandHas(" -crf 20 -preset veryfast -codec:a libmp3lame -qscale:a 5 -ar 44100 "));
}

TEST_F(Mp3Tool, MatroskaIsRefusedByItsExtensionInAnyCase) {
    select(native("/videos/a.MKV"));
    ASSERT_FALSE(dialogs.shown().empty());
    const auto& box = dialogs.shown().back();
    EXPECT_EQ(box.text, "MKV. This Video Type is not currently supported.");
    EXPECT_EQ(box.title, "Matroska Video");
    EXPECT_EQ(box.flags, 49);
    EXPECT_EQ(control<QLabel>("Label1")->text(), "");

    select(native("/videos/a.mkv.mp4"));
    EXPECT_EQ(dialogs.shown().back().kind, "open file");
    EXPECT_EQ(control<QLabel>("Label1")->text().toStdString(), native("/videos/a.mkv.mp4"));
    EXPECT_EQ(state.OutputVideo, native("/videos/Compressed-a.mkv.mp4"));
    EXPECT_TRUE(commandHas(" -i \"" + native("/videos/a.mkv.mp4") + "\" "));
}

TEST_F(Mp3Tool, EncodingWithoutASourceAsksForOne) {
    trigger("mnu_ReEncode");
    ASSERT_FALSE(dialogs.shown().empty());
    EXPECT_EQ(dialogs.shown().back().kind, "open file");
    EXPECT_EQ(dialogs.shown().back().title, "Select Video");
    EXPECT_TRUE(state.ToolBusy);
    EXPECT_EQ(text(c.status(StatusCell::Method)), "Method:MP3Lame");
}

TEST_F(Mp3Tool, ViewingTheCommandShowsAnOptionALineAndNoRunsNothing) {
    select(native("/videos/clip.mp4"));
    const std::size_t before = dialogs.shown().size();
    dialogs.answerBox(MessageBoxButton::No);
    trigger("mnu_ViewffmpegString");
    ASSERT_EQ(dialogs.shown().size(), before + 1);
    const auto& box = dialogs.shown().back();
    EXPECT_EQ(box.title, "View Commands");
    EXPECT_EQ(box.flags, 52);
    EXPECT_NE(box.text.find("\ncrf 20 \npreset veryfast \ncodec:a libmp3lame \nqscale:a 5 \nar "
                            "44100 \ny \"" +
                            native("/videos/Compressed\nclip.mp4") +
                            "\"\n\nExecute this set of instructions now ?"),
              std::string::npos);
    EXPECT_FALSE(state.ToolBusy);
}

TEST_F(Mp3Tool, EveryTextIsWholeWithItsValuesAtTheirWidest) {
    control<XpSlider>("xpSlider1")->setValue(50);
    control<XpSlider>("xpSlider2")->setValue(9);
    control<QRadioButton>("Option1(0)")->click();  // "Preset  UltraFast"
    const std::pair<const char*, const char*> texts[] = {
        {"Label11", "10:00:00"},
        {"Label12", "36000"},
        {"Label4", "36000"},
        {"Label13", "10:00:00"},
        {"Label8", "Compression Progress 100.00% Complete"}};
    for (const auto& [name, text] : texts) control<QLabel>(name)->setText(text);
    EXPECT_TRUE(textIsWhole(tool()));
    // The qscale is not read as part of the slider's end caption.
    EXPECT_TRUE(apart(control<QLabel>("Label7"), control<QLabel>("Label5"), &tool(),
                      blanks(control<QLabel>("Label7"), 2)));
}

TEST_F(Mp3Tool, EachNumberOfTheRunStandsUnderItsUnitOnItsCaptionsLine) {
    const std::pair<const char*, const char*> texts[] = {
        {"Label11", "0:00:10"}, {"Label12", "10"}, {"Label4", "10"}, {"Label13", "0:00:04"}};
    for (const auto& [name, text] : texts) control<QLabel>(name)->setText(text);
    settleLayouts();
    auto at = [this](const char* name) {
        const QWidget* widget = control<QWidget>(name);
        return QRect(widget->mapTo(&tool(), QPoint(0, 0)), widget->size());
    };
    auto sameLine = [](const QRect& a, const QRect& b) {
        return a.top() <= b.bottom() && b.top() <= a.bottom();
    };
    auto sameColumn = [](const QRect& a, const QRect& b) {
        return a.left() <= b.right() && b.left() <= a.right();
    };
    const std::tuple<const char*, const char*, const char*> numbers[] = {
        {"Label11", "clockHeading", "Label22"},
        {"Label12", "secondsHeading", "Label22"},
        {"Label13", "clockHeading", "Label23"},
        {"Label4", "secondsHeading", "barMaximumCaption"}};
    for (const auto& [number, unit, caption] : numbers) {
        ASSERT_TRUE(control<QWidget>(unit) && control<QWidget>(caption));
        EXPECT_TRUE(sameColumn(at(number), at(unit)) && at(unit).bottom() < at(number).top())
            << number << " under " << unit;
        EXPECT_TRUE(sameLine(at(number), at(caption))) << number << " beside " << caption;
    }
    EXPECT_EQ(control<QLabel>("secondsHeading")->text(), "seconds");
    EXPECT_EQ(control<QLabel>("barMaximumCaption")->text(), "Progress Bar Maximum");
}

}  // namespace
}  // namespace quillet
