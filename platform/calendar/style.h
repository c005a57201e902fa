#pragma once
/// Fonts, colours and measures of a calendar.
struct CalendarStyle {};
