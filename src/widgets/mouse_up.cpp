#include "widgets/mouse_up.h"

#include <QEvent>
#include <QMouseEvent>
#include <QWidget>

namespace quillet {

namespace {

class MouseUpFilter : public QObject {
public:
    MouseUpFilter(QWidget* widget, std::function<void(int)> handler)
        : QObject(widget), handler_(std::move(handler)) {
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        // Qt numbers the buttons as the handlers do.
        if (event->type() == QEvent::MouseButtonRelease) {
            handler_(static_cast<int>(static_cast<QMouseEvent*>(event)->button()));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void(int)> handler_;
};

}  // namespace

void onMouseUp(QWidget* widget, std::function<void(int)> handler) {
    new MouseUpFilter(widget, std::move(handler));
}

}  // namespace quillet
