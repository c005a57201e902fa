#include "shell/viewwindow.h"

#include "platform/calendar/ctmday.h"
#include "platform/controls/noticebar.h"
#include "platform/controls/unreadnotice.h"
#include "session/errorbox.h"
#include "session/session.h"

const QString ViewWindow::ReplacedDatabase = QStringLiteral("replaced database");

bool ViewWindow::readInto(QWidget& place, const QString& told, const std::function<void()>& read,
                          const std::function<void()>& again) {
    try {
        read();
    } catch (const db::DatabaseError& error) {
        if (unread_ == nullptr)
            unread_ = new UnreadNotice(place, *this);
        unread_->Cover(error.description, [this, again] { tryAgain(again); });
        TellError(told, error);
        return false;
    }
    if (unread_ != nullptr)
        unread_->Uncover();
    return true;
}

bool ViewWindow::readInto(QWidget& place, const QString& told, const std::function<void()>& read) {
    return readInto(place, told, read, [this] { Reload(); });
}

bool ViewWindow::hasUnread() const {
    return unread_ != nullptr && unread_->Covers();
}

void ViewWindow::tryAgain(const std::function<void()>& again) {
    if (Session().Connection.IsReplaced())
        OpenDatabaseAgain();
    else
        again();
}

void ViewWindow::CommitEdits() {
    for (ctMDay* calendar : findChildren<ctMDay*>())
        calendar->CommitEdit();
}

void ViewWindow::OpenDatabaseAgain() {
    CommitEdits();
    Session().Connection.OpenAgain();
    if (!Session().Connection.IsReplaced())
        DropNotice(ReplacedDatabase);
    reloadWhole();
    Q_EMIT DatabaseOpenedAgain();
}
