#include "session/lastplace.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/preferences.h"
#include "session/session.h"

namespace {

const QString Category = QStringLiteral("Scheduler");
const QString ViewDetail = QStringLiteral("LastView");
const QString ProviderDetail = QStringLiteral("LastProvider");

QString viewStatement() {
    return PreferenceStatement(ViewDetail, Category);
}

// The provider is asked for among those of the provider list, so one who is gone, archived or not offered gives no row.
QString providerStatement() {
    return db::Sql(
        "Select id, prov_lastname from provider_info, passwords, User_Preferences Where provider_info.id = passwords.pswd_user_id AND provider_info.id = UP_PD_Value AND UP_UserID = '{}' AND UP_Pref_Category = '{}' AND UP_Pref_Detail = '{}' AND UP_DateDeleted is NULL AND archive = 0 and ((ExcludeFromScheduler IS NULL or ExcludeFromScheduler = 0) or id = '{}')",
        Session().UID, Category, ProviderDetail, Session().UID);
}

QString offeredStatement() {
    return db::Sql(
        "Select id from provider_info Where id = '{}' AND archive = 0 and (ExcludeFromScheduler IS NULL or ExcludeFromScheduler = 0)",
        Session().UID);
}

View viewOf(const QString& number) {
    bool isNumber = false;
    const int view = number.toInt(&isNumber);
    const bool exists = isNumber && view >= static_cast<int>(View::Day) && view <= static_cast<int>(View::Companion);
    return exists ? static_cast<View>(view) : View::None;
}

// SetPreference takes no value with a quote, which the id of a provider may have.
void keep(const QString& detail, const QString& value) {
    db::Connection& connection = Session().Connection;
    if (Session().UID.isEmpty() || !connection.IsOpen())
        return;
    db::Ignoring([&] {
        const qint64 changed = connection.Execute(db::Sql(
            "Update User_Preferences Set UP_PD_Value = '{}', UP_DateModified = getdate(), UP_LastModUid = '{}' Where UP_UserID = '{}' AND UP_Pref_Category = '{}' AND UP_Pref_Detail = '{}' AND UP_DateDeleted is NULL",
            value, Session().UID, Session().UID, Category, detail));
        if (changed == 0)
            connection.Execute(db::Sql(
                "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value, UP_LastModUid, UP_DateCreated) Values ('{}', '{}', '{}', '{}', '{}', GetDate())",
                Session().UID, Category, detail, value, Session().UID));
    });
}

}  // namespace

QStringList LastPlaceStatements() {
    return {viewStatement(), providerStatement(), offeredStatement()};
}

LastPlace ReadLastPlace() {
    LastPlace place;
    place.view = viewOf(GetPreference({}, ViewDetail, Category));
    db::Ignoring([&] {
        const db::Recordset provider(providerStatement(), Session().Connection);
        if (provider.Eof())
            return;
        place.providerId = provider["id"].text();
        place.providerName = provider["prov_lastname"].text();
    });
    db::Ignoring([&] { place.offeredToNobody = db::Recordset(offeredStatement(), Session().Connection).Eof(); });
    return place;
}

void KeepLastView(View view) {
    keep(ViewDetail, QString::number(static_cast<int>(view)));
}

void KeepLastProvider(const QString& providerId) {
    keep(ProviderDetail, providerId);
}
