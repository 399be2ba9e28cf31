// The metadata editor's fields, labels and menus.
#include <QDate>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QVBoxLayout>
#include <algorithm>

#include "app/qt_format_locale.h"
#include "metadata/form2.h"
#include "widgets/plain_text_box.h"
#include "widgets/tool_menus.h"

namespace quillet {

namespace {

// The fields stand in two columns of captions and boxes, the comment box across both.
constexpr int kColumns = 2;

// The widest text that "Enter Todays Time and Date" writes this year, in `metrics`: every weekday
// and month name of the user's language, morning and afternoon.
int widestTodaysDate(const QFontMetrics& metrics) {
    const FormatLocale locale = formatLocale();
    const int year = QDate::currentDate().year();
    int widest = 0;
    for (int hour : {8, 20}) {
        for (int weekday = 0; weekday < 7; ++weekday) {
            for (int month = 1; month <= 12; ++month) {
                const std::string text =
                    todaysTimeAndDate({hour, 58, 58}, {year, month, 28, weekday}, locale);
                widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(text)));
            }
        }
    }
    return widest;
}

// How wide `box` must be to show `textWidth` pixels of text, with its frame and margins.
int boxWidthFor(const QLineEdit& box, int textWidth) {
    QStyleOptionFrame option;
    option.initFrom(&box);
    option.lineWidth = box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box);
    const QMargins margins = box.textMargins();
    // The box keeps two pixels clear on either side of its text.
    const QSize text(textWidth + margins.left() + margins.right() + 2 * 2,
                     box.fontMetrics().height());
    return box.style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, &box).width();
}

}  // namespace

void Form2::buildControls() {
    auto* surface = new QWidget(this);
    setCentralWidget(surface);
    auto* layout = new QVBoxLayout(surface);
    Label5 = new QLabel("No Video Selected", surface);
    Label5->setObjectName("Label5");
    Label2 = new QLabel(surface);
    Label2->setObjectName("Label2");
    Label2->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(Label5);
    layout->addWidget(Label2);

    auto* grid = new QGridLayout;
    // Three blanks between a caption and its box, so "Gapless Playback" does not touch its box.
    grid->setHorizontalSpacing(surface->fontMetrics().horizontalAdvance(QString(3, ' ')));
    int row = 0;
    int column = 0;
    for (std::size_t index = 0; index < kMetadataKeyCount; ++index) {
        auto* caption = new QLabel(kMetadataCaptions[index], surface);
        caption->setObjectName(QString("Label3(%1)").arg(index));
        const bool comment = index == kCommentField;
        QWidget* field =
            comment ? static_cast<QWidget*>(new PlainTextBox(surface)) : new QLineEdit(surface);
        field->setMinimumWidth(200);
        field->setObjectName(QString("Text1(%1)").arg(index));
        if (comment) {
            field->setFixedHeight(field->fontMetrics().height() * 4);
            if (column != 0) ++row;
            grid->addWidget(caption, row, 0, Qt::AlignTop);
            grid->addWidget(field, row, 1, 1, 2 * kColumns - 1);
            ++row;
            column = 0;
        } else {
            grid->addWidget(caption, row, 2 * column);
            grid->addWidget(field, row, 2 * column + 1);
            if (++column == kColumns) {
                column = 0;
                ++row;
            }
        }
        Text1[index] = field;
    }
    // Today's time and date is longer than most entries: its box shows it whole, unfocused too.
    auto* date = static_cast<QLineEdit*>(Text1[kDateField]);
    date->setMinimumWidth(
        std::max(date->minimumWidth(), boxWidthFor(*date, widestTodaysDate(date->fontMetrics()))));
    layout->addLayout(grid);
    setField(kEncodingToolField, "Quillet 2.0");
}

void Form2::buildMenus() {
    addToolMenu(*this, "mnu_SelectVideo", "File",
                {{"mnu_SelVid", "Select Video", [this] { mnu_SelVid_Click(); }},
                 {"mnu_ResetAll", "Reset All", [this] { mnu_ResetAll_Click(); }}});
    addToolMenu(
        *this, "mnu_SaveData", "Save",
        {{"mnu_WriteMetaData", "Write Meta Data Into Video", [this] { mnu_WriteMetaData_Click(); }},
         {"mnu_SaveDefault", "Save As Default Entries", [this] { mnu_SaveDefault_Click(); }},
         {"mnu_WriteDefaults", "Write Default Entries into Fields",
          [this] { mnu_WriteDefaults_Click(); }}});
    addToolMenu(
        *this, "mnu_DateToday", "Date As Today",
        {{"mnu_EnterDate", "Enter Todays Time and Date", [this] { mnu_EnterDate_Click(); }}});
}

}  // namespace quillet
