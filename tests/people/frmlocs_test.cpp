#include "people/frmlocs.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "tests/people/listfixture.h"

namespace {

class PracticeLists : public ListFixture {
  protected:
    static QStringList namesOf(const frmlocs& form) {
        QStringList names;
        for (int row = 0; row < form.List1->RowCount(); ++row)
            names << form.List1->ItemText(row);
        return names;
    }
    static void type(frmlocs& form, const QString& text) {
        form.txtlocation->clear();
        QTest::keyClicks(form.txtlocation, text);
    }
};

}  // namespace

TEST_F(PracticeLists, EachModeKeepsItsOwnTable) {
    struct Mode {
        PracticeList list;
        const char* title;
        const char* count;
    };
    const Mode modes[] = {
        {PracticeList::Locations, "Edit Locations", "Select Count(*) from Locations Where Location = 'New'"},
        {PracticeList::Rooms, "Edit Rooms", "Select Count(*) from Rooms Where Room = 'New'"},
        {PracticeList::Events, "Edit Activities/Events", "Select Count(*) from Events Where Event = 'New'"},
        {PracticeList::Availability, "Edit Unavailable Time", "Select Count(*) from availability Where avail = 'New'"}};
    for (const Mode& mode : modes) {
        frmlocs form(mode.list);
        EXPECT_EQ(form.windowTitle(), QLatin1String(mode.title));
        type(form, QStringLiteral("New"));
        form.cmdadd->click();
        EXPECT_EQ(database.number(QLatin1String(mode.count)), 1) << mode.title;
        EXPECT_EQ(namesOf(form), QStringList{QStringLiteral("New")});
        EXPECT_EQ(form.txtlocation->text(), QString());
        EXPECT_FALSE(form.cmdrename->isEnabled());
    }
}

TEST_F(PracticeLists, TheHintNamesTheKindOfTheList) {
    EXPECT_EQ(frmlocs(PracticeList::Locations).lblhint->text(),
              QStringLiteral("Click a Location to Delete or Rename it, or type a new Location in the space below."));
    EXPECT_EQ(frmlocs(PracticeList::Rooms).lblhint->text(),
              QStringLiteral("Click a Room to Delete or Rename it, or type a new Room in the space below."));
}

TEST_F(PracticeLists, ANameThatIsOnTheListInAnotherCaseIsNotAddedAgain) {
    run(QStringLiteral("Insert Into Locations (Location) Values ('Main Office')"));
    frmlocs form(PracticeList::Locations);
    type(form, QStringLiteral("  main office "));
    desk.expectBox(QStringLiteral("Item is already on list."), QStringLiteral("Duplicate Item"));
    form.cmdadd->click();
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from Locations")), 1);
    EXPECT_EQ(form.txtlocation->text(), QStringLiteral("  main office "));
}

TEST_F(PracticeLists, SelectingAnEntryOffersItForRenamingAndDeleting) {
    run(QStringLiteral("Insert Into Rooms (Room) Values ('Blue; the ''small'' one')"));
    frmlocs form(PracticeList::Rooms);
    EXPECT_FALSE(form.cmddelete->isEnabled());
    form.List1->SelectRow(0);
    EXPECT_EQ(form.txtlocation->text(), QStringLiteral("Blue; the 'small' one"));
    EXPECT_TRUE(form.cmdrename->isEnabled());
    EXPECT_TRUE(form.cmddelete->isEnabled());
}

TEST_F(PracticeLists, RenamingKeepsTheEntrysKey) {
    run(QStringLiteral("Insert Into Rooms (Room) Values ('Blue')"));
    const qint64 key = database.number(QStringLiteral("Select RoomID from Rooms"));
    frmlocs form(PracticeList::Rooms);
    form.List1->SelectRow(0);
    type(form, QStringLiteral("O'Brien's"));
    form.cmdrename->click();
    EXPECT_EQ(database.text(QStringLiteral("Select Room from Rooms")), QStringLiteral("O'Brien's"));
    EXPECT_EQ(database.number(QStringLiteral("Select RoomID from Rooms")), key);
}

TEST_F(PracticeLists, RenamingToAnotherEntrysNameIsRefusedButANewSpellingOfItsOwnIsNot) {
    run(QStringLiteral("Insert Into Rooms (Room) Values ('blue')"));
    run(QStringLiteral("Insert Into Rooms (Room) Values ('Green')"));
    frmlocs form(PracticeList::Rooms);
    form.List1->SelectRow(0);
    type(form, QStringLiteral("GREEN"));
    desk.expectBox(QStringLiteral("Item is already on list."), QStringLiteral("Item Exists"));
    form.cmdrename->click();
    type(form, QStringLiteral("Blue"));
    form.cmdrename->click();
    EXPECT_EQ(namesOf(form), (QStringList{QStringLiteral("Blue"), QStringLiteral("Green")}));
}

TEST_F(PracticeLists, ADeletedRoomKeepsItsBookings) {
    run(QStringLiteral("Insert Into Rooms (Room) Values ('Blue')"));
    run(QStringLiteral("Insert Into roomschedule (croomid, croomtext) Values (1, 'Reed')"));
    frmlocs form(PracticeList::Rooms);
    form.List1->SelectRow(0);
    form.cmddelete->click();
    EXPECT_EQ(form.List1->RowCount(), 0);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from roomschedule")), 1);
}

TEST_F(PracticeLists, RenamingAnEntryThatAnotherUserDeletedTellsSo) {
    run(QStringLiteral("Insert Into Rooms (Room) Values ('Blue')"));
    frmlocs form(PracticeList::Rooms);
    form.List1->SelectRow(0);
    run(QStringLiteral("Delete from Rooms"));
    type(form, QStringLiteral("Green"));
    desk.expectBox(QStringLiteral("Error saving list. Another user may have deleted this item."),
                   QStringLiteral("Error"));
    form.cmdrename->click();
    EXPECT_EQ(form.List1->RowCount(), 0);
    EXPECT_EQ(form.txtlocation->text(), QStringLiteral("Green"));
    EXPECT_TRUE(form.cmdadd->isEnabled());
}

TEST_F(PracticeLists, NothingButBlanksCanBeAdded) {
    frmlocs form(PracticeList::Events);
    type(form, QStringLiteral("   "));
    EXPECT_FALSE(form.cmdadd->isEnabled());
}

TEST_F(PracticeLists, NoMoreCanBeTypedThanAnAppointmentHolds) {
    frmlocs form(PracticeList::Events);
    type(form, QString(500, QLatin1Char('x')));
    form.cmdadd->click();
    EXPECT_EQ(database.text(QStringLiteral("Select Event from Events")).size(), 50);
}

TEST_F(PracticeLists, AWriteThatTheDatabaseRefusesIsToldAndKeepsWhatWasTyped) {
    frmlocs form(PracticeList::Rooms);
    type(form, QStringLiteral("Green"));
    const QString why = refuseWrites("rooms");
    desk.expectBox(QStringLiteral("Error saving list. ") + why, QStringLiteral("Error"));
    desk.expectBox(QStringLiteral("Error loading list. ") + why, QStringLiteral("Error"));
    form.cmdadd->click();
    EXPECT_EQ(form.txtlocation->text(), QStringLiteral("Green"));
}

TEST_F(PracticeLists, EveryCharacterOfANameIsKept) {
    frmlocs form(PracticeList::Locations);
    const QString name = QStringLiteral("O'Brien; a|b *\"x\" %_[ä]");
    form.txtlocation->setText(name);
    form.cmdadd->click();
    EXPECT_EQ(database.text(QStringLiteral("Select Location from Locations")), name);
    EXPECT_EQ(namesOf(form), QStringList{name});
    form.List1->SelectRow(0);
    EXPECT_EQ(form.txtlocation->text(), name);
}

TEST_F(PracticeLists, ALocationInUseCanBeDeletedAndItsAppointmentsKeepTheText) {
    run(QStringLiteral("Insert Into Locations (Location) Values ('Main Office')"));
    run(QStringLiteral("Insert Into appointments (cappttext, clocation) Values ('Jones', 'Main Office')"));
    frmlocs form(PracticeList::Locations);
    form.List1->SelectRow(0);
    form.cmddelete->click();
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from Locations")), 0);
    EXPECT_EQ(database.text(QStringLiteral("Select clocation from appointments")), QStringLiteral("Main Office"));
}

TEST_F(PracticeLists, DeletingAnEntryThatAnotherUserDeletedTakesItOffTheList) {
    run(QStringLiteral("Insert Into Rooms (Room) Values ('Green')"));
    frmlocs form(PracticeList::Rooms);
    form.List1->SelectRow(0);
    run(QStringLiteral("Delete from Rooms"));
    form.cmddelete->click();
    EXPECT_TRUE(namesOf(form).isEmpty());
}

TEST_F(PracticeLists, ANameThatWasTypedIsNotThrownAwayUnasked) {
    run(QStringLiteral("Insert Into Rooms (Room) Values ('Blue')"));
    frmlocs form(PracticeList::Rooms);
    form.show();
    form.List1->SelectRow(0);
    type(form, QStringLiteral("Green"));
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Edit Rooms"),
                   Answer::No);
    QTest::keyClick(form.txtlocation, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Edit Rooms"),
                   Answer::No);
    form.close();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.txtlocation->text(), QStringLiteral("Green"));
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Edit Rooms"),
                   Answer::Yes);
    QTest::keyClick(form.txtlocation, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(PracticeLists, AnEntryThatWasOnlySelectedOrAddedAsksNothing) {
    run(QStringLiteral("Insert Into Rooms (Room) Values ('Blue')"));
    frmlocs form(PracticeList::Rooms);
    form.show();
    type(form, QStringLiteral("Green"));
    form.cmdadd->click();
    form.List1->SelectRow(0);
    QTest::keyClick(form.txtlocation, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}
