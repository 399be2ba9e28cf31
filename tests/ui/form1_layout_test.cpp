#include <QTest>

#include "form1_test_window.h"
#include "text_fits.h"
#include "widgets/xp_slider.h"

namespace quillet {
namespace {

// The main window on screen at the size start-up gives it.
class Form1Layout : public Form1Window {
protected:
    void SetUp() override {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
        settleLayouts();
    }
    QLabel* captionReading(const QString& text) {
        for (QLabel* label : form.findChildren<QLabel*>()) {
            if (label->text() == text) return label;
        }
        return nullptr;
    }
};

TEST_F(Form1Layout, AtRestEveryTextIsWhole) {
    EXPECT_TRUE(textIsWhole(form));
}

TEST_F(Form1Layout, TheTargetShareKeepsClearOfTheBitRateAndTheBoxesKeepTheirWidth) {
    const int sizeBoxWidth = c.Text7->width();
    const int rateBoxWidth = c.Text10->width();
    const QLabel* rateCaption = captionReading("New Bit Rate (kbps)");
    ASSERT_TRUE(rateCaption);
    c.Text6->setText("0,100");  // the slider then runs 0 to 100 MB: one step is one percent
    c.Text8->setText("36000");
    for (const auto& [position, share] :
         {std::pair{26, "26%"}, std::pair{100, "100%"}, std::pair{0, "0%"}}) {
        c.xpSlider4->setValue(position);
        settleLayouts();
        ASSERT_EQ(text(c.Label2),
                  std::string("Target Size - Compress to ") + share + " of Original Video Size");
        EXPECT_TRUE(textFits(c.Label2));
        EXPECT_TRUE(apart(c.Label2, rateCaption, &form, blanks(c.Label2, 2)));
        EXPECT_EQ(c.Text7->width(), sizeBoxWidth) << share;
        EXPECT_EQ(c.Text10->width(), rateBoxWidth) << share;
        EXPECT_TRUE(textIsWhole(form)) << share;
    }
}

TEST_F(Form1Layout, DuringAJobWithEveryValueAtItsWidestEveryTextIsWhole) {
    c.Text6->setText("12,345");
    c.Text1->setText("10:00:00");
    c.Text8->setText("36000");
    c.Text3->setText("12:59 PM");
    // "UltraFast", "000" k and "100" k; "512" k, "2.00" M and "10.0" M.
    for (XpSlider* slider : {c.xpSlider1, c.xpSlider7, c.xpSlider8}) {
        slider->setValue(slider->minimum());
    }
    for (XpSlider* slider : {c.xpSlider3, c.xpSlider5, c.xpSlider10}) {
        slider->setValue(slider->maximum());
    }
    c.Label1->setText("Compression Progress 100.00% Completed");
    const std::pair<StatusCell, const char*> cells[] = {
        {StatusCell::Method, "Method: Target Size"},
        {StatusCell::Cpu, "CPU: 100.00%"},
        {StatusCell::SourceSize, "Init Size: 12,345Mb"},
        {StatusCell::Written, "Writen: 12,345Mb"},
        {StatusCell::SampleRate, "384000kHz"}};
    for (const auto& [cell, caption] : cells) c.status(cell)->setText(caption);
    form.CompressionSpeedDisplay(8);
    EXPECT_TRUE(textIsWhole(form));
}

}  // namespace
}  // namespace quillet
