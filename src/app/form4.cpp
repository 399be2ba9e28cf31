#include "app/form4.h"

#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <utility>

#include "app/main_window.h"
#include "app/qt_format_locale.h"
#include "app/twips.h"

namespace quillet {

namespace {

constexpr int kWidthTwips = 7200;
constexpr int kHeightTwips = 2400;

QLabel* makeLabel(const char* name, const QString& text, QWidget* parent, int pointSize,
                  bool bold) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    QFont font = label->font();
    font.setPointSize(pointSize);
    font.setBold(bold);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

}  // namespace

Form4::Form4(Forms& forms)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      forms_(forms) {
    setObjectName("Form4");
    setFixedSize(twipsToPixels(kWidthTwips), twipsToPixels(kHeightTwips));
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, Qt::white);
    setPalette(palette);
    setAutoFillBackground(true);
    setStyleSheet(
        "QLabel { color: rgb(38, 56, 80); }"
        "QLabel#Label1 { color: rgb(16, 63, 145); }"
        "QFrame#Shape1 { border: 2px solid rgb(16, 63, 145); }");

    Shape1 = new QFrame(this);
    Shape1->setObjectName("Shape1");
    Label1 = makeLabel("Label1", "Quillet (Version 2.0)  libx265 HQ", this, 16, true);
    Label2 = makeLabel("Label2", "Loading...", this, 11, false);
    Label3 = makeLabel("Label3", "Waiting for Windows Management Instrumentation", this, 9, false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->addWidget(Label1);
    layout->addWidget(Label2);
    layout->addWidget(Label3);

    Timer1.setInterval(4000);
    Timer2.setInterval(10);
    Timer3.setInterval(10);
    Timer4.setInterval(500);
    connect(&Timer1, &QTimer::timeout, this, &Form4::Timer1_Timer);
    connect(&Timer2, &QTimer::timeout, this, &Form4::Timer2_Timer);
    connect(&Timer3, &QTimer::timeout, this, &Form4::Timer3_Timer);
    connect(&Timer4, &QTimer::timeout, this, &Form4::Timer4_Timer);
    Timer1.start();
    Timer2.start();
    Timer4.start();
    mainWindowWait_.setSingleShot(true);
    mainWindowWait_.setTimerType(Qt::PreciseTimer);
    mainWindowWait_.setInterval(1000);
    connect(&mainWindowWait_, &QTimer::timeout, this, &Form4::showMainWindow);
}

void Form4::Form_Load() {
    Timer3.stop();
    if (!forms_.state().SplashFinished) {
        centre();
        show();
    }
    setWindowOpacity(1.0);
    Shape1->setGeometry(2, 2, width() - 4, height() - 4);
    forms_.load(FormId::Form1);
    mainWindowWait_.start();
}

void Form4::Form_Unload() {
    mainWindowWait_.stop();
}

void Form4::whenMainWindowShown(std::function<void()> next) {
    whenMainWindowShown_ = std::move(next);
}

void Form4::showMainWindow() {
    // The main window may have gone during the wait (the program ending); it is not brought back.
    if (QWidget* mainWindow = forms_.loaded(FormId::Form1)) mainWindow->show();
    if (whenMainWindowShown_) std::exchange(whenMainWindowShown_, nullptr)();
}

void Form4::centre() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    move(screen.x() + screen.width() / 2 - width() / 2,
         screen.y() + screen.height() / 2 - height() / 2);
}

void Form4::Timer1_Timer() {
    // The fade starts only once the main window is up behind the splash; otherwise look again at
    // the next tick.
    const QWidget* mainWindow = forms_.loaded(FormId::Form1);
    if (!mainWindow || !mainWindow->isVisible()) return;
    Timer1.stop();
    Timer2.stop();
    Timer3.start();
}

void Form4::Timer2_Timer() {
    if (!forms_.state().SplashFinished) raise();
}

void Form4::Timer3_Timer() {
    if (forms_.state().SplashFinished) return;
    const SplashFade::Step step = fade_.tick();
    setWindowOpacity(step.opacity / 255.0);
    if (step.destroyWindow) {
        // Nothing more of the fade can be seen once the window is gone.
        Timer3.stop();
        forms_.unload(FormId::Form4);
    }
    if (step.finished) {
        forms_.state().SplashFinished = true;
        Timer3.stop();
    }
}

void Form4::Timer4_Timer() {
    const FormatLocale locale = formatLocale();
    const QDateTime now = QDateTime::currentDateTime();
    Label3->setText(QString::fromStdString(formatTime12HourSeconds(timeOfDay(now.time()), locale) +
                                           "   " +
                                           formatLongDate(calendarDate(now.date()), locale)));
}

}  // namespace quillet
