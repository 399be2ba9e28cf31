#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "app/settings_store.h"

namespace quillet {
namespace {

class SettingsStore : public ::testing::Test {
protected:
    SettingsStore() { qputenv("QUILLET_SETTINGS_DIR", folder.path().toUtf8()); }
    ~SettingsStore() override { qunsetenv("QUILLET_SETTINGS_DIR"); }
    QTemporaryDir folder;
};

TEST_F(SettingsStore, FirstRunGivesTheDefaults) {
    EXPECT_EQ(readCpuMonitorSwitch(), true);
    for (const std::string& entry : readMetadataDefaults()) EXPECT_EQ(entry, " ");
}

TEST_F(SettingsStore, ValuesComeBackAsStoredInAFileOfTheChosenFolder) {
    for (const char* value : {" ", "", "a, b", "naïve \"quoted\" 東京", "line\nbreak", "@at"}) {
        saveSetting("METAdata", "comment", value);
        EXPECT_EQ(readSetting("METAdata", "comment", "-"), value);
    }
    std::array<std::string, kMetadataKeyCount> entries;
    for (std::size_t i = 0; i < entries.size(); ++i) entries[i] = "entry " + std::to_string(i);
    saveMetadataDefaults(entries);
    EXPECT_EQ(readMetadataDefaults(), entries);

    saveCpuMonitorSwitch(false);
    EXPECT_EQ(readCpuMonitorSwitch(), false);
    // A group per section, as the registry has a subkey per section.
    QFile file(folder.filePath("Quillet2.0.ini"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));  // Windows ends lines in CR LF
    EXPECT_TRUE(file.readAll().contains("[CPUenabled]\nEnableDisable=0"));
    saveSetting("CPUenabled", "EnableDisable", "maybe");
    EXPECT_EQ(readCpuMonitorSwitch(), std::nullopt);
}

}  // namespace
}  // namespace quillet
