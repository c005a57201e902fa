#include "output/company.h"

#include "platform/database/recordset.h"
#include "session/session.h"

Company GetCompanyInfo() {
    const db::Recordset company(QStringLiteral("Select * from CompanyInfo"), Session().Connection);
    return company.Eof() ? Company() : Company{company["emailaddress"].text().trimmed()};
}
