#include <QPlainTextEdit>

#include "appointments/patientcontacts.h"
#include "data/codes.h"
#include "data/courtesycalls.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "data/statuses.h"
#include "platform/controls/ctlist.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/hiddennames.h"
#include "session/session.h"
#include "views/frmsched.h"

using db::Ignoring;
using db::Recordset;
using db::Sql;

namespace {

constexpr int longestWord = 2000;
constexpr int ValueColumn = 2;

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

// Whose appointment it is stays untold; what else is told of it betrays nobody.
bool betraysPatient(const QString& label) {
    static const QStringList harmless{QStringLiteral("Time"),
                                      QStringLiteral("Length"),
                                      QStringLiteral("Service"),
                                      QStringLiteral("Room"),
                                      QStringLiteral("Preferred Contact Method"),
                                      QStringLiteral("Courtesy Call Status"),
                                      QStringLiteral("Status")};
    return !harmless.contains(label);
}

}  // namespace

QStringList frmsched::detailStatements(const CalendarItem& item) const {
    const RowFacts facts = facts_.value(item.ItemKey);
    QStringList statements{roomStatement(item.ItemKey)};
    if (hasContacts(item, facts.apptType)) {
        for (const char* field : {"telephone_h", "telephone_b", "Other_Phone", "EmailAddress", "PreferredContactMode"})
            statements << DetailStatement(GetPipeField(item.ItemNote, 3), QLatin1String(field));
        statements << CallTextStatement(facts.callStatus);
    }
    if (item.ItemColor == ncolor::Group)
        statements << membersStatement(item.ItemKey);
    return statements;
}

void frmsched::displayapptinfo(int index) {
    ctListInfo->Clear();
    showNote({});
    if (index < 1) {
        ctListInfo->AddRow({QString(), QStringLiteral("No Appointment Selected")});
        return;
    }
    const CalendarItem& item = std::as_const(*ctMDay1).Item(index);
    const RowFacts facts = facts_.value(item.ItemKey);
    const bool military = Session().MilitaryTime;
    const db::ReadTogether together(Session().Connection, detailStatements(item));

    tellsOfPatient_ = NamesPatient(item);
    addInfo(QStringLiteral("Appointment"), withCommas(item.ItemText));
    const QString start = item.ItemStart < 0 ? tr("no start time") : MinutesToTimeText(item.ItemStart, military);
    addInfo(QStringLiteral("Time"), QStringLiteral("%1 - %2").arg(start, MinutesToTimeText(item.ItemEnd, military)));
    addInfo(QStringLiteral("Length"), QStringLiteral("%1 mins.").arg(item.ItemEnd - item.ItemStart));
    if (facts.apptType != ApptTypeSlot)
        addInfo(QStringLiteral("Service"),
                item.ItemColor == ncolor::Group ? QStringLiteral("Group Therapy") : GetPipeField(item.ItemNote, 1));
    Ignoring([&] { addRoom(item.ItemKey); });
    if (const QString note = GetPipeField(item.ItemNote, 2); !note.isEmpty())
        showNote(note);
    if (hasContacts(item, facts.apptType))
        addContacts(item, facts);
    if (item.ItemColor == ncolor::Group) {
        tellsOfPatient_ = true;
        Ignoring([&] { getgroumembers(item.ItemKey); });
        tellsOfPatient_ = false;
    }
}

void frmsched::showNote(const QString& note) {
    // Looking for the words of an endless one takes seconds; where nobody set a blank, lines break anywhere.
    const bool endless = note.size() > longestWord && !note.left(longestWord).contains(QLatin1Char(' '));
    txtnote->setWordWrapMode(endless ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
    note_ = note;
    const QString caption = QStringLiteral("Appointment Note");
    const QString shown = tellsOfPatient_ ? ShownName(note) : note;
    txtnote->setPlainText(shown.isEmpty() ? caption : caption + QLatin1Char('\n') + shown);
}

void frmsched::addInfo(const QString& label, const QString& value) {
    const int row = ctListInfo->AddRow({label, value});
    if (tellsOfPatient_ && betraysPatient(label))
        ctListInfo->NameCell(row, ValueColumn);
}

void frmsched::addRoom(const QString& key) {
    const Recordset booked(roomStatement(key), Session().Connection);
    addInfo(QStringLiteral("Room"), booked.Eof() ? QString() : booked["room"].text());
}

void frmsched::addContacts(const CalendarItem& item, const RowFacts& facts) {
    const QString patientId = GetPipeField(item.ItemNote, 3);
    QString otherPhoneType;
    const auto detail = [&](const char* field) {
        const ContactDetail read = PatientDetail(patientId, QLatin1String(field));
        if (!read.otherPhoneType.isEmpty())
            otherPhoneType = read.otherPhoneType;
        return read.text;
    };
    addInfo(QStringLiteral("Home Phone"), detail("telephone_h"));
    addInfo(QStringLiteral("Work Phone"), detail("telephone_b"));
    if (!otherPhoneType.isEmpty())
        addInfo(otherPhoneType, detail("Other_Phone"));
    addInfo(QStringLiteral("E-Mail"), detail("EmailAddress"));
    addInfo(QStringLiteral("Preferred Contact Method"), detail("PreferredContactMode"));
    if (!facts.callStatus.isEmpty())
        addInfo(QStringLiteral("Courtesy Call Status"), GetCallStatusText(Session().Connection, facts.callStatus));
    if (const char* status = StatusOf(item.ItemColor).inDetails; *status != '\0')
        addInfo(QStringLiteral("Status"), QString::fromLatin1(status));
}

// The members stand under one label; attendance is told behind the name.
void frmsched::getgroumembers(const QString& key) {
    QString label = QStringLiteral("Members");
    Recordset members(membersStatement(key), Session().Connection);
    for (; !members.Eof(); members.MoveNext()) {
        const QString name = members["PatientName"].text();
        addInfo(label, members["Kept"].integer() == 1 ? name + QStringLiteral(" (Kept)") : name);
        label.clear();
    }
}
