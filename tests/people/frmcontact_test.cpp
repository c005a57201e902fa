#include "people/frmcontact.h"

#include <QPushButton>

#include "people/addressedit.h"
#include "platform/controls/ctmedit.h"
#include "platform/controls/notefield.h"
#include "platform/controls/noticebar.h"
#include "tests/people/addressbookfixture.h"

namespace {

const QString SaveTitle = QStringLiteral("Contact Information");
const QString SaveQuestion = QStringLiteral("Close without saving what you have changed?");

class ContactForm : public AddressBookFixture {
  protected:
    QString stored(const char* column) {
        return database.text(QStringLiteral("Select %1 from ContactList").arg(QLatin1String(column)));
    }
    static QList<QLineEdit*> linesOf(const frmcontact& form) {
        return {form.txtco,     form.txttitle,  form.txtdept,  form.txtlname, form.txtfname,
                form.txtmi,     form.txtcity,   form.txtstate, form.txtzip,   form.txthphone,
                form.txtwphone, form.txtmphone, form.txtfax,   form.txtpager, form.txtemail};
    }
    /// Opens the only contact, and types a last name instead of its own.
    void renameTo(const QString& name) {
        frmcontact form(static_cast<int>(database.number(QStringLiteral("Select cid from ContactList"))));
        form.txtlname->setText(name);
        form.cmdOk->click();
    }
};

}  // namespace

TEST_F(ContactForm, ANewContactIsStoredForTheUserWithEveryField) {
    frmcontact form(frmcontact::NewContact);
    EXPECT_EQ(form.windowTitle(), SaveTitle);
    form.show();
    QTest::keyClicks(form.txtlname, QStringLiteral("O'Brien"));
    QTest::keyClicks(form.txtfname, QStringLiteral("Anna"));
    QTest::keyClicks(form.txtmi, QStringLiteral("M"));
    QTest::keyClicks(form.txtco, QStringLiteral("County Court"));
    QTest::keyClicks(form.txttitle, QStringLiteral("Judge"));
    QTest::keyClicks(form.txtdept, QStringLiteral("Family"));
    QTest::keyClicks(form.txtaddress, QStringLiteral("12 Elm St"));
    QTest::keyClick(form.txtaddress, Qt::Key_Return);
    QTest::keyClicks(form.txtaddress, QStringLiteral("Floor 2"));
    QTest::keyClicks(form.txtcity, QStringLiteral("Larkspur Falls"));
    QTest::keyClicks(form.txtstate, QStringLiteral("WI"));
    QTest::keyClicks(form.txtzip, QStringLiteral("53841"));
    QTest::keyClicks(form.txthphone, QStringLiteral("6085550101"));
    QTest::keyClicks(form.txtwphone, QStringLiteral("608555010212"));
    QTest::keyClicks(form.txtmphone, QStringLiteral("6085550103"));
    QTest::keyClicks(form.txtfax, QStringLiteral("6085550104"));
    QTest::keyClicks(form.txtpager, QStringLiteral("6085550105"));
    QTest::keyClicks(form.txtemail, QStringLiteral("anna@example.org"));
    form.SSRibbon2->click();
    QTest::keyClicks(form.txtnotes, QStringLiteral("Best before ten."));
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(
        database.text(QStringLiteral(
            "Select uid + '/' + company + '/' + fname + '/' + lname + '/' + mi + '/' + city + '/' + state + '/' + zip + '/' + hphone + '/' + wphone + '/' + fax + '/' + mobilephone + '/' + pager + '/' + emailaddress + '/' + ctitle + '/' + cdept + '/' + notes from ContactList")),
        QStringLiteral(
            "REED/County Court/Anna/O'Brien/M/Larkspur Falls/WI/53841/6085550101/608555010212/6085550104/6085550103/6085550105/anna@example.org/Judge/Family/Best before ten."));
    EXPECT_EQ(stored("address"), QStringLiteral("12 Elm St\r\nFloor 2"));
    EXPECT_EQ(form.ContactId(), database.number(QStringLiteral("Select cid from ContactList")));
}

TEST_F(ContactForm, AStoredContactIsShownWithEveryField) {
    run(QStringLiteral(
        "Insert Into ContactList (uid, company, fname, lname, mi, city, state, zip, hphone, wphone, fax, mobilephone, pager, emailaddress, ctitle, cdept, notes, address) Values ('REED', 'c', 'f', 'l', 'm', 'ci', 's', 'z', '6085550101', '608555010212', '6085550104', '6085550103', '6085550105', 'e', 't', 'd', 'n', 'a')"));
    const frmcontact form(static_cast<int>(database.connection().LastIdentity()));
    EXPECT_TRUE(form.IsLoaded());
    QStringList shown;
    for (const QLineEdit* line : linesOf(form))
        shown << line->text();
    EXPECT_EQ(shown, (QStringList{"c", "t", "d", "l", "f", "m", "ci", "s", "z", "(608) 555-0101", "(608) 555-0102 12",
                                  "(608) 555-0103", "(608) 555-0104", "(608) 555-0105", "e"}));
    EXPECT_EQ(form.txtaddress->toPlainText(), QStringLiteral("a"));
    EXPECT_EQ(form.txtnotes->toPlainText(), QStringLiteral("n"));
    EXPECT_FALSE(form.IsChanged());
}

TEST_F(ContactForm, AChangedContactIsStoredAndStaysItsUsers) {
    const int key = contact(QStringLiteral("Reed"), QStringLiteral("Anna"));
    frmcontact form(key);
    form.txtfname->setText(QStringLiteral("Anne"));
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(database.text(QStringLiteral("Select uid + '/' + lname + '/' + fname from ContactList")),
              QStringLiteral("REED/Reed/Anne"));
    EXPECT_EQ(form.ContactId(), key);
}

TEST_F(ContactForm, OkWithoutAChangeWritesNothing) {
    const QString why = database.refuse(QStringLiteral("Insert"), QStringLiteral("ContactList"));
    frmcontact form(frmcontact::NewContact);
    form.show();
    form.SSRibbon2->click();
    form.SSRibbon1->click();
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_FALSE(form.IsUnsaved());
}

TEST_F(ContactForm, CancelClosesAtOnceAndStoresNothing) {
    frmcontact form(frmcontact::NewContact);
    form.show();
    QTest::keyClicks(form.txtlname, QStringLiteral("Jones"));
    form.cmdcancel->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(count("ContactList"), 0);
}

TEST_F(ContactForm, WhatWasTypedIsNotThrownAwayUnasked) {
    frmcontact form(frmcontact::NewContact);
    form.show();
    form.SSRibbon2->click();
    QTest::keyClicks(form.txtnotes, QStringLiteral("Jones"));
    desk.expectBox(SaveQuestion, SaveTitle, Answer::No);
    QTest::keyClick(form.txtnotes, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    desk.expectBox(SaveQuestion, SaveTitle, Answer::No);
    form.close();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.txtnotes->toPlainText(), QStringLiteral("Jones"));
    desk.expectBox(SaveQuestion, SaveTitle, Answer::Yes);
    QTest::keyClick(form.txtnotes, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ContactForm, TurningThePagesIsNoChange) {
    frmcontact form(frmcontact::NewContact);
    form.show();
    EXPECT_EQ(form.SSRibbon1->text(), QStringLiteral("&Basic Information"));
    EXPECT_EQ(form.SSRibbon2->text(), QStringLiteral("&Notes"));
    EXPECT_TRUE(form.txtlname->isVisible());
    form.SSRibbon2->click();
    EXPECT_TRUE(form.txtnotes->isVisible());
    EXPECT_FALSE(form.txtlname->isVisible());
    EXPECT_TRUE(form.SSRibbon2->isChecked());
    EXPECT_FALSE(form.SSRibbon1->isChecked());
    QTest::keyClick(form.txtnotes, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ContactForm, WhatIsTypedRightAfterAPagesLetterStandsOnThatPage) {
    frmcontact form(frmcontact::NewContact);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    for (int time = 1; time <= 2; ++time) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::AltModifier);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("after "));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_B, Qt::AltModifier);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Jo"));
    }
    EXPECT_EQ(form.txtnotes->toPlainText(), QStringLiteral("after after "));
    EXPECT_EQ(form.txtlname->text(), QStringLiteral("JoJo"));
    EXPECT_TRUE(form.SSRibbon1->isChecked());
}

TEST_F(ContactForm, ASemicolonAndABarAreDroppedAtTheKeyPress) {
    frmcontact form(frmcontact::NewContact);
    form.show();
    for (QLineEdit* line : {static_cast<QLineEdit*>(form.txtlname), static_cast<QLineEdit*>(form.txtemail)}) {
        QTest::keyClicks(line, QStringLiteral("a;b|c"));
        EXPECT_EQ(line->text(), QStringLiteral("abc"));
    }
    QTest::keyClicks(form.txtaddress, QStringLiteral("12; Elm| St"));
    QTest::keyClicks(form.txtnotes, QStringLiteral("x;y|z"));
    EXPECT_EQ(form.txtaddress->toPlainText(), QStringLiteral("12 Elm St"));
    EXPECT_EQ(form.txtnotes->toPlainText(), QStringLiteral("xyz"));
}

TEST_F(ContactForm, ASemicolonThatAnotherProgramStoredIsKept) {
    contact(QStringLiteral("Reed; Sons | Co"), {}, QStringLiteral("a@example.org; b@example.org"));
    frmcontact form(static_cast<int>(database.number(QStringLiteral("Select cid from ContactList"))));
    EXPECT_EQ(form.txtemail->text(), QStringLiteral("a@example.org; b@example.org"));
    QTest::keyClicks(form.txtcity, QStringLiteral("Avon"));
    form.cmdOk->click();
    EXPECT_EQ(stored("emailaddress"), QStringLiteral("a@example.org; b@example.org"));
    EXPECT_EQ(stored("lname"), QStringLiteral("Reed; Sons | Co"));
    EXPECT_EQ(stored("city"), QStringLiteral("Avon"));
}

TEST_F(ContactForm, WhatWasLeftAloneStaysAsItIsStored) {
    run(QStringLiteral(
        "Insert Into ContactList (uid, lname, hphone, address) Values ('REED', ' Reed ', '(608) 555-0101', '12 Elm St')"));
    frmcontact form(static_cast<int>(database.connection().LastIdentity()));
    run(QStringLiteral("Update ContactList Set city = 'Avon'"));
    form.txtfname->setText(QStringLiteral("Anna"));
    form.cmdOk->click();
    EXPECT_EQ(stored("hphone"), QStringLiteral("(608) 555-0101"));
    EXPECT_EQ(stored("city"), QStringLiteral("Avon"));
    EXPECT_EQ(stored("fname"), QStringLiteral("Anna"));
}

TEST_F(ContactForm, EveryFieldThatIsTooLongSaysSoBelowItselfAndTheRestIsStored) {
    frmcontact form(frmcontact::NewContact);
    form.show();
    const std::pair<QLineEdit*, int> fields[]{
        {form.txtco, 100},    {form.txttitle, 100}, {form.txtdept, 100}, {form.txtlname, 100}, {form.txtfname, 100},
        {form.txtmi, 10},     {form.txtcity, 100},  {form.txtstate, 50}, {form.txtzip, 20},    {form.txthphone, 40},
        {form.txtwphone, 40}, {form.txtmphone, 40}, {form.txtfax, 40},   {form.txtpager, 40},  {form.txtemail, 255}};
    for (const auto& [field, most] : fields) {
        field->setFocus();
        field->insert(QString(300, QLatin1Char('x')));
        EXPECT_EQ(field->text(), QString(most, QLatin1Char('x'))) << field->objectName().toStdString();
        EXPECT_NE(static_cast<TextField*>(field)->Notice(), QString()) << field->objectName().toStdString();
    }
    form.txtaddress->setFocus();
    form.txtaddress->insertPlainText(QString(300, QLatin1Char('x')));
    EXPECT_NE(form.txtaddress->Notice(), QString());
    form.txtnotes->setPlainText(QString(20000, QLatin1Char('x')));
    form.cmdOk->click();
    EXPECT_EQ(
        database.text(QStringLiteral(
            "Select Convert(varchar, Len(company) + Len(ctitle) + Len(cdept) + Len(lname) + Len(fname) + Len(mi) + Len(city) + Len(state) + Len(zip)) + ' ' + Convert(varchar, Len(hphone) + Len(wphone) + Len(mobilephone) + Len(fax) + Len(pager)) + ' ' + Convert(varchar, Len(emailaddress)) + ' ' + Convert(varchar, Len(address)) from ContactList")),
        QStringLiteral("680 200 255 255"));
    EXPECT_EQ(stored("notes").size(), 20000);
}

TEST_F(ContactForm, NamesOfAllKindsAreKept) {
    for (const char* name : {"O'Brien", "Smith 😀 Ñandú", "\u05D0\u05D1\u05D2 \u05D3", "%_[a] \"x\" -- '", "李小龍"}) {
        run(QStringLiteral("Delete from ContactList"));
        frmcontact form(frmcontact::NewContact);
        form.txtlname->setText(QString::fromUtf8(name));
        form.cmdOk->click();
        EXPECT_EQ(stored("lname"), QString::fromUtf8(name));
        const frmcontact again(form.ContactId());
        EXPECT_EQ(again.txtlname->text(), QString::fromUtf8(name));
    }
}

TEST_F(ContactForm, AnAddressOfTenLinesIsKept) {
    const QString address = QStringLiteral("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10");
    run(db::Sql("Insert Into ContactList (uid, lname, address) Values ('REED', 'Reed', '{}')", address));
    renameTo(QStringLiteral("Lane"));
    EXPECT_EQ(stored("address"), address);
    EXPECT_EQ(stored("lname"), QStringLiteral("Lane"));
}

TEST_F(ContactForm, ATelephoneThatDoesNotFitTheMaskIsKeptAsTyped) {
    frmcontact form(frmcontact::NewContact);
    QTest::keyClicks(form.txthphone, QStringLiteral("ask for Ann, 0044 20 7946"));
    form.cmdOk->click();
    EXPECT_EQ(stored("hphone"), QStringLiteral("ask for Ann, 0044 20 7946"));
}

TEST_F(ContactForm, AContactThatIsGoneIsToldAndNotLoaded) {
    expectGone();
    const frmcontact form(4711);
    EXPECT_FALSE(form.IsLoaded());
}

TEST_F(ContactForm, AnotherUsersContactIsAsIfItWereGone) {
    const int theirs = contactOf(QStringLiteral("LANE"), QStringLiteral("Secret"));
    expectGone();
    const frmcontact form(theirs);
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_EQ(form.txtlname->text(), QString());
}

TEST_F(ContactForm, AFailureToLoadIsToldWithItsReason) {
    const int key = contact(QStringLiteral("Reed"));
    const QString why = refuseWrites("ContactList");
    desk.expectBox(QStringLiteral("Error loading contact. ") + why, QStringLiteral("Error"));
    const frmcontact form(key);
    EXPECT_FALSE(form.IsLoaded());
}

TEST_F(ContactForm, ANewContactThatIsRefusedClosesAsUnsavedWithAllThatWasTyped) {
    const QString why = database.refuse(QStringLiteral("Insert"), QStringLiteral("ContactList"));
    frmcontact form(frmcontact::NewContact);
    form.show();
    form.txtlname->setText(QStringLiteral("Jones"));
    desk.expectBox(QStringLiteral("Error saving contact. ") + why, QStringLiteral("Error"));
    form.cmdOk->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(form.IsUnsaved());
    // Opened again, it is stored.
    database.allow(QStringLiteral("Insert"), QStringLiteral("ContactList"));
    form.show();
    EXPECT_EQ(form.txtlname->text(), QStringLiteral("Jones"));
    form.cmdOk->click();
    EXPECT_FALSE(form.IsUnsaved());
    EXPECT_EQ(stored("lname"), QStringLiteral("Jones"));
    EXPECT_EQ(count("ContactList"), 1);
}

TEST_F(ContactForm, AChangeThatIsRefusedClosesAsUnsavedAndLeavesTheRow) {
    const int key = contact(QStringLiteral("Reed"));
    const QString why = database.refuse(QStringLiteral("Update"), QStringLiteral("ContactList"));
    frmcontact form(key);
    form.txtlname->setText(QStringLiteral("Jones"));
    desk.expectBox(QStringLiteral("Error saving contact. ") + why, QStringLiteral("Error"));
    form.cmdOk->click();
    EXPECT_TRUE(form.IsUnsaved());
    EXPECT_EQ(stored("lname"), QStringLiteral("Reed"));
}

TEST_F(ContactForm, AContactDeletedMeanwhileIsToldAndALaterOkAddsItAnew) {
    run(QStringLiteral("Insert Into ContactList (uid, lname, city) Values ('REED', 'Reed', 'Avon')"));
    frmcontact form(static_cast<int>(database.connection().LastIdentity()));
    run(QStringLiteral("Delete from ContactList"));
    form.txtlname->setText(QStringLiteral("Jones"));
    expectGone();
    form.cmdOk->click();
    EXPECT_TRUE(form.IsUnsaved());
    EXPECT_EQ(count("ContactList"), 0);
    form.show();
    form.cmdOk->click();
    EXPECT_EQ(database.text(QStringLiteral("Select lname + '/' + city + '/' + uid from ContactList")),
              QStringLiteral("Jones/Avon/REED"));
}

TEST_F(ContactForm, TheFieldsAreReachedByTabInTheOrderOfTheEye) {
    frmcontact form(frmcontact::NewContact);
    form.show();
    QApplication::setActiveWindow(&form);
    form.txtlname->setFocus();
    const QList<QWidget*> order{form.txtlname,  form.txtfname,   form.txtmi,     form.txtco,    form.txttitle,
                                form.txtdept,   form.txtaddress, form.txtcity,   form.txtstate, form.txtzip,
                                form.txthphone, form.txtwphone,  form.txtmphone, form.txtfax,   form.txtpager,
                                form.txtemail,  form.cmdOk,      form.cmdcancel};
    for (QWidget* field : order) {
        EXPECT_EQ(QApplication::focusWidget(), field) << field->objectName().toStdString();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(ContactForm, EveryFieldHasANameForScreenReaders) {
    const frmcontact form(frmcontact::NewContact);
    for (const QLineEdit* line : linesOf(form))
        EXPECT_NE(line->accessibleName(), QString()) << line->objectName().toStdString();
    EXPECT_EQ(form.txtaddress->accessibleName(), QStringLiteral("Address"));
    EXPECT_EQ(form.txtnotes->accessibleName(), QStringLiteral("Notes"));
}

TEST_F(ContactForm, EachAltLetterStandsOnceInTheForm) {
    const frmcontact form(frmcontact::NewContact);
    QStringList letters;
    const auto add = [&](const QString& text) {
        if (const qsizetype at = text.indexOf(QLatin1Char('&')); at >= 0)
            letters << text.mid(at + 1, 1).toUpper();
    };
    for (const QLabel* label : form.findChildren<QLabel*>())
        add(label->text());
    for (const QAbstractButton* button : form.findChildren<QAbstractButton*>())
        add(button->text());
    EXPECT_EQ(letters.size(), 20);
    EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(u' ').toStdString();
}
