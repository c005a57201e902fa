#pragma once

#include <functional>
#include <QDate>
#include <QString>

/// The order of a report's rows. The values are the places in cbosort.
enum class ReportSort { ByAppointment = 0, ByTime = 1, ByProvider = 2 };

/// What a report is to tell.
struct ReportRequest {
    QDate from, to;    ///< Both days belong to the report.
    QString provider;  ///< The id of the provider, "" for all providers. In the companion's schedule it is the ProvId.
    QString providerName;
    ReportSort sort = ReportSort::ByAppointment;
    bool patientsOnly = false;  ///< Whether rows without a patient are left out.
    QString header = {};        ///< The practice's text above its schedules, or "".
};

/// Called after each row that a report has added to its document. `row` counts from 1, `rows` is the number of all
/// rows. When it returns false, the report ends with the document as far as it got.
using ReportStep = std::function<bool(int row, int rows)>;
