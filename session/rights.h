#pragma once

#include <QString>

/// Returns one digit of `pswd_screen_access`, by its place counted from 1, or 0 past the end and for any other
/// character.
[[nodiscard]] int AccessDigit(const QString& screenAccess, int place);

/// Splits the scheduler digit in the session's ScreenAccess into a level and AllProviders: 0 to 3 are levels without
/// all providers, 4 to 6 are the levels 1 to 3 with all providers. Other values change nothing.
void NormalizeScreenAccess();

/// Whether the logged-on user may book, change and set statuses (ScreenAccess 2 and more).
[[nodiscard]] bool MayWrite();
/// Whether the logged-on user may also delete (ScreenAccess 3 and more).
[[nodiscard]] bool MayDelete();
/// Whether the logged-on user may delete in the room scheduler (exactly ScreenAccess 3).
[[nodiscard]] bool MayDeleteMeetings();

/// Returns the statement that getprovname reads for a user.
[[nodiscard]] QString ProviderNameStatement(const QString& userId);

/// Reads name and access of the user in the session's UID. An unknown user leaves UserName empty and ScreenAccess 0.
void getprovname();

/// Returns the text of panel pnlaccess for a ScreenAccess, or an empty text outside 1 to 3.
[[nodiscard]] QString AccessPanelText(int screenAccess);

/// Whether the logged-on user may open the notes of this patient. It requires notes access (digit 5) and one of these:
/// a user type of 1 or more, being the patient's own provider, or a row of PatientAccess.
[[nodiscard]] bool HasPatientAccess(const QString& patientId);

/// Whether the logged-on user may open a note by this provider about this patient. Authors may always open their own
/// notes.
[[nodiscard]] bool MayOpenNote(const QString& noteProviderId, const QString& patientId);

/// Whether the client balance stays hidden from the user, because `pswd_fh_ledger` is 1.
[[nodiscard]] bool GetUserFHLedger(const QString& userId);

/// Returns the user's unscrambled password, or an empty text for an unknown user.
[[nodiscard]] QString GetStoredPassword(const QString& userId);
