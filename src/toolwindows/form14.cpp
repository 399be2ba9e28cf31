#include "toolwindows/form14.h"

#include "app/program_folder.h"
#include "base/platform_names.h"
#include "tools/command_runner.h"
#include "tools/resolution_display.h"
#include "tools/resolution_probe.h"

namespace quillet {

Form14::Form14(Forms& forms) : QWidget(nullptr), forms_(forms) {
    setObjectName("Form14");
    unloadTimer_.setSingleShot(true);
    unloadTimer_.setInterval(1000);
    connect(&unloadTimer_, &QTimer::timeout, this, [this] { forms_.unload(kId); });
}

void Form14::GetVideoWidthHeightData(const std::string& path) {
    unloadTimer_.stop();
    objDOS_ = forms_.runningCommands().newRunner();
    objDOS_->ReceiveOutputs = [this](const std::string& piece) { objDOS_ReceiveOutputs(piece); };
    showResolution(kResolutionPlaceholder);
    objDOS_->start(resolutionProbeCommandLine(programFolder(), path, kThisPlatform));
}

void Form14::Form_Unload() {
    unloadTimer_.stop();
    objDOS_.reset();
}

void Form14::objDOS_ReceiveOutputs(const std::string& CommandOutputs) {
    const auto resolution = parseResolutionPiece(CommandOutputs);
    if (!resolution) return;
    showResolution(*resolution);
    unloadTimer_.start();
}

void Form14::showResolution(const std::string& text) {
    if (auto* display = dynamic_cast<ResolutionDisplay*>(forms_.loaded(FormId::Form11))) {
        display->showResolution(text);
    }
}

}  // namespace quillet
