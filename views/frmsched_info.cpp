#include "appointments/patientcontacts.h"
#include "appointments/seriesnumber.h"
#include "data/codes.h"
#include "data/courtesycalls.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "data/statuses.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "views/frmsched.h"

using About = DetailsPane::About;
using db::Ignoring;
using db::Recordset;
using db::Sql;

namespace {

// An appointment's text stands in the panel as one line of parts.
QString withCommas(const QString& text) {
    return QString(text)
        .replace(QLatin1String("\r\n"), QLatin1String(","))
        .replace(u'\n', u',')
        .replace(u'\r', u',')
        .replace(u';', u',');
}

QString roomStatement(const QString& key) {
    return Sql(
        "Select * from roomschedule Inner Join rooms on roomschedule.croomid = rooms.roomid Where roomschedule.apptid = {}",
        key.toLongLong());
}

QString membersStatement(const QString& key) {
    return Sql("Select * from AppointmentsGroup Where nKeyId = {} Order by PatientName", key.toLongLong());
}

bool hasContacts(const CalendarItem& item, int apptType) {
    return apptType != ApptTypeSlot && IsPatientRow(item.ItemColor);
}

}  // namespace

QStringList frmsched::detailStatements(const CalendarItem& item) const {
    const ShownAppointment facts = facts_.value(item.ItemKey);
    QStringList statements{roomStatement(item.ItemKey)};
    if (hasContacts(item, facts.apptType)) {
        for (const char* field : {"telephone_h", "telephone_b", "Other_Phone", "EmailAddress", "PreferredContactMode"})
            statements << DetailStatement(GetPipeField(item.ItemNote, 3), QLatin1String(field));
        statements << CallTextStatement(facts.callStatus);
    }
    if (item.ItemSeriesIcon > 0)
        statements << SeriesNumberStatement(item.ItemKey.toInt(), dateOf(item), item.ItemStart);
    if (item.ItemColor == ncolor::Group)
        statements << membersStatement(item.ItemKey);
    return statements;
}

void frmsched::displayapptinfo(int index) {
    details_->Clear();
    showNote({}, About::Nobody);
    if (index < 1) {
        details_->AddRow({}, QStringLiteral("No Appointment Selected"));
        return;
    }
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    const ShownAppointment facts = facts_.value(item.ItemKey);
    const bool military = Session().MilitaryTime;
    const db::ReadTogether together(Session().Connection, detailStatements(item));

    const About about = NamesPatient(item) ? About::Patient : About::Nobody;
    details_->AddRow(QStringLiteral("Appointment"), withCommas(item.ItemText), about);
    const QString start = item.ItemStart < 0 ? tr("no start time") : MinutesToTimeText(item.ItemStart, military);
    details_->AddRow(QStringLiteral("Time"),
                     QStringLiteral("%1 - %2").arg(start, MinutesToTimeText(item.ItemEnd, military)));
    details_->AddRow(QStringLiteral("Length"), QStringLiteral("%1 mins.").arg(item.ItemEnd - item.ItemStart));
    if (facts.apptType != ApptTypeSlot)
        details_->AddRow(QStringLiteral("Service"), item.ItemColor == ncolor::Group ? QStringLiteral("Group Therapy")
                                                                                    : GetPipeField(item.ItemNote, 1));
    Ignoring([&] { addRoom(item.ItemKey); });
    showNote(GetPipeField(item.ItemNote, 2), about);
    if (hasContacts(item, facts.apptType))
        addContacts(item, facts);
    if (item.ItemSeriesIcon > 0)
        Ignoring([&] { addSeries(item); });
    if (item.ItemColor == ncolor::Group)
        Ignoring([&] { getgroumembers(item.ItemKey); });
}

void frmsched::showNote(const QString& note, About about) {
    const QString caption = QStringLiteral("Appointment Note");
    details_->ShowNote(note.isEmpty() ? caption : caption + QLatin1Char('\n'), note, about);
}

void frmsched::addRoom(const QString& key) {
    const Recordset booked(roomStatement(key), Session().Connection);
    details_->AddRow(QStringLiteral("Room"), booked.Eof() ? QString() : booked["room"].text());
}

void frmsched::addSeries(const CalendarItem& item) {
    if (const QString number = SeriesNumberText(item.ItemKey.toInt(), dateOf(item), item.ItemStart); !number.isEmpty())
        details_->AddRow(QStringLiteral("Series"), number);
}

// Whose appointment it is stays untold while names are hidden; what else is told of it betrays nobody.
void frmsched::addContacts(const CalendarItem& item, const ShownAppointment& facts) {
    const QString patientId = GetPipeField(item.ItemNote, 3);
    QString otherPhoneType;
    const auto detail = [&](const char* field) {
        const ContactDetail read = PatientDetail(patientId, QLatin1String(field));
        if (!read.otherPhoneType.isEmpty())
            otherPhoneType = read.otherPhoneType;
        return read.text;
    };
    details_->AddRow(QStringLiteral("Home Phone"), detail("telephone_h"), About::Patient);
    details_->AddRow(QStringLiteral("Work Phone"), detail("telephone_b"), About::Patient);
    if (!otherPhoneType.isEmpty())
        details_->AddRow(otherPhoneType, detail("Other_Phone"), About::Patient);
    details_->AddRow(QStringLiteral("E-Mail"), detail("EmailAddress"), About::Patient);
    details_->AddRow(QStringLiteral("Preferred Contact Method"), detail("PreferredContactMode"));
    if (!facts.callStatus.isEmpty())
        details_->AddRow(QStringLiteral("Courtesy Call Status"),
                         GetCallStatusText(Session().Connection, facts.callStatus));
    if (const char* status = StatusOf(item.ItemColor).inDetails; *status != '\0')
        details_->AddRow(QStringLiteral("Status"), QString::fromLatin1(status));
}

// The members stand under one label; attendance is told behind the name.
void frmsched::getgroumembers(const QString& key) {
    QString label = QStringLiteral("Members");
    Recordset members(membersStatement(key), Session().Connection);
    for (; !members.Eof(); members.MoveNext()) {
        const QString name = members["PatientName"].text();
        details_->AddRow(label, members["Kept"].integer() == 1 ? name + QStringLiteral(" (Kept)") : name,
                         About::Patient);
        label.clear();
    }
}
