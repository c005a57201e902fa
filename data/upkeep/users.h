#pragma once

#include <QString>
#include <vector>

#include "platform/database/connection.h"

namespace upkeep {

/// Someone who may log on.
struct User {
    QString id;
    QString name;  ///< The last name; "System Administrator" for one.
    bool isAdministrator = false;
    int scheduler = 0;  ///< The digit of the rights in the scheduler, 0 to 6.
    bool isLocked = false;
    friend bool operator==(const User&, const User&) = default;
};

/// What a new user is given.
struct NewUser {
    QString id;
    QString firstName = {}, lastName = {};
    QString password = {};
    bool isAdministrator = false;
    int scheduler =
        6;  ///< 0 to 6: read (by the logon only), read, write, write and delete; from 4 on with all schedules.
    /// Whether the user is offered as a provider. An administrator is one only with a last name.
    bool isProvider = true;
};

/// Returns all users by their id. Throws DatabaseError.
[[nodiscard]] std::vector<User> Users(db::Connection& main);

/// These routines return why the order cannot be carried out, as one sentence, or "" when it was. They throw
/// DatabaseError. `key` is the scramble key of the practice's passwords (data/scramble.h).
[[nodiscard]] QString AddUser(db::Connection& main, const NewUser& user, int key);
[[nodiscard]] QString SetPassword(db::Connection& main, const QString& id, const QString& password, int key);
/// A locked user is told at the logon that they are inactive.
[[nodiscard]] QString SetLocked(db::Connection& main, const QString& id, bool locked);

}  // namespace upkeep
