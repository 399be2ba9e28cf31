#pragma once

#include <QTimer>
#include <QWidget>

#include <functional>

#include "app/forms.h"
#include "app/splash_fade.h"

class QFrame;
class QLabel;

namespace quillet {

// The splash window: shown while the main window comes up, kept above it for four seconds,
// then faded out and destroyed.
class Form4 : public QWidget, public FormEvents {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form4;

    explicit Form4(Forms& forms);

    // Loads the main window and shows it a second later.
    void Form_Load() override;
    void Form_Unload() override;
    void centre();
    // What start-up does once the main window has been shown, run by the splash itself; not done
    // if the splash has gone by then (the program ending).
    void whenMainWindowShown(std::function<void()> next);

private:
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void Timer4_Timer();
    void showMainWindow();

    Forms& forms_;
    SplashFade fade_;
    QFrame* Shape1;
    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QTimer Timer1;
    QTimer Timer2;
    QTimer Timer3;
    QTimer Timer4;
    QTimer mainWindowWait_;
    std::function<void()> whenMainWindowShown_;
};

}  // namespace quillet
