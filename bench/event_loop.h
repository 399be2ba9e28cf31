#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QTimer>
#include <chrono>

// The benches drive the event loop from outside, as a person's session would; the program itself
// never runs a loop of its own inside a handler. The loop is left with exit(), which, unlike
// quit(), does not first ask the windows to close (the main window would take that as Exit).

// Lets the windows run for `duration`.
inline void runEventLoopFor(std::chrono::milliseconds duration) {
    QTimer::singleShot(duration, [] { QCoreApplication::exit(0); });
    QCoreApplication::exec();
}

// Lets the windows run until `object` has been destroyed.
inline void runEventLoopUntilDestroyed(QObject& object) {
    QObject::connect(&object, &QObject::destroyed, [] { QCoreApplication::exit(0); });
    QCoreApplication::exec();
}
