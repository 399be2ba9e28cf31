#include "app/termination_signals.h"

#ifdef _WIN32

#include <QGuiApplication>
#include <QSessionManager>

namespace quillet {

// A window program on Windows receives no such signals. The system ends it through its main window
// (closed by the user or by the task manager) or by ending the session (log off, shut down), which
// Qt passes on as a request to save the user's work just before the process is ended: that request
// ends the program in order, as Exit does. A child still running when the process goes dies with
// it, through the job object that holds every child.
void endOnTerminationSignals(std::function<void()> end) {
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (!application) return;
    QObject::connect(application, &QGuiApplication::commitDataRequest, application,
                     [end = std::move(end)](QSessionManager&) { end(); });
}

}  // namespace quillet

#else

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cerrno>

namespace quillet {

namespace {

// The signal handler may do next to nothing: it writes one byte, and the event loop, watching the
// other end, does the rest.
int signalWriteEnd = -1;

void onTerminationSignal(int) {
    const int savedErrno = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalWriteEnd, &byte, 1);
    errno = savedErrno;
}

}  // namespace

void endOnTerminationSignals(std::function<void()> end) {
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0) return;
    signalWriteEnd = ends[0];
    const int readEnd = ends[1];
    auto* notifier =
        new QSocketNotifier(readEnd, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [readEnd, end = std::move(end)] {
                         char bytes[16];
                         while (::read(readEnd, bytes, sizeof bytes) > 0) {
                         }
                         end();
                     });

    struct sigaction action {};
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) ::sigaction(number, &action, nullptr);
}

}  // namespace quillet

#endif  // _WIN32
