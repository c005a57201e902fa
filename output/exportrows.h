#pragma once

#include <QDate>
#include <QString>
#include <vector>

#include "output/exportedappointment.h"

/// The values of `ExportRange`: the view that an export was begun from.
namespace exportrange {

inline constexpr int Day = 1;
inline constexpr int Week = 2;

}  // namespace exportrange

/// What the view that begins an export shows.
struct ExportRequest {
    int SelectedKey = 0;  ///< The key of the selected appointment, or 0.
    int ExportRange = 0;  ///< See exportrange. With any other number no range is preset.
    QDate WeekStart = {};
    QDate WeekEnd = {};
};

/// The appointments that the user chose to export.
struct ExportChoice {
    enum class Which { Selected, All, FromTo };
    Which which = Which::Selected;
    ExportRequest request = {};
    QDate from = {};  ///< The first and the last date of Which::FromTo.
    QDate to = {};
};

/// Returns the statement that GetExportRows reads. The appointments are those of the session's provider. "Today" is the
/// real date, whatever day is shown.
[[nodiscard]] QString ExportStatement(const ExportChoice& choice);

/// Reads the appointments in the order of their date and start. An appointment that the provider shares with others
/// comes once for each of its rows in `appointmentsevents` that the statement finds. When they cannot be read, the user
/// is told and the result is empty.
[[nodiscard]] std::vector<ExportedAppointment> GetExportRows(const ExportChoice& choice);
