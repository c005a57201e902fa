#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "followup/frmesign.h"
#include "platform/controls/noticebar.h"
#include "platform/database/sql.h"
#include "platform/desktop/userstore.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// Anna Reed signs the note of a missed appointment that was written on March 11, 2026, at 9:05.
class SignatureFixture : public testing::Test {
  protected:
    SignatureFixture() {
        ResetSession();
        SetUserStoreFile(folder.filePath(QStringLiteral("store.ini")));
        SessionValues& session = Session();
        session.Connection.Open(database.connectionText());
        session.UID = QStringLiteral("REED");
        session.AppPath = QStringLiteral("/practice");
        addUser(QStringLiteral("REED"), QStringLiteral("secret"));
        note = addNote(QStringLiteral("'2026/03/11 09:05'"));
    }
    ~SignatureFixture() override { ResetSession(); }

    void addUser(const QString& id, const QString& password) {
        database.connection().Execute(
            QStringLiteral("Insert Into passwords (pswd_user_id, pswd_password) Values (?, ?)"),
            {id, ScramblePassword(password, Session().ScrambleKey)});
    }
    int addNote(const QString& modified) {
        database.connection().Execute(
            db::Sql("Insert Into sessions (stype, ModifiedDate) Values (6, {})", db::Raw{modified}));
        return static_cast<int>(database.connection().LastIdentity());
    }
    void change(const QString& modified) {
        database.connection().Execute(db::Sql("Update sessions Set ModifiedDate = '{}' Where id = {}", modified, note));
    }
    void removeNote() { database.connection().Execute(db::Sql("Delete From sessions Where id = {}", note)); }

    [[nodiscard]] SignatureRequest request(SignatureWay way) const {
        return {.way = way,
                .SessionId = note,
                .CallerName = QStringLiteral("frmmsdApt"),
                .ProviderName = QStringLiteral("Anna O'Reed"),
                .ProviderId = QStringLiteral("REED"),
                .UserName = QStringLiteral("REED"),
                .DateText = QStringLiteral("Mar 11, 2026"),
                .Message = QStringLiteral(
                    "By clicking SIGN, you hereby confirm that you have reviewed and verified the contents of the data "
                    "entered in this document on Mar 11, 2026 9:05 am")};
    }

    [[nodiscard]] QString stamped(const char* column) {
        return database.text(
            db::Sql("Select {} from sessions Where id = {}", db::Raw{QString::fromLatin1(column)}, note));
    }
    [[nodiscard]] bool isStamped() {
        return database.number(QStringLiteral("Select Count(*) from sessions Where SignatureDate Is Not Null")) > 0;
    }
    [[nodiscard]] qint64 drawings() {
        return database.number(QStringLiteral("Select Count(*) from SessionSignatures"));
    }
    [[nodiscard]] bool nothingIsWritten() { return !isStamped() && drawings() == 0; }
    [[nodiscard]] QString stored(const char* column) {
        return database.text(db::Sql("Select {} from SessionSignatures", db::Raw{QString::fromLatin1(column)}));
    }
    /// Whether the session's connection is in no transaction.
    [[nodiscard]] static bool noTransactionIsOpen() {
        return db::Ignoring([] {
            Session().Connection.BeginTrans();
            Session().Connection.RollbackTrans();
        });
    }
    QString loseDatabase() {
        Session().Connection.Close();
        return QStringLiteral(
            "The connection cannot be used to perform this operation. It is either closed or invalid in this context.");
    }

    QTemporaryDir folder;
    TestDatabase database;
    ScriptedDesk desk;
    NoticeBar bar;
    int note = 0;
};
