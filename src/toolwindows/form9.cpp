#include "toolwindows/form9.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/main_window.h"
#include "app/twips.h"
#include "toolwindows/sample_rate_choices.h"
#include "toolwindows/tool_controls.h"
#include "widgets/label_looks.h"
#include "widgets/option_array.h"

namespace quillet {

namespace {

// The options stand in one column, this far from the left edge.
constexpr int kOptionLeftTwips = 80;

void setGround(QWidget* widget, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
}

}  // namespace

Form9::Form9(Forms& forms)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      forms_(forms),
      Picture7(new QWidget(this)),
      Label2(new QLabel(this)),
      Label1(new QLabel("Close", this)) {
    setObjectName("Form9");
    setWindowTitle("Audio Sample Rate");
    Picture7->setObjectName("Picture7");
    Label1->setObjectName("Label1");
    Label2->setObjectName("Label2");

    Option2 = new OptionArray("Option2", captionList(kChooserRateCaptions), Picture7);
    auto* column = new QVBoxLayout(Picture7);
    column->setContentsMargins(twipsToPixels(kOptionLeftTwips), 8, 12, 4);
    for (int index = 0; index < Option2->count(); ++index) column->addWidget(Option2->item(index));

    // "Close" stands on its own ground, which lights while the mouse is on it.
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setStyleSheet("color: white;");
    Label2->setAutoFillBackground(true);
    auto* closeGround = new QVBoxLayout(Label2);
    closeGround->setContentsMargins(4, 3, 4, 3);
    closeGround->addWidget(Label1);
    // A label takes its size from its own text, not from a layout inside it: without this the
    // window is sized before the ground has grown to hold "Close", and cuts it.
    Label2->setMinimumSize(closeGround->minimumSize());
    showCloseHighlight(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(Picture7);
    layout->addWidget(Label2);

    connect(Option2, &OptionArray::Click, this, [this](int index) {
        Option2_Click(index);
        Option2_MouseUp(index);
    });
    for (QWidget* watched : std::initializer_list<QWidget*>{this, Picture7, Label1}) {
        watched->setMouseTracking(true);
        watched->installEventFilter(this);
    }
    for (int index = 0; index < Option2->count(); ++index) {
        Option2->item(index)->installEventFilter(this);
    }
}

void Form9::Form_Load() {
    showCloseHighlight(false);
    const MainWindow* mainWindow = forms_.mainWindow();
    if (!mainWindow) return;
    if (const auto option = chooserOptionOf(mainWindow->selectedSampleRateItem())) {
        Option2->select(*option);
    }
}

void Form9::Option2_Click(int Index) {
    const std::string caption = kChooserRateCaptions.at(static_cast<std::size_t>(Index));
    const auto rate = sampleRateOfCaption(caption);
    if (rate) forms_.state().SampleRate = *rate;
    if (MainWindow* mainWindow = forms_.mainWindow()) {
        mainWindow->showStatusText(StatusCell::SampleRate, forms_.state().SampleRate + "kHz");
    }
}

void Form9::Option2_MouseUp(int Index) {
    MainWindow* mainWindow = forms_.mainWindow();
    if (!mainWindow) return;
    const auto item = mainWindowRateItem(Index);
    mainWindow->selectSampleRateItem(item);
    // A rate the main window's own items do not offer is marked in its cell.
    if (!item) mainWindow->markStatusCell(StatusCell::SampleRate);
}

void Form9::showCloseHighlight(bool on) {
    setGround(Label2, on ? kHighlightText : kNormalText);
}

bool Form9::eventFilter(QObject* watched, QEvent* event) {
    const bool onClose = watched == Label1;
    switch (event->type()) {
        case QEvent::Enter:
        case QEvent::MouseMove: {
            showCloseHighlight(onClose);
            const auto* mouse = dynamic_cast<QMouseEvent*>(event);
            const bool dragArea = watched == this || watched == Picture7;
            if (mouse && dragArea && (mouse->buttons() & Qt::LeftButton)) {
                move(mouse->globalPosition().toPoint() - dragOffset_);
            }
            break;
        }
        case QEvent::MouseButtonPress: {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            dragOffset_ = mouse->globalPosition().toPoint() - frameGeometry().topLeft();
            break;
        }
        case QEvent::MouseButtonRelease:
            if (onClose) forms_.unload(kId);
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void Form9::closeEvent(QCloseEvent* event) {
    // Closing by the system (a window manager's close) ends the window as "Close" does.
    event->ignore();
    forms_.unload(kId);
}

}  // namespace quillet
