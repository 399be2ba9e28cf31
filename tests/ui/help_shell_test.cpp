// Help > Help (PDF) on Windows: the guide beside the program is handed to the system's shell, which
// opens it with the program the user's PDF files open with.
#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "app/qt_dialogs.h"
#include "main/form1.h"
#include "program_windows.h"
#include "under_wine.h"

namespace quillet {
namespace {

TEST(HelpThroughTheShell, TheGuideOpensWithTheProgramOfItsKind) {
    // The test registers its own PDF program, which only a throw-away wine prefix may have done to
    // it.
    if (!underWine()) GTEST_SKIP() << "it would change the PDF program of the user running it";
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    const QString record = folder.filePath("opened.txt");
    qputenv("CHILD_RECORD_TO", QDir::toNativeSeparators(record).toUtf8());
    // Wine reads the kinds of file from the machine's part of the registry only.
    QSettings classes("HKEY_CLASSES_ROOT", QSettings::NativeFormat);
    classes.setValue(".pdf/.", "QuilletTest.Pdf");
    classes.setValue(
        "QuilletTest.Pdf/shell/open/command/.",
        QString(R"("%1" "%2")")
            .arg(QDir::toNativeSeparators(QFileInfo(CHILD_RECORD_ARGS).absoluteFilePath()), "%1"));
    classes.sync();

    const QString guide = QDir(QCoreApplication::applicationDirPath()).filePath("Quillet 2.pdf");
    QFile(guide).open(QIODevice::WriteOnly);
    QtDialogs dialogs;
    ProgramState state;
    ProgramForms forms(state, dialogs);
    forms.get<Form1>().findChild<QAction*>("mnu_Help")->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFileInfo(record).size() > 0; }, 20000));
    QFile opened(record);
    opened.open(QIODevice::ReadOnly);
    EXPECT_EQ(opened.readAll().split('\n').value(2).toLower(),
              "[" + QDir::toNativeSeparators(guide).toLower().toUtf8() + "]");
    QFile::remove(guide);
}

}  // namespace
}  // namespace quillet
