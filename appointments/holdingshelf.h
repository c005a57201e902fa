#pragma once

#include <QStringList>
#include <vector>

#include "appointments/appointmentitem.h"
#include "appointments/writeoutcome.h"

/// An appointment that the user has put aside to move it. It stays booked where it is until it lands elsewhere.
struct ShelvedAppointment {
    int key = 0;
    ShownAppointment row;  ///< As it was read last.
    QString provider;  ///< The surname of the provider who has it, or the id of one without a name; "its attendees" for
                       ///< an Activity of several.

    /// What a list says of it besides its text: "Wed, Nov 18, 9:00 AM", "50 minutes", "Reed".
    [[nodiscard]] QString When() const;
    [[nodiscard]] QString Length() const;
};

/// The holding shelf of the user who is logged on.
struct HoldingShelf {
    std::vector<ShelvedAppointment> appointments;  ///< In the order in which they were put there.
    /// A sentence for each appointment that was deleted or that another user moved since the shelf was read last. None
    /// names a patient.
    QStringList news;
};

/// The statement that ReadHoldingShelf reads, for a caller that reads it together with others.
[[nodiscard]] QString HoldingShelfStatement();
/// Reads the shelf. An appointment that does not exist any more is taken off, and one that was moved is kept with its
/// new place; both are told once. Throws db::DatabaseError, also where the practice has no table of it.
[[nodiscard]] HoldingShelf ReadHoldingShelf();
/// Puts an appointment on the shelf. One that is there already stays as it is.
[[nodiscard]] WriteOutcome PutOnShelf(const ShownAppointment& row);
/// Takes an appointment off the shelf. Nothing happens where it is not there.
[[nodiscard]] WriteOutcome TakeOffShelf(int key);

/// "Sat, Nov 28 at 9:00 AM", with the year where it is not the present one.
[[nodiscard]] QString WeekdayText(QDate date, int start);
/// "1 minute", "50 minutes".
[[nodiscard]] QString MinutesText(int minutes);
