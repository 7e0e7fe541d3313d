#pragma once

#include "common/date.h"

namespace kebu {

// Dates as automation has them (VT_DATE): days since 1899-12-30, the time of day as a fraction.
// Before that day the time of day still runs forward, so that -1.25 is 06:00 of the day before.

// RuntimeError 13 (type mismatch) for what is no date: automation knows the years 100 to 9999.
Date fromAutomationDate(double date);
double toAutomationDate(const Date& date);

}  // namespace kebu
