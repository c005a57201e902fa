#pragma once

#include <exception>
#include <QString>

namespace db {

/// What the database client throws. `number` is the error number that SQL Server gives for the fault, on either engine
/// (2627 duplicate key, 515 null, 2628 text too long, 241 bad date, 208 unknown table, 207 unknown column, 102 syntax,
/// 105 unclosed quote, 4060 no such database, 18456 refused login), or the cursor service's own number.
class DatabaseError : public std::exception {
  public:
    DatabaseError(int errorNumber, QString errorDescription, QString failedStatement = {}, QString state = {});

    const char* what() const noexcept override { return utf8_.constData(); }

    int number = 0;
    QString description;  ///< The sentence for the user, as the driver or the engine said it.
    QString statement;    ///< The statement that failed; empty where none was sent.
    QString sqlState;     ///< Five characters of the SQLSTATE; empty where the engine has none.

  private:
    QByteArray utf8_;
};

/// The cursor service's number for a row that somebody else changed or removed since it was read.
inline constexpr int RowChanged = -2147217864;

/// That error, with the cursor service's own words.
[[nodiscard]] DatabaseError RowChangedError(QString failedStatement = {});

/// The server's number and the SQLSTATE for a connection that broke off.
inline constexpr int LinkFailure = 11;
inline constexpr const char* LinkFailureState = "08S01";

/// Whether it failed for want of a connection, whatever was asked of the database.
[[nodiscard]] bool IsLinkFailure(const DatabaseError& error);

/// Where the system reads on after a failure: runs one step, swallows a DatabaseError and tells whether it went well.
template <typename Step>
bool Ignoring(Step&& step) {
    try {
        step();
        return true;
    } catch (const DatabaseError&) {
        return false;
    }
}

}  // namespace db
