#include "app/program_folder.h"

#include <QCoreApplication>
#include <QDir>

namespace quillet {

namespace {
QString folder() {
    return QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
}
}  // namespace

std::string programFolder() {
    return folder().toStdString();
}

std::filesystem::path programFolderPath() {
    return std::filesystem::path(folder().toStdU16String());
}

}  // namespace quillet
