#include "data/demo/tasks.h"

#include "data/demo/tablewriter.h"

#include <algorithm>
#include <array>

namespace demo {

namespace {

constexpr std::array Tasks{"Call back the school psychologist",
                           "Finish treatment plan reviews",
                           "Sign last week's progress notes",
                           "Order PHQ-9 forms",
                           "Letter to the county court",
                           "Renew malpractice insurance",
                           "Send records to the new therapist (release is signed)",
                           "Prepare slides for the inservice",
                           "Ask billing about the refused claim",
                           "Set up the play room for Thursday",
                           "Confirm interpreter for Monday",
                           "Update crisis plan",
                           "Order batteries for the white-noise machines",
                           "Read the new telehealth policy"};

}  // namespace

void WriteTasks(const Practice& practice, db::Connection& connection) {
    Random random(practice.options.seed, "tasks");
    const QDate today = practice.options.today;
    TableWriter tasks(connection, "ToDo",
                      {"ClinicianId", "ToDo", "Notes", "Priority", "DateEntered", "datedue", "Completed"});
    for (std::size_t i = 0; i < practice.providers.size(); ++i) {
        const int count = i == 0 ? 9 : random.between(1, 6);
        for (int task = 0; task < count; ++task) {
            // REED has a task of every priority, and a finished one.
            const int priority = i == 0 ? 1 + task % 5 : random.between(1, 5);
            const bool done = i == 0 ? task == 4 : random.chance(25);
            const char* text = Tasks[(static_cast<std::size_t>(task) * 3 + i) % Tasks.size()];
            tasks.add({practice.providers[i].id, text,
                       random.chance(30) ? db::Value("Details are in the patient's chart.") : db::Value(), priority,
                       today.addDays(-random.between(0, 20)),
                       random.chance(70) ? db::Value(today.addDays(random.between(-3, 21))) : db::Value(),
                       done ? 1 : 0});
        }
    }
}

}  // namespace demo
