#pragma once

#include <QStringList>

/// The pseudo-user whose rows of User_Preferences apply to every user.
inline constexpr char AllUsers[] = "![ALL]!";

/// The most minutes that the preference for the length of a new visit takes.
inline constexpr int LongestVisit = 480;

/// Returns the statement that GetPreference reads.
[[nodiscard]] QString PreferenceStatement(const QString& detail, const QString& category,
                                          const QString& fallbackUser = {}, const QString& user = {});

/// Returns a preference of `user` (empty for the logged-on user) or else of `fallbackUser` (empty for none), trimmed.
/// When there is no row or the database cannot be read, it returns the key `detail` in the section `category` of the
/// ini file `defaultIni`, which may be empty. A blank `detail` asks for the category's first row.
[[nodiscard]] QString GetPreference(const QString& defaultIni, const QString& detail, const QString& category,
                                    const QString& fallbackUser = {}, const QString& user = {});

/// Writes a preference of `user` (empty for the logged-on user). The value is trimmed but not escaped: a single quote
/// in it makes the statement fail, and nothing is stored. Returns false on any failure, and shows the user no message.
bool SetPreference(const QString& value, const QString& detail, const QString& category, const QString& user = {});

/// Returns the statements that getiniSettings reads.
[[nodiscard]] QStringList IniSettingsStatements();

/// Reads the user's preferences of the category "SchedulerGeneral" into the session values, or from svwsched.ini where
/// there is no row. The calendar always gets rows to show: a start that is no whole hour from 0 to 23 becomes 8, an end
/// that is no whole hour from 1 to 24 becomes 18, and an end that is not after the start makes the day 8 to 18. A
/// length of a new visit that is no number of minutes from 1 to 480 means one row of the calendar.
void getiniSettings();
