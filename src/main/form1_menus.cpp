// The main window's menu bar and its commands.
#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <functional>
#include <map>

#include "app/forms.h"
#include "app/program_folder.h"
#include "app/settings_store.h"
#include "app/tool_check.h"
#include "base/platform_names.h"
#include "main/form1.h"
#include "main/menu_items.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

namespace quillet {

void Form1::buildMenus() {
    const std::map<std::string, std::function<void()>> commands = {
        {"mnu_Select", [this] { Label21_MouseUp(1); }},
        {"mnu_Deselect", [this] { ResetApp(); }},
        {"mnu_ShowCPU", [this] { mnu_ShowCPU_Click(); }},
        {"mnu_Exit", [this] { Form_QueryUnload(); }},
        {"mnu_StartCompress", [this] { mnu_StartCompress_Click(); }},
        {"mnu_mp3Audio", [this] { openTool(FormId::Form10); }},
        {"mnu_DownScaleRes", [this] { openTool(FormId::Form11); }},
        {"mnu_AlterFPS", [this] { openTool(FormId::Form13); }},
        {"mnu_METAdata", [this] { openMetadataEditor(); }},
        {"mnu_Help", [this] { mnu_Help_Click(); }},
        {"mnu_AboutThisApp", [this] { mnu_AboutThisApp_Click(); }},
    };
    for (const Menu& menu : kMainMenus) {
        QMenu* heading = menuBar()->addMenu(menu.heading.caption);
        heading->setObjectName(menu.heading.name);
        for (const MenuItem& item : menu.items) {
            if (!item.name) break;
            QAction* action =
                *item.caption ? heading->addAction(item.caption) : heading->addSeparator();
            action->setObjectName(item.name);
            const auto command = commands.find(item.name);
            if (command != commands.end()) {
                connect(action, &QAction::triggered, this, command->second);
            }
        }
    }
    QAction* showCpu = findChild<QAction*>("mnu_ShowCPU");
    showCpu->setCheckable(true);
    showCpu->setChecked(forms_.state().CpuMonitorEnabled);
}

void Form1::mnu_ShowCPU_Click() {
    // The action has already flipped its tick when this runs: what counts is the flag.
    showCpuMonitor(!forms_.state().CpuMonitorEnabled);
}

void Form1::applyStoredCpuSwitch() {
    if (const auto on = readCpuMonitorSwitch()) showCpuMonitor(*on);
}

void Form1::showCpuMonitor(bool on) {
    forms_.state().CpuMonitorEnabled = on;
    findChild<QAction*>("mnu_ShowCPU")->setChecked(on);
    if (on) return;
    c_.status(StatusCell::Cpu)->setText("CPU: 00.00%");
}

void Form1::mnu_StartCompress_Click() {
    ProgramState& state = forms_.state();
    if (!state.SourceVideo.empty()) {
        state.JobFinished = false;
        CompressionVars();
        return;
    }
    const MessageBoxButton answer = forms_.dialogs().messageBox(
        "Please select the Video to be compressed.", "No Video Selected",
        MessageBoxFlags::Exclamation + MessageBoxFlags::RetryCancel);
    if (answer == MessageBoxButton::Retry) Label21_MouseUp(1);
}

void Form1::mnu_Help_Click() {
    const std::string help = programFolder() + kThisPlatform.separator + "Quillet 2.pdf";
    if (QFileInfo::exists(QString::fromStdString(help))) {
        // Where the desktop has no program for PDF files, the person still learns where the
        // guide is, to open it some other way.
        if (!forms_.dialogs().openExternally(help)) {
            forms_.dialogs().messageBox(
                "No program to show PDF files is set up on this computer, so the help guide "
                "could not be opened.\r\n\r\nThe guide is the file:\r\n" +
                    help,
                "Help", MessageBoxFlags::Exclamation);
        }
    } else {
        forms_.dialogs().messageBox("Cannot find the help PDF file", "Error",
                                    MessageBoxFlags::Exclamation);
    }
}

void Form1::mnu_AboutThisApp_Click() {
    forms_.dialogs().messageBox("Tessellan Works\r\nQuillet (Version 2.0)", kApplicationTitle,
                                MessageBoxFlags::OkOnly);
}

}  // namespace quillet
