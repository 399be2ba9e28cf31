#pragma once

// Checks that a window shows every caption, value and title whole: measured with the font each
// widget really has, at the size the window really is, so they hold on any platform and font.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QWidget>
#include <algorithm>
#include <vector>

#include "app/title_bar.h"

namespace quillet {

// Lays out what waits to be laid out, as the event loop does before it paints.
inline void settleLayouts() {
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
}

inline QString describe(const QWidget* widget) {
    const QString name =
        widget->objectName().isEmpty() ? widget->metaObject()->className() : widget->objectName();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        return name + " \"" + label->text() + "\"";
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        return name + " \"" + button->text() + "\"";
    }
    if (const auto* box = qobject_cast<const QLineEdit*>(widget)) {
        return name + " \"" + box->text() + "\"";
    }
    return name;
}

inline QString describe(const QRect& r) {
    return QString("%1x%2 at %3,%4").arg(r.width()).arg(r.height()).arg(r.x()).arg(r.y());
}

// The width a text box has for its text: inside its frame, less its text margins and the two
// pixels it keeps clear on either side.
inline int textRoomOf(const QLineEdit* box) {
    QStyleOptionFrame option;
    option.initFrom(box);
    option.rect = box->rect();
    option.lineWidth =
        box->hasFrame() ? box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, box) : 0;
    const QRect contents = box->style()->subElementRect(QStyle::SE_LineEditContents, &option, box);
    const QMargins margins = box->textMargins();
    return contents.width() - margins.left() - margins.right() - 2 * 2;
}

// Whether a label's text is to be shown whole: not when it has none, nor when its layout is told
// to ignore its width (a file name cut at the window's edge on purpose).
inline bool showsWholeText(const QLabel* label) {
    return !label->text().isEmpty() &&
           label->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored;
}

// Whether the widget shows its whole text at the size it has.
inline ::testing::AssertionResult textFits(const QWidget* widget) {
    const QSize size = widget->size();
    auto cut = [&](const QSize& needed) {
        return ::testing::AssertionFailure()
               << describe(widget).toStdString() << " needs " << needed.width() << "x"
               << needed.height() << " but has " << size.width() << "x" << size.height();
    };
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        if (!showsWholeText(label)) return ::testing::AssertionSuccess();
        if (label->wordWrap()) {
            const int height = label->heightForWidth(size.width());
            if (height > size.height()) return cut({size.width(), height});
            return ::testing::AssertionSuccess();
        }
        const QSize needed = label->sizeHint();
        if (needed.width() > size.width() || needed.height() > size.height()) return cut(needed);
        return ::testing::AssertionSuccess();
    }
    if (const auto* box = qobject_cast<const QLineEdit*>(widget)) {
        const int needed = box->fontMetrics().horizontalAdvance(box->text());
        if (needed > textRoomOf(box)) {
            return ::testing::AssertionFailure()
                   << describe(widget).toStdString() << " needs " << needed
                   << " pixels for its text but has " << textRoomOf(box);
        }
        if (box->fontMetrics().height() > box->contentsRect().height()) {
            return cut({size.width(), box->fontMetrics().height()});
        }
        return ::testing::AssertionSuccess();
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
        const int needed = view->sizeHintForColumn(0);
        if (needed > view->viewport()->width()) {
            return ::testing::AssertionFailure()
                   << describe(widget).toStdString() << " needs " << needed
                   << " pixels for its widest item but has " << view->viewport()->width();
        }
        return ::testing::AssertionSuccess();
    }
    if (qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QMenuBar*>(widget)) {
        const QSize needed = widget->sizeHint();
        if (needed.width() > size.width() || needed.height() > size.height()) return cut(needed);
        return ::testing::AssertionSuccess();
    }
    if (qobject_cast<const QGroupBox*>(widget)) {
        const QSize needed = widget->minimumSizeHint();
        if (needed.width() > size.width() || needed.height() > size.height()) return cut(needed);
    }
    return ::testing::AssertionSuccess();
}

// Where the widget's text stands, in `window`'s coordinates: a label's text where its alignment
// puts it, a check box's or option's mark and caption from its left edge, any other control's
// whole face.
inline QRect textArea(const QWidget* widget, const QWidget* window) {
    QRect area = widget->rect();
    if (const auto* label = qobject_cast<const QLabel*>(widget); label && !label->wordWrap()) {
        const QRect contents = label->contentsRect();
        const QSize text(label->fontMetrics().horizontalAdvance(label->text()), contents.height());
        area = QStyle::alignedRect(label->layoutDirection(), label->alignment(), text, contents);
    } else if (qobject_cast<const QAbstractButton*>(widget)) {
        area.setWidth(std::min(area.width(), widget->sizeHint().width()));
    }
    return area.translated(widget->mapTo(window, QPoint(0, 0)));
}

// Whether the texts of `a` and `b` stand on different lines, or at least `gap` pixels apart on
// the same line.
inline ::testing::AssertionResult apart(const QWidget* a, const QWidget* b, const QWidget* window,
                                        int gap) {
    const QRect first = textArea(a, window);
    const QRect second = textArea(b, window);
    const bool sameLine = first.top() <= second.bottom() && second.top() <= first.bottom();
    if (!sameLine) return ::testing::AssertionSuccess();
    const int between = std::max(second.left() - first.right(), first.left() - second.right()) - 1;
    if (between >= gap) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << describe(a).toStdString() << " (" << describe(first).toStdString() << ") and "
           << describe(b).toStdString() << " (" << describe(second).toStdString() << ") are "
           << between << " pixels apart on one line; they need " << gap;
}

// The width of `blanks` blanks in the widget's font: how far apart two texts must stand to be read
// as two.
inline int blanks(const QWidget* widget, int count) {
    return widget->fontMetrics().horizontalAdvance(QString(count, ' '));
}

// Whether the widget lies inside every widget that holds it, up to the window, so that nothing
// clips it.
inline ::testing::AssertionResult insideWindow(const QWidget* widget, const QWidget* window) {
    for (const QWidget* child = widget; child != window; child = child->parentWidget()) {
        const QRect room = child->parentWidget()->rect();
        if (!room.contains(child->geometry())) {
            return ::testing::AssertionFailure()
                   << describe(widget).toStdString() << ": "
                   << describe(child->geometry()).toStdString() << " goes beyond its holder "
                   << describe(child->parentWidget()).toStdString() << " ("
                   << describe(room).toStdString() << ")";
        }
    }
    return ::testing::AssertionSuccess();
}

// The window's shown widgets that carry text.
inline std::vector<QWidget*> textWidgetsOf(QWidget& window) {
    std::vector<QWidget*> found;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&window)) continue;
        if (qobject_cast<QLabel*>(widget) || qobject_cast<QLineEdit*>(widget) ||
            qobject_cast<QAbstractButton*>(widget) || qobject_cast<QAbstractItemView*>(widget) ||
            qobject_cast<QGroupBox*>(widget) || qobject_cast<QMenuBar*>(widget)) {
            found.push_back(widget);
        }
    }
    return found;
}

inline bool related(const QWidget* a, const QWidget* b) {
    return a->isAncestorOf(b) || b->isAncestorOf(a);
}

inline bool showsText(const QWidget* widget) {
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return showsWholeText(label);
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget);
}

// Every shown text of the window whole, inside the window, and no two texts closer than a blank on
// one line; a window with a title bar wide enough for its title.
inline ::testing::AssertionResult textIsWhole(QWidget& window) {
    settleLayouts();
    if (!(window.windowFlags() & Qt::FramelessWindowHint) &&
        window.width() < titleBarWidth(window)) {
        return ::testing::AssertionFailure()
               << "the title \"" << window.windowTitle().toStdString() << "\" needs a window "
               << titleBarWidth(window) << " pixels wide; it is " << window.width();
    }
    const std::vector<QWidget*> widgets = textWidgetsOf(window);
    for (const QWidget* widget : widgets) {
        if (auto fits = textFits(widget); !fits) return fits;
        if (auto inside = insideWindow(widget, &window); !inside) return inside;
    }
    for (std::size_t i = 0; i < widgets.size(); ++i) {
        for (std::size_t j = i + 1; j < widgets.size(); ++j) {
            const QWidget* a = widgets[i];
            const QWidget* b = widgets[j];
            if (!showsText(a) || !showsText(b) || related(a, b)) continue;
            if (auto separate = apart(a, b, &window, blanks(a, 1)); !separate) return separate;
        }
    }
    return ::testing::AssertionSuccess();
}

}  // namespace quillet
