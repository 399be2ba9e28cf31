#include <QCheckBox>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>

#include "form1_test_window.h"
#include "main/speed_cell_row.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

namespace quillet {
namespace {

using Form1Settings = Form1Window;

TEST_F(Form1Settings, StartsWithTheDesignedTextsWhateverTheSliderPositions) {
    const std::vector<std::pair<const QLabel*, const char*>> labels = {
        {c.Label9, "VeryFast"},
        {c.Label12, "20"},
        {c.Label14, "160"},
        {c.Label16, "k"},
        {c.Label30, "920"},
        {c.Label31, "k"},
        {c.Label35, "1.1"},
        {c.Label39, "M"},
        {c.Label36, "2.0"},
        {c.Label40, "M"},
        {c.Label45, "1.1"},
        {c.Label46, "M"},
        {c.Label33, "14"},
        {c.Label42, "18"},
        {c.Label24, "No Video Selected"},
        {c.Label3, ""},
        {c.Label21, "Browse"},
        {c.Label2, "Target Size - 60% of Original Video Size"},
        {c.Label1, "Compression Progress 00.00% Completed"},
        {c.status(StatusCell::Method), "Method:Target Size"},
        {c.status(StatusCell::SourceSize), "Init Size: 0,000Mb"},
        {c.status(StatusCell::Written), "Writen: 0,000Mb"},
        {c.status(StatusCell::SampleRate), "44100Hz"}};
    for (const auto& [label, expected] : labels) {
        EXPECT_EQ(text(label), expected) << label->objectName().toStdString();
    }
    const std::vector<std::pair<const QLineEdit*, const char*>> boxes = {{c.Text1, "0:00:00"},
                                                                         {c.Text6, "0,000"},
                                                                         {c.Text7, "0,000"},
                                                                         {c.Text8, "0000"},
                                                                         {c.Text10, "0,000"}};
    for (const auto& [box, expected] : boxes) EXPECT_EQ(text(box), expected);

    // The QP label reads 14 beside a slider at 18 until the slider first moves.
    EXPECT_EQ(c.xpSlider6->value(), 18);
    const struct {
        const XpSlider* slider;
        int min, max, value;
    } sliders[] = {{c.xpSlider1, 1, 8, 3},    {c.xpSlider2, 0, 50, 20},  {c.xpSlider3, 1, 13, 6},
                   {c.xpSlider4, 0, 100, 60}, {c.xpSlider5, 0, 100, 46}, {c.xpSlider6, 0, 50, 18},
                   {c.xpSlider7, 0, 30, 7},   {c.xpSlider8, 1, 20, 11},  {c.xpSlider9, 0, 50, 18},
                   {c.xpSlider10, 5, 50, 10}};
    for (const auto& s : sliders) {
        EXPECT_EQ(s.slider->minimum(), s.min) << s.slider->objectName().toStdString();
        EXPECT_EQ(s.slider->maximum(), s.max) << s.slider->objectName().toStdString();
        EXPECT_EQ(s.slider->value(), s.value) << s.slider->objectName().toStdString();
    }
    EXPECT_EQ(text(c.Label8->cell(0)), " 1x");
    EXPECT_EQ(text(c.Label8->cell(8)), "> 8x");
    EXPECT_EQ(text(c.Label8->cell(9)), "< 1x");
    EXPECT_FALSE(c.Check1->isChecked());
    EXPECT_EQ(state.PresetName, "veryfast");
}

TEST_F(Form1Settings, StartUpLeavesTheTargetSizeChosenAndOnlyThePresetActive) {
    EXPECT_EQ(form.size(), QSize(8870 / 15, 12510 / 15));  // no frame on the offscreen platform
    EXPECT_TRUE(c.xpOption1->isSelected(0));
    for (int index = 1; index < 4; ++index) EXPECT_FALSE(c.xpOption1->isSelected(index));
    EXPECT_TRUE(c.xpSlider1->isEnabled());
    for (const XpSlider* slider : {c.xpSlider2, c.xpSlider3, c.xpSlider4, c.xpSlider5, c.xpSlider6,
                                   c.xpSlider7, c.xpSlider8, c.xpSlider9, c.xpSlider10}) {
        EXPECT_FALSE(slider->isEnabled()) << slider->objectName().toStdString();
    }
    // Without a source video no method can be chosen.
    c.xpOption1->item(2)->click();
    EXPECT_FALSE(c.xpOption1->isSelected(2));
    EXPECT_EQ(text(c.status(StatusCell::Method)), "Method:Target Size");
}

TEST_F(Form1Settings, SlidersWriteTheirLabelsAndSharedValues) {
    const struct {
        XpSlider* slider;
        int position;
        const QLabel* value;
        const char* valueText;
        const QLabel* unit;
        const char* unitText;
        std::string ProgramState::*stored;
        const char* storedText;
    } cases[] = {
        {c.xpSlider5, 50, c.Label30, "1000", c.Label31, "k", &ProgramState::ABRBitRate, "1000"},
        {c.xpSlider5, 51, c.Label30, "1.02", c.Label31, "M", &ProgramState::ABRBitRate, "1.02"},
        {c.xpSlider7, 0, c.Label35, "000", c.Label39, "k", nullptr, ""},
        {c.xpSlider7, 6, c.Label35, "900", c.Label39, "k", nullptr, ""},
        {c.xpSlider7, 7, c.Label35, "1.1", c.Label39, "M", nullptr, ""},
        {c.xpSlider8, 9, c.Label45, "900", c.Label46, "k", nullptr, ""},
        {c.xpSlider8, 10, c.Label45, "1.0", c.Label46, "M", nullptr, ""},
        {c.xpSlider10, 50, c.Label36, "10.0", c.Label40, "M", nullptr, ""},
        {c.xpSlider3, 13, c.Label14, "512", c.Label16, "k", nullptr, ""},
        {c.xpSlider1, 8, c.Label9, "Slower", nullptr, "", &ProgramState::PresetName, "Slower"},
        {c.xpSlider2, 0, c.Label12, "0", nullptr, "", nullptr, ""},
        {c.xpSlider6, 18, c.Label33, "18", nullptr, "", &ProgramState::QPValue, "18"},
        {c.xpSlider9, 31, c.Label42, "31", nullptr, "", &ProgramState::QPLookAhead, "31"},
    };
    for (const auto& k : cases) {
        const std::string where =
            k.slider->objectName().toStdString() + " at " + std::to_string(k.position);
        // Moved away first, so that the position is a change even where it is the start one.
        k.slider->setValue(k.position == k.slider->minimum() ? k.slider->maximum()
                                                             : k.slider->minimum());
        k.slider->setValue(k.position);
        EXPECT_EQ(text(k.value), k.valueText) << where;
        EXPECT_TRUE(lit(k.value)) << where;
        if (k.unit) {
            EXPECT_EQ(text(k.unit), k.unitText) << where;
        }
        if (k.stored) {
            EXPECT_EQ(state.*k.stored, k.storedText) << where;
        }
    }
    EXPECT_EQ(state.ABRUnit, "M");
    // The highlight goes after a quarter of a second.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !lit(c.Label42); }, 1000));
}

TEST_F(Form1Settings, ChoosingAMethodActivatesItsSlidersAndNamesItInTheStatusStrip) {
    form.enableMethodItems();
    const struct {
        int index;
        std::vector<const XpSlider*> active;
        const char* caption;
    } cases[] = {
        {1, {c.xpSlider2}, "Method: CRF"},
        {2, {c.xpSlider5, c.xpSlider7, c.xpSlider8, c.xpSlider10}, "Method: ABR"},
        {3, {c.xpSlider6, c.xpSlider9}, "Method: QP"},
        {0, {c.xpSlider4}, "Method: Target Size"},
    };
    const std::vector<const XpSlider*> methodSliders = {c.xpSlider2, c.xpSlider4, c.xpSlider5,
                                                        c.xpSlider6, c.xpSlider7, c.xpSlider8,
                                                        c.xpSlider9, c.xpSlider10};
    for (const auto& k : cases) {
        c.xpOption1->item(k.index)->click();
        for (int index = 0; index < 4; ++index) {
            EXPECT_EQ(c.xpOption1->isSelected(index), index == k.index) << k.index;
        }
        for (const XpSlider* slider : methodSliders) {
            const bool active = std::ranges::find(k.active, slider) != k.active.end();
            EXPECT_EQ(slider->isEnabled(), active)
                << k.caption << " " << slider->objectName().toStdString();
        }
        EXPECT_TRUE(c.xpSlider1->isEnabled());
        EXPECT_TRUE(c.xpSlider3->isEnabled());
        EXPECT_EQ(text(c.status(StatusCell::Method)), k.caption);
        EXPECT_TRUE(lit(c.status(StatusCell::Method)));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !lit(c.status(StatusCell::Method)); }, 1500));

    form.clearMethodSelection();
    for (int index = 0; index < 4; ++index) EXPECT_FALSE(c.xpOption1->isSelected(index));
}

TEST_F(Form1Settings, SampleRateItemsStoreTheRateAndShowItInTheStatusStrip) {
    c.Option1->item(1)->click();
    EXPECT_EQ(state.SampleRate, "48000");
    EXPECT_EQ(text(c.status(StatusCell::SampleRate)), "48000Hz");
    EXPECT_TRUE(lit(c.status(StatusCell::SampleRate)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !lit(c.status(StatusCell::SampleRate)); }, 1500));
    c.Option1->item(0)->click();
    EXPECT_EQ(state.SampleRate, "44100");
    EXPECT_EQ(text(c.status(StatusCell::SampleRate)), "44100Hz");
}

TEST_F(Form1Settings, CompressionVarsCopiesTheShownSettingsAndTheMethodChosen) {
    c.Text6->setText("2,000");
    c.Text8->setText("600");
    c.xpSlider7->setValue(6);
    c.xpSlider8->setValue(9);
    state.JobFinished = true;
    state.CompressionMethod = "QP";
    form.clearMethodSelection();

    form.CompressionVars();
    EXPECT_EQ(state.CompressionMethod, "");
    EXPECT_FALSE(state.JobFinished);
    EXPECT_TRUE(
        QRegularExpression(R"(^(0\d|1[0-2]):[0-5]\d (AM|PM)$)").match(c.Text3->text()).hasMatch())
        << text(c.Text3);
    EXPECT_EQ(state.TargetSizeMb, "0,500");
    EXPECT_EQ(state.VideoSeconds, "600");
    EXPECT_EQ(state.VideoBitRate, "6666.667");  // 500 x 8192 / 600 - 160
    EXPECT_EQ(state.CRFValue, "20");
    EXPECT_EQ(state.ABRBitRate, "920");
    EXPECT_EQ(state.MinBitRate, "900k");
    EXPECT_EQ(state.MaxBitRate, "2.0M");
    EXPECT_EQ(state.BufferSize, "900k");
    EXPECT_EQ(state.QPValue, "14");
    EXPECT_EQ(state.AudioBitRate, "160");
    EXPECT_EQ(state.PresetName, "VeryFast");
    // Without a method no job window opens.
    for (FormId job : {FormId::Form5, FormId::Form6, FormId::Form7, FormId::Form8}) {
        EXPECT_FALSE(forms.isLoaded(job));
    }
}

}  // namespace
}  // namespace quillet
