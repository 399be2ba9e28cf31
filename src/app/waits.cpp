#include "app/waits.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <vector>

namespace quillet {

namespace {
bool ending = false;
std::vector<QEventLoop*> runningWaits;
}  // namespace

void handlePendingEvents() {
    QCoreApplication::processEvents();
}

void waitHandlingEvents(std::chrono::milliseconds duration) {
    if (ending) return;
    QEventLoop loop;
    QTimer::singleShot(duration, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    runningWaits.push_back(&loop);
    loop.exec();
    std::erase(runningWaits, &loop);
}

void markProgramEnding() {
    ending = true;
    for (QEventLoop* loop : runningWaits) loop->quit();
}

bool programEnding() {
    return ending;
}

}  // namespace quillet
