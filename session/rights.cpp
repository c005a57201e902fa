#include "session/rights.h"

#include "data/scramble.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

namespace {

constexpr int WriteAccess = 2;
constexpr int DeleteAccess = 3;

// Whether the statement returns a row. A failing statement returns none.
bool hasRow(const QString& statement) {
    bool found = false;
    db::Ignoring([&] { found = !db::Recordset(statement, Session().Connection).Eof(); });
    return found;
}

}  // namespace

int AccessDigit(const QString& screenAccess, int place) {
    if (place < 1 || place > screenAccess.size())
        return 0;
    return qMax(0, screenAccess[place - 1].digitValue());
}

void NormalizeScreenAccess() {
    SessionValues& session = Session();
    if (session.ScreenAccess >= 0 && session.ScreenAccess <= 3) {
        session.AllProviders = false;
    } else if (session.ScreenAccess >= 4 && session.ScreenAccess <= 6) {
        session.ScreenAccess -= 3;
        session.AllProviders = true;
    }
}

bool MayWrite() {
    return Session().ScreenAccess >= WriteAccess;
}

bool MayDelete() {
    return Session().ScreenAccess >= DeleteAccess;
}

bool MayDeleteMeetings() {
    return Session().ScreenAccess == DeleteAccess;
}

QString ProviderNameStatement(const QString& userId) {
    return db::Sql("Select * from provider_info, passwords Where Id = pswd_user_id AND Id = '{}'", userId);
}

void getprovname() {
    SessionValues& session = Session();
    session.UserName.clear();
    session.ScreenAccess = 0;
    db::Ignoring([&] {
        const db::Recordset user(ProviderNameStatement(session.UID), session.Connection);
        if (user.Eof())
            return;
        session.UserName = user["prov_lastname"].text();
        session.ScreenAccess = AccessDigit(user["pswd_screen_access"].text(), 9);
    });
    NormalizeScreenAccess();
}

QString AccessPanelText(int screenAccess) {
    switch (screenAccess) {
        case 1:
            return QStringLiteral("  Access: Read Only");
        case 2:
            return QStringLiteral("  Access: Write");
        case 3:
            return QStringLiteral("  Access: Write-Delete");
        default:
            return {};
    }
}

bool HasPatientAccess(const QString& patientId) {
    const QString& uid = Session().UID;
    bool hasUserType = false;
    int notesDigit = 0;
    db::Ignoring([&] {
        const db::Recordset user(db::Sql("Select * from passwords where pswd_user_id = '{}'", uid),
                                 Session().Connection);
        if (user.Eof())
            return;
        hasUserType = user["pswd_type_of_access"].integer() >= 1;
        notesDigit = AccessDigit(user["pswd_screen_access"].text(), 5);
    });
    if (notesDigit < 1 || notesDigit > 3)
        return false;
    return hasUserType ||
           hasRow(db::Sql("Select provider_id from patient_info where id = '{}' and provider_id = '{}'", patientId,
                          uid)) ||
           hasRow(db::Sql("Select * from  PatientAccess where patientid = '{}' and providerid = '{}'", patientId, uid));
}

bool MayOpenNote(const QString& noteProviderId, const QString& patientId) {
    return noteProviderId.toLower() == Session().UID.toLower() || HasPatientAccess(patientId);
}

bool GetUserFHLedger(const QString& userId) {
    bool hidden = false;
    db::Ignoring([&] {
        const db::Recordset user(db::Sql("Select * from passwords where pswd_user_id = '{}'", userId),
                                 Session().Connection);
        hidden = !user.Eof() && user["pswd_fh_ledger"].real() == 1;
    });
    return hidden;
}

QString GetStoredPassword(const QString& userId) {
    QString password;
    db::Ignoring([&] {
        const db::Recordset user(db::Sql("select pswd_password from passwords where pswd_user_id = '{}'", userId),
                                 Session().Connection);
        if (!user.Eof())
            password = UnscramblePassword(user["pswd_password"].text(), Session().ScrambleKey);
    });
    return password;
}
