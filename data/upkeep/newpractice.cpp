#include "data/upkeep/newpractice.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

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

void writeCallCodes(db::Connection& main) {
    for (const CallCode& code : CallCodes)
        main.Execute(db::Sql(
            "Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values ('CP', '{}', {}, '{}')",
            QString::fromLatin1(code.code), code.category, QString::fromLatin1(code.description)));
}

void writeFacesheet(db::Connection& main) {
    for (const FacesheetItem& item : FacesheetItems)
        main.Execute(
            db::Sql("Insert Into facesheet (FacesheetId, facesheetitem, facesheetmask) Values ({}, '{}', '{}')",
                    item.id, QString::fromLatin1(item.name), QString::fromLatin1(item.mask)));
}

void writeSettings(db::Connection& main) {
    main.Execute("Insert Into settings (ALEnabled, recallpw, wordusage) Values (1, 0, 'Patient')");
}

void writeNoteTypes(db::Connection& main) {
    for (const char* type : NoteTypes)
        main.Execute(
            db::Sql("Insert Into NoteTypes (NoteType, applyauths) Values ('{}', 0)", QString::fromLatin1(type)));
}

void writeServices(db::Connection& main) {
    for (const Service& service : Services)
        main.Execute(db::Sql("Insert Into session_types (sess_cpt_name, sess_cpt_time) Values ('{}', {})",
                             QString::fromLatin1(service.name), service.minutes));
}

struct FirstList {
    const char* table;
    void (*write)(db::Connection& main);
};

/// A practice begins with codes, settings and kinds of notes and sessions, which its lists change later.
constexpr std::array<FirstList, 5> FirstLists{{{"CourtesyCallCodes", writeCallCodes},
                                               {"facesheet", writeFacesheet},
                                               {"settings", writeSettings},
                                               {"NoteTypes", writeNoteTypes},
                                               {"session_types", writeServices}}};

/// A table that an older version lacks is not empty: its list belongs to the upgrade.
bool isEmpty(db::Connection& main, const char* table) {
    const QString name = QString::fromLatin1(table);
    return HasTable(main, name) && db::Recordset(db::Sql("Select * from {}", db::Raw{name}), main).Eof();
}

/// Writes the lists that are still empty. A list that another hand has begun stays as it is.
void writeFirstLists(db::Connection& main) {
    std::vector<FirstList> wanted;
    for (const FirstList& list : FirstLists)
        if (isEmpty(main, list.table))
            wanted.push_back(list);
    db::InTransaction(main, [&] {
        for (const FirstList& list : wanted)
            list.write(main);
    });
}

void makeTables(db::Connection& main) {
    ApplySchema(main, SchemaScript::Main);
    WriteSchemaVersion(main);
    writeFirstLists(main);
}

bool hasUsers(db::Connection& main) {
    return !db::Recordset("Select pswd_user_id from passwords", main).Eof();
}

/// Goes on where the line broke between the tables of an empty database and its first rows. A practice at work has
/// settings or users, and keeps what it has.
void finishTables(db::Connection& main) {
    if (hasUsers(main) || !isEmpty(main, "settings"))
        return;
    if (SchemaVersion(main) == 0 && MissingParts(main, SchemaScript::Main).isEmpty())
        WriteSchemaVersion(main);
    writeFirstLists(main);
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
    writeCallCodes(main);
    writeFacesheet(main);
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
        else
            finishTables(main);
        if (first && !hasUsers(main))
            addFirst(main, *first, key);
    });
}

}  // namespace upkeep
