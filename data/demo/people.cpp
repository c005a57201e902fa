#include "data/demo/people.h"

#include "data/demo/tablewriter.h"
#include "data/scramble.h"

#include <algorithm>
#include <set>

namespace demo {

namespace {

struct KnownProvider {
    const char* id;
    const char* first;
    const char* last;
    const char* discipline;
    Work work;
};

constexpr KnownProvider KnownProviders[]{
    {"REED", "Amara", "Reed", "Psychology", Work::Therapist},
    {"LANE", "Jonah", "Lane", "Social Work", Work::Therapist},
    {"OYELARAN", "Folake", "Oyelaran", "Psychiatry", Work::Prescriber},
    {"CASTELLA", "Inés", "Castellanos", "Marriage and Family", Work::Therapist},
    {"LINDQVIS", "Maja", "Lindqvist-Moreau", "Psychology", Work::Psychologist},
    {"DUFRESNE", "Luc", "Dufresne", "Counseling", Work::Therapist},
    {"PATEL", "Nikhil", "Patel", "Psychiatry", Work::Prescriber},
    {"HOLLOWAY", "Deborah", "Holloway", "Social Work", Work::Therapist},
    {"NAKAGAWA", "Hiro", "Nakagawa", "Counseling", Work::Therapist},
    {"PETROVA", "Irina", "Petrova", "Art Therapy", Work::Therapist},
    {"AVELLANE", "Tomás", "Avellaneda", "Substance Use", Work::Therapist},
    {"MCBRIDE", "Shanice", "McBride", "Nursing", Work::Prescriber},
    {"GHOSH", "Priya", "Ghosh", "Child Psychology", Work::Psychologist},
    {"VIEW", "Wren", "Dalca", "Practicum", Work::Trainee},
};

// Working weeks: some have a gap, most a day off, a few an evening or a Saturday.
void giveHours(Provider& provider, std::size_t index) {
    static constexpr Hours Weeks[][8]{
        {{}, {0, 0}, {510, 1080}, {480, 1020}, {510, 1080}, {480, 1020}, {480, 1020}, {0, 0}},
        {{}, {0, 0}, {480, 1080}, {480, 1080}, {0, 0}, {480, 1080}, {480, 1020}, {0, 0}},
        {{}, {0, 0}, {540, 1080}, {540, 1080}, {540, 1080}, {0, 0}, {540, 900}, {0, 0}},
        {{}, {0, 0}, {0, 0}, {660, 1230}, {660, 1230}, {660, 1230}, {540, 1020}, {540, 780}},
        {{}, {0, 0}, {480, 1020}, {480, 1020}, {480, 1020}, {480, 1020}, {480, 840}, {0, 0}},
        {{}, {0, 0}, {600, 1140}, {600, 1140}, {480, 1020}, {480, 1020}, {480, 900}, {0, 0}},
        {{}, {0, 0}, {420, 960}, {420, 960}, {420, 960}, {420, 960}, {0, 0}, {0, 0}},
    };
    const auto& week = Weeks[index % std::size(Weeks)];
    std::copy(std::begin(week), std::end(week), provider.hours.begin());
    // REED is the provider whom a new user sees first, and works every weekday.
    if (provider.id == QLatin1String("REED"))
        provider.hours = {Hours{}, {0, 0}, {480, 1080}, {480, 1080}, {480, 1080}, {480, 1080}, {480, 1080}, {0, 0}};
}

struct User {
    QString id;
    int type = 0;
    char patients = '2';   // Place 5: may open the notes of others.
    char notes = '3';      // Place 6: notes work inside the scheduler.
    char scheduler = '3';  // Place 9.
    bool hidesLedger = false;
};

User userOf(const Provider& provider) {
    if (provider.id == QLatin1String("LANE"))
        return {provider.id, 0, '2', '2', '2'};
    if (provider.work == Work::Trainee)
        return {provider.id, 0, '0', '1', '1', true};
    if (provider.work == Work::Prescriber)
        return {provider.id, 1, '3', '3', '6'};
    return {provider.id};
}

}  // namespace

void MakeProviders(Practice& practice) {
    Random random(practice.options.seed, "providers");
    std::set<QString> surnames;
    for (const KnownProvider& known : KnownProviders)
        surnames.insert(QString::fromUtf8(known.last));
    for (int copy = 0; copy < practice.size; ++copy) {
        for (const KnownProvider& known : KnownProviders) {
            Provider provider{QString::fromUtf8(known.id), QString::fromUtf8(known.first),
                              QString::fromUtf8(known.last), QString::fromUtf8(known.discipline), known.work};
            if (copy > 0) {
                Person person = SomePerson(random);
                while (!surnames.insert(person.last).second)
                    person = SomePerson(random);
                provider.id = QStringLiteral("P%1").arg(practice.providers.size() + 1, 4, 10, QLatin1Char('0'));
                provider.first = person.first;
                provider.last = person.last;
            }
            giveHours(provider, practice.providers.size());
            provider.room = static_cast<int>(practice.providers.size());
            practice.providers.push_back(provider);
        }
    }
}

void WriteProviders(const Practice& practice, db::Connection& connection) {
    TableWriter providers(
        connection, "provider_info",
        {"id", "prov_lastname", "pfirst_name", "plast_name", "discipline", "archive", "ExcludeFromScheduler"});
    TableWriter hours(connection, "ProvSched", {"providerid", "workdayvalue", "starttime", "endtime"});
    TableWriter passwords(
        connection, "passwords",
        {"pswd_user_id", "pswd_password", "pswd_type_of_access", "pswd_screen_access", "pswd_fh_ledger"});
    const QString password = ScramblePassword(QString::fromLatin1(DemoPassword), DefaultScrambleKey);
    const auto addUser = [&](const User& user) {
        QString access = QStringLiteral("3333??33?");
        access[4] = QLatin1Char(user.patients);
        access[5] = QLatin1Char(user.notes);
        access[8] = QLatin1Char(user.scheduler);
        passwords.add({user.id, password, user.type, access, user.hidesLedger ? 1 : 0});
    };

    for (const Provider& provider : practice.providers) {
        providers.add({provider.id, provider.last, provider.first, provider.last, provider.discipline, 0, 0});
        addUser(userOf(provider));
        for (int day = 1; day <= 7; ++day) {
            const Hours& work = provider.hours[static_cast<std::size_t>(day)];
            // A trainee has no fixed week. A day off of the others is a row without a start.
            if (provider.work == Work::Trainee || (work.end == 0 && (day == 1 || day == 7)))
                continue;
            if (work.end == 0)
                hours.add({provider.id, day, nullptr, nullptr});
            else
                hours.add({provider.id, day, work.start, work.end});
        }
    }
    // One provider has left and has an inactive user. Nobody books the desk.
    providers.add({"HARGROVE", "Hargrove", "Edmund", "Hargrove", "Psychology", 1, 0});
    addUser({QStringLiteral("HARGROVE")});
    providers.add({"DESK", "Front Desk", "Rosalind", "Quirk", "Office", 0, 1});
    addUser({QStringLiteral("DESK"), 1, '0', '0', '6', false});
    addUser({QStringLiteral("ADMIN"), 2, '3', '3', '6', false});
}

}  // namespace demo
