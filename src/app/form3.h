#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

#include "app/cpu_sampler.h"
#include "app/forms.h"

namespace quillet {

// The processor monitor: a window that is never shown and only carries the timer that refreshes
// the CPU cell of the main window's status strip.
class Form3 : public QWidget, public FormEvents {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form3;

    explicit Form3(Forms& forms, std::unique_ptr<CpuSampler> sampler = makeSystemCpuSampler());

    // Starts Timer1 and takes one reading, whether or not the monitor is switched on.
    void Form_Load() override;

    // Reads the load and shows it in the main window's CPU cell, if the main window is loaded.
    // Returns whether a reading was shown; a failed reading leaves the cell as it was.
    bool takeReading();

    // A reading, while the monitor is switched on.
    void Timer1_Timer();

private:
    Forms& forms_;
    std::unique_ptr<CpuSampler> sampler_;
    QTimer* Timer1;
};

}  // namespace quillet
