#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

#include "app/qt_format_locale.h"
#include "form1_test_window.h"
#include "metadata/form2.h"
#include "native_path.h"
#include "text_fits.h"

namespace quillet {
namespace {

// The metadata editor, opened from the main window's Tools menu, with settings of its own.
class MetadataEditor : public Form1Window {
protected:
    MetadataEditor() { qputenv("QUILLET_SETTINGS_DIR", settings.path().toUtf8()); }
    ~MetadataEditor() override { qunsetenv("QUILLET_SETTINGS_DIR"); }
    void SetUp() override {
        form.findChild<QAction*>("mnu_METAdata")->trigger();
        ASSERT_TRUE(forms.isLoaded(FormId::Form2));
    }
    Form2& editor() { return forms.get<Form2>(); }
    void trigger(const char* item) { editor().findChild<QAction*>(item)->trigger(); }
    QLineEdit* field(int index) {
        return editor().findChild<QLineEdit*>(QString("Text1(%1)").arg(index));
    }
    void select(const std::string& path) {
        dialogs.answerFile(path);
        trigger("mnu_SelVid");
    }
    QTemporaryDir settings;
};

TEST_F(MetadataEditor, OpensWithItsFieldsAndNoVideo) {
    EXPECT_EQ(editor().windowTitle(), "Video META Data");
    EXPECT_EQ(editor().findChild<QLabel*>("Label3(21)")->text(), "Gapless Playback");
    EXPECT_EQ(field(6)->text(), "Quillet 2.0");
    QStringList items;
    for (QAction* item : editor().findChildren<QAction*>()) {
        if (!item->objectName().isEmpty()) items << item->objectName() + "=" + item->text();
    }
    items.sort();
    EXPECT_EQ(items.join("|").toStdString(),
              "mnu_EnterDate=Enter Todays Time and Date|mnu_ResetAll=Reset All|"
              "mnu_SaveDefault=Save As Default Entries|mnu_SelVid=Select Video|"
              "mnu_WriteDefaults=Write Default Entries into Fields|"
              "mnu_WriteMetaData=Write Meta Data Into Video");
    EXPECT_TRUE(editor().findChild<QPlainTextEdit*>("Text1(7)"));  // the taller comment box
    EXPECT_TRUE(editor().findChild<QLabel*>("Label5")->isVisible());
    trigger("mnu_WriteMetaData");  // no video chosen: nothing happens
    EXPECT_TRUE(dialogs.shown().empty());
}

TEST_F(MetadataEditor, DefaultsComeBackAsSavedAndABlankWhereNeverSaved) {
    trigger("mnu_WriteDefaults");  // first run: nothing saved yet
    for (const std::string& entry : editor().fields()) EXPECT_EQ(entry, " ");

    field(0)->setText("  Holiday ");
    field(6)->clear();
    dialogs.answerBox(MessageBoxButton::Yes);
    trigger("mnu_SaveDefault");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !dialogs.shown().empty(); }, 3000));
    EXPECT_EQ(dialogs.shown().back().text,
              "Successfully saved all entries.\r\nClear the fields now?");
    EXPECT_EQ(dialogs.shown().back().flags, 52);
    EXPECT_EQ(field(0)->text(), "");  // Yes cleared them

    trigger("mnu_WriteDefaults");
    EXPECT_EQ(field(0)->text(), "Holiday");
    EXPECT_EQ(field(6)->text(), "");  // a saved empty entry stays empty
}

TEST_F(MetadataEditor, TodaysDateReplacesTheDateField) {
    field(5)->setText("long ago");
    trigger("mnu_EnterDate");
    const QString date = field(5)->text();
    EXPECT_TRUE(
        QRegularExpression(R"(^\d\d:\d\d:\d\d \S+ \S+, \S+ \d{1,2} \d{4}$)").match(date).hasMatch())
        << date.toStdString();
}

TEST_F(MetadataEditor, ResetAllKeepsTheOutputAndAFolderlessPathKeepsItToo) {
    select(native("/videos/a b.mp4"));
    EXPECT_EQ(editor().findChild<QLabel*>("Label2")->text().toStdString(),
              native("/videos/a b.mp4"));
    EXPECT_FALSE(editor().findChild<QLabel*>("Label5")->isVisible());
    EXPECT_TRUE(
        editor().commandLine().ends_with(" -y \"" + native("/videos/Compressed-a b.mp4") + "\""));
    select("clip.mp4");  // no folder: the output stays
    EXPECT_TRUE(
        editor().commandLine().ends_with(" -y \"" + native("/videos/Compressed-a b.mp4") + "\""));

    field(0)->setText("x");
    trigger("mnu_ResetAll");
    EXPECT_EQ(field(0)->text(), "");
    EXPECT_TRUE(editor().findChild<QLabel*>("Label5")->isVisible());
    EXPECT_TRUE(
        editor().commandLine().ends_with(" -y \"" + native("/videos/Compressed-a b.mp4") + "\""));
    trigger("mnu_WriteMetaData");  // the source is gone: nothing happens
    EXPECT_TRUE(dialogs.shown().empty() || dialogs.shown().back().kind == "open file");
}

TEST_F(MetadataEditor, CaptionsStandClearOfTheirBoxesAndEveryTextIsWhole) {
    settleLayouts();
    EXPECT_TRUE(textIsWhole(editor()));
    for (int index = 0; index < 23; ++index) {
        const auto* caption = editor().findChild<QLabel*>(QString("Label3(%1)").arg(index));
        const auto* box = editor().findChild<QWidget*>(QString("Text1(%1)").arg(index));
        EXPECT_TRUE(apart(caption, box, &editor(), blanks(caption, 2)));
    }
}

TEST_F(MetadataEditor, TheDateBoxShowsTodaysTimeAndDateWholeOnAnyDay) {
    trigger("mnu_EnterDate");
    settleLayouts();
    EXPECT_TRUE(textFits(field(5)));
    const FormatLocale locale = formatLocale();
    for (int weekday = 0; weekday < 7; ++weekday) {
        for (int month = 1; month <= 12; ++month) {
            field(5)->setText(QString::fromStdString(
                todaysTimeAndDate({23, 59, 59}, {2026, month, 30, weekday}, locale)));
            EXPECT_TRUE(textFits(field(5)));
        }
    }
}

}  // namespace
}  // namespace quillet
