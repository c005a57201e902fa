#include "tests/desks/deskfront.h"

using db::Sql;

namespace {

/// A visit is moved to another day: by the form and by the holding shelf, by keyboard alone and by mouse alone. A step
/// is a chord, a word typed, a click or a drag.
class MovedVisits : public FrontDesk {
  protected:
    MovedVisits() {
        anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(soon([this] { return desk->tell("items").startsWith(anna + QLatin1Char(' ')); }));
    }

    QString when(const QString& key) {
        return value(Sql("Select dapptdate from appointments Where nkeyid = {}", db::Raw{key})).left(10) +
               QLatin1Char(' ') + times(key);
    }
    bool comesTo(const char* place) {
        return soon([&] { return when(anna) == QLatin1String(place); });
    }
    QString placeOf(const char* widget) { return desk->tell("widgetPlace", QLatin1String(widget)); }
    QString entry(const char* name) { return desk->tell("entryPlace", QLatin1String(name)); }
    /// Presses F6 until this widget has the focus.
    bool goToPane(const char* widget) {
        return soon([&] {
            if (desk->tell("focus") == QLatin1String(widget))
                return true;
            person->press({QStringLiteral("F6")});
            return false;
        });
    }
    qint64 shelved() { return number(QStringLiteral("Select Count(*) from HoldingShelf")); }

    QString anna;
};

}  // namespace

TEST_F(MovedVisits, ByTheFormWithTheKeyboardInFiveSteps) {
    person->press({QStringLiteral("Tab")});           // 1: the visit
    person->press({QStringLiteral("ctrl+shift+m")});  // 2
    person->turnTo("frmmove");
    person->type(QStringLiteral("+2"));  // 3: the date
    person->press({QStringLiteral("Tab")});
    person->type(QStringLiteral("1430"));  // 4: the time
    person->picture("move");
    person->press({QStringLiteral("Return")});  // 5
    person->turnTo("mdisched");
    person->picture("moved");
    const QString there = QDate::currentDate().addDays(2).toString(Qt::ISODate) + QStringLiteral(" 870-930");
    EXPECT_TRUE(soon([&] { return when(anna) == there; })) << when(anna).toStdString();
}

TEST_F(MovedVisits, ByTheFormWithTheMouseAlone) {
    person->click(itemOf(anna), 3);  // 1: the popup
    person->turnTo("popup");
    person->click(entry("mnuAMove"));  // 2
    person->turnTo("frmmove");
    desk->tell("replace", QStringLiteral("ctdate"), QStringLiteral("3/13/2026"));  // 3: in the calendar that drops
    person->click(placeOf("cmdOk"));                                               // 4
    person->turnTo("mdisched");
    EXPECT_TRUE(comesTo("2026-03-13 540-600")) << when(anna).toStdString();

    // Show, and Put back.
    person->click(placeOf("cmdNotice"));
    EXPECT_TRUE(soon([this] { return desk->tell("items").startsWith(anna + QLatin1Char(' ')); }));
}

TEST_F(MovedVisits, ByTheShelfWithTheKeyboardInFiveSteps) {
    person->press({QStringLiteral("Tab")});     // 1: the visit
    person->press({QStringLiteral("ctrl+x")});  // 2
    EXPECT_TRUE(soon([this] { return shelved() == 1; }));
    EXPECT_EQ(when(anna), QStringLiteral("2026-03-11 540-600")) << "It stays booked.";
    person->picture("shelf");
    EXPECT_TRUE(goToPane("lstshelf"));
    person->press({QStringLiteral("Escape")});
    EXPECT_TRUE(soon([this] { return desk->tell("focus") == QLatin1String("ctMDay1"); }));
    person->press({QStringLiteral("alt+Right")});  // 3: the next day
    EXPECT_TRUE(soon([this] { return desk->tell("items").isEmpty(); }));
    person->press({QStringLiteral("Down")});    // 4: a time
    person->press({QStringLiteral("ctrl+v")});  // 5
    EXPECT_TRUE(soon([this] { return when(anna).startsWith(QStringLiteral("2026-03-12 ")); }));
    EXPECT_TRUE(soon([this] { return shelved() == 0; }));
    person->picture("landed");

    // By F6 to the bar, and back it goes.
    EXPECT_TRUE(goToPane("cmdNotice"));
    person->press({QStringLiteral("Tab"), QStringLiteral("Return")});
    EXPECT_TRUE(comesTo("2026-03-11 540-600")) << when(anna).toStdString();
}

TEST_F(MovedVisits, ByTheShelfWithTheMouseInFourSteps) {
    person->click(itemOf(anna), 3);  // 1: the popup
    person->turnTo("popup");
    person->click(entry("mnuAShelve"));  // 2
    EXPECT_TRUE(soon([this] { return shelved() == 1; }));
    person->turnTo("mdisched");
    person->click(placeOf("btnNav1"));  // 3: the next day
    EXPECT_TRUE(soon([this] { return desk->tell("items").isEmpty(); }));
    person->drag(placeOf("lstshelf"), at(660));  // 4: the first row stands at the list's head
    EXPECT_EQ(shelved(), 1) << "The middle of the list is empty.";
    const QStringList middle = placeOf("lstshelf").split(QLatin1Char(' '));
    const QStringList head = placeOf("lblshelf").split(QLatin1Char(' '));
    person->drag(QStringLiteral("%1 %2").arg(middle[0]).arg(head[1].toInt() + 50), at(660));
    EXPECT_TRUE(soon([this] { return when(anna).startsWith(QStringLiteral("2026-03-12 ")); }))
        << when(anna).toStdString();
    EXPECT_TRUE(soon([this] { return shelved() == 0; }));

    // A visit is dragged onto a shelf that is shown.
    person->press({QStringLiteral("ctrl+shift+h")});
    EXPECT_TRUE(soon([this] { return desk->tell("shows", QStringLiteral("pnlshelf")) == QLatin1String("yes"); }));
    person->drag(itemOf(anna), placeOf("pnlshelf"));
    EXPECT_TRUE(soon([this] { return shelved() == 1; }));
    EXPECT_TRUE(when(anna).startsWith(QStringLiteral("2026-03-12 ")));
}

namespace {

class ShelvesOfTwoDesks : public DeskFixture {};

}  // namespace

TEST_F(ShelvesOfTwoDesks, WhatTheOtherDeskMovedIsNotLandedOverItAndKillingTheProgramLosesNothing) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    auto one = openDesk();
    const auto other = openDesk();
    one->tell("select", key);
    one->tell("trigger", QStringLiteral("mnuAShelve"));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from HoldingShelf")), 1);
    one->kill();
    one = openDesk();
    EXPECT_EQ(one->tell("shows", QStringLiteral("lstshelf")), QStringLiteral("yes"));

    other->tell("drag", key, QStringLiteral("660"));
    const QString moved = times(key);
    ASSERT_NE(moved, QStringLiteral("540-590"));
    one->tell("range", QStringLiteral("840"), QStringLiteral("855"));
    one->tell("trigger", QStringLiteral("mnuALand"));
    EXPECT_EQ(
        one->answer("OK"),
        QStringLiteral(
            "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read."));
    one->await("mdisched");
    EXPECT_EQ(times(key), moved);

    // Now it knows.
    one->tell("range", QStringLiteral("840"), QStringLiteral("855"));
    one->tell("trigger", QStringLiteral("mnuALand"));
    one->await("mdisched");
    EXPECT_EQ(times(key), QStringLiteral("840-890"));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from HoldingShelf")), 0);
}
