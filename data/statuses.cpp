#include "data/statuses.h"

#include <algorithm>

#include "data/codes.h"

namespace {

constexpr Status statuses[] = {
    {.code = ncolor::Blank},
    {.code = ncolor::Pending,
     .mark = StatusMark::Pending,
     .word = "Pending",
     .inDetails = "Pending",
     .inFind = "Pending",
     .inLegend = "Pending Appointment with Patient"},
    // As it is stored.
    {.code = ncolor::Tentative, .mark = StatusMark::Tentative, .word = "Tentative", .inDetails = "Tentative"},
    {.code = ncolor::LegendTentative,
     .mark = StatusMark::Tentative,
     .word = "Tentative",
     .inFind = "Tentative",
     .inLegend = "Tentative Appointment with Patient"},
    {.code = ncolor::CheckedIn, .mark = StatusMark::CheckedIn, .word = "Checked-In", .inDetails = "Checked-In"},
    {.code = ncolor::Kept,
     .mark = StatusMark::Kept,
     .word = "Kept",
     .inDetails = "Kept",
     .inFind = "Kept",
     .inLegend = "Kept Appointment with Patient"},
    {.code = ncolor::Missed,
     .mark = StatusMark::Missed,
     .word = "Missed",
     .inDetails = "Missed",
     .inFind = "Missed",
     .inLegend = "Missed/Cancelled Appointment with Patient"},
    {.code = ncolor::PatientCancelled,
     .mark = StatusMark::Cancelled,
     .word = "Patient Cancelled",
     .inDetails = "Cancelled",
     .inFind = "Pt Cancelled"},
    {.code = ncolor::TherapistCancelled,
     .mark = StatusMark::Cancelled,
     .word = "Therapist Cancelled",
     .inDetails = "Cancelled",
     .inFind = "Th Cancelled"},
    {.code = ncolor::Activity, .mark = StatusMark::Activity, .word = "Activity/Event", .inLegend = "Activity/Event"},
    {.code = ncolor::Unavailable,
     .mark = StatusMark::Unavailable,
     .word = "Unavailable Time",
     .inLegend = "Unavailable Time"},
    {.code = ncolor::Holiday, .inLegend = "Holiday"},
    {.code = ncolor::Group, .mark = StatusMark::Group, .word = "Group Therapy", .inLegend = "Group Therapy"},
};
constexpr Status noStatus;

}  // namespace

const Status& StatusOf(int code) {
    const auto* found = std::ranges::find(statuses, code, &Status::code);
    return found == std::end(statuses) ? noStatus : *found;
}
