#pragma once

#include <QString>

/// One digit of `pswd_screen_access`, by its place counted from 1; 0 past the end and for what is no digit.
[[nodiscard]] int AccessDigit(const QString& screenAccess, int place);

/// Turns the scheduler digit in the session's ScreenAccess into level and AllProviders: 0 to 3 are levels without, 4 to
/// 6 the levels 1 to 3 with all providers; other values change nothing.
void NormalizeScreenAccess();

/// Whether the user logged on may book, change and set statuses (ScreenAccess 2 and more).
[[nodiscard]] bool MayWrite();
/// Whether the user logged on may delete, too (ScreenAccess 3).
[[nodiscard]] bool MayDelete();

/// The statement that getprovname reads for a user.
[[nodiscard]] QString ProviderNameStatement(const QString& userId);

/// Reads name and access of the user in the session's UID; nobody of that id leaves UserName empty and ScreenAccess 0.
void getprovname();

/// The text of panel pnlaccess for a ScreenAccess; empty outside 1 to 3.
[[nodiscard]] QString AccessPanelText(int screenAccess);

/// May the user logged on open the notes of this patient? Needs notes access (digit 5) besides a user type of 1 or
/// more, being the patient's own provider, or a row of PatientAccess.
[[nodiscard]] bool HasPatientAccess(const QString& patientId);

/// May the user logged on open a note by this provider about this patient? An author may always open what is theirs.
[[nodiscard]] bool MayOpenNote(const QString& noteProviderId, const QString& patientId);

/// True when the user's `pswd_fh_ledger` is 1: the client balance stays hidden.
[[nodiscard]] bool GetUserFHLedger(const QString& userId);

/// The user's password, unscrambled; empty for an unknown user.
[[nodiscard]] QString GetStoredPassword(const QString& userId);
