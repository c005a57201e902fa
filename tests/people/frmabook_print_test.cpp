#include "platform/printing/printpreview.h"
#include "session/hiddennames.h"
#include "tests/people/addressbookfixture.h"

namespace {

class AddressBookPrint : public AddressBookFixture {
  protected:
    /// Prints the list that is shown, and returns the lines of the document.
    QStringList printed(frmabook& book) {
        desk.expectForm("frmpreview",
                        [this](QDialog& preview) { document = preview.findChild<PrintPreview*>()->Document(); });
        book.mnuFPrint->trigger();
        QStringList lines;
        for (const printing::Block& block : document.blocks)
            lines << std::get<printing::Paragraph>(block).text;
        return lines;
    }

    printing::Document document;  ///< The one printed last.
};

}  // namespace

TEST_F(AddressBookPrint, AContactIsPrintedLineByLineWithoutItsEmptyColumns) {
    contact(QStringLiteral("Adams"), QStringLiteral("Al"), QStringLiteral("al@example.org"));
    run(QStringLiteral("Update ContactList Set wphone = '608555010212'"));
    run(db::Sql("Update ContactList Set address = '{}'", QStringLiteral("12 Elm St\r\nFloor 2")));
    contact(QStringLiteral("Young"));
    frmabook book;
    EXPECT_EQ(printed(book),
              (QStringList{"Name: Adams, Al", "Address: 12 Elm St, Floor 2", "Work Phone: (608) 555-0102 12",
                           "E-Mail: al@example.org", "", "Name: Young", ""}));
    EXPECT_EQ(document.header, QStringLiteral("Contacts List"));
    EXPECT_EQ(document.footer, QStringLiteral("||Page %d"));
    EXPECT_EQ(document.title, QStringLiteral("Contacts List"));
}

TEST_F(AddressBookPrint, TheOtherListsArePrintedUnderTheirNames) {
    Session().WordUsage = QStringLiteral("Client");
    patients(1);
    run(QStringLiteral("Insert Into insurance_info (ins_name) Values ('Blue')"));
    run(QStringLiteral("Insert Into ref_source_info (ref_name) Values ('School')"));
    frmabook book;
    choose(book, AddressList::Patients);
    EXPECT_EQ(printed(book), (QStringList{"Name: Adams, 000000", ""}));
    EXPECT_EQ(document.header, QStringLiteral("Clients List"));
    choose(book, AddressList::ReferralSources);
    EXPECT_EQ(printed(book), (QStringList{"Name: School", ""}));
    EXPECT_EQ(document.header, QStringLiteral("Referral Sources List"));
    choose(book, AddressList::InsuranceCompanies);
    EXPECT_EQ(printed(book), (QStringList{"Name: Blue", ""}));
    EXPECT_EQ(document.header, QStringLiteral("Insurance Companies List"));
}

TEST_F(AddressBookPrint, HiddenNamesStayHiddenOnPaper) {
    patients(1);
    run(QStringLiteral("Update patient_info Set telephone_h = '6085550101'"));
    frmabook book;
    choose(book, AddressList::Patients);
    SetNamesHidden(true);
    EXPECT_EQ(printed(book), (QStringList{"Name: (hidden)", "Home Phone: (hidden)", ""}));
    SetNamesHidden(false);
}

TEST_F(AddressBookPrint, AListThatIsStillBeingFilledIsPrintedWhole) {
    patients(5000);
    frmabook book;
    choose(book, AddressList::Patients);
    EXPECT_LT(book.ctList1->RowCount(), 5000);
    desk.expectBox(QStringLiteral("The list has 5,000 rows. Do you want to print all of them?"),
                   QStringLiteral("Address Book"), Answer::Yes);
    EXPECT_EQ(printed(book).size(), 10000);
    EXPECT_EQ(book.ctList1->RowCount(), 5000);
}

TEST_F(AddressBookPrint, ALongListIsNotPrintedUnasked) {
    patients(frmabook::QuicklyPrinted + 1);
    frmabook book;
    choose(book, AddressList::Patients);
    desk.expectBox(QStringLiteral("The list has 2,001 rows. Do you want to print all of them?"),
                   QStringLiteral("Address Book"), Answer::No);
    book.mnuFPrint->trigger();
}
