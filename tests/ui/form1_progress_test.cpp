#include <QCheckBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTest>

#include "app/form4.h"
#include "form1_test_window.h"
#include "main/speed_cell_row.h"

namespace quillet {
namespace {

using Form1Progress = Form1Window;

// The speed cells as a text, one character a cell: H lit, n normal.
std::string cells(const SpeedCellRow& row) {
    std::string looks;
    for (int index = 0; index < kSpeedCellCount; ++index) looks += row.isLit(index) ? 'H' : 'n';
    return looks;
}

TEST_F(Form1Progress, SpeedCellsFollowTheSpeedLevelWhileAJobRuns) {
    const SpeedCellRow& row = *c.Label8;
    form.setSpeedDisplayRunning(true);
    state.SpeedLevel = 8;
    EXPECT_TRUE(QTest::qWaitFor([&] { return cells(row) == "HHHHHHHHHn"; }, 1000)) << cells(row);

    // Below 1x: " 1x" stays lit from before and "< 1x" lights.
    state.SpeedLevel = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] { return cells(row) == "HnnnnnnnnH"; }, 1000)) << cells(row);

    // The same level again redraws nothing, even after the cells were cleared.
    form.ZeroSpeed();
    EXPECT_EQ(cells(row), "nnnnnnnnnn");
    QTest::qWait(350);
    EXPECT_EQ(cells(row), "nnnnnnnnnn");

    state.SpeedLevel = 2;
    EXPECT_TRUE(QTest::qWaitFor([&] { return cells(row) == "HHHnnnnnnn"; }, 1000)) << cells(row);
    form.setSpeedDisplayRunning(false);
    state.SpeedLevel = 5;
    QTest::qWait(250);
    EXPECT_EQ(cells(row), "HHHnnnnnnn");

    // The job windows light cells directly; the cells above keep their look.
    form.CompressionSpeedDisplay(4);
    EXPECT_EQ(cells(row), "HHHHHnnnnn");
}

TEST_F(Form1Progress, ProgressBarDrawsItsBarOnTheDarkGround) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_EQ(c.PBar->value(), 0);
    c.PBar->setValue(50);
    const QImage image = c.PBar->grab().toImage();
    const int middle = image.height() / 2;
    EXPECT_EQ(QColor(image.pixel(image.width() / 4, middle)), QColor(43, 124, 211));
    EXPECT_EQ(QColor(image.pixel(image.width() * 3 / 4, middle)), QColor(38, 56, 80));
}

TEST_F(Form1Progress, EverythingFitsTheWindowWithRoomForTheFrameAndMenuBar) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    // On Windows the outer size holds a frame and title bar (about 16 x 39) and a menu bar
    // (about 20): what the window shows must fit in what is left.
    const QSize outer(8870 / 15, 12510 / 15);
    const QSize room = outer - QSize(16, 39 + 20);
    const QSize needed = form.centralWidget()->minimumSizeHint();
    EXPECT_LE(needed.width(), room.width());
    EXPECT_LE(needed.height(), room.height());

    // No caption is cut: every label, box and item is at least as wide as its text needs.
    for (const QWidget* widget : form.centralWidget()->findChildren<QWidget*>()) {
        const bool hasText = qobject_cast<const QLabel*>(widget) ||
                             qobject_cast<const QRadioButton*>(widget) ||
                             qobject_cast<const QCheckBox*>(widget);
        if (!hasText || !widget->isVisible() || widget == c.Label3) continue;
        const QSize hint = widget->minimumSizeHint();
        EXPECT_GE(widget->width(), hint.width()) << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), hint.height()) << widget->objectName().toStdString();
    }

    // The status strip runs along the bottom edge: 2 from the left and bottom, the width less 5.
    const QRect strip = c.statusStrip->geometry();
    const QSize inner = form.centralWidget()->size();
    EXPECT_EQ(strip.left(), 2);
    EXPECT_EQ(strip.top(), inner.height() - strip.height() - 2);
    EXPECT_EQ(strip.width(), inner.width() - 5);
}

TEST(Form1Splash, GoesOnceAToolRuns) {
    ScriptedDialogs dialogs;
    ProgramState state;
    ProgramForms forms(state, dialogs);
    forms.get<Form4>();  // brings up the main window
    ASSERT_TRUE(forms.isLoaded(FormId::Form1));
    QTest::qWait(300);
    EXPECT_TRUE(forms.isLoaded(FormId::Form4));
    state.ToolBusy = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !forms.isLoaded(FormId::Form4); }, 1000));
}

}  // namespace
}  // namespace quillet
