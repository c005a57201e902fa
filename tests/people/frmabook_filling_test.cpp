#include <memory>

#include "session/fillprogress.h"
#include "tests/people/addressbookfixture.h"

namespace {

/// The patients' list while it is being filled with 5000 patients, and "Young, Bo" as its last.
class AddressBookFilling : public AddressBookFixture {
  protected:
    static constexpr int All = 5001;

    AddressBookFilling() {
        patients(All - 1);
        run(QStringLiteral("Insert Into patient_info (id, last_name, first_name) Values ('10017', 'Young', 'Bo')"));
        book->show();
        choose(*book, AddressList::Patients);
    }
    void fill() const {
        while (book->pnlprogress->isVisible())
            QApplication::processEvents();
    }

    std::unique_ptr<frmabook> book = std::make_unique<frmabook>();
};

}  // namespace

TEST_F(AddressBookFilling, TheFirstRowsAndTheProgressAreThereAtOnce) {
    EXPECT_GE(book->ctList1->RowCount(), 200);
    EXPECT_LT(book->ctList1->RowCount(), All);
    EXPECT_TRUE(book->pnlprogress->isVisible());
    EXPECT_EQ(selectedName(*book), QStringLiteral("Adams, 000000"));
    fill();
    EXPECT_EQ(book->ctList1->RowCount(), All);
    EXPECT_EQ(book->pnlcount->text(), QStringLiteral("5,001"));
    EXPECT_EQ(selectedName(*book), QStringLiteral("Adams, 000000"));
}

TEST_F(AddressBookFilling, CommandsAreOnFromTheFirstRowsOn) {
    EXPECT_EQ(commandsOf(*book), QStringLiteral("print"));
}

TEST_F(AddressBookFilling, ClosingWhileItFillsIsHarmless) {
    book->close();
    QApplication::processEvents();
    book.reset();
    QApplication::processEvents();
}

TEST_F(AddressBookFilling, AnotherListReplacesTheOneThatIsBeingFilled) {
    contact(QStringLiteral("Adams"), QStringLiteral("Al"));
    choose(*book, AddressList::Personal);
    for (int round = 0; round < 20; ++round)
        QApplication::processEvents();
    EXPECT_EQ(namesOf(*book), QStringList{QStringLiteral("Adams, Al")});
    EXPECT_FALSE(book->pnlprogress->isVisible());
    EXPECT_EQ(commandsOf(*book), QStringLiteral("print mail new edit delete"));
    choose(*book, AddressList::Patients);
    fill();
    EXPECT_EQ(book->ctList1->RowCount(), All);
}

TEST_F(AddressBookFilling, TheSameListBegunAnewHoldsEachPatientOnce) {
    choose(*book, AddressList::Patients);
    fill();
    EXPECT_EQ(book->ctList1->RowCount(), All);
}

TEST_F(AddressBookFilling, ANameThatIsStillToComeIsSelectedAsSoonAsItIsThere) {
    QTest::keyClicks(book->Text1, QStringLiteral("you"));
    EXPECT_EQ(book->ctList1->SelectedRow(), -1);
    fill();
    EXPECT_EQ(selectedName(*book), QStringLiteral("Young, Bo"));
}

TEST_F(AddressBookFilling, ARowThatIsSelectedMeanwhileStaysSelected) {
    QTest::keyClicks(book->Text1, QStringLiteral("you"));
    book->ctList1->SelectRow(7);
    fill();
    EXPECT_EQ(selectedName(*book), QStringLiteral("Adams, 000007"));
}

TEST_F(AddressBookFilling, TheLastTypedTextIsTheOneThatIsLookedFor) {
    QTest::keyClicks(book->Text1, QStringLiteral("you"));
    book->Text1->setText(QStringLiteral("adams, 004"));
    fill();
    EXPECT_EQ(selectedName(*book), QStringLiteral("Adams, 004000"));
}

TEST_F(AddressBookFilling, ANameThatNobodyHasIsToldWhenAllAreThere) {
    QTest::keyClicks(book->Text1, QStringLiteral("zz"));
    EXPECT_NE(book->pnlcount->text(), QStringLiteral("No name begins with \"zz\"."));
    fill();
    EXPECT_EQ(book->pnlcount->text(), QStringLiteral("No name begins with \"zz\"."));
}

TEST_F(AddressBookFilling, AListThatCannotBeReadEndsTheFillingOfTheOneBefore) {
    const QString why = DropTable(database.connection(), QStringLiteral("insurance_info"));
    desk.expectBox(QStringLiteral("Error loading insurance list. ") + why, QStringLiteral("Error"));
    choose(*book, AddressList::InsuranceCompanies);
    for (int round = 0; round < 20; ++round)
        QApplication::processEvents();
    EXPECT_EQ(book->ctList1->RowCount(), 0);
    EXPECT_FALSE(book->pnlprogress->isVisible());
}

TEST_F(AddressBookFilling, ARestThatCannotBeReadIsToldOnceAndTheFirstPatientsStay) {
    QStringList boxes;
    Desktop().msgBox = [&boxes](const QString& text, BoxStyle, const QString&) {
        boxes << text;
        return Answer::Ok;
    };
    run(QStringLiteral("Drop Table patient_info"));
    fill();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].startsWith(QStringLiteral("Error loading patient list. "))) << boxes[0].toStdString();
    EXPECT_GT(boxes[0].size(), 30);
    EXPECT_EQ(book->ctList1->RowCount(), 200);
    EXPECT_EQ(commandsOf(*book), QStringLiteral("print"));
    const QString cut = QStringLiteral("Only the first 200 could be read. Choose the list again.");
    EXPECT_EQ(book->pnlcount->text(), cut);
    book->Text1->setText(QStringLiteral("zzz"));
    EXPECT_EQ(book->pnlcount->text(), cut) << "Nobody knows whether there is no such patient.";
    book->mnuFPrint->trigger();
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_EQ(boxes[1], QStringLiteral("The list could not be read to its end. Choose it again, then print it."));
}
