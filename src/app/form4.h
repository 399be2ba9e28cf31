#pragma once

#include <QTimer>
#include <QWidget>

#include "app/splash_fade.h"

class QFrame;
class QLabel;

namespace quillet {

class Forms;

// The splash window: shown while the main window comes up, kept above it for four seconds,
// then faded out and destroyed.
class Form4 : public QWidget {
    Q_OBJECT

public:
    explicit Form4(Forms& forms);

    void Form_Load();
    void centre();

private:
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void Timer4_Timer();

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
};

}  // namespace quillet
