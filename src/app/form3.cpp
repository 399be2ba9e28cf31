#include "app/form3.h"

#include <QLabel>
#include <QLocale>

#include "app/cpu_monitor.h"
#include "app/main_window.h"
#include "app/qt_format_locale.h"

namespace quillet {

Form3::Form3(Forms& forms, std::unique_ptr<CpuSampler> sampler)
    : QWidget(nullptr), forms_(forms), sampler_(std::move(sampler)), Timer1(new QTimer(this)) {
    setObjectName("Form3");
    setWindowTitle("CPU usage");
    Timer1->setObjectName("Timer1");
    connect(Timer1, &QTimer::timeout, this, &Form3::Timer1_Timer);
}

void Form3::Form_Load() {
    hide();
    Timer1->setInterval(kCpuReadingIntervalMs);
    Timer1->start();
    takeReading();
}

bool Form3::takeReading() {
    const std::optional<std::string> text = cpuCellAfterReading(*sampler_, formatLocale(QLocale()));
    MainWindow* mainWindow = forms_.mainWindow();
    if (!text || !mainWindow) return false;
    mainWindow->showCpuText(*text);
    return true;
}

void Form3::Timer1_Timer() {
    if (forms_.state().CpuMonitorEnabled) takeReading();
}

}  // namespace quillet
