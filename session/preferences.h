#pragma once

#include <QStringList>

/// The pseudo-user whose rows of User_Preferences hold for every user.
inline constexpr char AllUsers[] = "![ALL]!";

/// The statement that GetPreference reads.
[[nodiscard]] QString PreferenceStatement(const QString& detail, const QString& category,
                                          const QString& fallbackUser = {}, const QString& user = {});

/// A preference of `user` (empty: the user logged on), else of `fallbackUser` (empty: none), trimmed. Without a row, or
/// when the database cannot be read, it is the key `detail` of section `category` in the ini file `defaultIni`, which
/// may be empty. A blank `detail` asks for the category's first row.
[[nodiscard]] QString GetPreference(const QString& defaultIni, const QString& detail, const QString& category,
                                    const QString& fallbackUser = {}, const QString& user = {});

/// Writes a preference of `user` (empty: the user logged on). The value is trimmed, not escaped: one that holds a
/// single quote makes the statement fail, and nothing is stored. False on any failure, which the system tells nobody.
bool SetPreference(const QString& value, const QString& detail, const QString& category, const QString& user = {});

/// The statements that getiniSettings reads.
[[nodiscard]] QStringList IniSettingsStatements();

/// Reads the user's preferences of the category "SchedulerGeneral" into the session values, from svwsched.ini where no
/// row is. So that the calendar always has rows to show, a start that is no whole hour from 0 to 23 is read as 8, an
/// end that is no whole hour from 1 to 24 as 18, and an end that is not after the start makes it a day from 8 to 18.
void getiniSettings();
