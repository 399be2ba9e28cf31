#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLocale>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/form3.h"
#include "app/forms.h"
#include "app/scripted_dialogs.h"
#include "app/settings_store.h"
#include "main/form1.h"
#include "program_windows.h"
#include "under_wine.h"

namespace quillet {
namespace {

// The main window with the settings store in a folder of its own, empty unless a test fills it.
class Form1CpuSwitch : public ::testing::Test {
protected:
    Form1CpuSwitch() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        qputenv("QUILLET_SETTINGS_DIR", folder.path().toUtf8());
    }
    ~Form1CpuSwitch() override { qunsetenv("QUILLET_SETTINGS_DIR"); }

    QAction* showCpu() { return forms.get<Form1>().findChild<QAction*>("mnu_ShowCPU"); }
    std::string cell() {
        return forms.get<Form1>().controls().status(StatusCell::Cpu)->text().toStdString();
    }

    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    ProgramState state;
    ProgramForms forms{state, dialogs};
};

TEST_F(Form1CpuSwitch, FirstRunShowsTheLoad) {
    forms.get<Form1>();
    EXPECT_TRUE(state.CpuMonitorEnabled);
    EXPECT_TRUE(showCpu()->isChecked());
    ASSERT_TRUE(forms.isLoaded(FormId::Form3));
    // Wine offers no processor counter: with no reading the cell keeps the text it starts with.
    const char* shown = underWine() ? R"(^CPU: Calculating$)" : R"(^CPU: \d\d+\.\d\d%$)";
    EXPECT_TRUE(QRegularExpression(shown).match(QString::fromStdString(cell())).hasMatch())
        << cell();
}

TEST_F(Form1CpuSwitch, StoredOffStartsUntickedAndTheCellStaysAtZero) {
    saveSetting(kCpuSection, kCpuKey, "0");
    forms.get<Form1>();
    EXPECT_FALSE(state.CpuMonitorEnabled);
    EXPECT_FALSE(showCpu()->isChecked());
    EXPECT_EQ(cell(), "CPU: 00.00%");
    forms.get<Form3>().findChild<QTimer*>("Timer1")->setInterval(10);
    QTest::qWait(100);
    EXPECT_EQ(cell(), "CPU: 00.00%");
}

TEST_F(Form1CpuSwitch, TurningOffAndClosingStoresOff) {
    forms.get<Form1>().show();
    showCpu()->trigger();
    forms.get<Form1>().close();
    EXPECT_EQ(readSetting(kCpuSection, kCpuKey, ""), "0");
}

}  // namespace
}  // namespace quillet
