#include "session/errorbox.h"

#include <QApplication>
#include <QTimer>

#include "platform/controls/noticebar.h"
#include "platform/database/waiting.h"
#include "platform/desktop/desktop.h"

namespace {

/// From a box about the connection to the program's return to its events.
bool linkTold = false;

}  // namespace

void TellError(const QString& text, const db::DatabaseError& error) {
    const bool ofLink = db::IsLinkFailure(error) || error.number == db::GivenUp;
    if (ofLink && linkTold)
        return;
    MsgBox(text + error.description, ErrorBox, QStringLiteral("Error"));
    if (!ofLink || qApp == nullptr)
        return;
    linkTold = true;
    QTimer::singleShot(0, qApp, [] { linkTold = false; });
}

bool TryAndTell(const QString& what, const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const db::DatabaseError& error) {
        if (error.number != db::RowChanged)
            ShowNotice({.text = what + error.description, .kind = Notice::Kind::Failure, .subject = what});
    }
    return false;
}
