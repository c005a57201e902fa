#pragma once

#include <QString>

/// A signature of a note, as the database keeps it.
struct NoteSignature {
    int SessionId = 0;
    QString ProviderName;  ///< Becomes SignatureName.
    QString Name;          ///< Becomes SignatureNameSuper, and the name of a drawn signature.
    QString ProviderId;
    QString Text;  ///< The drawn signature. Empty for a password, which leaves no row of its own.
};

/// Stamps the note as signed now, by the server's clock, and stores the drawn signature, both or none of them. A note
/// that another desk has deleted gets neither. Throws db::DatabaseError.
void SaveSignature(const NoteSignature& signature);
