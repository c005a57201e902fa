#include "output/callreport.h"

#include <algorithm>
#include <array>
#include <QHash>

#include "data/codes.h"
#include "data/courtesycalls.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "output/reportpage.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/session.h"

using db::Raw;
using db::Recordset;
using db::Sql;

namespace {

const QString Title = QStringLiteral("Courtesy Calls - Reminder Status");
const std::vector<int> Widths{2000, 2200, 3000, 2000, 3000, 2000};
const QStringList Titles{QStringLiteral("Date"),     QStringLiteral("Provider"), QStringLiteral("Patient"),
                         QStringLiteral("Location"), QStringLiteral("Service"),  QStringLiteral("Status")};
/// The rows that are printed. A kept appointment needs no call.
constexpr std::array PrintedCodes{ncolor::Blank,
                                  ncolor::Pending,
                                  ncolor::Tentative,
                                  ncolor::CheckedIn,
                                  ncolor::Missed,
                                  ncolor::TherapistCancelled,
                                  ncolor::PatientCancelled,
                                  ncolor::Group};

QString orderOf(const ReportRequest& request) {
    const bool isAll = request.provider.isEmpty();
    if (request.sort == ReportSort::ByAppointment)
        return QStringLiteral(" Order by [Patient], [Date], [Start Time]");
    if (!isAll)
        return QStringLiteral(" Order by [Date], [Start Time]");
    if (request.sort == ReportSort::ByTime)
        return QStringLiteral(" Order by [Date], [Start Time], [Patient]");
    return QStringLiteral(" Order by [Provider], [Date], [Start Time], [Patient]");
}

QString statementOf(const ReportRequest& request) {
    const Raw provider{request.provider.isEmpty() ? QString() : Sql(" AND ClinicianId = '{}'", request.provider)};
    return Sql(
        "Select Convert(varchar, DapptDate, 101) as [Date], nStarttime as [Start Time], provider_info.plast_name + ', ' + provider_info.pfirst_name as [Provider], patient_info.last_name + ', ' + patient_info.first_name as [Patient], cLocation as [Location], capptnote as [Service], CourtesyCallStatus, NColor, CASE WHEN CallPhoneNumber<>'' THEN RTRIM(CallPhoneNumber) else  telephone_h END as [Phone] From Appointments Inner Join provider_info On appointments.clinicianid = provider_info.id Inner Join patient_info On appointments.patientid =  patient_info.id Where DApptDate >= '{}' AND DApptDate <= '{}'{} Union Select Convert(varchar, DapptDate, 101) as [Date], nStarttime as [Start Time], provider_info.plast_name + ', ' + provider_info.pfirst_name as [Provider], patient_info.last_name + ', ' + patient_info.first_name as [Patient], cLocation as [Location], 'Group Therapy' as [Service], appointmentsgroup.CourtesyCallStatus, NColor, CASE WHEN CallPhoneNumber<>'' THEN RTRIM(CallPhoneNumber) else  telephone_h END as [Phone] From Appointments Inner Join provider_info On appointments.clinicianid = provider_info.id Inner Join appointmentsgroup On appointments.nkeyid =  appointmentsgroup.nkeyid Inner Join patient_info On appointmentsgroup.patientid =  patient_info.id Where DApptDate >= '{}' AND DApptDate <= '{}'{}{}",
        request.from, request.to, provider, request.from, request.to, provider, Raw{orderOf(request)});
}

bool isPrinted(const Recordset& row) {
    return std::ranges::find(PrintedCodes, static_cast<int>(row["NColor"].integer())) != PrintedCodes.end();
}

/// What the printed rows ask for, found by one pass over all rows.
struct Overview {
    int rows = 0;
    QSet<QString> codes = {};  ///< Their call codes.
};

/// Leaves the cursor at the first row.
Overview overviewOf(Recordset& rows) {
    Overview overview;
    for (; !rows.Eof(); rows.MoveNext())
        if (isPrinted(rows)) {
            ++overview.rows;
            overview.codes << rows["CourtesyCallStatus"].text();
        }
    if (rows.RecordCount() > 0)
        rows.MoveFirst();
    return overview;
}

/// Returns the descriptions of the codes that have one, read in one trip. A report must not say of a call that nothing
/// is indicated because the database failed: unlike GetCallStatusText, this throws db::DatabaseError.
QHash<QString, QString> callTexts(const QSet<QString>& codes) {
    QStringList statements;
    for (const QString& code : codes)
        statements << CallTextStatement(code);
    const db::ReadTogether together(Session().Connection, statements);
    QHash<QString, QString> texts;
    for (const QString& code : codes)
        if (!code.isEmpty())
            if (const Recordset call(CallTextStatement(code), Session().Connection); !call.Eof())
                texts[code] = OneLine(call[0].text());
    return texts;
}

/// Returns a telephone number as "000-000-0000". Text that is not ten digits, apart from the signs and blanks between
/// them, stays as it was typed.
QString phoneText(const QString& phone) {
    QString digits = phone;
    digits.removeIf([](QChar letter) { return QStringLiteral(" -.()/").contains(letter); });
    const bool isWhole = digits.size() == 10 &&
                         std::ranges::all_of(digits, [](QChar letter) { return letter >= u'0' && letter <= u'9'; });
    return isWhole ? QStringLiteral("%1-%2-%3").arg(digits.left(3), digits.mid(3, 3), digits.mid(6)) : phone;
}

/// The name and the telephone number tell whose appointment it is, and are hidden together.
QString patientCell(const Recordset& row) {
    const QString phone = OneLine(row["Phone"].text()).trimmed();
    const QString cell = ShownName(OneLine(row["Patient"].text())) + u'\n';
    return phone.isEmpty() ? cell : cell + QStringLiteral("Phone: ") + ShownName(phoneText(phone));
}

QStringList cellsOf(const Recordset& row, const QHash<QString, QString>& texts) {
    const QString start = MinutesToTimeText(static_cast<int>(row["Start Time"].integer()), Session().MilitaryTime);
    const QString status = texts.value(row["CourtesyCallStatus"].text());
    // "Group Therapy", the service of a group, has no bar and is its own first field.
    return {row["Date"].text() + u' ' + start,
            OneLine(row["Provider"].text()),
            patientCell(row),
            OneLine(row["Location"].text()),
            OneLine(GetPipeField(row["Service"].text(), 1)),
            status.isEmpty() ? QStringLiteral("None Indicated") : status};
}

bool addAll(Recordset& rows, VSPrinter& vp, const ReportStep& step) {
    const Overview overview = overviewOf(rows);
    const QHash<QString, QString> texts = callTexts(overview.codes);
    const QStringList separator(Titles.size());
    vp.AddTable({.widths = Widths, .titles = Titles});
    for (int row = 0; !rows.Eof(); rows.MoveNext()) {
        if (!isPrinted(rows))
            continue;
        vp.AddTable({.widths = Widths, .rows = {cellsOf(rows, texts), separator}});
        if (!step(++row, overview.rows))
            return false;
    }
    return true;
}

}  // namespace

bool CourtesyCallStatusReport(const ReportRequest& request, VSPrinter& vp, const ReportStep& step) {
    const ReportRequest allowed = WithinRights(request);
    BeginReport(vp, Title, allowed);
    try {
        Recordset rows(statementOf(allowed), Session().Connection);
        return addAll(rows, vp, step);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error generating Courtesy Calls report. "), error);
        return false;
    }
}
