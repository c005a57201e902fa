#include "session/providernames.h"

#include "platform/database/recordset.h"
#include "session/session.h"

QString ProviderNames::Statement() {
    return QStringLiteral("Select id, prov_lastname from provider_info");
}

ProviderNames::ProviderNames() {
    for (db::Recordset rows(Statement(), Session().Connection); !rows.Eof(); rows.MoveNext())
        names_[rows["id"].text().toUpper()] = rows["prov_lastname"].text();
}

QString ProviderNames::Of(const QString& id) const {
    const QString name = names_.value(id.toUpper());
    return name.isEmpty() ? id : name;
}
