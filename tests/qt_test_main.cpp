#include <gtest/gtest.h>
#include <QApplication>

// Window tests need one application object for the whole run, made before any widget, and run
// without a display (also when the test list is read at build time).
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
