#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class QLabel;
class QTimer;
class QWidget;

namespace quillet {

// The main window's cosmetic hover effects: a caption or value label under the mouse is
// underlined (and, if asked, shown in the highlight colour). Leaving it starts its end timer,
// which takes the effect off all labels of that timer; moving over the window's empty area takes
// it off every label at once.
class HoverEffects : public QObject {
    Q_OBJECT

public:
    // `area`: the window's own surface, whose mouse moves end every effect.
    explicit HoverEffects(QWidget* area);

    void watch(QLabel* label, QTimer& endTimer, bool highlight = false);
    void endAll();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Watched {
        QPointer<QLabel> label;
        QTimer* endTimer;
        bool highlight;
        bool shown = false;
    };

    void setEffect(Watched& entry, bool on);
    void endEffectsOf(const QTimer* timer);

    QWidget* area_;
    std::vector<Watched> watched_;
};

}  // namespace quillet
