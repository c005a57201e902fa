#include "people/owncontact.h"

#include "session/session.h"

bool IsOwnContact(const db::Recordset& contact) {
    return !contact.Eof() && contact["uid"].text().trimmed().compare(Session().UID.trimmed(), Qt::CaseInsensitive) == 0;
}
