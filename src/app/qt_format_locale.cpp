#include "app/qt_format_locale.h"

namespace quillet {

FormatLocale formatLocale(const QLocale& locale) {
    FormatLocale result;
    result.decimalSeparator = locale.decimalPoint().toStdString();
    result.groupSeparator = locale.groupSeparator().toStdString();
    result.amMarker = locale.amText().toStdString();
    result.pmMarker = locale.pmText().toStdString();
    for (int day = 0; day < 7; ++day) {
        // Qt counts Monday as 1 and Sunday as 7; the program's texts count Sunday as 0.
        result.dayNames[day] = locale.dayName(day == 0 ? 7 : day).toStdString();
    }
    for (int month = 1; month <= 12; ++month) {
        result.monthAbbreviations[month - 1] =
            locale.monthName(month, QLocale::ShortFormat).toStdString();
    }
    return result;
}

TimeOfDay timeOfDay(const QTime& time) {
    return {time.hour(), time.minute(), time.second()};
}

CalendarDate calendarDate(const QDate& date) {
    return {date.year(), date.month(), date.day(), date.dayOfWeek() % 7};
}

}  // namespace quillet
