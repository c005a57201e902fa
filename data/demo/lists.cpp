#include "data/demo/lists.h"

#include "data/demo/tablewriter.h"
#include "data/upkeep/newpractice.h"

#include <array>

namespace demo {

namespace {

struct KnownService {
    const char* code;
    const char* name;
    int minutes;
};

// Codes in the usual form, with names from no catalogue.
constexpr KnownService Services[]{{"90710", "Intake Interview", 80},
                                  {"90730", "Individual Session", 50},
                                  {"90732", "Individual Session, Short", 30},
                                  {"90734", "Individual Session, Long", 75},
                                  {"90740", "Family Session", 50},
                                  {"90742", "Couples Session", 75},
                                  {"90750", "Medication Visit", 20},
                                  {"90752", "Medication Visit, Extended", 40},
                                  {"90760", "Group Session", 75},
                                  {"90770", "Psychological Testing", 120},
                                  {"90780", "Crisis Session", 60},
                                  {"90790", "Case Consultation", 30}};

// Windows colour values with blue in the high byte. None of them is a status code.
constexpr std::pair<const char*, int> Categories[]{{"Intake Slot", 0x80C0FF},      {"Family Session", 0xE0B0F0},
                                                   {"Medication Check", 0xD8E8A0}, {"Testing Block", 0xF0D890},
                                                   {"School Meeting", 0x90E8F8},   {"Telehealth", 0xF8C8B0},
                                                   {"Emergency Hold", 0x8080FF}};

constexpr std::array Locations{"Main Office", "North Clinic",           "Harbor Point",
                               "Telehealth",  "Larkspur Middle School", "Home Visit"};

constexpr std::array Rooms{"Room 101",     "Room 102",     "Room 103",       "Room 104",  "Room 201",
                           "Room 202",     "Room 203",     "Family Room",    "Play Room", "Testing Room",
                           "Group Room A", "Group Room B", "Conference Room"};

constexpr std::array Activities{"Staff Meeting", "Case Conference", "Peer Supervision", "Inservice Training",
                                "Board Meeting", "Intake Meeting",  "Fire Drill",       "Holiday Luncheon"};

constexpr std::array Absences{"Lunch",       "Out of Office",        "Vacation", "Paperwork",
                              "Supervision", "Doctor's Appointment", "On Call",  "Sick"};

constexpr std::array Insurers{"Blue Harbor Health",    "Prairie Mutual",           "Northern Lakes HMO",
                              "Unity Benefit Trust",   "St. Odile Health Plan",    "Commonwealth Assurance",
                              "Midland Care Partners", "State Medical Assistance", "Foundry Workers' Fund",
                              "Evergreen Behavioral",  "Beacon Ridge Life",        "Self Pay Program"};

constexpr std::array Referrers{"Larkspur Family Medicine",
                               "Millbrook School District",
                               "Harbor Point Pediatrics",
                               "County Human Services",
                               "St. Odile Hospital",
                               "Quarry Bend Probation Office",
                               "New Avon Women's Clinic",
                               "Employee Assistance Line",
                               "Elm Grove Parish",
                               "Prairie Urgent Care",
                               "Former Patient",
                               "Web Site",
                               "Dr. A. Szabó",
                               "Dr. M. O'Rourke"};

void writeNames(db::Connection& connection, const char* table, const char* column, const auto& names) {
    TableWriter writer(connection, table, {column});
    for (const char* name : names)
        writer.add({QString::fromUtf8(name)});
}

// Returns the n-th weekday of a month, such as the fourth Thursday of November.
QDate nthWeekday(int year, int month, int dayOfWeek, int n) {
    const QDate first(year, month, 1);
    return first.addDays((dayOfWeek - first.dayOfWeek() + 7) % 7 + (n - 1) * 7);
}

void writeHolidays(QDate today, db::Connection& connection) {
    TableWriter holidays(connection, "Holidays", {"Holiday", "HolidayDate", "HolidayRepeat"});
    const auto add = [&](const char* name, QDate date, bool yearly) {
        const bool falls = yearly ? date.month() == today.month() && date.day() == today.day() : date == today;
        if (!falls)
            holidays.add({name, date, yearly ? 1 : 0});
    };
    const int year = today.year();
    add("New Year's Day", QDate(year - 3, 1, 1), true);
    add("Independence Day", QDate(year - 3, 7, 4), true);
    add("Christmas Eve", QDate(year - 3, 12, 24), true);
    add("Christmas Day", QDate(year - 3, 12, 25), true);
    for (int y = year - 1; y <= year + 1; ++y) {
        add("Memorial Day", nthWeekday(y, 6, Qt::Monday, 1).addDays(-7), false);
        add("Labor Day", nthWeekday(y, 9, Qt::Monday, 1), false);
        add("Thanksgiving", nthWeekday(y, 11, Qt::Thursday, 4), false);
    }
    add("Practice Retreat", nthWeekday(today.addDays(40).year(), today.addDays(40).month(), Qt::Friday, 2), false);
}

void writeNoteTypes(const Practice& practice, db::Connection& connection) {
    static constexpr std::array Types{"Progress Note",        "Intake Evaluation",         "Treatment Plan Review",
                                      "Group Note",           "Psychiatric Progress Note", "Missed Appointment",
                                      "Patient Cancellation", "Therapist Cancellation",    "Telephone Contact"};
    TableWriter types(connection, "NoteTypes", {"NoteType", "applyauths"});
    TableWriter menu(connection, "DocNewMenu", {"NoteID", "NoteName", "UID"});
    std::vector<int> keys;
    for (const char* type : Types) {
        types.add({type, keys.size() < 5 ? 1 : 0});
        keys.push_back(types.key());
    }
    for (const Provider& provider : practice.providers) {
        menu.add({keys[0], "My Progress Note", provider.id});
        if (provider.work == Work::Prescriber)
            menu.add({keys[4], "Medication Visit Note", provider.id});
    }
}

struct Workplace {
    const char* company;
    const char* title;
    const char* department;
    const char* floor;  ///< The second line of the address; empty where there is none.
};

// Whom a practice calls: each place with somebody who works there.
constexpr Workplace Workplaces[]{{"Millbrook Elementary", "School Counselor", "Student Services", ""},
                                 {"Larkspur Middle School", "School Psychologist", "Student Services", "Room 12"},
                                 {"County Court", "Probation Officer", "Juvenile Division", "Floor 3"},
                                 {"County Human Services", "Case Manager", "Child Protection", "Suite 210"},
                                 {"Prairie Pharmacy", "Pharmacist", "", ""},
                                 {"St. Odile Hospital", "Discharge Nurse", "Behavioral Health", "West Wing"},
                                 {"St. Odile Hospital", "Admissions Clerk", "Emergency", ""},
                                 {"Legal Aid Society", "Attorney", "Family Law", "Suite 4"},
                                 {"Harbor Point Shelter", "Shift Lead", "", ""},
                                 {"Harbor Point Pediatrics", "Pediatrician", "", "Suite 1B"},
                                 {"Union Hall 12", "Benefits Representative", "Members' Aid", ""},
                                 {"Adult Day Center", "Program Director", "", ""},
                                 {"Foundry Workers' Fund", "Claims Examiner", "Mental Health Claims", "P.O. Box 88"},
                                 {"Northern Lakes HMO", "Case Reviewer", "Utilization Review", ""}};

constexpr std::array ContactNotes{"Best reached before 10 AM.", "Ask for the direct line.",
                                  "Fax releases to the attention of the department.",
                                  "Prefers e-mail.\r\nOut of the office on Fridays."};

void writeContacts(const Practice& practice, Random& random, db::Connection& connection) {
    TableWriter contacts(connection, "ContactList",
                         {"uid", "company", "fname", "lname", "mi", "address", "city", "state", "zip", "hphone",
                          "wphone", "fax", "mobilephone", "pager", "emailaddress", "ctitle", "cdept", "notes"});
    const auto maybe = [&random](int percent, const QString& text) {
        return random.chance(percent) ? text : QString();
    };
    const auto add = [&](const QString& user, int count) {
        for (int i = 0; i < count; ++i) {
            const Person person = SomePerson(random);
            const Address address = SomeAddress(random);
            const Workplace& place = random.pick(Workplaces);
            // Nobody is called in an apartment at work.
            const QString street = address.street.section(QLatin1Char(','), 0, 0);
            const QString floor = QLatin1String(place.floor);
            contacts.add({user, place.company, person.first, person.last, person.middle,
                          floor.isEmpty() ? street : street + QStringLiteral("\r\n") + floor, address.city,
                          address.state, address.zip, maybe(30, SomePhone(random)),
                          SomePhone(random, random.chance(40)), maybe(40, SomePhone(random)),
                          maybe(60, SomePhone(random)), maybe(10, SomePhone(random)),
                          maybe(75, SomeEmail(person, random)), place.title, place.department,
                          maybe(35, QLatin1String(random.pick(ContactNotes)))});
        }
    };
    add(QStringLiteral("DESK"), 24);
    add(QStringLiteral("ADMIN"), 8);
    for (std::size_t i = 0; i < 4; ++i)
        add(practice.providers[i].id, random.between(8, 16));
}

void writeCompanies(Random& random, db::Connection& connection) {
    TableWriter insurers(connection, "insurance_info", {"ins_name", "contact", "address", "telephone", "fax"});
    TableWriter referrers(connection, "ref_source_info",
                          {"ref_name", "contact", "address", "telephone", "fax", "archive"});
    const auto addressText = [&] {
        const Address address = SomeAddress(random);
        return QStringLiteral("%1\r\n%2, %3 %4").arg(address.street, address.city, address.state, address.zip);
    };
    const auto contact = [&] {
        const Person person = SomePerson(random);
        return person.first + QLatin1Char(' ') + person.last;
    };
    for (const char* name : Insurers)
        insurers.add({name, contact(), addressText(), SomePhone(random), SomePhone(random)});
    for (const char* name : Referrers)
        referrers.add(
            {name, contact(), addressText(), SomePhone(random), SomePhone(random), random.chance(12) ? 1 : 0});
}

}  // namespace

void MakeLists(Practice& practice) {
    for (const KnownService& service : Services)
        practice.services.push_back(
            {QString::fromLatin1(service.code), QString::fromLatin1(service.name), service.minutes});
    for (const auto& [name, color] : Categories)
        practice.categories.push_back({QString::fromLatin1(name), color});
    for (const char* location : Locations)
        practice.locations.push_back(QString::fromLatin1(location));
    for (int floor = 0; floor < practice.size; ++floor) {
        for (const char* room : Rooms)
            practice.roomNames.push_back(floor == 0
                                             ? QString::fromLatin1(room)
                                             : QStringLiteral("%1, House %2").arg(QLatin1String(room)).arg(floor + 1));
    }
}

void WriteLists(Practice& practice, db::Connection& connection) {
    Random random(practice.options.seed, "lists");
    writeNames(connection, "Locations", "Location", Locations);
    writeNames(connection, "Events", "Event", Activities);
    writeNames(connection, "availability", "avail", Absences);
    writeHolidays(practice.options.today, connection);
    upkeep::WriteCodes(connection);
    writeNoteTypes(practice, connection);
    writeContacts(practice, random, connection);
    writeCompanies(random, connection);

    TableWriter rooms(connection, "rooms", {"Room"});
    for (const QString& room : practice.roomNames) {
        rooms.add({room});
        practice.roomKeys.push_back(rooms.key());
    }
    TableWriter services(connection, "session_types", {"sess_cpt_code", "sess_cpt_name", "sess_cpt_time"});
    for (const Service& service : practice.services)
        services.add({service.code, service.name, service.minutes});
    TableWriter categories(connection, "AptCategories", {"aptcategory", "aptcategorycolor"});
    for (const Category& category : practice.categories)
        categories.add({category.name, category.color});
    TableWriter headers(connection, "report_headers", {"header", "default"});
    headers.add({"Larkspur Counseling Associates\r\n210 Foundry St, Larkspur Falls, WI 53841\r\n(608) 555-0142", 1});
    headers.add({"Larkspur Counseling Associates - Confidential", 0});
}

void WriteSettings(const Practice& practice, db::Connection& connection, const QString& companionServer,
                   const QString& companionCatalog) {
    TableWriter settings(connection, "settings",
                         {"ALEnabled", "recallpw", "wordusage", "FHServer", "FHDatabaseName", "FHAutoExport",
                          "UseFHSchedView", "SMTPServer", "SMTPUser", "SMTPPort", "SMTPSSL"});
    settings.add({1, false, "Patient", companionServer, companionCatalog, 0, 0, "", "", 25, 0});

    TableWriter company(connection, "CompanyInfo",
                        {"CompanyName", "UserName", "userid", "addr1", "city", "state", "zipcode", "phone", "fax",
                         "callbackno", "emailaddress"});
    company.add({"Larkspur Counseling Associates", "Front Desk", "DESK", "210 Foundry St", "Larkspur Falls", "WI",
                 "53841", "6085550142", "6085550143", "6085550142", "office@larkspur.example"});

    TableWriter defaults(connection, "DefaultFieldValues", {"dfltfieldname", "DfltValue"});
    defaults.add({"STATE", "WI"});
    defaults.add({"AREACODE", "608"});

    TableWriter preferences(
        connection, "User_Preferences",
        {"UP_UserID", "UP_Pref_Category", "UP_Pref_Detail", "UP_PD_Value", "UP_LastModUid", "UP_DateCreated"});
    const auto prefer = [&](const char* user, const char* category, const char* detail, const char* value) {
        preferences.add({user, category, detail, value, "ADMIN", practice.options.today});
    };
    static constexpr char Everybody[] = "![ALL]!";
    prefer(Everybody, "SchedulerGeneral", "StartTime", "8");
    prefer(Everybody, "SchedulerGeneral", "EndTime", "18");
    prefer(Everybody, "SchedulerGeneral", "ShowNonPrime", "0");
    prefer(Everybody, "SchedulerGeneral", "TaskRollOver", "False");
    prefer(Everybody, "SchedulerGeneral", "TimeUnit", "15");
    prefer(Everybody, "SchedulerGeneral", "MilitaryTime", "False");
    prefer(Everybody, "SchedulerGeneral", "WeekCols", "5");
    prefer(Everybody, "Scheduler", "AllCols", "6");
    prefer("REED", "Interfaces", "ScheduleAlarm", "1");
    prefer("REED", "Interfaces", "ScheduleAlarmTime", "15");
}

}  // namespace demo
