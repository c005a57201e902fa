#include "data/upkeep/users.h"

#include "data/codes.h"
#include "data/scramble.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"

namespace upkeep {

namespace {

constexpr int LongestId = 20;
constexpr int LongestPassword = 50;
constexpr qsizetype SchedulerDigit = 8;

/// The rights in the areas of the notes product. Those that the scheduler does not read are the least.
QString screenAccess(const NewUser& user) {
    QString access(9, QLatin1Char('1'));
    access[SchedulerDigit] = QLatin1Char(static_cast<char>('0' + user.scheduler));
    if (user.isAdministrator)
        access.fill(QLatin1Char('3'));
    return access;
}

/// The logon's field takes printable characters of ASCII without the bar.
QString whyNoId(const QString& id) {
    if (id.isEmpty() || id.size() > LongestId)
        return QStringLiteral("A user id has 1 to %1 characters.").arg(LongestId);
    for (const QChar character : id)
        if (character.unicode() < 48 || character.unicode() > 126 || character == QLatin1Char('|'))
            return QStringLiteral("A user id has letters and digits only.");
    return {};
}

/// The logon's field drops these characters, so that such a password could never be typed.
QString whyNoPassword(const QString& password) {
    if (password.trimmed().isEmpty() || password.size() > LongestPassword)
        return QStringLiteral("A password has 1 to %1 characters.").arg(LongestPassword);
    for (const QChar character : password)
        if (!character.isPrint() || character.unicode() > 126 || QStringLiteral("!\"';|").contains(character))
            return QStringLiteral(
                "A password has letters, digits and signs of the English keyboard, without ! \" ' ; and |.");
    return {};
}

bool isThere(db::Connection& main, const QString& id) {
    return !db::Recordset(db::Sql("Select pswd_user_id from passwords Where pswd_user_id = '{}'", id), main).Eof();
}

bool isProvider(db::Connection& main, const QString& id) {
    return !db::Recordset(db::Sql("Select id from provider_info Where id = '{}'", id), main).Eof();
}

QString unknown(const QString& id) {
    return QStringLiteral("There is no user %1.").arg(id);
}

void addProvider(db::Connection& main, const NewUser& user) {
    main.Execute(db::Sql(
        "Insert Into provider_info (id, prov_lastname, pfirst_name, plast_name, archive, ExcludeFromScheduler) Values ('{}', '{}', '{}', '{}', 0, {})",
        user.id, user.lastName, user.firstName, user.lastName, user.isProvider ? 0 : 1));
}

}  // namespace

std::vector<User> Users(db::Connection& main) {
    std::vector<User> users;
    for (
        db::Recordset rows(
            "Select w.pswd_user_id, w.pswd_type_of_access, w.pswd_screen_access, p.prov_lastname, p.archive from passwords w Left Join provider_info p On p.id = w.pswd_user_id Order by w.pswd_user_id",
            main);
        !rows.Eof(); rows.MoveNext()) {
        User user;
        user.id = rows["pswd_user_id"].text();
        user.isAdministrator = rows["pswd_type_of_access"].integer() == SystemAdministrator;
        user.name = user.isAdministrator ? QStringLiteral("System Administrator") : rows["prov_lastname"].text();
        user.scheduler = QString(rows["pswd_screen_access"].text().mid(SchedulerDigit, 1)).toInt();
        user.isLocked = rows["archive"].integer() == 1;
        users.push_back(user);
    }
    return users;
}

QString AddUser(db::Connection& main, const NewUser& user, int key) {
    if (const QString why = whyNoId(user.id); !why.isEmpty())
        return why;
    if (const QString why = whyNoPassword(user.password); !why.isEmpty())
        return why;
    if (user.scheduler < 0 || user.scheduler > 6)
        return QStringLiteral("The rights are a digit from 0 to 6.");
    if (!user.isAdministrator && user.lastName.trimmed().isEmpty())
        return QStringLiteral("The user has no last name.");
    if (isThere(main, user.id))
        return QStringLiteral("There is a user %1 already.").arg(user.id);
    db::InTransaction(main, [&] {
        main.Execute(db::Sql(
            "Insert Into passwords (pswd_user_id, pswd_password, pswd_type_of_access, pswd_screen_access, pswd_fh_ledger) Values ('{}', '{}', {}, '{}', 0)",
            user.id, ScramblePassword(user.password, key), user.isAdministrator ? SystemAdministrator : 1,
            screenAccess(user)));
        const bool hasSchedule = user.isProvider && !user.lastName.trimmed().isEmpty();
        if ((!user.isAdministrator || hasSchedule) && !isProvider(main, user.id))
            addProvider(main, user);
    });
    return {};
}

QString SetPassword(db::Connection& main, const QString& id, const QString& password, int key) {
    if (const QString why = whyNoPassword(password); !why.isEmpty())
        return why;
    const qint64 changed = main.Execute(db::Sql("Update passwords Set pswd_password = '{}' Where pswd_user_id = '{}'",
                                                ScramblePassword(password, key), id));
    return changed == 0 ? unknown(id) : QString();
}

QString SetLocked(db::Connection& main, const QString& id, bool locked) {
    if (!isThere(main, id))
        return unknown(id);
    db::InTransaction(main, [&] {
        // An administrator has no row among the providers, and the logon looks for the lock there.
        if (!isProvider(main, id))
            addProvider(main, {.id = id, .lastName = id, .isProvider = false});
        main.Execute(db::Sql("Update provider_info Set archive = {} Where id = '{}'", locked ? 1 : 0, id));
    });
    return {};
}

}  // namespace upkeep
