#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <QDate>
#include <QString>
#include <vector>

#include "data/demo/names.h"

namespace demo {

/// The number of appointments in the usual demo: a year back and half a year ahead.
inline constexpr int UsualAppointments = 40500;

struct Options {
    std::uint64_t seed = 1;
    /// The approximate number. A larger one lengthens the past up to ten years and then adds providers.
    int appointments = UsualAppointments;
    QDate today;  ///< The day around which the practice is dated.
    /// A program that a demo folder offers as the practice's notes program; empty for none.
    QString notesProgram = {};
};

/// A stretch of one day in minutes since midnight. An end of 0 means a day off.
struct Hours {
    int start = 0;
    int end = 0;
};

enum class Work { Therapist, Prescriber, Psychologist, Trainee };

struct Provider {
    QString id;
    QString first, last;
    QString discipline;
    Work work = Work::Therapist;
    std::array<Hours, 8> hours{};  ///< By day of the week, 1 Sunday to 7 Saturday; index 0 is unused.
    int room = 0;                  ///< Index of the room that the provider uses most.
    bool archived = false;
};

struct Patient {
    QString id;
    Person person;
    QString account;
    QString homePhone, workPhone;  ///< Digits.
    int provider = 0;              ///< Index of the provider in charge.
    bool archived = false;
    QString defaultService;  ///< A sess_cpt_code.
};

struct Service {
    QString code, name;
    int minutes = 50;
    [[nodiscard]] QString text() const { return code + QStringLiteral("  ") + name; }
};

struct Category {
    QString name;
    int color = 0;
};

/// A therapy group and its members.
struct Group {
    int key = 0;
    QString name;
    int leader = 0;   ///< Index of the provider.
    int weekday = 2;  ///< 1 Sunday to 7 Saturday.
    Hours hours;
    struct Member {
        int patient = 0;
        QDate from;
        QDate until;  ///< Invalid while the member stays.
    };
    std::vector<Member> members;
};

enum class BookingKind { Patient, Group, Activity, Unavailable, TypeSlot };

/// One row of `appointments` before it is written, with its data for other tables.
struct Booking {
    QDate date;
    int start = 0;
    int end = 0;
    BookingKind kind = BookingKind::Patient;
    int color = 0;  ///< ncolor
    int provider = -1;
    int patient = -1;
    int group = -1;     ///< Index into groups.
    int category = -1;  ///< Index into categories.
    int service = -1;   ///< Index into services.
    int series = -1;    ///< Rows with the same number are one repeating series.
    int room = -1;      ///< Index into rooms.
    int session = 0;    ///< Key of its row in sessions, once that is written; 0 for none.
    bool reminder = false;
    bool allDay = false;
    bool locked = false;         ///< Arranged by hand, so that no details are drawn for it.
    bool noteToWrite = false;    ///< Kept, and its note is still to be written.
    QString text;                ///< The text of an activity or of unavailable time.
    QString note;                ///< Free text.
    QString location;            ///< A location's name.
    QString callStatus;          ///< A CallCode.
    std::vector<int> attending;  ///< The providers who attend an activity.
};

/// The invented practice, before and while it is written.
struct Practice {
    Options options;
    QDate firstDay, lastDay;  ///< The first and the last day with appointments.
    int size = 1;             ///< How many times the usual fourteen providers work here.
    std::vector<Provider> providers;
    std::vector<Patient> patients;
    std::vector<Service> services;
    std::vector<Category> categories;
    std::vector<Group> groups;
    std::vector<QString> locations;
    std::vector<int> roomKeys;
    std::vector<QString> roomNames;
};

/// The minute of the day at which the demo's clock stands. Rows before it are over.
inline constexpr int NowMinute = 10 * 60 + 40;

/// Returns the day of the week, 1 Sunday to 7 Saturday.
[[nodiscard]] inline int Weekday(QDate date) {
    return date.dayOfWeek() % 7 + 1;
}

}  // namespace demo
