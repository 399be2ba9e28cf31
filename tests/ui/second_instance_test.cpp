#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "under_wine.h"

namespace {

// Two real copies of the program: the second must only show its box and end, the first must
// carry on untouched.
TEST(SecondInstance, SecondCopyShowsTheBoxAndEndsWhileTheFirstRunsOn) {
    QTemporaryDir runtime;
    ASSERT_TRUE(runtime.isValid());
    QFile::setPermissions(runtime.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
#ifdef _WIN32
    // The lock lives in the user's temporary folder (wine sets that folder for each program).
    const QString lockFolder = QDir::tempPath();
    // A copy killed by an earlier run leaves its lock behind, naming its process number. Wine
    // hands out the same numbers again in each session, so the first copy here may bear that
    // number and take the lock for its own: in wine's throw-away prefix the old lock is removed.
    if (quillet::underWine()) QFile::remove(QDir(lockFolder).filePath("Quillet2.0.lock"));
#else
    // The lock lives in the user's runtime folder: a folder of the test's own.
    const QString lockFolder = runtime.path();
    env.insert("XDG_RUNTIME_DIR", runtime.path());
    env.insert("QT_QPA_PLATFORM", "offscreen");  // the Windows program has its own platform only
#endif

    QProcess first;
    first.setProcessEnvironment(env);
    first.start(QUILLET_EXE, {});
    ASSERT_TRUE(first.waitForStarted(10000));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            // Held by the first copy: a lock names its holder on its first line.
            QFile lock(QDir(lockFolder).filePath("Quillet2.0.lock"));
            return lock.open(QIODevice::ReadOnly) &&
                   lock.readLine().trimmed() == QByteArray::number(first.processId());
        },
        20000));

    for (const char* answer : {"OK", "Cancel"}) {
        QProcess second;
        env.insert("QUILLET_SCRIPTED_DIALOGS", answer);
        second.setProcessEnvironment(env);
        second.start(QUILLET_EXE, {});
        ASSERT_TRUE(second.waitForFinished(30000));
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
    if (quillet::underWine()) QFile::remove(QDir(lockFolder).filePath("Quillet2.0.lock"));
}

}  // namespace
