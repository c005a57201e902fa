#include "tests/desks/deskfront.h"

namespace {

/// Reed's address book at the front desk.
class AddressBookAtTheDesk : public FrontDesk {
  protected:
    QString told(const char* widget) { return desk->tell("text", QLatin1String(widget)); }
    bool soonTold(const char* widget, const QString& part) {
        return soon([&] { return told(widget).contains(part); });
    }
    QString placeOf(const char* widget) { return desk->tell("widgetPlace", QLatin1String(widget)); }
    QString contacts() {
        return value(QStringLiteral("Select Convert(varchar, Count(*)) from ContactList Where uid = 'REED'"));
    }
    /// Waits until the list begins with this row.
    void awaitRow(const QString& text) { EXPECT_TRUE(soonTold("ctList1", text)) << told("ctList1").toStdString(); }
};

}  // namespace

TEST_F(AddressBookAtTheDesk, AContactIsMadeEditedFoundMailedPrintedAndDeletedByKeyboard) {
    connection.Execute("Insert Into ContactList (uid, lname, fname) Values ('LANE', 'Secret', 'Bo')");
    person->press({QStringLiteral("ctrl+b")});
    person->turnTo("frmabook");
    person->picture("addressbook-empty");
    EXPECT_EQ(told("ctList1"), QString());

    person->press({QStringLiteral("ctrl+n")});
    person->turnTo("frmcontact");
    person->type(QStringLiteral("Baker"));
    person->press({QStringLiteral("Tab")});
    person->type(QStringLiteral("Joan"));
    person->press({QStringLiteral("alt+w")});
    person->type(QStringLiteral("608555010212"));
    person->press({QStringLiteral("alt+n")});
    person->type(QStringLiteral("Before ten."));
    person->picture("contact-notes");
    person->press({QStringLiteral("alt+o")});
    person->turnTo("frmabook");
    awaitRow(QStringLiteral("Baker, Joan;"));
    EXPECT_EQ(contacts(), QStringLiteral("1"));
    EXPECT_TRUE(told("ctList1").contains(QStringLiteral(";608555010212;")));

    person->press({QStringLiteral("alt+i")});
    person->type(QStringLiteral("bak"));
    person->press({QStringLiteral("Return")});
    person->turnTo("frmcontact");
    person->press({QStringLiteral("alt+e")});
    person->type(QStringLiteral("joan@example.org"));
    person->picture("contact");
    person->press({QStringLiteral("Return")});
    person->turnTo("frmabook");
    awaitRow(QStringLiteral(";joan@example.org"));

    person->press({QStringLiteral("ctrl+m")});
    EXPECT_TRUE(soon([&] { return desk->tell("opened") == QLatin1String("mailto:joan@example.org"); }));
    person->press({QStringLiteral("ctrl+p")});
    person->turnTo("frmpreview");
    person->picture("contact-preview");
    person->press({QStringLiteral("Escape")});
    person->turnTo("frmabook");

    person->press({QStringLiteral("alt+i"), QStringLiteral("Tab"), QStringLiteral("Delete")});
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("frmabook");
    EXPECT_TRUE(soon([&] { return told("ctList1").isEmpty(); }));
    EXPECT_EQ(contacts(), QStringLiteral("0"));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from ContactList")), 1);
    person->press({QStringLiteral("Escape")});
    person->turnTo("mdisched");
}

TEST_F(AddressBookAtTheDesk, TheSameIsDoneByMouse) {
    connection.Execute(
        "Insert Into ContactList (uid, lname, fname, emailaddress) Values ('REED', 'Baker', 'Joan', 'joan@example.org')");
    person->press({QStringLiteral("alt+v"), QStringLiteral("b")});
    person->turnTo("frmabook");
    awaitRow(QStringLiteral("Baker, Joan;"));
    person->picture("addressbook");

    person->click(placeOf("btnNew"));
    person->turnTo("frmcontact");
    person->click(placeOf("txtlname"));
    person->type(QStringLiteral("Adams"));
    person->click(placeOf("SSRibbon2"));
    person->click(placeOf("txtnotes"));
    person->type(QStringLiteral("New here."));
    person->click(placeOf("cmdOk"));
    person->turnTo("frmabook");
    awaitRow(QStringLiteral("Adams;"));
    EXPECT_EQ(contacts(), QStringLiteral("2"));

    person->doubleClick(desk->tell("rowPlace", QStringLiteral("ctList1"), QStringLiteral("1")));
    person->turnTo("frmcontact");
    EXPECT_EQ(told("txtlname"), QStringLiteral("Baker"));
    person->click(placeOf("cmdcancel"));
    person->turnTo("frmabook");
    person->click(placeOf("btnE-Mail"));
    EXPECT_TRUE(soon([&] { return desk->tell("opened") == QLatin1String("mailto:joan@example.org"); }));
    person->click(placeOf("btnPrint"));
    person->turnTo("frmpreview");
    person->click(placeOf("cmdclose"));
    person->turnTo("frmabook");
    person->click(placeOf("btnDelete"));
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("frmabook");
    EXPECT_TRUE(soon([&] { return contacts() == QLatin1String("1"); }));

    desk->tell("choose", QStringLiteral("cbogroups"), QStringLiteral("Patients"));
    awaitRow(QStringLiteral("O'Brien, Anna;"));
    person->picture("addressbook-patients");
    person->press({QStringLiteral("ctrl+h")});
    EXPECT_TRUE(soonTold("ctList1", QStringLiteral("(hidden);")));
    EXPECT_FALSE(told("ctList1").contains(QStringLiteral("O'Brien")));
    person->click(placeOf("btnExit"));
    person->turnTo("mdisched");
}
