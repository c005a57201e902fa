#pragma once

#include <optional>
#include <QString>
#include <QTemporaryDir>

#include "tests/support/testdatabase.h"

/// A practice for one test: fresh session values, a data folder with both ini files, and a main database that holds the
/// schema, one settings row and nobody yet.
class Practice {
  public:
    Practice();
    ~Practice();
    Practice(const Practice&) = delete;
    Practice& operator=(const Practice&) = delete;

    /// Opens the session's connection and sets its files, for what comes after start-up.
    void connect();

    void addUser(const QString& id, const QString& lastName, int type, const QString& access,
                 const QString& password = QStringLiteral("secret"));
    /// A user that is no provider.
    void addLogin(const QString& id, int type, const QString& access,
                  const QString& password = QStringLiteral("secret"));
    void preference(const QString& user, const QString& category, const QString& detail, const QString& value);
    /// Makes the companion database with this identity and points the settings at it.
    void addCompanion(const QString& identity);
    /// How the program opens the main and the companion database.
    [[nodiscard]] QString connectionText() const { return textOf(database_, "SVMaster", "SVSCHEDULER_PASSWORD_SVS"); }
    [[nodiscard]] QString companionText() const { return textOf(*companion_, "FHMaster", "SVSCHEDULER_PASSWORD_FH"); }
    void pairProvider(const QString& identity, int fhProviderId, const QString& svProviderId);

    [[nodiscard]] TestDatabase& database() { return database_; }
    void sql(const QString& statement);
    /// The first field of the first row, "(none)" without a row.
    [[nodiscard]] QString value(const QString& statement);

    [[nodiscard]] QString path() const { return folder_.path(); }
    [[nodiscard]] QString file(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

  private:
    [[nodiscard]] static QString textOf(const TestDatabase& database, const char* login, const char* password);

    QTemporaryDir folder_;
    TestDatabase database_;
    std::optional<TestDatabase> companion_;
};
