#include "data/upkeep/newpractice.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "data/schema.h"
#include "data/upkeep/practicefolder.h"
#include "data/upkeep/schemaversion.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"

namespace upkeep {

namespace {

struct CallCode {
    const char* code;
    int category;
    const char* description;
};

constexpr std::array<CallCode, 7> CallCodes{{{"CF", 1, "Confirmed"},
                                             {"LM", 2, "Left message"},
                                             {"AM", 2, "Left message on answering machine"},
                                             {"NA", 3, "No answer"},
                                             {"BZ", 3, "Line busy"},
                                             {"CX", 4, "Asked to cancel"},
                                             {"WN", 4, "Wrong number"}}};

struct FacesheetItem {
    int id;
    const char* name;
    const char* mask;
};

constexpr std::array<FacesheetItem, 3> FacesheetItems{
    {{1, "Patient ID", ""}, {2, "Account #", ""}, {3, "Telephone", "(###) ###-####"}}};

constexpr std::array NoteTypes{
    "Progress Note",      "Intake Evaluation",    "Treatment Plan Review",  "Group Note",
    "Missed Appointment", "Patient Cancellation", "Therapist Cancellation", "Telephone Contact"};

struct Service {
    const char* name;
    int minutes;
};

constexpr std::array<Service, 5> Services{{{"Intake Interview", 80},
                                           {"Individual Session", 50},
                                           {"Family Session", 50},
                                           {"Group Session", 75},
                                           {"Medication Visit", 20}}};

/// The tables without which a database is no practice.
bool isIndispensable(const QString& part) {
    for (const char* table : {"appointments", "passwords", "patient_info", "provider_info"})
        if (part == QLatin1String(table))
            return true;
    return false;
}

/// A practice begins with settings and with kinds of notes and sessions, which its lists change later.
void writeFirstLists(db::Connection& main) {
    main.Execute("Insert Into settings (ALEnabled, recallpw, wordusage) Values (1, 0, 'Patient')");
    for (const char* type : NoteTypes)
        main.Execute(
            db::Sql("Insert Into NoteTypes (NoteType, applyauths) Values ('{}', 0)", QString::fromLatin1(type)));
    for (const Service& service : Services)
        main.Execute(db::Sql("Insert Into session_types (sess_cpt_name, sess_cpt_time) Values ('{}', {})",
                             QString::fromLatin1(service.name), service.minutes));
}

void makeTables(db::Connection& main) {
    ApplySchema(main, SchemaScript::Main);
    WriteSchemaVersion(main);
    db::InTransaction(main, [&] {
        WriteCodes(main);
        writeFirstLists(main);
    });
}

void addFirst(db::Connection& main, const NewUser& first, int key) {
    if (const QString why = AddUser(main, first, key); !why.isEmpty())
        throw std::runtime_error(why.toStdString());
}

QString quoted(const QString& value) {
    return u'"' + QString(value).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString connectionText(const ServerPlace& place) {
    return QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=%2;User Id=SVMaster;Password=%3;")
        .arg(quoted(place.server), quoted(place.database), quoted(place.password));
}

bool hasUsers(db::Connection& main) {
    return !db::Recordset("Select pswd_user_id from passwords", main).Eof();
}

void describe(db::Connection& main, ServerAnswer& answer) {
    answer.engine = main.Facts().engine;
    if (ExistingSchemaTable(main, SchemaScript::Main).isEmpty()) {
        answer.state = ServerAnswer::State::Empty;
        return;
    }
    answer.missing = MissingParts(main, SchemaScript::Main);
    if (std::ranges::any_of(answer.missing, isIndispensable)) {
        answer.state = ServerAnswer::State::Foreign;
        return;
    }
    answer.state = ServerAnswer::State::Ready;
    answer.hasUsers = hasUsers(main);
}

}  // namespace

void WriteCodes(db::Connection& main) {
    for (const CallCode& code : CallCodes)
        main.Execute(db::Sql(
            "Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values ('CP', '{}', {}, '{}')",
            QString::fromLatin1(code.code), code.category, QString::fromLatin1(code.description)));
    for (const FacesheetItem& item : FacesheetItems)
        main.Execute(
            db::Sql("Insert Into facesheet (FacesheetId, facesheetitem, facesheetmask) Values ({}, '{}', '{}')",
                    item.id, QString::fromLatin1(item.name), QString::fromLatin1(item.mask)));
}

void MakeOneDeskPractice(const QString& folder, const NewUser& first, int key) {
    MakePracticeFolder(folder, {.lastUser = first.id, .databases = {QStringLiteral("practice.db")}},
                       [&](const QString& aside) {
                           db::Connection main;
                           main.Create(QStringLiteral("Data Source=\"%1\";Initial Catalog=practice;").arg(aside));
                           makeTables(main);
                           addFirst(main, first, key);
                       });
}

ServerAnswer AskServer(const ServerPlace& place) {
    ServerAnswer answer;
    try {
        db::Connection main;
        main.Open(connectionText(place));
        describe(main, answer);
    } catch (const db::DatabaseError& error) {
        answer.state = ServerAnswer::State::Silent;
        answer.why = error.description;
    }
    return answer;
}

void MakeServerDesk(const QString& folder, const ServerPlace& place, const std::optional<NewUser>& first, int key) {
    const NewPracticeFolder contents{.dataSource = place.server,
                                     .catalog = place.database,
                                     .lastUser = first ? first->id : QString(),
                                     .mainPassword = place.password,
                                     .companionPassword = place.companionPassword};
    MakePracticeFolder(folder, contents, [&](const QString& /*aside*/) {
        db::Connection main;
        main.Open(connectionText(place));
        if (ExistingSchemaTable(main, SchemaScript::Main).isEmpty())
            makeTables(main);
        if (first && !hasUsers(main))
            addFirst(main, *first, key);
    });
}

}  // namespace upkeep
