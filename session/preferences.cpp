#include "session/preferences.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/inifile.h"
#include "session/session.h"

namespace {

const QString SchedulerGeneral = QStringLiteral("SchedulerGeneral");
const QString DefaultReminder =
    QStringLiteral("This e-mail is to remind you of your appointment on [DATE] at [TIME] with [THERAPIST].");
constexpr int FallbackStartHour = 8;
constexpr int FallbackEndHour = 18;

QString userOr(const QString& user) {
    return user.isEmpty() ? Session().UID : user;
}

QString schedulerPreference(const char* detail) {
    return GetPreference(Session().SchedulerIni, QString::fromLatin1(detail), SchedulerGeneral,
                         QString::fromLatin1(AllUsers));
}

void readHours() {
    bool startIsNumber = false;
    bool endIsNumber = false;
    const int start = schedulerPreference("StartTime").toInt(&startIsNumber);
    const int end = schedulerPreference("EndTime").toInt(&endIsNumber);
    const bool startIsMeant = startIsNumber && start >= 0 && start <= 23;
    const bool endIsMeant = endIsNumber && end >= 1 && end <= 24;
    Session().DayStartHour = startIsMeant ? start : FallbackStartHour;
    Session().DayEndHour = endIsMeant ? end : FallbackEndHour;
    if (Session().DayStartHour >= Session().DayEndHour) {
        Session().DayStartHour = FallbackStartHour;
        Session().DayEndHour = FallbackEndHour;
    }
}

void readTimeUnit() {
    const QString unit = schedulerPreference("TimeUnit");
    for (const char* allowed : {"15", "30", "60", "10", "5"}) {
        if (unit == QLatin1String(allowed))
            Session().TimeUnit = unit.toInt();
    }
}

void readVisitLength() {
    const int minutes = schedulerPreference("VisitLength").toInt();
    Session().VisitLength = minutes > 0 && minutes <= LongestVisit ? minutes : 0;
}

void readReminderText() {
    Session().EmailReminderText = schedulerPreference("eMailReminder");
    if (!Session().EmailReminderText.isEmpty())
        return;
    Session().EmailReminderText = DefaultReminder;
    SetPreference(DefaultReminder, QStringLiteral("eMailReminder"), SchedulerGeneral);
}

}  // namespace

QString PreferenceStatement(const QString& detail, const QString& category, const QString& fallbackUser,
                            const QString& user) {
    const QString condition = fallbackUser.trimmed().isEmpty()
                                  ? db::Sql("(UP_UserID = '{}') ", userOr(user))
                                  : db::Sql("(UP_UserID = '{}' OR UP_UserID = '{}') ", userOr(user), fallbackUser);
    const QString detailTest = detail.trimmed().isEmpty() ? QString() : db::Sql(" AND UP_Pref_Detail = '{}' ", detail);
    return db::Sql(
        "Select UP_Pref_Category, UP_Pref_Detail, UP_PD_Value from User_Preferences Where {} AND UP_Pref_Category = '{}'{} AND UP_DateDeleted is NULL Order by UP_UserID Desc, UP_OrderBy ",
        db::Raw{condition}, category, db::Raw{detailTest});
}

QString GetPreference(const QString& defaultIni, const QString& detail, const QString& category,
                      const QString& fallbackUser, const QString& user) {
    QString value;
    bool found = false;
    db::Ignoring([&] {
        const db::Recordset preferences(PreferenceStatement(detail, category, fallbackUser, user),
                                        Session().Connection);
        if (preferences.Eof())
            return;
        found = true;
        value = preferences["UP_PD_Value"].text().trimmed();
    });
    return found ? value : ReadIniValue(defaultIni, category, detail);
}

bool SetPreference(const QString& value, const QString& detail, const QString& category, const QString& user) {
    const QString owner = userOr(user);
    const db::Raw unescaped{value.trimmed()};
    return db::Ignoring([&] {
        const db::Recordset row(
            db::Sql(
                "Select UP_ID from User_Preferences Where UP_UserID = '{}' AND UP_Pref_Category = '{}' AND UP_Pref_Detail = '{}'  AND UP_DateDeleted is NULL",
                owner, category, detail),
            Session().Connection);
        if (row.Eof()) {
            Session().Connection.Execute(db::Sql(
                "Insert Into User_Preferences ( UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value, UP_LastModUid, UP_DateCreated) VALUES ( '{}', '{}', '{}', '{}', '{}', GetDate())",
                owner, category, detail, unescaped, Session().UID));
        } else {
            Session().Connection.Execute(db::Sql(
                "Update User_Preferences Set  UP_PD_Value = '{}', UP_DateModified = getdate(), UP_LastModUid = '{}' Where UP_ID = {}",
                unescaped, Session().UID, row[0].integer()));
        }
    });
}

QStringList IniSettingsStatements() {
    QStringList statements;
    for (const char* detail : {"StartTime", "EndTime", "ShowNonPrime", "TaskRollOver", "TimeUnit", "VisitLength",
                               "MilitaryTime", "eMailReminder"})
        statements << PreferenceStatement(QString::fromLatin1(detail), SchedulerGeneral, QString::fromLatin1(AllUsers));
    return statements;
}

void getiniSettings() {
    readHours();
    Session().ShowNonPrime = schedulerPreference("ShowNonPrime") == QStringLiteral("1");
    Session().TaskRollOver = schedulerPreference("TaskRollOver") == QStringLiteral("True");
    readTimeUnit();
    readVisitLength();
    Session().MilitaryTime = schedulerPreference("MilitaryTime") == QStringLiteral("True");
    readReminderText();
}
