#include "output/cancelreport.h"

#include <optional>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/namedpatients.h"
#include "output/reportpage.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/localefacts.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/providernames.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

const QString Title = QStringLiteral("Missed Appointment/Cancellation Report");

// Twips.
constexpr int GroupIndent = 360;
constexpr int RowIndent = 720;
constexpr int LocationIndent = 1080;
constexpr int BlockGap = 240;
constexpr int GroupGap = 120;

/// How many rows there are of each status.
struct Totals {
    int missed = 0;
    int therapistCancelled = 0;
    int patientCancelled = 0;

    void Count(int code) {
        missed += code == ncolor::Missed ? 1 : 0;
        therapistCancelled += code == ncolor::TherapistCancelled ? 1 : 0;
        patientCancelled += code == ncolor::PatientCancelled ? 1 : 0;
    }
};

QString groupHeading(int code) {
    switch (code) {
        case ncolor::Missed:
            return QStringLiteral("Missed Appointment");
        case ncolor::PatientCancelled:
            return QStringLiteral("Patient Cancelled");
        case ncolor::TherapistCancelled:
            return QStringLiteral("Therapist Cancelled");
        default:
            return {};
    }
}

void addHeading(VSPrinter& vp, const QString& text, int indent, int gapAbove) {
    vp.AddSpace(gapAbove);
    vp.SetIndent(indent);
    vp.SetFontBold(true);
    vp.AddParagraph(text);
    vp.SetFontBold(false);
}

/// Returns the appointment's text and account. Both tell whose appointment it is, and are hidden with the names.
QString shownText(const Recordset& row) {
    const QString text = OneLine(row["cappttext"].text());
    if (NamesPatient(static_cast<int>(row["ncolor"].integer()), !row["patientid"].text().isEmpty()) &&
        Session().HidePatientNames)
        return ShownName(text);
    const QString account = OneLine(row["PatientAcct"].text()).trimmed();
    return account.isEmpty() ? text : QStringLiteral("%1  [%2]").arg(text, account);
}

void addRow(VSPrinter& vp, const Recordset& row) {
    const auto time = [&](const char* column) {
        return MinutesToTimeText(static_cast<int>(row[column].integer()), Session().MilitaryTime);
    };
    vp.SetIndent(RowIndent);
    vp.AddParagraph(QStringLiteral("%1 - %2 - %3: ")
                        .arg(ShortDateText(row["DApptDate"].date()), time("NStartTime"), time("nendtime")) +
                    shownText(row));
    const QString location = OneLine(row["CLOCATION"].text()).trimmed();
    if (location.isEmpty())
        return;
    vp.SetIndent(LocationIndent);
    vp.AddParagraph(QStringLiteral("Location: ") + location);
}

/// Adds the rows under the headings of their providers and statuses.
class CancelledRows {
  public:
    /// Without names, the rows are those of one provider and have no heading for it.
    CancelledRows(VSPrinter& vp, const ProviderNames* names) : vp_(vp), names_(names) {}

    void Add(const Recordset& row) {
        const int code = static_cast<int>(row["ncolor"].integer());
        if (names_ != nullptr)
            beginProvider(row["clinicianid"].text());
        if (code != code_ && !groupHeading(code).isEmpty())
            addHeading(vp_, groupHeading(code), GroupIndent, GroupGap);
        code_ = code;
        addRow(vp_, row);
        totals_.Count(code);
    }
    void AddTotals() {
        vp_.AddSpace(BlockGap);
        vp_.SetIndent(0);
        vp_.AddParagraph(QStringLiteral("Total Missed Appointments = %1").arg(totals_.missed));
        vp_.AddParagraph(QStringLiteral("Total Therapist Cancellations = %1").arg(totals_.therapistCancelled));
        vp_.AddParagraph(QStringLiteral("Total Patient Cancellations = %1").arg(totals_.patientCancelled));
    }

  private:
    /// The statuses of each provider have headings of their own, even where the provider before ended with the same.
    void beginProvider(const QString& id) {
        if (provider_ && provider_->compare(id, Qt::CaseInsensitive) == 0)
            return;
        provider_ = id;
        code_ = 0;
        addHeading(vp_, OneLine(names_->Of(id)), 0, BlockGap);
    }

    VSPrinter& vp_;
    const ProviderNames* names_;
    std::optional<QString> provider_;  ///< The provider of the row before.
    int code_ = 0;                     ///< Its status.
    Totals totals_;
};

bool addAll(Recordset& rows, CancelledRows cancelled, const ReportStep& step) {
    for (int row = 1; !rows.Eof(); rows.MoveNext(), ++row) {
        cancelled.Add(rows);
        if (!step(row, rows.RecordCount()))
            return false;
    }
    cancelled.AddTotals();
    return true;
}

/// Opens the rows and reads the names in one trip. What was read together is let go of before the first step, in which
/// the user may change it.
ProviderNames openWithNames(Recordset& rows, const QString& statement) {
    const db::ReadTogether together(Session().Connection, {statement, ProviderNames::Statement()});
    rows.Open(statement, Session().Connection);
    return ProviderNames();
}

bool creportall(const ReportRequest& request, VSPrinter& vp, const ReportStep& step) {
    Recordset rows;
    const ProviderNames names = openWithNames(
        rows,
        Sql("Select * from appointments where DApptDate >= '{}' AND DApptDate <= '{}' AND Ncolor Between 191 and 194 Order by clinicianid, NColor, dapptdate, NStartTime",
            request.from, request.to));
    return addAll(rows, CancelledRows(vp, &names), step);
}

bool creportsingle(const ReportRequest& request, VSPrinter& vp, const ReportStep& step) {
    Recordset rows(
        Sql("Select * from appointments where DApptDate >= '{}' AND DApptDate <= '{}' AND Ncolor Between 191 and 194 AND ClinicianId = '{}' Order by Ncolor, dapptdate, NStartTime",
            request.from, request.to, request.provider),
        Session().Connection);
    return addAll(rows, CancelledRows(vp, nullptr), step);
}

}  // namespace

bool docancelreport(const ReportRequest& request, VSPrinter& vp, const ReportStep& step) {
    const ReportRequest allowed = WithinRights(request);
    BeginReport(vp, Title, allowed);
    try {
        return allowed.provider.isEmpty() ? creportall(allowed, vp, step) : creportsingle(allowed, vp, step);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error generating report. "), error);
        return false;
    }
}
