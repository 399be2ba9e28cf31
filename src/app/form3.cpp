#include "app/form3.h"

#include <QLabel>
#include <QLocale>

#include "app/cpu_monitor.h"
#include "app/forms.h"
#include "app/qt_format_locale.h"
#include "app/waits.h"
#include "main/form1.h"

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
    // The window stays whole while the yields below let other handlers run, even if one of them
    // unloads it.
    Forms::Busy busy(this);
    handlePendingEvents();
    const std::optional<double> percent = sampler_->read();
    handlePendingEvents();
    if (!percent || !forms_.isLoaded(FormId::Form1)) return false;
    const std::optional<std::string> text = cpuLabelText(*percent, formatLocale(QLocale()));
    if (!text) return false;
    forms_.form1().controls().status(StatusCell::Cpu)->setText(QString::fromStdString(*text));
    return true;
}

void Form3::Timer1_Timer() {
    if (forms_.state().CpuMonitorEnabled) takeReading();
}

}  // namespace quillet
