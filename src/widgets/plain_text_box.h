#pragma once

#include <QPlainTextEdit>

namespace quillet {

// A multi-line box for plain text that takes whatever a paste or a drop brings: nothing at all (an
// empty clipboard hands over no data, which Qt's own box does not expect and crashes on), text,
// formatted text (its text alone) or a list of files (their paths, one a line).
class PlainTextBox : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
};

}  // namespace quillet
