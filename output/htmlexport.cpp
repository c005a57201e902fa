#include "output/htmlexport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <vector>

#include "data/minutetime.h"
#include "data/pipefields.h"
#include "output/exportedappointment.h"
#include "platform/controls/datefield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/files/privatefile.h"
#include "platform/printing/printerror.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Sql;

namespace {

constexpr int DaysOfWeek = 7;
const QString Folder = QStringLiteral("Documents");
const std::vector<int> HeadingWidths{8500};
const std::vector<int> ListWidths{2000, 2000, 4500};
const QColor Shade(0xC0, 0xC0, 0xFF);  // 0xFFC0C0 as a Windows colour.
constexpr double HeadingPoints = 18;
constexpr double DatePoints = 16;
constexpr double WeekdayPoints = 12;
constexpr double ListTitlePoints = 14;
constexpr double ListPoints = 11;
constexpr int DayGap = 120;  // Twips.

QString english(QDate date, const char* form) {
    return QLocale::c().toString(date, QLatin1String(form));
}

QString scheduleOf() {
    return QStringLiteral("Schedule for: ") + Session().ProviderName;
}

QString pathOf(const QString& kind, QDate date) {
    QString name =
        Session().ProviderId + kind +
        date.toString(static_cast<DateOrder>(Session().DateOrder) == DateOrder::DayFirst ? QStringLiteral("ddMMyyyy")
                                                                                         : QStringLiteral("MMddyyyy"));
    // A provider's id may hold any sign, and the name of a file may not.
    for (const QChar sign : {u'/', u'\\', u'\0'})
        name.replace(sign, u'_');
    return QStringLiteral("%1/%2/%3.HTM").arg(Session().DocPath, Folder, name);
}

/// A line of the page's head, or above the appointments of a day.
struct Heading {
    QString text;
    double points = ListPoints;
    int level = 1;  ///< Its rank among the page's headings.
    bool bold = false;
    std::optional<QColor> shading = std::nullopt;
};

void add(VSPrinter& vp, const Heading& heading) {
    vp.SetFontSize(heading.points);
    vp.SetFontBold(heading.bold);
    vp.AddTable({.widths = HeadingWidths, .rows = {{heading.text}}},
                {.grid = false, .shading = heading.shading, .headingLevel = heading.level});
    vp.SetFontBold(false);
}

void addDayHeading(VSPrinter& vp, QDate day) {
    vp.AddSpace(DayGap);
    add(vp, {.text = english(day, "dddd") + QStringLiteral(", ") + english(day, "MMMM dd"),
             .level = 3,
             .bold = true,
             .shading = Shade});
}

/// The lines of a list of appointments, in which every other appointment may be shaded.
struct List {
    std::vector<QStringList> rows;
    std::vector<bool> shadedRows;

    void add(const ExportedAppointment& appointment, bool shaded) {
        const bool militaryTime = Session().MilitaryTime;
        add({MinutesToTimeText(appointment.nStartTime, militaryTime),
             MinutesToTimeText(appointment.nEndTime, militaryTime), appointment.cappttext},
            shaded);
        AddCPTCode(appointment.CapptNote, shaded);
    }
    void AddCPTCode(const QString& note, bool shaded) {
        if (const QString service = GetPipeField(note, 1); !service.isEmpty())
            add({QString(), QString(), service}, shaded);
    }
    void add(const QStringList& cells, bool shaded) {
        rows.push_back(cells);
        shadedRows.push_back(shaded);
    }
    void addTo(VSPrinter& vp) {
        if (rows.empty())
            return;
        vp.SetFontSize(ListPoints);
        vp.AddTable({.widths = ListWidths, .rows = std::exchange(rows, {})},
                    {.shading = Shade, .shadedRows = std::exchange(shadedRows, {})});
    }
};

std::vector<ExportedAppointment> appointmentsOf(const QString& statement) {
    const PatientNaming naming = NamingIn(ExportFormat::HtmlPage);
    std::vector<ExportedAppointment> appointments;
    for (db::Recordset row(statement, Session().Connection); !row.Eof(); row.MoveNext())
        appointments.push_back(Named(ExportedRow(row), naming));
    return appointments;
}

void offerToOpen(const QString& path) {
    if (MsgBox(QStringLiteral("Appointments HTML file created - %1. Do you want to open it now?").arg(path), YesNoBox,
               QStringLiteral("HTML Created")) == Answer::Yes &&
        !OpenWithShell(path))
        MsgBox(QCoreApplication::translate("HtmlExport", "No program on this computer opens %1.").arg(path),
               ExclamationBox, QStringLiteral("HTML Created"));
}

void exportPage(const QString& path, VSPrinter (*pageOf)(QDate), QDate date) {
    const QString told = QStringLiteral("Error exporting appointments. ");
    try {
        const VSPrinter page = pageOf(date);
        files::MakeFolderIn(Session().DocPath, Folder);
        const bool isNew = !QFileInfo::exists(path);
        const files::OwnerOnly made;
        page.ExportHtml(path);
        if (isNew)
            QFile::setPermissions(path, files::PermissionsIn(Session().DocPath));
    } catch (const db::DatabaseError& error) {
        TellError(told, error);
        return;
    } catch (const PrintError& error) {
        MsgBox(told + error.description(), ErrorBox, QStringLiteral("Error"));
        return;
    }
    offerToOpen(path);
}

}  // namespace

QString DayHtmlPath(QDate day) {
    return pathOf({}, day);
}

QString WeekHtmlPath(QDate first) {
    return pathOf(QStringLiteral("Week"), first);
}

VSPrinter DayPage(QDate day) {
    const std::vector<ExportedAppointment> appointments = appointmentsOf(Sql(
        "Select * from appointments where DApptDate = '{}' AND nstarttime >= {} AND ClinicianId = '{}' Order by NStartTime",
        day, Session().DayStartHour * 60, Session().ProviderId));
    VSPrinter vp;
    const QString date = english(day, "MMMM d, yyyy");
    vp.SetTitle(scheduleOf() + QStringLiteral(", ") + date);
    add(vp, {.text = scheduleOf(), .points = HeadingPoints, .bold = true});
    add(vp, {.text = date, .points = DatePoints, .level = 2});
    add(vp, {.text = english(day, "dddd"), .points = WeekdayPoints, .level = 3});
    add(vp, {.text = QStringLiteral("Today's Appointments"), .points = ListTitlePoints, .level = 3});
    vp.AddSpace(DayGap);
    List list;
    for (const ExportedAppointment& appointment : appointments)
        list.add(appointment, false);
    list.addTo(vp);
    return vp;
}

// The statement reads the first day after the week, too, which belongs to the next page.
VSPrinter WeekPage(QDate first) {
    const std::vector<ExportedAppointment> appointments = appointmentsOf(Sql(
        "Select * from appointments where (DApptDate >= '{}' AND DApptDate <= '{}') AND ClinicianId = '{}' Order by DApptDate, NStartTime",
        first, first.addDays(DaysOfWeek), Session().ProviderId));
    VSPrinter vp;
    const QString title = QStringLiteral("Week of ") + english(first, "MMMM d, yyyy");
    vp.SetTitle(scheduleOf() + QStringLiteral(", ") + title);
    add(vp, {.text = title, .points = DatePoints, .bold = true, .shading = Shade});
    add(vp, {.text = QStringLiteral("Weeks Appointments"), .points = ListTitlePoints, .level = 2});
    add(vp, {.text = scheduleOf(), .points = WeekdayPoints, .level = 2});
    List list;
    QDate day;
    bool shaded = false;
    for (const ExportedAppointment& appointment : appointments) {
        if (appointment.DApptDate >= first.addDays(DaysOfWeek))
            break;
        if (appointment.DApptDate != day) {
            list.addTo(vp);
            day = appointment.DApptDate;
            addDayHeading(vp, day);
        }
        list.add(appointment, shaded);
        shaded = !shaded;
    }
    list.addTo(vp);
    return vp;
}

void ExportDayHtml(QDate day) {
    exportPage(DayHtmlPath(day), DayPage, day);
}

void ExportWeekHtml(QDate first) {
    exportPage(WeekHtmlPath(first), WeekPage, first);
}
