#pragma once

#include <QFrame>
#include <QLabel>
#include <QString>
#include <QStringList>
#include <concepts>

namespace quillet {

// A label with the name the program gives it.
inline QLabel* namedLabel(const char* name, const QString& text, QWidget* parent) {
    auto* made = new QLabel(text, parent);
    made->setObjectName(name);
    return made;
}

// A label that acts as a button (it runs its command when the mouse is released on it) looks like
// one: framed, its caption centred, the pointing hand over it.
inline void showAsCommand(QLabel* label) {
    label->setCursor(Qt::PointingHandCursor);
    label->setFrameShape(QFrame::StyledPanel);
    label->setAlignment(Qt::AlignCenter);
}

// The captions of an option group from its table: texts as they stand, numbers as written.
template <class Items>
QStringList captionList(const Items& items) {
    QStringList captions;
    for (const auto& item : items) {
        if constexpr (std::integral<std::decay_t<decltype(item)>>) {
            captions << QString::number(item);
        } else {
            captions << QString(item);
        }
    }
    return captions;
}

}  // namespace quillet
