#include "app/single_instance.h"

#include <QDir>
#include <QStandardPaths>

namespace quillet {

namespace {

QString lockFolder() {
#ifdef Q_OS_WIN
    return QStandardPaths::writableLocation(QStandardPaths::TempLocation);
#else
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return runtime.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::TempLocation)
                             : runtime;
#endif
}

}  // namespace

SingleInstance::SingleInstance(const QString& name)
    : lock_(QDir(lockFolder()).filePath(name + ".lock")), first_(lock_.tryLock(0)) {}

}  // namespace quillet
