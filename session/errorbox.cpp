#include "session/errorbox.h"

#include "platform/desktop/desktop.h"

void TellError(const QString& text, const db::DatabaseError& error) {
    MsgBox(text + error.description, ErrorBox, QStringLiteral("Error"));
}
