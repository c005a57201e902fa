#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <QTemporaryDir>

#include "followup/frmmsdapt.h"
#include "platform/controls/noticebar.h"
#include "platform/database/sql.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

class frmpreview;

/// Reed at the desk on Wednesday, March 11, 2026, and Mary Jones, who missed her appointment.
class MissedNoteFixture : public testing::Test {
  protected:
    MissedNoteFixture();
    ~MissedNoteFixture() override;

    /// Opens the form as the view does: on the note of the appointment, or on a new one.
    frmmsdApt& open();
    frmmsdApt& open(const MissedNoteRequest& request);
    /// A note that is stored and tied to the appointment; its change was at five past three on March 11.
    int addNote(const QString& reason = QStringLiteral("Car broke down"));
    /// The note as signed by password.
    void stamp(int note);
    /// The note as signed on the pad: a stroke under the note's own key. Gives the signature's text.
    QString signOnPad(int note);
    /// The text of a stroke under a key.
    [[nodiscard]] static QString strokeUnder(const QString& key);
    void storeSignature(int note, const QString& text, const QString& when = QStringLiteral("2026/03/11 15:06"));

    void ok();
    void type(const QString& reason);
    [[nodiscard]] bool isOpen() const { return form->isVisible(); }
    [[nodiscard]] bool maySign() const;
    /// What stands in the form below the text; "-" where nothing is seen of it.
    [[nodiscard]] QString shown(const QWidget* label) const;

    void run(const QString& statement) { database.connection().Execute(statement); }
    QString text(const QString& statement) { return database.text(statement); }
    qint64 number(const QString& statement) { return database.number(statement); }
    qint64 rowCount(const char* table);
    /// A column of the newest row of a table.
    QString newest(const char* column, const char* table);
    QString modified(int note);
    /// "View: Viewed ...", one line for each; empties the log.
    QStringList auditLines();
    /// The database answers no statement from now on; gives its reason.
    QString loseDatabase();

    const QDate day{2026, 3, 11};
    QTemporaryDir folder{TestFolderTemplate()};
    TestDatabase database;
    ScriptedDesk desk;
    QWidget window;
    NoticeBar* bar = nullptr;  ///< Of the main window.
    int appointment = 0;
    MissedNoteRequest request;
    std::unique_ptr<frmmsdApt> form;
};
