#include "views/viewwindow.h"

#include "platform/controls/unreadnotice.h"
#include "session/errorbox.h"

bool ViewWindow::readInto(QWidget& place, const QString& told, const std::function<void()>& read,
                          const std::function<void()>& again) {
    try {
        read();
    } catch (const db::DatabaseError& error) {
        if (unread_ == nullptr)
            unread_ = new UnreadNotice(place, *this);
        unread_->Cover(error.description, again);
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
