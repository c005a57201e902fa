#pragma once

#include "appointments/movement.h"
#include "shell/mainwindow.h"

/// An appointment that was moved: what was asked for, and the row afterwards.
struct MovedAppointment {
    AppointmentMove move;
    ShownAppointment now;
};

/// Says in the window's bar where the appointment is now, with the actions "Show" and "Put back". Put back writes it to
/// where it was, by the same write as a move; it is refused when another desk has changed the row since, and asks when
/// something else was booked there. The notice needs no view, and the next move replaces it.
void TellMoved(MainWindow& main, const MovedAppointment& moved);

/// Whether the user may work on this provider's schedule. When not, the bar says so.
[[nodiscard]] bool MayWorkOn(const BookedProvider& provider);

/// Goes to an appointment of this provider and selects it: in the view that is open when that is one of days, otherwise
/// in the day view. The schedule of another provider is opened where the view shows one provider's, and refused to a
/// user who may not see it.
void GoToAppointment(MainWindow& main, FoundAppointment found, const BookedProvider& provider);
