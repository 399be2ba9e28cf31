#include <gtest/gtest.h>
#include <QApplication>
#include <QDir>
#include <QFont>

// Window tests need one application object for the whole run, made before any widget, and run
// without a display (also when the test list is read at build time), unless the test program is
// built for a platform of its own (QUILLET_TEST_PLATFORM).
int main(int argc, char** argv) {
#ifdef QUILLET_TEST_PLATFORM
    const char* platform = QUILLET_TEST_PLATFORM;
#else
    const char* platform = "offscreen";
#endif
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", platform);
#ifdef _WIN32
    // On Windows the display-less platform reads its fonts from a folder: the system's own.
    if (!qEnvironmentVariableIsSet("QT_QPA_FONTDIR")) {
        qputenv("QT_QPA_FONTDIR",
                QDir(qEnvironmentVariable("WINDIR")).filePath("Fonts").toLocal8Bit());
    }
#endif
    QApplication app(argc, argv);
#ifdef _WIN32
    // Windows shows its windows' text at 9 points; the display-less platform would take 12.
    if (QGuiApplication::platformName() == "offscreen") {
        QFont text = QApplication::font();
        text.setPointSize(9);
        QApplication::setFont(text);
    }
#endif
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
