#include <QLabel>
#include <QRadioButton>
#include <QTest>

#include "form1_test_window.h"
#include "text_fits.h"
#include "widgets/option_array.h"

namespace quillet {
namespace {

// The sample-rate chooser as a person meets it: opened by a click on one of the main window's
// two rates.
class SampleRateChooser : public Form1Window {
protected:
    void SetUp() override {
        form.show();
        c.Option1->item(1)->click();
        ASSERT_TRUE(forms.isLoaded(FormId::Form9));
    }
    QWidget& chooser() { return *forms.loaded(FormId::Form9); }
    QRadioButton* option(int index) {
        return chooser().findChild<QRadioButton*>(QString("Option2(%1)").arg(index));
    }
    QLabel* rateCell() { return c.status(StatusCell::SampleRate); }
    std::optional<int> selectedOption() {
        for (int index = 0; index < 13; ++index) {
            if (option(index)->isChecked()) return index;
        }
        return std::nullopt;
    }
};

TEST_F(SampleRateChooser, OpensBesideTheMainWindowWithItsRateChosen) {
    EXPECT_TRUE(chooser().isVisible());
    EXPECT_TRUE(chooser().windowFlags() & Qt::FramelessWindowHint);
    EXPECT_GT(chooser().x(), form.frameGeometry().right());
    EXPECT_EQ(selectedOption(), 6);
    EXPECT_EQ(option(12)->text(), "384000kHz");
    // All thirteen in one column.
    for (int index = 1; index < 13; ++index) EXPECT_EQ(option(index)->x(), option(0)->x());
}

TEST_F(SampleRateChooser, ARateTheMainWindowLacksClearsItsPairAndIsMarked) {
    QTest::mouseClick(option(12), Qt::LeftButton);
    EXPECT_EQ(state.SampleRate, "384000");
    EXPECT_EQ(text(rateCell()), "384000kHz");
    EXPECT_FALSE(c.Option1->isSelected(0));
    EXPECT_FALSE(c.Option1->isSelected(1));
    EXPECT_TRUE(lit(rateCell()));

    QTest::mouseClick(option(6), Qt::LeftButton);
    EXPECT_EQ(state.SampleRate, "48000");
    EXPECT_EQ(text(rateCell()), "48000kHz");
    EXPECT_TRUE(c.Option1->isSelected(1));
    EXPECT_FALSE(c.Option1->isSelected(0));
}

TEST_F(SampleRateChooser, ReopenedAfterAnotherRateShowsNoneChosen) {
    QTest::mouseClick(option(3), Qt::LeftButton);
    EXPECT_EQ(state.SampleRate, "22050");
    QTest::mouseClick(chooser().findChild<QLabel*>("Label1"), Qt::LeftButton);  // "Close"
    EXPECT_FALSE(forms.isLoaded(FormId::Form9));
    forms.load(FormId::Form9);
    EXPECT_EQ(selectedOption(), std::nullopt);
    EXPECT_EQ(state.SampleRate, "22050");
}

TEST_F(SampleRateChooser, DraggingItsBackgroundMovesIt) {
    QWidget* background = chooser().findChild<QWidget*>("Picture7");
    const QPoint before = chooser().pos();
    QTest::mousePress(background, Qt::LeftButton, {}, {5, 5});
    QTest::mouseMove(background, {45, 25});
    QTest::mouseRelease(background, Qt::LeftButton, {}, {45, 25});
    EXPECT_EQ(chooser().pos(), before + QPoint(40, 20));
}

TEST_F(SampleRateChooser, EveryRateAndCloseAreWhole) {
    EXPECT_TRUE(textIsWhole(chooser()));
}

}  // namespace
}  // namespace quillet
