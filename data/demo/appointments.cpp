#include "data/demo/appointments.h"

#include "data/codes.h"
#include "data/demo/tablewriter.h"
#include "data/minutetime.h"

#include <map>
#include <QLocale>
#include <QTime>

namespace demo {

namespace {

// The rooms that are taken on the day that is being written.
class RoomDay {
  public:
    bool take(QDate date, int room, int start, int end) {
        if (date != date_) {
            date_ = date;
            taken_.clear();
        }
        for (const auto& [takenRoom, hours] : taken_) {
            if (takenRoom == room && hours.start < end && start < hours.end)
                return false;
        }
        taken_.emplace(room, Hours{start, end});
        return true;
    }

  private:
    QDate date_;
    std::multimap<int, Hours> taken_;
};

// Writes a time as the session table stores it.
QString sessionTime(int minutes) {
    if (minutes == 720)
        return QStringLiteral("12:00 pm");
    return MinutesToTimeText(minutes, false).toLower();
}

QString usText(const QDateTime& time, const char* format) {
    return QLocale::c().toString(time, QString::fromLatin1(format));
}

class Writer {
  public:
    Writer(const Practice& practice, const std::vector<Booking>& bookings, db::Connection& connection)
        : practice_(practice),
          connection_(connection),
          today_(practice.options.today),
          random_(practice.options.seed, "appointment rows"),
          appointments_(connection, "appointments",
                        {"dapptdate",   "nStartTime",       "nEndTime",         "cappttext",          "CapptNote",
                         "ncolor",      "appttype",         "appointment_type", "clinicianid",        "patientid",
                         "PatientAcct", "hphone",           "wphone",           "BLOCATEICO",         "CLOCATION",
                         "BremindIco",  "ReminderTime",     "BTentIco",         "repeating",          "repeating_ref",
                         "allday",      "NoteID",           "CheckInTime",      "CourtesyCallStatus", "createddate",
                         "createduid",  "lastmodifieddate", "lastmodifieduid"}),
          attending_(connection, "appointmentsevents", {"nkeyid", "clinicianid"}),
          members_(
              connection, "AppointmentsGroup",
              {"nKeyId", "PatientId", "PatientAcct", "PatientName", "HPhone", "Kept", "GroupId", "CourtesyCallStatus"}),
          rooms_(connection, "roomschedule",
                 {"apptid", "croomid", "croomtext", "CroomNOTE", "nStartTime", "nEndTime", "nApptDate"}),
          sessions_(
              connection, "sessions",
              {"stype", "Patient", "patientid", "DateMarker", "providerid", "incident", "CPTCode", "StartTime",
               "EndTime", "sessionlength", "location", "program", "ModifiedDate", "SignatureDate", "SignatureName"}),
          missed_(connection, "MissedAppt", {"id", "reason"}),
          audit_(connection, "AuditLog",
                 {"LogUser", "LogDate", "LogLocation", "LogDescription", "LogListId", "LogNotes", "CompUser",
                  "CompName"}) {
        for (const Booking& booking : bookings) {
            if (booking.series >= 0)
                ++seriesRows_[booking.series];
        }
    }

    /// The key of the session that was made with the booking, 0 for none.
    int add(const Booking& booking) {
        if (booking.date != day_ && day_.isValid())
            addRoomMeetings();
        day_ = booking.date;
        const int noteId = addSession(booking);
        const int key = addAppointment(booking, noteId);
        for (const int provider : booking.attending)
            attending_.add({key, practice_.providers[static_cast<std::size_t>(provider)].id});
        if (booking.kind == BookingKind::Group)
            addMembers(booking, key);
        addRoom(booking, key);
        return noteId;
    }

    void finish() {
        for (BatchWriter* writer : {&appointments_, &attending_, &members_, &rooms_, &sessions_, &missed_, &audit_})
            writer->finish();
        // The first row of a series names itself.
        connection_.Execute(
            "Update appointments Set repeating_ref = nkeyid Where repeating = 1 And repeating_ref Is Null");
    }

  private:
    const Provider* providerOf(const Booking& booking) const {
        return booking.provider < 0 ? nullptr : &practice_.providers[static_cast<std::size_t>(booking.provider)];
    }
    const Patient* patientOf(const Booking& booking) const {
        return booking.patient < 0 ? nullptr : &practice_.patients[static_cast<std::size_t>(booking.patient)];
    }

    QString textOf(const Booking& booking) const {
        switch (booking.kind) {
            case BookingKind::Patient:
                return DisplayName(patientOf(booking)->person);
            case BookingKind::Group:
                return practice_.groups[static_cast<std::size_t>(booking.group)].name;
            case BookingKind::TypeSlot:
                return practice_.categories[static_cast<std::size_t>(booking.category)].name;
            default:
                return booking.text;
        }
    }

    QString noteOf(const Booking& booking) const {
        if (booking.kind == BookingKind::Group)
            return QLatin1Char('|') + booking.note + QStringLiteral("|||");
        const QString service =
            booking.service < 0 ? QString() : practice_.services[static_cast<std::size_t>(booking.service)].text();
        return service + QLatin1Char('|') + booking.note;
    }

    QString checkIn(const Booking& booking) {
        const bool arrived =
            booking.color == ncolor::CheckedIn || (booking.color == ncolor::Kept && random_.chance(50));
        if (!arrived || booking.date != today_)
            return {};
        const QTime time = QTime(0, 0).addSecs((booking.start - random_.between(2, 14)) * 60);
        return usText(QDateTime(booking.date, time, Qt::UTC), "MM/dd/yy hh:mm AP");
    }

    int addAppointment(const Booking& booking, int noteId) {
        const Provider* provider = providerOf(booking);
        const Patient* patient = patientOf(booking);
        const bool slot = booking.kind == BookingKind::TypeSlot;
        const bool repeats = booking.series >= 0 && seriesRows_[booking.series] > 1;
        const auto known = seriesKeys_.find(booking.series);
        const QDate made = qMin(today_, booking.date).addDays(-random_.between(0, 30));
        const QString madeBy = provider && random_.chance(30) ? provider->id : QStringLiteral("DESK");
        appointments_.add({booking.date,
                           booking.start,
                           booking.end,
                           textOf(booking),
                           noteOf(booking),
                           booking.color,
                           slot ? ApptTypeSlot : 0,
                           booking.category < 0
                               ? db::Value()
                               : db::Value(practice_.categories[static_cast<std::size_t>(booking.category)].color),
                           provider ? provider->id : QString::fromLatin1(EventClinicianId),
                           patient ? patient->id : QString(),
                           patient ? patient->account : QString(),
                           patient ? PhoneText(patient->homePhone) : QString(),
                           patient ? PhoneText(patient->workPhone) : QString(),
                           !booking.location.isEmpty(),
                           booking.location,
                           booking.reminder,
                           booking.reminder ? db::Value(booking.start - 10) : db::Value(),
                           booking.color == ncolor::Tentative,
                           repeats ? 1 : 0,
                           repeats && known != seriesKeys_.end() ? db::Value(known->second) : db::Value(),
                           booking.allDay,
                           noteId > 0 ? db::Value(noteId) : db::Value(),
                           checkIn(booking),
                           booking.callStatus,
                           made,
                           madeBy,
                           qMin(today_, booking.date),
                           madeBy});
        const int key = appointments_.key();
        if (repeats && known == seriesKeys_.end())
            seriesKeys_.emplace(booking.series, key);
        if (made >= today_.addDays(-6) && random_.chance(40))
            addAudit(booking, madeBy, made);
        return key;
    }

    void addMembers(const Booking& booking, int key) {
        const Group& group = practice_.groups[static_cast<std::size_t>(booking.group)];
        const bool over = booking.date < today_ || (booking.date == today_ && booking.end < NowMinute);
        for (const Group::Member& member : group.members) {
            if (member.from > booking.date || (member.until.isValid() && member.until < booking.date))
                continue;
            const Patient& patient = practice_.patients[static_cast<std::size_t>(member.patient)];
            const bool called = qAbs(today_.daysTo(booking.date)) < 4 && random_.chance(60);
            members_.add({key, patient.id, patient.account, DisplayName(patient.person), patient.homePhone,
                          over && random_.chance(85) ? 1 : 0, group.key, called ? "LM" : ""});
        }
    }

    void addRoom(const Booking& booking, int key) {
        if (booking.room < 0 || !taken_.take(booking.date, booking.room, booking.start, booking.end))
            return;
        const QString text = booking.kind == BookingKind::Patient ? providerOf(booking)->last : textOf(booking);
        rooms_.add({key, practice_.roomKeys[static_cast<std::size_t>(booking.room)], text, "", booking.start,
                    booking.end, booking.date});
    }

    // What the rooms are booked for apart from appointments, near today.
    void addRoomMeetings() {
        static constexpr std::pair<const char*, Hours> Meetings[]{{"Cleaning", {1080, 1140}},
                                                                  {"Board Meeting", {1020, 1110}},
                                                                  {"Job interview", {600, 660}},
                                                                  {"Parent workshop", {1050, 1140}},
                                                                  {"Fire safety inspection", {540, 570}}};
        if (day_.dayOfWeek() > Qt::Friday || qAbs(today_.daysTo(day_)) > 42)
            return;
        for (int i = random_.between(1, 3); i > 0; --i) {
            const auto& [text, hours] = random_.pick(Meetings);
            const int room = random_.between(7, 12);
            if (taken_.take(day_, room, hours.start, hours.end))
                rooms_.add({0, practice_.roomKeys[static_cast<std::size_t>(room)], text,
                            random_.chance(30) ? "Set up chairs." : "", hours.start, hours.end, day_});
        }
    }

    // Chooses the session of a row that is over: types 1 and 2 are clinical notes, 6 to 8 notes about a missed
    // appointment.
    int addSession(const Booking& booking) {
        const bool over = booking.date < today_ || (booking.date == today_ && booking.end < NowMinute);
        if (booking.kind != BookingKind::Patient || !over || booking.noteToWrite)
            return 0;
        if (booking.color == ncolor::Kept && (booking.locked || random_.chance(92)))
            return addNote(booking, random_.chance(85) ? 1 : 2);
        if (booking.color >= ncolor::Missed && booking.color <= ncolor::TherapistCancelled && random_.chance(45))
            return addMissed(booking, 6 + booking.color - ncolor::Missed);
        return 0;
    }

    int addNote(const Booking& booking, int stype) {
        const Patient& patient = *patientOf(booking);
        const Provider& provider = *providerOf(booking);
        const bool isSigned = random_.chance(70);
        const QDateTime written(booking.date, QTime(17, 0).addSecs(random_.between(0, 119) * 60), Qt::UTC);
        sessions_.add({stype, DisplayName(patient.person), patient.id, booking.date, provider.id, 1,
                       practice_.services[static_cast<std::size_t>(booking.service)].code, sessionTime(booking.start),
                       sessionTime(booking.end), booking.end - booking.start, booking.location, "Outpatient", written,
                       isSigned ? db::Value(written) : db::Value(),
                       isSigned ? db::Value(provider.first + QLatin1Char(' ') + provider.last) : db::Value()});
        return sessions_.key();
    }

    int addMissed(const Booking& booking, int stype) {
        static constexpr const char* Reasons[]{"No call. Left a message to reschedule.",
                                               "Transportation fell through.",
                                               "Ill. Rescheduled.",
                                               "Forgot; apologized by telephone.",
                                               "Therapist ill.",
                                               "Weather.",
                                               "Work shift changed.",
                                               "Child care fell through."};
        const Patient& patient = *patientOf(booking);
        sessions_.add({stype, DisplayName(patient.person), patient.id, booking.date, providerOf(booking)->id, 1, "", "",
                       "", nullptr, booking.location, "", QDateTime(booking.date, QTime(17, 30), Qt::UTC), nullptr,
                       nullptr});
        const int id = sessions_.key();
        missed_.add({id, random_.pick(Reasons)});
        return id;
    }

    void addAudit(const Booking& booking, const QString& user, QDate made) {
        const QDateTime time(made, QTime(8, 0).addSecs(random_.between(0, 599) * 60), Qt::UTC);
        const QString text = QStringLiteral("Added Appointment on %1 at %2 for %3")
                                 .arg(usText(QDateTime(booking.date, QTime(0, 0), Qt::UTC), "MM/dd/yyyy"),
                                      MinutesToTimeText(booking.start, false), textOf(booking));
        audit_.add({user, usText(time, "yyyy/MM/dd hh:mm:ss AP"), "Scheduler", text, "Add Appointment", "-",
                    user.toLower(), "DESK-" + QString::number(random_.between(1, 4))});
    }

    const Practice& practice_;
    db::Connection& connection_;
    QDate today_;
    QDate day_;
    Random random_;
    RoomDay taken_;
    std::map<int, int> seriesRows_;
    std::map<int, int> seriesKeys_;
    BatchWriter appointments_;
    BatchWriter attending_;
    BatchWriter members_;
    BatchWriter rooms_;
    BatchWriter sessions_;
    BatchWriter missed_;
    BatchWriter audit_;
};

}  // namespace

void WriteAppointments(const Practice& practice, std::vector<Booking>& bookings, db::Connection& connection) {
    Writer writer(practice, bookings, connection);
    for (Booking& booking : bookings)
        booking.session = writer.add(booking);
    writer.finish();
}

}  // namespace demo
