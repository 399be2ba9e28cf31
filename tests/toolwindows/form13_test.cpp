#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

#include "native_path.h"
#include "text_fits.h"
#include "tool_window_test.h"
#include "toolwindows/form11.h"
#include "toolwindows/form13.h"

namespace quillet {
namespace {

// The frame-rate tool, opened from the main window's Tools menu.
class FrameRateTool : public ToolWindowTest<Form13> {
protected:
    FrameRateTool() : ToolWindowTest("mnu_AlterFPS") {}
    void encode() { control<QAction>("mnu_EncodeVideo")->trigger(); }
};

TEST_F(FrameRateTool, OpensAtThirtyWithTheCustomBoxClosed) {
    EXPECT_TRUE(control<QRadioButton>("Option1(5)")->isChecked());
    EXPECT_FALSE(control<QCheckBox>("Check1")->isChecked());
    EXPECT_EQ(control<QLineEdit>("Text1")->text(), "30");
    EXPECT_FALSE(control<QLineEdit>("Text1")->isEnabled());
    EXPECT_TRUE(
        commandHas(" -c:v libx265 -filter:v fps=30 -preset veryfast -c:a aac -b:a 160k "
                   "-ar 44100 -y "));
}

TEST_F(FrameRateTool, AnOptionGivesItsWholeRate) {
    control<QRadioButton>("Option1(4)")->click();
    EXPECT_TRUE(commandHas("fps=29 "));
}

TEST_F(FrameRateTool, CustomRatesAreCutToWholeNumbersAndLettersAreRefused) {
    control<QRadioButton>("Option1(2)")->click();
    QCheckBox* custom = control<QCheckBox>("Check1");
    QLineEdit* box = control<QLineEdit>("Text1");
    custom->click();
    EXPECT_TRUE(box->isEnabled());
    EXPECT_FALSE(control<QRadioButton>("Option1(0)")->isEnabled());
    EXPECT_TRUE(control<QRadioButton>("Option1(2)")->isChecked());  // the options keep their choice

    box->setText("23.9");
    encode();  // no source: the dialog opens, cancelled
    EXPECT_EQ(dialogs.shown().back().kind, "open file");
    EXPECT_TRUE(commandHas("fps=23 "));

    const std::size_t before = dialogs.shown().size();
    box->setText("abc");
    ASSERT_EQ(dialogs.shown().size(), before + 1);
    EXPECT_EQ(dialogs.shown().back().text, "Frame Rate can only be Integers (Numbers)");
    EXPECT_EQ(dialogs.shown().back().title, "Alpha Characters");
    EXPECT_EQ(dialogs.shown().back().flags, 49);
    encode();
    EXPECT_TRUE(commandHas("fps=23 "));  // the rate read before stays in force
}

TEST_F(FrameRateTool, AtItsOwnSizeTheWindowIsFilledAndChangeFpsLooksLikeACommand) {
    EXPECT_EQ(tool().size(), QSize(583, 248));  // 8745 by 3720 twips
    QLabel* status = control<QLabel>("Label2");
    status->setText("Changing the frame rate to 30 fps");
    control<QLabel>("Label1")->setText(QString::fromStdString(native("/videos/holiday.mp4")));
    EXPECT_TRUE(textIsWhole(tool()));

    // The parts share the window: below the lowest, no more than a line stands empty.
    int lowest = 0;
    for (const QWidget* widget : textWidgetsOf(tool())) {
        lowest = std::max(lowest, widget->mapTo(&tool(), QPoint(0, widget->height())).y());
    }
    EXPECT_LE(tool().centralWidget()->geometry().bottom() + 1 - lowest,
              status->fontMetrics().height());

    // "Change fps" looks like the down-scale tool's "Compress Video".
    form.findChild<QAction*>("mnu_DownScaleRes")->trigger();
    const QLabel* command = forms.get<Form11>().findChild<QLabel*>("Label3");
    const QLabel* changeFps = control<QLabel>("Label3");
    EXPECT_NE(changeFps->frameShape(), QFrame::NoFrame);
    EXPECT_EQ(changeFps->frameShape(), command->frameShape());
    EXPECT_EQ(changeFps->alignment(), command->alignment());
    EXPECT_EQ(changeFps->cursor().shape(), Qt::PointingHandCursor);
}

}  // namespace
}  // namespace quillet
