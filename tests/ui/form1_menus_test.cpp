#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>

#include "form1_test_window.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

namespace quillet {
namespace {

class Form1Menus : public Form1Window {
protected:
    void trigger(const char* item) {
        QAction* action = form.findChild<QAction*>(item);
        ASSERT_TRUE(action) << item;
        action->trigger();
    }
};

TEST_F(Form1Menus, HeadingsAndItemsInOrder) {
    QStringList shown;
    for (QAction* heading : form.menuBar()->actions()) {
        shown << heading->menu()->objectName() + "=" + heading->text();
        for (QAction* item : heading->menu()->actions()) {
            shown << "  " + item->objectName() + "=" + item->text();
        }
    }
    EXPECT_EQ(shown.join("|").toStdString(),
              "mnu_File=File|  mnu_Select=Select Video|  mnu_Deselect=Reset App|  "
              "mnu_ShowCPU=Show CPU |  mnu_Space00=|  mnu_Exit=Exit|mnu_Compress=Compress|  "
              "mnu_StartCompress=Start Compression|  mnu_StopCompress=Stop Compression|"
              "mnu_Tools=Tools|  mnu_mp3Audio=Encode Video Audio with libmp3lame|  "
              "mnu_DownScaleRes=Down Scale Video Resolution|  "
              "mnu_AlterFPS=Alter Video Frame Rate (fps)|  "
              "mnu_METAdata=Write META Data Into Video|mnu_Hlp=Help|  mnu_Help=Help (PDF)|"
              "mnu_About=About|  mnu_AboutThisApp=About");
    EXPECT_TRUE(form.findChild<QAction*>("mnu_Space00")->isSeparator());
}

TEST_F(Form1Menus, StartWithoutASourceAsksAndCancelDoesNothingElse) {
    dialogs.answerBox(MessageBoxButton::Cancel);
    trigger("mnu_StartCompress");
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].text, "Please select the Video to be compressed.");
    EXPECT_EQ(dialogs.shown()[0].title, "No Video Selected");
    EXPECT_EQ(dialogs.shown()[0].flags, 53);
    EXPECT_EQ(state.CompressionMethod, "");
}

TEST_F(Form1Menus, RetryOpensTheSourceDialog) {
    dialogs.answerBox(MessageBoxButton::Retry);
    trigger("mnu_StartCompress");
    const auto& shown = dialogs.shown();
    ASSERT_GE(shown.size(), 2u);
    EXPECT_EQ(shown.back().kind, "open file");
    EXPECT_EQ(shown.back().title, "Compress Video");
    EXPECT_EQ(state.CompressionMethod, "");  // starting is not repeated after the dialog
}

TEST_F(Form1Menus, ShowCpuTurnsTheDisplayOffAndOn) {
    QAction* item = form.findChild<QAction*>("mnu_ShowCPU");
    ASSERT_TRUE(item->isChecked());
    trigger("mnu_ShowCPU");
    EXPECT_FALSE(state.CpuMonitorEnabled);
    EXPECT_FALSE(item->isChecked());
    EXPECT_EQ(text(c.status(StatusCell::Cpu)), "CPU: 00.00%");
    trigger("mnu_ShowCPU");
    EXPECT_TRUE(state.CpuMonitorEnabled);
    EXPECT_TRUE(item->isChecked());
}

TEST_F(Form1Menus, HelpOpensTheGuideBesideTheProgramOrSaysItIsMissing) {
    const QString guide = QCoreApplication::applicationDirPath() + "/Quillet 2.pdf";
    QFile::remove(guide);
    trigger("mnu_Help");
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].text, "Cannot find the help PDF file");
    EXPECT_EQ(dialogs.shown()[0].title, "Error");
    EXPECT_EQ(dialogs.shown()[0].flags, 48);

    QFile file(guide);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    trigger("mnu_Help");
    ASSERT_EQ(dialogs.shown().size(), 2u);
    EXPECT_EQ(dialogs.shown()[1].kind, "open externally");
    EXPECT_EQ(dialogs.shown()[1].text, QDir::toNativeSeparators(guide).toStdString());

    // A desktop with no program for PDF files: a message says where the guide is.
    dialogs.setOpeningWorks(false);
    trigger("mnu_Help");
    ASSERT_EQ(dialogs.shown().size(), 4u);
    EXPECT_EQ(dialogs.shown()[2].kind, "open externally");
    EXPECT_EQ(dialogs.shown()[3].kind, "message box");
    EXPECT_EQ(dialogs.shown()[3].flags, 48);
    EXPECT_TRUE(dialogs.shown()[3].text.ends_with(QDir::toNativeSeparators(guide).toStdString()))
        << dialogs.shown()[3].text;
    QFile::remove(guide);
}

TEST_F(Form1Menus, AboutNamesTheMaker) {
    trigger("mnu_AboutThisApp");
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].text, "Tessellan Works\r\nQuillet (Version 2.0)");
}

TEST_F(Form1Menus, OpeningAToolShowsItWithNoMethodChosenAndResetAppUnloadsIt) {
    form.enableMethodItems();
    c.xpOption1->item(2)->click();
    ASSERT_TRUE(c.xpSlider5->isEnabled());
    for (const char* tool : {"mnu_mp3Audio", "mnu_DownScaleRes", "mnu_AlterFPS"}) {
        trigger(tool);
        for (int index = 0; index < 4; ++index) EXPECT_FALSE(c.xpOption1->isSelected(index));
        EXPECT_FALSE(c.xpSlider5->isEnabled()) << tool;
        EXPECT_TRUE(c.xpSlider3->isEnabled()) << tool;
        c.xpOption1->item(2)->click();
    }
    // Each tool command first looks for the tools, which this test's folder does not hold.
    ASSERT_EQ(dialogs.shown().size(), 3u);
    for (const auto& box : dialogs.shown()) EXPECT_EQ(box.title, "FFmpeg Components Not Found");
    c.Option1->item(1)->click();  // the sample-rate chooser
    for (FormId tool : {FormId::Form9, FormId::Form10, FormId::Form13}) {
        ASSERT_TRUE(forms.isLoaded(tool));
        EXPECT_TRUE(forms.loaded(tool)->isVisible());
    }
    trigger("mnu_Deselect");
    for (FormId tool : {FormId::Form9, FormId::Form10, FormId::Form13}) {
        EXPECT_FALSE(forms.isLoaded(tool));
    }
}

}  // namespace
}  // namespace quillet
