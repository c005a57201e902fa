#include "session/offeredprovider.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

std::optional<BookedProvider> OfferedProvider(const QString& id) {
    const SessionValues& session = Session();
    if (id.compare(session.ProviderId, Qt::CaseInsensitive) == 0)
        return BookedProvider{session.ProviderId, session.ProviderName};
    if (!session.AllProviders)
        return std::nullopt;
    const db::Recordset provider(
        db::Sql(
            "Select id, prov_lastname from provider_info, passwords Where provider_info.id = passwords.pswd_user_id AND archive = 0 and ((ExcludeFromScheduler IS NULL or ExcludeFromScheduler = 0) or id = '{}') and id = '{}'",
            session.UID, id),
        Session().Connection);
    if (provider.Eof())
        return std::nullopt;
    return BookedProvider{provider["id"].text(), provider["prov_lastname"].text()};
}
