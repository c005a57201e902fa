#pragma once

#include <exception>
#include <QString>

namespace db {

/// The error that the database client throws. `number` is SQL Server's error number for the fault, on either engine
/// (2627 duplicate key, 515 null, 2628 text too long, 241 bad date, 208 unknown table, 207 unknown column, 102 syntax,
/// 105 unclosed quote, 4060 no such database, 18456 refused login), or a number of the cursor service.
class DatabaseError : public std::exception {
  public:
    DatabaseError(int errorNumber, QString errorDescription, QString failedStatement = {}, QString state = {});

    const char* what() const noexcept override { return utf8_.constData(); }

    int number = 0;
    QString description;  ///< The sentence for the user, in the words of the driver or the engine.
    QString statement;    ///< The statement that failed; empty where no statement was sent.
    QString sqlState;     ///< The five characters of the SQLSTATE; empty where the engine has none.

  private:
    QByteArray utf8_;
};

/// The cursor service's number for a row that somebody else changed or removed after it was read.
inline constexpr int RowChanged = -2147217864;

/// Returns the error RowChanged in the cursor service's own words.
[[nodiscard]] DatabaseError RowChangedError(QString failedStatement = {});

/// The server's error number for a connection that broke off, and its SQLSTATE.
inline constexpr int LinkFailure = 11;
inline constexpr const char* LinkFailureState = "08S01";

/// Whether the error means that there was no connection to the database, whatever was asked of it.
[[nodiscard]] bool IsLinkFailure(const DatabaseError& error);

/// Runs one step whose failure the system passes over. Swallows a DatabaseError and returns whether the step succeeded.
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
