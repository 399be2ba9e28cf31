#include "main/hover_effects.h"

#include <QEvent>
#include <QLabel>
#include <QTimer>
#include <algorithm>

#include "widgets/label_looks.h"

namespace quillet {

HoverEffects::HoverEffects(QWidget* area) : QObject(area), area_(area) {
    area_->setMouseTracking(true);
    area_->installEventFilter(this);
}

void HoverEffects::watch(QLabel* label, QTimer& endTimer, bool highlight) {
    // Moves over the label itself must not reach the window's surface, which would end the
    // effect at once.
    label->setAttribute(Qt::WA_NoMousePropagation);
    label->installEventFilter(this);
    const QObject* object = label;
    watched_.push_back({object, label, &endTimer, highlight});
    connect(label, &QObject::destroyed, this, [this, object] {
        std::erase_if(watched_, [object](const Watched& entry) { return entry.object == object; });
    });
    if (std::none_of(watched_.begin(), watched_.end() - 1,
                     [&](const Watched& entry) { return entry.endTimer == &endTimer; })) {
        QTimer* timer = &endTimer;
        connect(timer, &QTimer::timeout, this, [this, timer] { endEffectsOf(timer); });
        // The main window's timers are destroyed before its labels, which still send events
        // while they are taken down: from then on those labels have no effect to end.
        connect(timer, &QObject::destroyed, this, [this, timer] {
            std::erase_if(watched_,
                          [timer](const Watched& entry) { return entry.endTimer == timer; });
        });
    }
}

void HoverEffects::endAll() {
    for (Watched& entry : watched_) setEffect(entry, false);
}

bool HoverEffects::eventFilter(QObject* watched, QEvent* event) {
    if (watched == area_) {
        if (event->type() == QEvent::MouseMove) endAll();
        return false;
    }
    for (Watched& entry : watched_) {
        if (entry.object != watched) continue;
        if (event->type() == QEvent::Enter) {
            entry.endTimer->stop();
            setEffect(entry, true);
        } else if (event->type() == QEvent::Leave) {
            entry.endTimer->start();
        }
    }
    return false;
}

void HoverEffects::setEffect(Watched& entry, bool on) {
    // Every mouse move over the window ends the effects; labels without one are left untouched.
    if (entry.shown == on) return;
    entry.shown = on;
    QFont font = entry.label->font();
    font.setUnderline(on);
    entry.label->setFont(font);
    if (entry.highlight) showHighlighted(entry.label, on);
}

void HoverEffects::endEffectsOf(const QTimer* timer) {
    for (Watched& entry : watched_) {
        if (entry.endTimer == timer) setEffect(entry, false);
    }
}

}  // namespace quillet
