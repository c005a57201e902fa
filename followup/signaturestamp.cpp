#include "followup/signaturestamp.h"

#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "session/session.h"

using db::Sql;

namespace {

/// Returns whether the note is still there.
bool stamp(db::Connection& connection, const NoteSignature& signature) {
    return connection.Execute(Sql(
               "Update Sessions set SignatureDate = GetDate(), SignatureName = '{}', SignatureNameSuper = '{}' Where id = {}",
               signature.ProviderName, signature.Name, signature.SessionId)) > 0;
}

void storeDrawing(db::Connection& connection, const NoteSignature& signature) {
    connection.Execute(Sql(
        "Insert Into SessionSignatures (session_id, signature_type, signature_role, signature_name, signature_date, signature_order, provider_id, signature) Values({}, 1, 'Note Author', '{}', GetDate(), 1, '{}', '{}')",
        signature.SessionId, signature.Name, signature.ProviderId, signature.Text));
}

}  // namespace

void SaveSignature(const NoteSignature& signature) {
    db::Connection& connection = Session().Connection;
    db::InTransaction(connection, [&] {
        if (stamp(connection, signature) && !signature.Text.isEmpty())
            storeDrawing(connection, signature);
    });
}
