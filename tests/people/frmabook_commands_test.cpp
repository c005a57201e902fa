#include <QPushButton>

#include "people/frmcontact.h"
#include "platform/controls/noticebar.h"
#include "platform/controls/textfield.h"
#include "tests/people/addressbookfixture.h"

namespace {

class AddressBookCommands : public AddressBookFixture {
  protected:
    /// The next contact form gets this last name and OK.
    void typeName(const QString& last) {
        desk.expectForm("frmcontact", [last](QDialog& dialog) {
            auto& form = static_cast<frmcontact&>(dialog);
            form.txtlname->setText(last);
            form.cmdOk->click();
        });
    }
    void leaveForm() {
        desk.expectForm("frmcontact", [](QDialog& dialog) { static_cast<frmcontact&>(dialog).cmdcancel->click(); });
    }
    static void selectName(frmabook& book, const QString& name) {
        for (int row = 0; row < book.ctList1->RowCount(); ++row)
            if (book.ctList1->Cell(row, 1) == name)
                book.ctList1->SelectRow(row);
        EXPECT_EQ(selectedName(book), name);
    }
};

}  // namespace

TEST_F(AddressBookCommands, ACommandIsOnWhereItsListHasIt) {
    contact(QStringLiteral("Adams"));
    patients(1);
    run(QStringLiteral("Insert Into insurance_info (ins_name) Values ('Blue')"));
    frmabook book;
    EXPECT_EQ(commandsOf(book), QStringLiteral("print mail new edit delete"));
    choose(book, AddressList::Patients);
    EXPECT_EQ(commandsOf(book), QStringLiteral("print"));
    choose(book, AddressList::InsuranceCompanies);
    EXPECT_EQ(commandsOf(book), QStringLiteral("print"));
    choose(book, AddressList::ReferralSources);
    EXPECT_EQ(commandsOf(book), QString());
    choose(book, AddressList::Personal);
    EXPECT_EQ(commandsOf(book), QStringLiteral("print mail new edit delete"));
}

TEST_F(AddressBookCommands, AnEmptyPersonalListStillOffersNew) {
    const frmabook book;
    EXPECT_EQ(commandsOf(book), QStringLiteral("new"));
}

TEST_F(AddressBookCommands, EnablecmenuSwitchesFiveCommandsTogether) {
    frmabook book;
    book.enablecmenu(true);
    EXPECT_EQ(commandsOf(book), QStringLiteral("print mail new edit delete"));
    book.enablecmenu(false);
    EXPECT_EQ(commandsOf(book), QString());
}

TEST_F(AddressBookCommands, WhoMayOnlyReadChangesNothing) {
    contact(QStringLiteral("Adams"));
    Session().ScreenAccess = 1;
    frmabook book;
    EXPECT_EQ(commandsOf(book), QStringLiteral("print mail"));
    EXPECT_EQ(book.mnuFNew->toolTip(), QStringLiteral("Not available to you."));
    book.show();
    QTest::keyClick(book.ctList1, Qt::Key_Return);
    QTest::keyClick(book.ctList1, Qt::Key_Delete);
    EXPECT_EQ(count("ContactList"), 1);
    Session().ScreenAccess = 2;
    EXPECT_EQ(commandsOf(frmabook()), QStringLiteral("print mail new edit delete"));
}

TEST_F(AddressBookCommands, ANewContactIsListedAndSelected) {
    contact(QStringLiteral("Adams"));
    contact(QStringLiteral("Young"));
    frmabook book;
    typeName(QStringLiteral("Miller"));
    book.mnuFNew->trigger();
    EXPECT_EQ(namesOf(book), (QStringList{"Adams", "Miller", "Young"}));
    EXPECT_EQ(selectedName(book), QStringLiteral("Miller"));
    EXPECT_EQ(database.text(QStringLiteral("Select uid from ContactList Where lname = 'Miller'")),
              QStringLiteral("REED"));
}

TEST_F(AddressBookCommands, TheFirstContactTurnsTheCommandsOn) {
    frmabook book;
    typeName(QStringLiteral("Miller"));
    book.mnuFNew->trigger();
    EXPECT_EQ(commandsOf(book), QStringLiteral("print mail new edit delete"));
    EXPECT_EQ(selectedName(book), QStringLiteral("Miller"));
}

TEST_F(AddressBookCommands, NewThatIsCancelledLeavesTheSelection) {
    contact(QStringLiteral("Adams"));
    contact(QStringLiteral("Young"));
    frmabook book;
    selectName(book, QStringLiteral("Young"));
    leaveForm();
    book.mnuFNew->trigger();
    EXPECT_EQ(selectedName(book), QStringLiteral("Young"));
    EXPECT_EQ(count("ContactList"), 2);
}

TEST_F(AddressBookCommands, AnEditedContactIsSelectedAgainWhereverItsNewNameStands) {
    for (const char* name : {"Adams", "Miller", "Young"})
        contact(QLatin1String(name));
    frmabook book;
    selectName(book, QStringLiteral("Adams"));
    typeName(QStringLiteral("Zander"));
    book.mnuFEdit->trigger();
    EXPECT_EQ(namesOf(book), (QStringList{"Miller", "Young", "Zander"}));
    EXPECT_EQ(selectedName(book), QStringLiteral("Zander"));
}

TEST_F(AddressBookCommands, ADoubleClickAndEnterEditTheContact) {
    contact(QStringLiteral("Adams"));
    frmabook book;
    book.show();
    QApplication::processEvents();
    typeName(QStringLiteral("Baker"));
    const QPoint place = book.ctList1->visualRect(book.ctList1->model()->index(0, 0)).center();
    QTest::mouseDClick(book.ctList1->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(book.ctList1->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(selectedName(book), QStringLiteral("Baker"));
    typeName(QStringLiteral("Cooper"));
    QTest::keyClick(book.ctList1, Qt::Key_Return);
    typeName(QStringLiteral("Dyer"));
    QTest::keyClick(book.Text1, Qt::Key_Return);
    EXPECT_EQ(selectedName(book), QStringLiteral("Dyer"));
}

TEST_F(AddressBookCommands, ADoubleClickOnAnotherListOpensNothing) {
    patients(1);
    frmabook book;
    choose(book, AddressList::Patients);
    Q_EMIT book.ctList1->RowActivated(0);
    EXPECT_EQ(book.ctList1->RowCount(), 1);
}

TEST_F(AddressBookCommands, AContactDeletedByAnotherUserIsToldOnEditAndLeavesTheList) {
    contact(QStringLiteral("Adams"));
    contact(QStringLiteral("Young"));
    frmabook book;
    run(QStringLiteral("Delete from ContactList Where lname = 'Adams'"));
    selectName(book, QStringLiteral("Adams"));
    expectGone();
    book.mnuFEdit->trigger();
    EXPECT_EQ(namesOf(book), QStringList{QStringLiteral("Young")});
    EXPECT_EQ(selectedName(book), QStringLiteral("Young"));
}

TEST_F(AddressBookCommands, AContactDeletedWhileItIsEditedIsKeptInTheBarAndAddedFromThere) {
    QWidget window;
    NoticeBar bar;
    contact(QStringLiteral("Adams"));
    frmabook book(&window);
    desk.expectForm("frmcontact", [this](QDialog& dialog) {
        auto& form = static_cast<frmcontact&>(dialog);
        run(QStringLiteral("Delete from ContactList"));
        form.txtlname->setText(QStringLiteral("Baker"));
        expectGone();
        form.cmdOk->click();
    });
    book.mnuFEdit->trigger();
    EXPECT_EQ(book.ctList1->RowCount(), 0);
    EXPECT_EQ(commandsOf(book), QStringLiteral("new"));
    EXPECT_EQ(bar.Texts(), QStringList{QStringLiteral("Not saved: a contact")});
    book.close();
    desk.expectForm("frmcontact", [](QDialog& dialog) {
        auto& form = static_cast<frmcontact&>(dialog);
        EXPECT_EQ(form.txtlname->text(), QStringLiteral("Baker"));
        form.cmdOk->click();
    });
    bar.findChild<QAbstractButton*>(QStringLiteral("cmdNotice"))->click();
    QApplication::processEvents();
    EXPECT_EQ(database.text(QStringLiteral("Select lname from ContactList")), QStringLiteral("Baker"));
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(AddressBookCommands, AContactThatCannotBeSavedIsToldAndKeptInTheBar) {
    QWidget window;
    NoticeBar bar;
    frmabook book(&window);
    const QString why = database.refuse(QStringLiteral("Insert"), QStringLiteral("ContactList"));
    desk.expectForm("frmcontact", [&](QDialog& dialog) {
        auto& form = static_cast<frmcontact&>(dialog);
        form.txtlname->setText(QStringLiteral("Baker"));
        desk.expectBox(QStringLiteral("Error saving contact. ") + why, QStringLiteral("Error"));
        form.cmdOk->click();
    });
    book.mnuFNew->trigger();
    EXPECT_EQ(bar.Texts(), QStringList{QStringLiteral("Not saved: a contact")});
    EXPECT_EQ(count("ContactList"), 0);
    EXPECT_TRUE(book.mnuFNew->isEnabled());
}

TEST_F(AddressBookCommands, DeletingAsksFirst) {
    contact(QStringLiteral("Adams"));
    frmabook book;
    expectDelete(Answer::No);
    book.mnuFDelete->trigger();
    EXPECT_EQ(count("ContactList"), 1);
    EXPECT_EQ(book.ctList1->RowCount(), 1);
}

TEST_F(AddressBookCommands, ADeletedContactLeavesTheListAndTheSelectionStaysAtItsPlace) {
    for (const char* name : {"Adams", "Miller", "Young"})
        contact(QLatin1String(name));
    frmabook book;
    selectName(book, QStringLiteral("Miller"));
    expectDelete();
    book.mnuFDelete->trigger();
    EXPECT_EQ(namesOf(book), (QStringList{"Adams", "Young"}));
    EXPECT_EQ(selectedName(book), QStringLiteral("Young"));
    EXPECT_EQ(database.text(QStringLiteral("Select Count(*) from ContactList Where lname = 'Miller'")),
              QStringLiteral("0"));
    expectDelete();
    book.mnuFDelete->trigger();
    EXPECT_EQ(selectedName(book), QStringLiteral("Adams"));
    EXPECT_EQ(commandsOf(book), QStringLiteral("print mail new edit delete"));
    EXPECT_EQ(book.pnlcount->text(), QStringLiteral("1"));
}

TEST_F(AddressBookCommands, DeletingTheLastContactLeavesEditDeleteAndEMailDisabled) {
    contact(QStringLiteral("Adams"));
    frmabook book;
    expectDelete();
    book.mnuFDelete->trigger();
    EXPECT_EQ(commandsOf(book), QStringLiteral("new"));
    EXPECT_EQ(book.pnlcount->text(), QStringLiteral("The list is empty."));
}

TEST_F(AddressBookCommands, DeletingAContactThatAnotherDeskDeletedTakesItOffTheList) {
    contact(QStringLiteral("Adams"));
    frmabook book;
    run(QStringLiteral("Delete from ContactList"));
    expectDelete();
    book.mnuFDelete->trigger();
    EXPECT_EQ(book.ctList1->RowCount(), 0);
}

TEST_F(AddressBookCommands, AnotherUsersContactIsNeitherEditedNorDeletedByItsKey) {
    const int key = contact(QStringLiteral("Adams"));
    frmabook book;
    run(db::Sql("Update ContactList Set uid = 'LANE' Where cid = {}", key));
    expectDelete();
    book.mnuFDelete->trigger();
    EXPECT_EQ(book.ctList1->RowCount(), 0);
    EXPECT_EQ(count("ContactList"), 1);
    run(QStringLiteral("Update ContactList Set uid = 'REED'"));
    choose(book, AddressList::Personal);
    run(QStringLiteral("Update ContactList Set uid = 'LANE'"));
    expectGone();
    book.mnuFEdit->trigger();
    EXPECT_EQ(database.text(QStringLiteral("Select lname from ContactList")), QStringLiteral("Adams"));
}

TEST_F(AddressBookCommands, ADeletionThatTheDatabaseRefusesIsToldAndLeavesTheRow) {
    contact(QStringLiteral("Adams"));
    frmabook book;
    const QString why = database.refuse(QStringLiteral("Delete"), QStringLiteral("ContactList"));
    expectDelete();
    desk.expectBox(QStringLiteral("Error deleting contact. ") + why, QStringLiteral("Error"));
    book.mnuFDelete->trigger();
    EXPECT_EQ(namesOf(book), QStringList{QStringLiteral("Adams")});
    database.allow(QStringLiteral("Delete"), QStringLiteral("ContactList"));
    expectDelete();
    book.mnuFDelete->trigger();
    EXPECT_EQ(count("ContactList"), 0);
}

TEST_F(AddressBookCommands, TheDeleteKeyDeletesInTheListAndALetterInTheSearchBox) {
    contact(QStringLiteral("Adams"));
    frmabook book;
    book.show();
    QApplication::setActiveWindow(&book);
    book.Text1->setFocus();
    QTest::keyClicks(book.Text1, QStringLiteral("a"));
    QTest::keyClick(book.Text1, Qt::Key_Home);
    QTest::keyClick(book.Text1, Qt::Key_Delete);
    EXPECT_EQ(book.Text1->text(), QString());
    book.cbogroups->setFocus();
    QTest::keyClick(book.cbogroups, Qt::Key_Delete);
    EXPECT_EQ(count("ContactList"), 1);
    book.ctList1->setFocus();
    expectDelete();
    QTest::keyClick(book.ctList1, Qt::Key_Delete);
    EXPECT_EQ(count("ContactList"), 0);
}

TEST_F(AddressBookCommands, AMailOpensToTheAddressOfTheSelectedContact) {
    contact(QStringLiteral("Adams"), {}, QStringLiteral("al@example.org"));
    frmabook book;
    book.mnuFemail->trigger();
    EXPECT_EQ(desk.opened, QStringList{QStringLiteral("mailto:al@example.org")});
}

TEST_F(AddressBookCommands, AnAddressCannotAddAnythingToTheMail) {
    contact(QStringLiteral("Adams"), {}, QStringLiteral(" al@example.org?bcc=x@example.org\r\nBcc: y@example.org "));
    frmabook book;
    book.mnuFemail->trigger();
    EXPECT_EQ(desk.opened,
              QStringList{QStringLiteral("mailto:al@example.org%3Fbcc%3Dx@example.org%20Bcc%3A%20y@example.org")});
}

TEST_F(AddressBookCommands, AContactWithoutAnAddressOpensNoMail) {
    contact(QStringLiteral("Adams"), {}, QStringLiteral("  "));
    frmabook book;
    book.mnuFemail->trigger();
    book.ctList1->SelectRow(-1);
    book.mnuFemail->trigger();
    EXPECT_TRUE(desk.opened.isEmpty());
}

TEST_F(AddressBookCommands, ADesktopWithoutAMailProgramIsTold) {
    contact(QStringLiteral("Adams"), {}, QStringLiteral("al@example.org"));
    frmabook book;
    Desktop().openWithShell = [](const QString&) { return false; };
    desk.expectBox(QStringLiteral("No mail program could be opened."), QStringLiteral("Error"));
    book.mnuFemail->trigger();
}

TEST_F(AddressBookCommands, WithoutADatabaseEachCommandTellsSoAndTheFormStaysAlive) {
    contact(QStringLiteral("Adams"), {}, QStringLiteral("al@example.org"));
    frmabook book;
    Session().Connection.Close();
    const QString why = FailureOf(Session().Connection, QStringLiteral("Select * from ContactList"));
    const auto expectError = [&](const char* text) {
        desk.expectBox(QLatin1String(text) + why, QStringLiteral("Error"));
    };
    expectDelete();
    expectError("Error deleting contact. ");
    book.mnuFDelete->trigger();
    EXPECT_EQ(namesOf(book), QStringList{QStringLiteral("Adams")});
    book.mnuFemail->trigger();
    EXPECT_EQ(desk.opened.size(), 1);
    expectError("Error loading contact. ");
    expectError("Error loading contact list. ");
    book.mnuFEdit->trigger();
    EXPECT_EQ(book.ctList1->RowCount(), 0);
    expectError("Error loading patient list. ");
    choose(book, AddressList::Patients);
    EXPECT_EQ(commandsOf(book), QString());

    Session().Connection.Open(database.connectionText());
    choose(book, AddressList::Personal);
    EXPECT_EQ(namesOf(book), QStringList{QStringLiteral("Adams")});
}
