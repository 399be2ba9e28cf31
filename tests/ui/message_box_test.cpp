// The message boxes a person sees: a short message still leaves its title whole in the title bar,
// where the window manager would otherwise cut it ("Qui… 2.0").
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QMessageBox>
#include <QTimer>

#include "app/qt_dialogs.h"

namespace quillet {
namespace {

TEST(MessageBoxTitle, ShortMessagesLeaveRoomForTheWholeTitle) {
    const struct {
        const char* text;
        const char* title;
    } boxes[] = {
        {"Tessellan Works\r\nQuillet (Version 2.0)", ""},  // About: the program's own title
        {"Please select the Video to be compressed.", "No Video Selected"},
        {"OK", "Cannot find the help PDF file"},
    };
    for (const auto& shown : boxes) {
        int width = 0;
        QString title;
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            width = box->width();
            title = box->windowTitle();
            box->accept();
        });
        QtDialogs().messageBox(shown.text, shown.title, MessageBoxFlags::OkOnly);
        // The title bar sets its title in larger, bold type, beside an icon and three buttons,
        // each about as wide as the bar is high.
        QFont titleFont = QApplication::font();
        titleFont.setBold(true);
        titleFont.setPointSizeF(titleFont.pointSizeF() * 1.25);
        const QFontMetrics metrics(titleFont);
        EXPECT_GE(width, metrics.horizontalAdvance(title) + 4 * metrics.height()) << shown.text;
    }
}

}  // namespace
}  // namespace quillet
