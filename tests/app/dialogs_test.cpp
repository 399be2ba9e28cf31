#include <gtest/gtest.h>

#include <sstream>

#include "app/file_filter.h"
#include "app/scripted_dialogs.h"

namespace quillet {
namespace {

using B = MessageBoxButton;

TEST(MessageBoxStyle, FlagNumbersGiveButtonsIconAndModality) {
    struct Case {
        int flags;
        std::vector<B> buttons;
        bool exclamation;
        bool systemModal;
        B escape;
    };
    const Case cases[] = {
        {0, {B::Ok}, false, false, B::Ok},
        {48, {B::Ok}, true, false, B::Ok},
        {49, {B::Ok, B::Cancel}, true, false, B::Cancel},
        {51, {B::Yes, B::No, B::Cancel}, true, false, B::Cancel},
        {52, {B::Yes, B::No}, true, false, B::No},
        {53, {B::Retry, B::Cancel}, true, false, B::Cancel},
        {4145, {B::Ok, B::Cancel}, true, true, B::Cancel},
    };
    for (const Case& c : cases) {
        const MessageBoxStyle style = messageBoxStyle(c.flags);
        EXPECT_EQ(style.buttons, c.buttons) << c.flags;
        EXPECT_EQ(style.exclamation, c.exclamation) << c.flags;
        EXPECT_EQ(style.systemModal, c.systemModal) << c.flags;
        EXPECT_EQ(escapeButton(style), c.escape) << c.flags;
    }
}

TEST(ScriptedDialogs, AnswersInOrderAndRecordsWhatWasShown) {
    std::ostringstream log;
    ScriptedDialogs dialogs("Retry,file:/tmp/a b.mp4,Yes", &log);
    EXPECT_EQ(dialogs.messageBox("Please select", "No Video Selected", 53), B::Retry);
    EXPECT_EQ(dialogs.openFile("Compress Video", "/home", "All Files (*.*)|*.*"), "/tmp/a b.mp4");
    EXPECT_EQ(dialogs.messageBox("Visit?", "Missing", 51), B::Yes);
    // Nothing scripted left: a box is closed, a file dialog cancelled.
    EXPECT_EQ(dialogs.messageBox("Again?", "Missing", 51), B::Cancel);
    EXPECT_EQ(dialogs.openFile("Compress Video", "/home", ""), "");

    ASSERT_EQ(dialogs.shown().size(), 5u);
    EXPECT_EQ(dialogs.shown()[1].kind, "open file");
    EXPECT_EQ(dialogs.shown()[1].folder, "/home");
    EXPECT_EQ(dialogs.shown()[2].flags, 51);
    EXPECT_NE(log.str().find("message box [53] \"No Video Selected\": \"Please select\""),
              std::string::npos);
}

TEST(ScriptedDialogs, AnswerTheBoxDoesNotOfferCountsAsClosingIt) {
    ScriptedDialogs dialogs("Yes");
    EXPECT_EQ(dialogs.messageBox("Already running", "", 4145), B::Cancel);
    EXPECT_EQ(dialogs.shown()[0].title, kApplicationTitle);
}

TEST(FileDialogFilters, PairsBecomeEntriesAndStrayBlanksGo) {
    EXPECT_EQ(
        fileDialogFilters("All Files (*.*)|*.*|MPEG Files (*.mpeg)|*.mpeg |Clips|*.mts"),
        (std::vector<std::string>{"All Files (*.*)", "MPEG Files (*.mpeg)", "Clips (*.mts)"}));
    EXPECT_TRUE(fileDialogFilters("").empty());
    EXPECT_EQ(fileDialogFilters("Odd (*.a)|*.a|Dangling"), (std::vector<std::string>{"Odd (*.a)"}));
}

}  // namespace
}  // namespace quillet
