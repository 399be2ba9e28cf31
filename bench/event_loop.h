#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QTimer>
#include <chrono>

// The benches drive the event loop from outside, as a person's session would; the program itself
// never runs a loop of its own inside a handler.

// Lets the windows run for `duration`.
inline void runEventLoopFor(std::chrono::milliseconds duration) {
    QTimer::singleShot(duration, [] { QCoreApplication::quit(); });
    QCoreApplication::exec();
}

// Lets the windows run until `object` has been destroyed.
inline void runEventLoopUntilDestroyed(QObject& object) {
    QObject::connect(&object, &QObject::destroyed, [] { QCoreApplication::quit(); });
    QCoreApplication::exec();
}
