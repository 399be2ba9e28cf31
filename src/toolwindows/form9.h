#pragma once

#include <QPoint>
#include <QWidget>

#include "app/forms.h"

class QLabel;

namespace quillet {

class OptionArray;

// The sample-rate chooser: a small borderless window with every rate the program offers, beside
// the main window's two. It holds no state of its own: the choice lives in SampleRate and in the
// main window's items and sample-rate cell.
class Form9 : public QWidget, public FormEvents {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form9;

    explicit Form9(Forms& forms);

    // Pre-selects the option of the main window's selected item; any other rate selects none.
    void Form_Load() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Option2_Click(int Index);
    // A mouse release on an option: the main window's items follow the choice.
    void Option2_MouseUp(int Index);
    void showCloseHighlight(bool on);

    Forms& forms_;
    QWidget* Picture7;  // the background, by which the window is dragged
    OptionArray* Option2;
    QLabel* Label2;      // the close button's ground, lit while the mouse is on "Close"
    QLabel* Label1;      // "Close"
    QPoint dragOffset_;  // where in the window a drag took hold
};

}  // namespace quillet
