#include "data/demo/groups.h"

#include "data/demo/tablewriter.h"

#include <set>

namespace demo {

namespace {

struct KnownGroup {
    const char* name;
    int leader;
    int weekday;
    Hours hours;
};

constexpr KnownGroup Groups[]{
    {"Mindfulness Skills Group", 0, 4, {780, 855}}, {"Anger Management", 1, 3, {960, 1035}},
    {"Grief and Loss", 5, 5, {900, 975}},           {"Parents of Teens", 3, 4, {1080, 1155}},
    {"Early Recovery", 10, 4, {960, 1050}},         {"Social Skills, Ages 8-11", 12, 3, {900, 960}},
    {"Art Therapy Open Studio", 9, 3, {840, 930}},  {"Anxiety Workshop", 7, 5, {600, 675}}};

}  // namespace

void MakeGroups(Practice& practice) {
    Random random(practice.options.seed, "groups");
    const QDate today = practice.options.today;
    const int weekdayToday = Weekday(today);
    const bool weekend = weekdayToday == 1 || weekdayToday == 7;
    for (int copy = 0; copy < practice.size; ++copy) {
        for (const KnownGroup& known : Groups) {
            Group group;
            group.name = QString::fromLatin1(known.name);
            if (copy > 0)
                group.name += QStringLiteral(" %1").arg(copy + 1);
            group.leader = known.leader + copy * 14;
            group.weekday = group.leader == 0 && !weekend ? weekdayToday : known.weekday;
            group.hours = known.hours;
            std::set<int> chosen;
            const int members = random.between(7, 11);
            while (static_cast<int>(chosen.size()) < members) {
                const int patient = random.between(0, static_cast<int>(practice.patients.size()) - 1);
                if (practice.patients[static_cast<std::size_t>(patient)].archived || !chosen.insert(patient).second)
                    continue;
                Group::Member member{patient, today.addDays(-random.between(20, 420)), {}};
                // The first six members stay. Of the others, some have left and some have a last day.
                if (chosen.size() > 6 && random.chance(50))
                    member.until = random.chance(50) ? today.addDays(-random.between(1, 15))
                                                     : today.addDays(random.between(20, 120));
                group.members.push_back(member);
            }
            practice.groups.push_back(group);
        }
    }
}

void WriteGroups(Practice& practice, db::Connection& connection) {
    TableWriter groups(connection, "Groups", {"GroupName", "Leader", "activestatus"});
    TableWriter members(connection, "GroupMembers", {"GroupID", "PatientID", "startDate", "enddate"});
    for (Group& group : practice.groups) {
        groups.add({group.name, practice.providers[static_cast<std::size_t>(group.leader)].id, 1});
        group.key = groups.key();
        for (const Group::Member& member : group.members)
            members.add(
                {group.key, practice.patients[static_cast<std::size_t>(member.patient)].id, member.from, member.until});
    }
    groups.add({"Couples Retreat", practice.providers[3].id, 0});
}

}  // namespace demo
