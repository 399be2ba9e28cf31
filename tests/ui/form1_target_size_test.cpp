#include "form1_test_window.h"
#include "widgets/xp_slider.h"

namespace quillet {
namespace {

using Form1TargetSize = Form1Window;

TEST_F(Form1TargetSize, ANewSourceStartsTheTargetAtAQuarterOfIt) {
    // The slider starts at 60: a source of 240 MB leaves it there and still shows its target.
    c.Text6->setText("0,240");
    EXPECT_EQ(c.xpSlider4->value(), 60);
    EXPECT_EQ(text(c.Text7), "0,060");
    EXPECT_EQ(text(c.Label2), "Target Size - Compress to 25% of Original Video Size");

    c.Text6->setText("2,000");
    EXPECT_EQ(c.xpSlider4->minimum(), 0);
    EXPECT_EQ(c.xpSlider4->maximum(), 2000);
    EXPECT_EQ(c.xpSlider4->value(), 500);
    EXPECT_EQ(text(c.Text7), "0,500");
    EXPECT_EQ(text(c.Label2), "Target Size - Compress to 25% of Original Video Size");
    EXPECT_EQ(text(c.status(StatusCell::SourceSize)), "Init Size: 2,000Mb");
    EXPECT_TRUE(lit(c.Text6));
    EXPECT_EQ(text(c.Text10), "0,000");  // the running time is not known yet
    c.Text6->setText("0,010");           // a quarter of 10 is 2.5: halves go to the even 2
    EXPECT_EQ(c.xpSlider4->value(), 2);
}

TEST_F(Form1TargetSize, TheBitRateFollowsTargetRunningTimeAndAudio) {
    c.Text6->setText("2,000");
    c.Text8->setText("600");
    EXPECT_TRUE(lit(c.Text8));
    c.xpSlider3->setValue(5);  // 128 kbit/s
    c.xpSlider4->setValue(100);
    EXPECT_EQ(text(c.Text10), "1237.333");  // 100 x 8192 / 600 - 128
    EXPECT_EQ(state.VideoBitRate, "1237.333");
    EXPECT_EQ(text(c.Text7), "0,100");
    EXPECT_EQ(text(c.Label2), "Target Size - Compress to 5% of Original Video Size");

    c.xpSlider3->setValue(6);  // 160 kbit/s, the target unchanged
    EXPECT_EQ(text(c.Text10), "1205.333");
    EXPECT_EQ(text(c.Text7), "0,100");

    c.Text8->setText("3600");  // no floor: the audio may take more than the target leaves
    c.xpSlider4->setValue(10);
    EXPECT_EQ(text(c.Text10), "-137.244");
    EXPECT_EQ(state.VideoBitRate, "-137.244");
}

TEST_F(Form1TargetSize, MissingOrZeroValuesLeaveTheBoxesAsTheyWere) {
    c.Text6->setText("2,000");
    c.Text8->setText("600");
    c.Text8->setText("");  // running time unknown: no bit rate, the target still follows
    c.xpSlider4->setValue(1000);
    EXPECT_EQ(text(c.Text7), "1,000");
    EXPECT_EQ(text(c.Text10), "6666.667");  // left from 500 MB over 600 s

    c.Text6->setText("0,000");  // a source that rounds to 0 MB
    EXPECT_EQ(c.xpSlider4->maximum(), 0);
    EXPECT_EQ(text(c.Text7), "1,000");
    EXPECT_EQ(text(c.Label2), "Target Size - Compress to 50% of Original Video Size");
    EXPECT_EQ(text(c.Text10), "6666.667");
    EXPECT_EQ(text(c.status(StatusCell::SourceSize)), "Init Size: 0,000Mb");
    EXPECT_TRUE(dialogs.shown().empty());
}

}  // namespace
}  // namespace quillet
