#include "output/schedulereport.h"

#include <optional>
#include <QCoreApplication>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/namedpatients.h"
#include "data/phone.h"
#include "data/pipefields.h"
#include "output/reportpage.h"
#include "output/reporttext.h"
#include "output/scheduledrows.h"
#include "platform/database/readtogether.h"
#include "platform/database/sql.h"
#include "platform/desktop/localefacts.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "session/hiddennames.h"
#include "session/session.h"

using db::Raw;
using db::Sql;

namespace {

constexpr int GapAboveProvider = 240;  // Twips.

QString words(const char* text) {
    return QCoreApplication::translate("ScheduleReport", text);
}

/// What the code of a row lets the report tell.
struct Told {
    const char* status = "";
    bool contact = false;
    bool location = false;
    bool serviceAndNote = false;
};

Told toldOf(int code) {
    switch (code) {
        case ncolor::Blank:
        case ncolor::Pending:
        case ncolor::Tentative:
            return {.contact = true, .location = true, .serviceAndNote = true};
        case ncolor::Missed:
            return {.status = "Missed", .location = true, .serviceAndNote = true};
        case ncolor::PatientCancelled:
            return {.status = "Patient Cancelled", .location = true, .serviceAndNote = true};
        case ncolor::TherapistCancelled:
            return {.status = "Therapist Cancelled", .location = true, .serviceAndNote = true};
        case ncolor::Kept:
            return {.status = "Kept", .location = true, .serviceAndNote = true};
        case ncolor::CheckedIn:
            return {.status = "Checked-In", .location = true, .serviceAndNote = true};
        case ncolor::Activity:
            return {.location = true};
        default:
            return {};
    }
}

/// One of the two reports while it is made.
class ScheduleReport {
  public:
    enum class Form { OneTable, ByProvider };

    ScheduleReport(Form form, const ReportRequest& request, VSPrinter& vp);

    bool Make(const QString& statement, const ReportStep& step);

  private:
    [[nodiscard]] std::vector<ScheduledRow> readRows(const QString& statement);
    void addRow(const ScheduledRow& row);
    void beginProvider(const QString& clinicianid);
    [[nodiscard]] QStringList cellsOf(const ScheduledRow& row) const;
    [[nodiscard]] QString nameOf(const ScheduledRow& row) const;
    [[nodiscard]] QStringList detailsOf(const ScheduledRow& row) const;
    void addGroup(const ScheduledRow& row);
    [[nodiscard]] QString providerOf(const ScheduledRow& row) const;
    [[nodiscard]] bool isHidden(const ScheduledRow& row) const {
        return Session().HidePatientNames && NamesPatient(row.ncolor, !row.patientid.isEmpty());
    }

    const Form form_;
    const ReportRequest& request_;
    VSPrinter& vp_;
    const ReportColumns columns_;
    std::optional<ScheduleFacts> facts_;
    std::optional<QString> provider_;  ///< Whose block it is, once one has begun.
};

ReportColumns columnsOf(ScheduleReport::Form form) {
    constexpr int appointmentColumn = 2;
    return form == ScheduleReport::Form::OneTable
               ? ReportColumns(QStringLiteral("1500|2500|3000|2000|1700;"),
                               QStringLiteral("Date|Time|Appointment|Provider|Status"), appointmentColumn)
               : ReportColumns(QStringLiteral("2500|2500|4000|1440;"), QStringLiteral("Date|Time|Appointment|Status"),
                               appointmentColumn);
}

ScheduleReport::ScheduleReport(Form form, const ReportRequest& request, VSPrinter& vp)
    : form_(form), request_(request), vp_(vp), columns_(columnsOf(form)) {}

bool ScheduleReport::Make(const QString& statement, const ReportStep& step) {
    BeginReport(vp_, QStringLiteral("Schedule"), request_, request_.header);
    columns_.AddTitles(vp_);
    return ReportWhole([&] {
        const std::vector<ScheduledRow> rows = readRows(statement);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (i % ScheduleFacts::RowsAtOnce == 0)
                facts_->ReadFor(std::span(rows).subspan(i, std::min(ScheduleFacts::RowsAtOnce, rows.size() - i)));
            vp_.AddTogether([&] { addRow(rows[i]); });
            if (!step(static_cast<int>(i) + 1, static_cast<int>(rows.size())))
                return false;
        }
        return true;
    });
}

// Rows and names come in one trip. What was read together is let go of before the first step, in which the user may
// change it.
std::vector<ScheduledRow> ScheduleReport::readRows(const QString& statement) {
    const db::ReadTogether together(Session().Connection, {statement, ProviderNames::Statement()});
    facts_.emplace();
    return ReadScheduledRows(statement, request_.patientsOnly);
}

void ScheduleReport::addRow(const ScheduledRow& row) {
    const bool isOther = !provider_ || provider_->compare(row.clinicianid, Qt::CaseInsensitive) != 0;
    if (form_ == Form::ByProvider && isOther)
        beginProvider(row.clinicianid);
    columns_.AddRow(vp_, cellsOf(row));
    if (row.ncolor == ncolor::Group)
        addGroup(row);
    if (const QStringList details = detailsOf(row); !details.isEmpty())
        columns_.AddDetails(vp_, details);
}

void ScheduleReport::beginProvider(const QString& clinicianid) {
    provider_ = clinicianid;
    const bool isShared = clinicianid == QLatin1String(EventClinicianId);
    vp_.AddSpace(GapAboveProvider);
    vp_.SetFontBold(true);
    vp_.AddParagraph(isShared ? words("Several Providers") : OneLine(facts_->getprovname(clinicianid)));
    vp_.SetFontBold(false);
}

QString ScheduleReport::providerOf(const ScheduledRow& row) const {
    return row.clinicianid == QLatin1String(EventClinicianId) ? facts_->Attendees(row.nkeyid)
                                                              : facts_->getprovname(row.clinicianid);
}

QString ScheduleReport::nameOf(const ScheduledRow& row) const {
    if (isHidden(row))
        return ShownName(row.cappttext);
    const QString text = OneLine(row.cappttext);
    const QString account = OneLine(row.PatientAcct).trimmed();
    return account.isEmpty() ? text : QStringLiteral("%1  [%2]").arg(text, account);
}

QStringList ScheduleReport::cellsOf(const ScheduledRow& row) const {
    const bool militaryTime = Session().MilitaryTime;
    QStringList cells{ShortDateText(row.DApptDate),
                      MinutesToTimeText(row.nStartTime, militaryTime) + QStringLiteral(" - ") +
                          MinutesToTimeText(row.nEndTime, militaryTime),
                      nameOf(row)};
    if (form_ == Form::OneTable)
        cells << OneLine(providerOf(row));
    return cells << QString::fromLatin1(toldOf(row.ncolor).status);
}

QStringList ScheduleReport::detailsOf(const ScheduledRow& row) const {
    const Told told = toldOf(row.ncolor);
    QStringList lines;
    if (told.contact && !isHidden(row)) {
        const PatientContact contact = facts_->ContactOf(row.patientid);
        AppendDetail(lines, QStringLiteral("Home Phone"), FormatPhoneNo(contact.telephone_h));
        AppendDetail(lines, QStringLiteral("Work Phone"), FormatPhoneNo(contact.telephone_b));
        AppendDetail(lines, QStringLiteral("Cell Phone"), FormatPhoneNo(contact.Other_Phone));
        AppendDetail(lines, QStringLiteral("Email"), contact.EmailAddress);
    }
    // The other report has a column for them.
    if (form_ == Form::ByProvider && row.clinicianid == QLatin1String(EventClinicianId))
        AppendDetail(lines, words("Providers"), facts_->Attendees(row.nkeyid));
    if (told.location)
        AppendDetail(lines, QStringLiteral("Location"), row.CLOCATION);
    if (told.serviceAndNote) {
        AppendDetail(lines, QStringLiteral("Service"), GetPipeField(row.CapptNote, 1));
        if (!isHidden(row))
            AppendDetail(lines, QStringLiteral("Note"), GetPipeField(row.CapptNote, 2));
    }
    return lines;
}

// The table of the report by provider has no column before the names, because its titles have none.
void ScheduleReport::addGroup(const ScheduledRow& row) {
    const bool hidden = Session().HidePatientNames;
    std::vector<QStringList> rows;
    for (const ReportedMember& member : facts_->MembersOf(row.nkeyid)) {
        QStringList cells{ShownName(OneLine(member.PatientName)),
                          hidden ? QString() : FormatPhoneNo(member.contact.telephone_h),
                          hidden ? QString() : FormatPhoneNo(member.contact.telephone_b),
                          member.kept ? QStringLiteral("Kept") : QString()};
        if (form_ == Form::OneTable)
            cells.prepend(QString());
        rows.push_back(cells);
    }
    if (!rows.empty())
        columns_.AddTable(vp_,
                          form_ == Form::OneTable ? QStringLiteral("||Home Phone|Work Phone|").split(u'|')
                                                  : QStringLiteral("|Home Phone|Work Phone|").split(u'|'),
                          std::move(rows));
}

QString scheduleStatement(const ReportRequest& request) {
    const Raw provider{request.provider.isEmpty() ? QString() : Sql(" AND ClinicianId = '{}'", request.provider)};
    switch (request.sort) {
        case ReportSort::ByAppointment:
            return Sql(
                "Select * from appointments where DApptDate >= '{}' AND DApptDate <= '{}'{} Order by cappttext, DApptDate, NStartTime, nendtime",
                request.from, request.to, provider);
        case ReportSort::ByProvider:
            if (request.provider.isEmpty())
                return Sql(
                    "Select * from appointments where DApptDate >= '{}' AND DApptDate <= '{}' Order by clinicianid, DApptDate, NStartTime, nendtime",
                    request.from, request.to);
            break;
        case ReportSort::ByTime:
            break;
    }
    return Sql(
        "Select * from appointments where DApptDate >= '{}' AND DApptDate <= '{}'{} Order by DApptDate, NStartTime, nendtime",
        request.from, request.to, provider);
}

}  // namespace

bool doschedule(const ReportRequest& request, VSPrinter& vp, const ReportStep& step) {
    const ReportRequest allowed = WithinRights(request);
    return ScheduleReport(ScheduleReport::Form::OneTable, allowed, vp).Make(scheduleStatement(allowed), step);
}

bool DoSchedule2(const ReportRequest& request, VSPrinter& vp, const ReportStep& step) {
    if (!WithinRights(request).provider.isEmpty())
        return doschedule(request, vp, step);
    return ScheduleReport(ScheduleReport::Form::ByProvider, request, vp)
        .Make(
            Sql("Select * from appointments where DApptDate >= '{}' AND DApptDate <= '{}' Order by clinicianid, DApptDate, NStartTime, nendtime",
                request.from, request.to),
            step);
}
