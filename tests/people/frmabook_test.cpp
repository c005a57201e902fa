#include "people/frmabook.h"

#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include "session/fillprogress.h"
#include "session/hiddennames.h"
#include "tests/people/addressbookfixture.h"

namespace {

class AddressBook : public AddressBookFixture {
  protected:
    static QStringList headersOf(const frmabook& book) {
        QStringList headers;
        for (int column = 1; column <= book.ctList1->ColumnCount(); ++column)
            headers << book.ctList1->Header(column);
        return headers;
    }
    /// Loses the table of a list, and gives what the database says of it.
    QString lose(const char* table) { return DropTable(database.connection(), QLatin1String(table)); }
    void expectFailure(const char* text, const QString& why) {
        desk.expectBox(QLatin1String(text) + why, QStringLiteral("Error"));
    }
};

}  // namespace

TEST_F(AddressBook, OffersItsFourListsAndBeginsWithThePersonalOne) {
    Session().WordUsage = QStringLiteral("Client");
    const frmabook book;
    EXPECT_EQ(book.windowTitle(), QStringLiteral("Address Book"));
    QStringList lists;
    for (int i = 0; i < book.cbogroups->count(); ++i)
        lists << book.cbogroups->itemText(i);
    EXPECT_EQ(lists, (QStringList{"Personal", "Clients", "Referral Sources", "Insurance Companies"}));
    EXPECT_EQ(book.ShownList(), AddressList::Personal);
}

TEST_F(AddressBook, APersonalContactStandsInElevenColumns) {
    run(QStringLiteral(
        "Insert Into ContactList (uid, company, fname, lname, mi, address, city, state, zip, hphone, wphone, fax, mobilephone, pager, emailaddress, notes) Values ('REED', 'County Court', 'Anna', 'O''Brien', 'M', '12 Elm St', 'Avon', 'WI', '53841', '6085550101', '608555010212', '6085550104', '6085550103', '6085550105', 'anna@example.org', 'n')"));
    const qint64 key = database.connection().LastIdentity();
    const frmabook book;
    EXPECT_EQ(headersOf(book), (QStringList{"Name", "Company", "Address", "City", "State", "Zip", "Home Phone",
                                            "Work Phone", "Fax", "Mobile Phone", "E-Mail"}));
    EXPECT_EQ(book.ctList1->Cells(0),
              (QStringList{"O'Brien, Anna", "County Court", "12 Elm St", "Avon", "WI", "53841", "(608) 555-0101",
                           "(608) 555-0102 12", "(608) 555-0104", "(608) 555-0103", "anna@example.org"}));
    EXPECT_EQ(book.ctList1->ItemData(0).toLongLong(), key);
}

TEST_F(AddressBook, EachUserSeesOnlyTheirOwnPersonalContacts) {
    contact(QStringLiteral("Mine"), QStringLiteral("A"));
    contactOf(QStringLiteral("LANE"), QStringLiteral("Theirs"), QStringLiteral("B"));
    contactOf(QStringLiteral("REED2"), QStringLiteral("Others"), QStringLiteral("C"));
    EXPECT_EQ(namesOf(frmabook()), QStringList{QStringLiteral("Mine, A")});
    Session().UID = QStringLiteral("LANE");
    EXPECT_EQ(namesOf(frmabook()), QStringList{QStringLiteral("Theirs, B")});
}

TEST_F(AddressBook, ContactsStandInTheOrderOfTheirLastNames) {
    for (const char* name : {"Young", "adams", "Miller"})
        contact(QLatin1String(name), QStringLiteral("A"));
    EXPECT_EQ(namesOf(frmabook()), (QStringList{"adams, A", "Miller, A", "Young, A"}));
}

TEST_F(AddressBook, AContactWithOneNameShowsItWithoutAComma) {
    contact(QStringLiteral("Court"));
    contact({}, QStringLiteral("Ann"));
    EXPECT_EQ(namesOf(frmabook()), (QStringList{"Ann", "Court"}));
}

TEST_F(AddressBook, AnAddressOfTwoLinesShowsAsOneLine) {
    run(QStringLiteral("Insert Into ContactList (uid, lname, address) Values ('REED', 'Reed', '12 Elm St') "));
    run(db::Sql("Update ContactList Set address = '{}'", QStringLiteral("12 Elm St\r\nFloor 2")));
    EXPECT_EQ(frmabook().ctList1->ShownCell(0, 3), QStringLiteral("12 Elm St, Floor 2"));
}

TEST_F(AddressBook, AnAddressOfTenLinesShowsAsOneLine) {
    EXPECT_EQ(frmabook::stripcr(QStringLiteral("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10")),
              QStringLiteral("1, 2, 3, 4, 5, 6, 7, 8, 9, 10"));
    EXPECT_EQ(frmabook::stripcr(QString()), QString());
    EXPECT_EQ(frmabook::stripcr(QStringLiteral("a\nb")), QStringLiteral("ab"));
    EXPECT_EQ(frmabook::stripcr(QStringLiteral("a\r")), QStringLiteral("a, "));
}

TEST_F(AddressBook, PatientsStandInNineColumnsWithoutTheArchivedOnes) {
    run(QStringLiteral(
        "Insert Into patient_info (id, last_name, first_name, address, city, state, zipcode, telephone_h, telephone_b, Other_Phone_Type, Other_Phone, archive) Values ('10017', 'O''Brien', 'Anna', '12 Elm St', 'Avon', 'WI', '53841', '6085550101', '608555010212', 'Cell', '6085550103', 0)"));
    run(QStringLiteral(
        "Insert Into patient_info (id, last_name, first_name, archive) Values ('10018', 'Gone', 'Bo', 1)"));
    frmabook book;
    choose(book, AddressList::Patients);
    EXPECT_EQ(headersOf(book), (QStringList{"Name", "Address", "City", "State", "Zip", "Home Phone", "Work Phone",
                                            "Other Phone Type", "Other Phone"}));
    ASSERT_EQ(book.ctList1->RowCount(), 1);
    EXPECT_EQ(book.ctList1->Cells(0), (QStringList{"O'Brien, Anna", "12 Elm St", "Avon", "WI", "53841",
                                                   "(608) 555-0101", "(608) 555-0102 12", "Cell", "(608) 555-0103"}));
    EXPECT_EQ(book.ctList1->ItemData(0).toString(), QStringLiteral("10017"));
}

TEST_F(AddressBook, WithoutTheRightToAllOnlyOnesOwnPatientsAndThoseGivenAccessToAreListed) {
    for (
        const char* statement :
        {"Insert Into patient_info (id, last_name, first_name, provider_id, incident_nbr) Values ('1', 'Mine', 'A', 'REED', 1)",
         "Insert Into patient_info (id, last_name, first_name, provider_id, incident_nbr) Values ('2', 'Shared', 'B', 'LANE', 1)",
         "Insert Into patient_info (id, last_name, first_name, provider_id, incident_nbr) Values ('3', 'Theirs', 'C', 'LANE', 1)",
         "Insert Into incident_hx (patient_id, incident_nbr) Values ('1', 1)",
         "Insert Into incident_hx (patient_id, incident_nbr) Values ('2', 1)",
         "Insert Into incident_hx (patient_id, incident_nbr) Values ('3', 1)",
         "Insert Into patientaccess (patientid, providerid) Values ('2', 'REED')"})
        run(QString::fromLatin1(statement));
    frmabook book;
    choose(book, AddressList::Patients);
    EXPECT_EQ(namesOf(book), (QStringList{"Mine, A", "Shared, B", "Theirs, C"}));
    Session().AllProviders = false;
    choose(book, AddressList::Patients);
    EXPECT_EQ(namesOf(book), (QStringList{"Mine, A", "Shared, B"}));
}

TEST_F(AddressBook, ReferralSourcesAndInsuranceCompaniesStandInFiveColumns) {
    run(QStringLiteral(
        "Insert Into ref_source_info (ref_name, contact, address, telephone, fax, archive) Values ('School', 'Bo Young', 'a', '608555010212', '6085550103', 0)"));
    run(QStringLiteral("Insert Into ref_source_info (ref_name, archive) Values ('Closed', 1)"));
    run(QStringLiteral(
        "Insert Into insurance_info (ins_name, contact, address, telephone, fax) Values ('Blue', 'Al Old', 'b', '6085550104', '')"));
    frmabook book;
    const QStringList headers{"Name", "Contact", "Address", "Phone", "Fax"};
    choose(book, AddressList::ReferralSources);
    EXPECT_EQ(headersOf(book), headers);
    ASSERT_EQ(book.ctList1->RowCount(), 1);
    EXPECT_EQ(book.ctList1->Cells(0), (QStringList{"School", "Bo Young", "a", "(608) 555-0102 12", "(608) 555-0103"}));
    choose(book, AddressList::InsuranceCompanies);
    EXPECT_EQ(headersOf(book), headers);
    ASSERT_EQ(book.ctList1->RowCount(), 1);
    EXPECT_EQ(book.ctList1->Cells(0), (QStringList{"Blue", "Al Old", "b", "(608) 555-0104", ""}));
}

TEST_F(AddressBook, NamesOfAllKindsAreListedAndFound) {
    const QStringList names{QStringLiteral("O'Brien"), QString::fromUtf8("😀 Smile"),
                            QString::fromUtf8("\u05D0\u05D1\u05D2"), QStringLiteral("<b>x</b>; y|z")};
    for (const QString& name : names)
        contact(name, QStringLiteral("A"));
    frmabook book;
    ASSERT_EQ(book.ctList1->RowCount(), 4);
    for (const QString& name : names) {
        book.Text1->setText(name.left(3));
        EXPECT_EQ(selectedName(book), name + QStringLiteral(", A"));
    }
}

TEST_F(AddressBook, EveryListThatCannotBeReadIsToldStaysEmptyAndLeavesTheFormAlive) {
    contact(QStringLiteral("Mine"));
    patients(1);
    frmabook book;
    struct Loss {
        AddressList list;
        const char* table;
        const char* text;
    };
    for (const Loss& loss :
         {Loss{AddressList::Patients, "patient_Info", "Error loading patient list. "},
          Loss{AddressList::ReferralSources, "ref_source_info", "Error loading referral source list. "},
          Loss{AddressList::InsuranceCompanies, "insurance_info", "Error loading insurance list. "},
          Loss{AddressList::Personal, "ContactList", "Error loading contact list. "}}) {
        expectFailure(loss.text, lose(loss.table));
        choose(book, loss.list);
        EXPECT_EQ(book.ctList1->RowCount(), 0) << loss.table;
        EXPECT_FALSE(book.mnuFPrint->isEnabled()) << loss.table;
        EXPECT_EQ(book.pnlcount->text(), QStringLiteral("The list is empty."));
    }
    EXPECT_EQ(commandsOf(book), QStringLiteral("new"));
}

TEST_F(AddressBook, TypingMovesToTheFirstNameThatBeginsSoInAnyCase) {
    for (const char* name : {"Adams", "Miller", "Milton", "Young"})
        contact(QLatin1String(name), QStringLiteral("A"));
    frmabook book;
    EXPECT_EQ(selectedName(book), QStringLiteral("Adams, A"));
    QTest::keyClicks(book.Text1, QStringLiteral("mil"));
    EXPECT_EQ(selectedName(book), QStringLiteral("Miller, A"));
    QTest::keyClicks(book.Text1, QStringLiteral("T"));
    EXPECT_EQ(selectedName(book), QStringLiteral("Milton, A"));
    QTest::keyClick(book.Text1, Qt::Key_Backspace);
    EXPECT_EQ(selectedName(book), QStringLiteral("Miller, A"));
    book.Text1->clear();
    EXPECT_EQ(selectedName(book), QStringLiteral("Adams, A"));
}

TEST_F(AddressBook, ANameThatNobodyHasSelectsNobodyAndSaysSo) {
    contact(QStringLiteral("Adams"));
    frmabook book;
    QTest::keyClicks(book.Text1, QStringLiteral("x"));
    EXPECT_EQ(book.ctList1->SelectedRow(), -1);
    EXPECT_EQ(book.pnlcount->text(), QStringLiteral("No name begins with \"x\"."));
    book.mnuFDelete->trigger();
    EXPECT_EQ(count("ContactList"), 1);
    QTest::keyClick(book.Text1, Qt::Key_Backspace);
    EXPECT_EQ(book.pnlcount->text(), QStringLiteral("1"));
}

TEST_F(AddressBook, TheFoundRowIsBroughtIntoSight) {
    for (int i = 0; i < 300; ++i)
        contact(QStringLiteral("N%1").arg(i, 3, 10, QLatin1Char('0')));
    frmabook book;
    book.show();
    QTest::keyClicks(book.Text1, QStringLiteral("n250"));
    while (book.pnlprogress->isVisible())
        QApplication::processEvents();
    const QRect place = book.ctList1->visualRect(book.ctList1->currentIndex());
    EXPECT_TRUE(book.ctList1->viewport()->rect().intersects(place));
    EXPECT_EQ(selectedName(book), QStringLiteral("N250"));
}

TEST_F(AddressBook, ArrowKeysInTheSearchBoxMoveInTheList) {
    contact(QStringLiteral("Adams"));
    contact(QStringLiteral("Young"));
    frmabook book;
    book.show();
    QTest::keyClick(book.Text1, Qt::Key_Down);
    EXPECT_EQ(selectedName(book), QStringLiteral("Young"));
    QTest::keyClick(book.Text1, Qt::Key_Up);
    EXPECT_EQ(selectedName(book), QStringLiteral("Adams"));
}

TEST_F(AddressBook, AnotherListIsSearchedForTheSameText) {
    contact(QStringLiteral("Adams"));
    patients(1);
    run(QStringLiteral("Insert Into patient_info (id, last_name, first_name) Values ('10017', 'Young', 'Bo')"));
    frmabook book;
    book.Text1->setText(QStringLiteral("y"));
    EXPECT_EQ(book.ctList1->SelectedRow(), -1);
    choose(book, AddressList::Patients);
    EXPECT_EQ(selectedName(book), QStringLiteral("Young, Bo"));
}

TEST_F(AddressBook, HiddenNamesHidePatientsAndNobodyElse) {
    contact(QStringLiteral("Adams"), QStringLiteral("Al"));
    run(QStringLiteral(
        "Insert Into patient_info (id, last_name, first_name, telephone_h, city) Values ('10017', 'Young', 'Bo', '6085550101', 'Avon')"));
    frmabook book;
    SetNamesHidden(true);
    EXPECT_EQ(namesOf(book), QStringList{QStringLiteral("Adams, Al")});
    choose(book, AddressList::Patients);
    EXPECT_EQ(book.ctList1->ShownCells(0), (QStringList{"(hidden)", "", "(hidden)", "", "", "(hidden)", "", "", ""}));
    SetNamesHidden(false);
    EXPECT_EQ(namesOf(book), QStringList{QStringLiteral("Young, Bo")});
}

TEST_F(AddressBook, TheToolbarHasTheCommandsOfTheMenuInTheSameOrder) {
    const frmabook book;
    QStringList buttons;
    for (const QAction* action : book.btn->actions())
        if (!action->isSeparator())
            buttons << action->iconText();
    EXPECT_EQ(buttons, (QStringList{"Print", "E-Mail", "New", "Edit", "Delete", "Exit"}));
    QStringList entries;
    for (const QAction* action : book.mnuFile->actions())
        if (!action->isSeparator()) {
            entries << action->objectName();
            EXPECT_FALSE(action->icon().isNull()) << action->objectName().toStdString();
        }
    EXPECT_EQ(entries, (QStringList{"mnuFPrint", "mnuFemail", "mnuFNew", "mnuFEdit", "mnuFDelete", "mnuFExit"}));
}

TEST_F(AddressBook, EachAltLetterStandsOnce) {
    const frmabook book;
    const auto letters = [](const QList<QString>& texts) {
        QStringList found;
        for (const QString& text : texts)
            found << text.mid(text.indexOf(QLatin1Char('&')) + 1, 1).toUpper();
        return found;
    };
    QStringList inMenu;
    for (const QAction* action : book.mnuFile->actions())
        if (!action->isSeparator())
            inMenu << action->text();
    QStringList ofMenu = letters(inMenu);
    EXPECT_EQ(ofMenu.removeDuplicates(), 0);
    QStringList inForm{book.mnuFile->title()};
    for (const QLabel* label : book.findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            inForm << label->text();
    QStringList ofForm = letters(inForm);
    EXPECT_EQ(ofForm.removeDuplicates(), 0);
    EXPECT_EQ(ofForm.size(), 3);
}

TEST_F(AddressBook, ExitAndEscapeCloseTheForm) {
    frmabook book;
    book.show();
    book.mnuFExit->trigger();
    EXPECT_FALSE(book.isVisible());
    book.show();
    QTest::keyClick(book.Text1, Qt::Key_Escape);
    EXPECT_FALSE(book.isVisible());
}
