#include "app/settings_store.h"

#include <QDir>
#include <QLocale>
#include <QSettings>
#include <memory>

#include "app/cpu_monitor.h"
#include "app/qt_format_locale.h"

namespace quillet {

namespace {

QString qText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A fresh view of the store for each access: the folder for tests may change between accesses,
// and Qt shares the file or registry key underneath, so this costs little.
std::unique_ptr<QSettings> openStore() {
    const QString application = qText(kSettingsApplication);
    const QString testFolder = qEnvironmentVariable("QUILLET_SETTINGS_DIR");
    if (!testFolder.isEmpty()) {
        return std::make_unique<QSettings>(QDir(testFolder).filePath(application + ".ini"),
                                           QSettings::IniFormat);
    }
#ifdef Q_OS_WIN
    return std::make_unique<QSettings>("HKEY_CURRENT_USER\\Software\\" + application,
                                       QSettings::NativeFormat);
#else
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, application,
                                       application);
#endif
}

}  // namespace

std::string readSetting(std::string_view section, std::string_view key,
                        std::string_view defaultValue) {
    const std::unique_ptr<QSettings> store = openStore();
    store->beginGroup(qText(section));
    const QVariant value = store->value(qText(key));
    if (!value.isValid()) return std::string(defaultValue);
    return value.toString().toStdString();
}

void saveSetting(std::string_view section, std::string_view key, std::string_view value) {
    const std::unique_ptr<QSettings> store = openStore();
    store->beginGroup(qText(section));
    store->setValue(qText(key), qText(value));
}

std::optional<bool> readCpuMonitorSwitch() {
    return cpuSwitchFromStored(readSetting(kCpuSection, kCpuKey, kCpuDefault),
                               formatLocale(QLocale()));
}

void saveCpuMonitorSwitch(bool enabled) {
    saveSetting(kCpuSection, kCpuKey, cpuSwitchStoredText(enabled));
}

std::array<std::string, kMetadataKeyCount> readMetadataDefaults() {
    std::array<std::string, kMetadataKeyCount> entries;
    for (std::size_t i = 0; i < kMetadataKeyCount; ++i) {
        entries[i] = readSetting(kMetadataSection, kMetadataKeys[i], kMetadataDefault);
    }
    return entries;
}

void saveMetadataDefaults(const std::array<std::string, kMetadataKeyCount>& entries) {
    for (std::size_t i = 0; i < kMetadataKeyCount; ++i) {
        saveSetting(kMetadataSection, kMetadataKeys[i], entries[i]);
    }
}

}  // namespace quillet
