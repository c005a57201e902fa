#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/ctnedit.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

class DayCommands : public DayFixture {
  protected:
    DayCommands() { Session().AllProviders = true; }
    template <class Widget>
    static Widget& in(QDialog& form, const char* name) {
        auto* widget = form.findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
};

TEST_F(DayCommands, EachListOpensFromItsCommand) {
    open();
    const std::pair<const char*, const char*> lists[] = {{"mnuFLoc", "frmlocs"},          {"mnuFRoomList", "frmlocs"},
                                                         {"mnuFActList", "frmlocs"},      {"mnuFAtypes", "frmapttypes"},
                                                         {"mnuFHolidays", "frmholidays"}, {"mnuVColor", "frmcleg"},
                                                         {"mnuVABook", "frmabook"}};
    for (const auto& [name, form] : lists) {
        QString title;
        desk.expectForm(form, [&title](QDialog& dialog) { title = dialog.windowTitle(); });
        command(name).trigger();
        EXPECT_FALSE(title.isEmpty()) << name;
    }
}

TEST_F(DayCommands, AHolidayJustAddedShowsAtOnce) {
    open();
    desk.expectForm("frmholidays", [this](QDialog&) {
        run(QStringLiteral("Insert Into Holidays (Holiday, HolidayDate) Values ('Founders'' Day', '2026/03/11')"));
    });
    command("mnuFHolidays").trigger();
    EXPECT_TRUE(itemTexts().contains(QStringLiteral("Founders' Day")));
}

TEST_F(DayCommands, FindGoesToTheAppointmentAndSelectsIt) {
    add(anAppointment("Jones, Mary").at(15, 0).until(15, 50).on(QDate(2026, 4, 2)));
    open();
    desk.expectForm("frmfinda", [this](QDialog& form) {
        in<QLineEdit>(form, "txtfind").setText(QStringLiteral("Jones"));
        in<QPushButton>(form, "cmdfind").click();
        in<QPushButton>(form, "cmdgoto").click();
    });
    command("mnuAFind").trigger();
    EXPECT_EQ(main.Date(), QDate(2026, 4, 2));
    EXPECT_EQ(item("Jones, Mary").ItemStart, 900);
    EXPECT_GT(calendar().SelectedItem(), 0);
}

TEST_F(DayCommands, FindThatIsClosedStaysOnTheDay) {
    open();
    desk.expectForm("frmfinda", [](QDialog& form) { form.reject(); });
    command("mnuAFind").trigger();
    EXPECT_EQ(main.Date(), QDate(2026, 3, 11));
}

TEST_F(DayCommands, TheSearchForAnOpeningBringsTheChosenProvidersDay) {
    run(QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)"));
    open();
    desk.expectForm("frmsavail", [this](QDialog& form) {
        in<ctDEdit>(form, "ctdate").setDate(QDate(2026, 4, 2));
        in<ctDEdit>(form, "ctstart").setTime(600);
        in<ctDEdit>(form, "ctend").setTime(660);
        in<QPushButton>(form, "cmdsearch").click();
        in<ctList>(form, "List1").SelectRow(0);
        in<QPushButton>(form, "cmdgoto").click();
    });
    command("mnuASearchO").trigger();
    EXPECT_EQ(Session().ProviderId, QStringLiteral("LANE"));
    EXPECT_EQ(main.Date(), QDate(2026, 4, 2));
    EXPECT_EQ(main.asked.last(), QStringLiteral("provider chosen"));
}

TEST_F(DayCommands, TheSearchForAnOpeningThatIsClosedLeadsToToday) {
    desk.setNow(QDateTime(QDate(2026, 3, 20), QTime(9, 0)));
    open();
    desk.expectForm("frmsavail", [](QDialog& form) { form.reject(); });
    command("mnuASearchO").trigger();
    EXPECT_EQ(main.Date(), QDate(2026, 3, 20));
}

TEST_F(DayCommands, TheSearchByTypeGoesToTheFirstFreeStretch) {
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(9, 0)));
    run(QStringLiteral("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Intake', 4660)"));
    run(QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)"));
    add(anAppointment("Intake").on(QDate(2026, 4, 2)).status(4660).with("appttype", QStringLiteral("4")));
    open();
    desk.expectForm("frmfirstatype", [this](QDialog& form) {
        in<QComboBox>(form, "cboatypes").setCurrentIndex(0);
        in<QLineEdit>(form, "txtlength").setText(QStringLiteral("30"));
        in<QPushButton>(form, "cmdsearch").click();
        in<QPushButton>(form, "cmdgoto").click();
    });
    command("mnuASearchT").trigger();
    EXPECT_EQ(main.Date(), QDate(2026, 4, 2));
    EXPECT_EQ(itemTexts(), QStringList{QStringLiteral("Intake")});
}

TEST_F(DayCommands, ASeriesOfTheSelectedAppointmentShowsAtOnce) {
    add(anAppointment("Jones, Mary").at(9, 0).until(9, 50));
    open();
    select("Jones, Mary");
    desk.expectForm("frmRecurAppt", [this](QDialog& form) {
        in<ctNEdit>(form, "txtRecrMaxEvents").setValue(3);
        in<QPushButton>(form, "cmdRecur0").click();
    });
    command("mnuARepeat").trigger();
    EXPECT_EQ(database_.number(QStringLiteral("Select Count(*) from appointments")), 3);
}

TEST_F(DayCommands, RepeatingNeedsASelectedAppointment) {
    open();
    desk.expectBox(
        QStringLiteral(
            "No appointment selected. First add or select an appointment and then perform Repeating function."),
        QStringLiteral("Warning"));
    command("mnuARepeat").trigger();
}
