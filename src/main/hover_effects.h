#pragma once

#include <QObject>
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
        // The label as the event filter sees it. A label that is being destroyed still sends
        // events after it has stopped being a label, so its events are matched by this plain
        // identity and never through `label`.
        const QObject* object;
        // Used only to show or end the effect, which nothing asks for while the label is being
        // taken down; the entry goes once the label is destroyed.
        QLabel* label;
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
