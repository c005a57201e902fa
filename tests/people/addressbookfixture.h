#pragma once

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "people/frmabook.h"
#include "platform/controls/ctlist.h"
#include "tests/people/listfixture.h"

/// The address book of REED, who may write and sees all patients.
class AddressBookFixture : public ListFixture {
  protected:
    AddressBookFixture() {
        SessionValues& session = Session();
        session.UID = session.ProviderId = QStringLiteral("REED");
        session.AllProviders = true;
        session.WordUsage = QStringLiteral("Patient");
        session.PhoneMask = QStringLiteral("(###) ###-####");
    }

    /// Adds a contact of REED and returns its key.
    int contact(const QString& last, const QString& first = {}, const QString& email = {}) {
        return contactOf(QStringLiteral("REED"), last, first, email);
    }
    int contactOf(const QString& user, const QString& last, const QString& first = {}, const QString& email = {}) {
        run(db::Sql("Insert Into ContactList (uid, lname, fname, emailaddress) Values ('{}', '{}', '{}', '{}')", user,
                    last, first, email));
        return static_cast<int>(database.connection().LastIdentity());
    }
    /// Adds patients "Adams, 000000", "Adams, 000001" and so on.
    void patients(int count) {
        std::vector<std::vector<db::Value>> rows;
        for (int i = 0; i < count; ++i)
            rows.push_back({QStringLiteral("P%1").arg(i), QStringLiteral("Adams"),
                            QStringLiteral("%1").arg(i, 6, 10, QLatin1Char('0'))});
        database.connection().InsertRows(
            QStringLiteral("patient_info"),
            {QStringLiteral("id"), QStringLiteral("last_name"), QStringLiteral("first_name")}, rows);
    }
    qint64 count(const char* table) {
        return database.number(QStringLiteral("Select Count(*) from ") + QLatin1String(table));
    }

    /// Chooses a list as a click in cbogroups does.
    static void choose(frmabook& book, AddressList list) {
        book.cbogroups->setCurrentIndex(static_cast<int>(list));
        Q_EMIT book.cbogroups->activated(static_cast<int>(list));
    }
    static QStringList namesOf(const frmabook& book) {
        QStringList names;
        for (int row = 0; row < book.ctList1->RowCount(); ++row)
            names << book.ctList1->ShownCell(row, 1);
        return names;
    }
    static QString selectedName(const frmabook& book) { return book.ctList1->Cell(book.ctList1->SelectedRow(), 1); }
    /// "print mail new edit delete", as far as they are on.
    static QString commandsOf(const frmabook& book) {
        QStringList on;
        for (const auto& [name, action] :
             {std::pair{"print", book.mnuFPrint}, std::pair{"mail", book.mnuFemail}, std::pair{"new", book.mnuFNew},
              std::pair{"edit", book.mnuFEdit}, std::pair{"delete", book.mnuFDelete}})
            if (action->isEnabled())
                on << QLatin1String(name);
        return on.join(QLatin1Char(' '));
    }
    void expectDelete(Answer answer = Answer::Yes) {
        desk.expectBox(QStringLiteral("Are you sure you want to delete this contact."),
                       QStringLiteral("Delete Contact"), answer);
    }
    void expectGone() {
        desk.expectBox(QStringLiteral("Record not found. Another user may have deleted this record."),
                       QStringLiteral("Solvane"));
    }
};
