#pragma once

#include <QDateTime>
#include <QLocale>

#include "base/text_format.h"

namespace quillet {

// The separators, markers and names of the user's language, for the program's texts.
FormatLocale formatLocale(const QLocale& locale = QLocale::system());

TimeOfDay timeOfDay(const QTime& time);
CalendarDate calendarDate(const QDate& date);

}  // namespace quillet
