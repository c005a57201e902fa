#include "session/errorbox.h"

#include "platform/controls/noticebar.h"
#include "platform/database/waiting.h"
#include "platform/desktop/desktop.h"
#include "session/afterroutine.h"

namespace {

/// True from a box about the connection until the routine has returned to the event loop.
bool linkTold = false;

}  // namespace

void TellError(const QString& text, const db::DatabaseError& error) {
    TellError(text, error, ErrorBox);
}

void TellError(const QString& text, const db::DatabaseError& error, BoxStyle style) {
    const bool ofLink = db::IsUnanswered(error);
    if (ofLink && linkTold)
        return;
    MsgBox(text + error.description, style, QStringLiteral("Error"));
    if (!ofLink)
        return;
    linkTold = true;
    AfterRoutine([] { linkTold = false; });
}

void TellInBar(const QString& what, const db::DatabaseError& error) {
    ShowNotice({.text = what + error.description, .kind = Notice::Kind::Failure, .subject = what});
}

bool TryAndTell(const QString& what, const std::function<void()>& step) {
    try {
        step();
        DropNotice(what);
        return true;
    } catch (const db::DatabaseError& error) {
        if (error.number != db::RowChanged)
            TellInBar(what, error);
    }
    return false;
}
