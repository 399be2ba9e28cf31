#pragma once

// The table of contents at the start of the guide: a line for each heading but the title, with
// the page on which that heading is printed.

#include <QTextBlock>
#include <vector>

class QTextDocument;

namespace quillet::guide {

class Contents {
public:
    // Writes the table, under a heading "Contents", just before the first heading that follows the
    // title (the guide's opening level-1 heading, when it has one), and starts that heading on a
    // new page. A guide with no such heading gets no table. The document must have its page size
    // set; the page numbers are left blank until number().
    explicit Contents(QTextDocument& guide);

    // Writes each heading's page number (from 1) into its line. Returns whether any number
    // changed, as a line that changes may move what follows it.
    bool number();

    // The table's lines, each with the heading it names.
    struct Entry {
        QTextBlock line;
        QTextBlock heading;
    };
    const std::vector<Entry>& entries() const { return entries_; }

private:
    std::vector<Entry> entries_;
};

// Numbers the contents and breaks the pages (keepTogether) until the numbers hold.
void planPages(QTextDocument& guide, Contents& contents);

}  // namespace quillet::guide
