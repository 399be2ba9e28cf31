#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Two real copies of the program: the second must only show its box and end, the first must
// carry on untouched.
TEST(SecondInstance, SecondCopyShowsTheBoxAndEndsWhileTheFirstRunsOn) {
    QTemporaryDir runtime;
    ASSERT_TRUE(runtime.isValid());
    QFile::setPermissions(runtime.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    // The lock lives in the user's runtime folder, or the temporary folder where there is none.
    for (const char* folder : {"XDG_RUNTIME_DIR", "TEMP", "TMP"}) {
        env.insert(folder, QDir::toNativeSeparators(runtime.path()));
    }
    env.insert("QT_QPA_PLATFORM", "offscreen");

    QProcess first;
    first.setProcessEnvironment(env);
    first.start(QUILLET_EXE, {});
    ASSERT_TRUE(first.waitForStarted(10000));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return !QDir(runtime.path()).entryList({"*.lock"}, QDir::Files).isEmpty(); }, 10000));

    for (const char* answer : {"OK", "Cancel"}) {
        QProcess second;
        env.insert("QUILLET_SCRIPTED_DIALOGS", answer);
        second.setProcessEnvironment(env);
        second.start(QUILLET_EXE, {});
        ASSERT_TRUE(second.waitForFinished(10000));
        EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(second.exitCode(), 0);
        const QString shown = QString::fromUtf8(second.readAllStandardOutput());
        EXPECT_EQ(shown.count("message box"), 1) << shown.toStdString();
        EXPECT_TRUE(
            shown.contains("message box [4145] \"Quillet (Version 2.0)\": \"Quillet "
                           "(Version 2.0) Is already running.\""))
            << shown.toStdString();
    }

    EXPECT_EQ(first.state(), QProcess::Running);
    first.kill();
    first.waitForFinished(5000);
}

}  // namespace
