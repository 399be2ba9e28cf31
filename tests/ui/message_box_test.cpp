// The message boxes a person sees: a short message still leaves its title whole in the title bar,
// where the window manager would otherwise cut it ("Qui… 2.0").
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include "app/qt_dialogs.h"
#include "app/title_bar.h"

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
        int titleWidth = 0;
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            width = box->width();
            titleWidth = titleBarWidth(*box);
            box->accept();
        });
        QtDialogs().messageBox(shown.text, shown.title, MessageBoxFlags::OkOnly);
        EXPECT_GE(width, titleWidth) << shown.text;
    }
}

}  // namespace
}  // namespace quillet
