#include "widgets/source_file.h"

#include <QFileInfo>
#include <QLocale>

#include "app/program_folder.h"
#include "app/qt_format_locale.h"
#include "base/platform_names.h"
#include "widgets/source_video.h"

namespace quillet {

std::optional<std::string> sourceFileSizeText(const std::string& path) {
    const QFileInfo file(QString::fromStdString(path));
    if (!file.isFile()) return std::nullopt;
    return sourceSizeText(static_cast<std::uintmax_t>(file.size()), formatLocale(QLocale()));
}

std::unique_ptr<DurationProbe> probeRunningTime(const std::string& path) {
    return std::make_unique<DurationProbe>(
        durationProbeCommandLine(programFolder(), path, kThisPlatform));
}

}  // namespace quillet
