#include <QAction>
#include <QApplication>
#include <QPushButton>

#include "data/codes.h"
#include "session/preferences.h"
#include "tests/views/allfixture.h"

// The panel and the columns.

TEST_F(AllProviders, EveryProviderIsAColumnByName) {
    open();
    EXPECT_EQ(columns(), "Baker Lane Reed");
    EXPECT_EQ(box("cbodisc").itemText(0), "Show All");
    EXPECT_EQ(box("cbodisc").count(), 3) << "Each discipline once.";
    EXPECT_TRUE(all().providerchecked("LANE"));
    EXPECT_FALSE(all().providerchecked("NOBODY"));
    EXPECT_TRUE(command("mnuVAll").isChecked());
}

TEST_F(AllProviders, WhoIsArchivedOrExcludedHasNoColumnButTheUserHas) {
    addProvider("GONE", "Gone", "");
    run("Update provider_info Set archive = 1 Where id = 'GONE'");
    run("Update provider_info Set ExcludeFromScheduler = 1 Where id in ('BAKER', 'REED')");
    open();
    EXPECT_EQ(columns(), "Lane Reed");
}

TEST_F(AllProviders, ADisciplineLeavesItsProviders) {
    open();
    filter("Psychology");
    EXPECT_EQ(columns(), "Lane Reed");
    EXPECT_FALSE(all().providerchecked("BAKER"));
    filter("Show All");
    EXPECT_EQ(columns(), "Baker Lane Reed");
}

TEST_F(AllProviders, AFilterThatNobodyFitsLeavesNoColumnsAndNoItems) {
    add(anAppointment("Anna"));
    open();
    box("cbodisc").addItem("Surgery");
    filter("Surgery");
    EXPECT_EQ(box("cboprovs").count(), 0);
    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_FALSE(view_->findChild<QPushButton*>("cmdgo")->isEnabled());
    EXPECT_EQ(view_->Provider().id, "REED");
    filter("Show All");
    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
}

TEST_F(AllProviders, AProviderTakenOffThePanelLosesTheColumnAndTheItems) {
    add(anAppointment("Of Lane").of("LANE"));
    add(anAppointment("Of Reed").of("REED"));
    open();
    turn("Lane");
    EXPECT_EQ(columns(), "Baker Reed");
    EXPECT_EQ(itemTexts(), QStringList{"Of Reed"});
    EXPECT_EQ(columnOf("Of Reed"), 2);
    all().Reload();
    EXPECT_EQ(columns(), "Baker Reed") << "A reload keeps the choice.";
}

TEST_F(AllProviders, TheLastProviderCannotBeTakenOff) {
    open();
    turn("Baker");
    turn("Lane");
    turn("Reed");
    EXPECT_EQ(columns(), "Reed");
    EXPECT_TRUE(all().providerchecked("REED"));
}

TEST_F(AllProviders, TheColumnsToDisplayAreKeptWithinFiveAndTen) {
    open();
    for (const auto& [stored, shown] :
         {std::pair("4", 5), std::pair("5", 5), std::pair("10", 10), std::pair("11", 5), std::pair("many", 5)}) {
        SetPreference(QString::fromLatin1(stored), "AllCols", "Scheduler");
        all().ApplyPreferences();
        EXPECT_EQ(calendar().VisibleColumns(), shown) << stored;
    }
}

TEST_F(AllProviders, ThePanelIsHiddenAndShownByItsCommand) {
    open();
    command("mnuVDisplay").trigger();
    EXPECT_FALSE(panel().isVisible());
    command("mnuVDisplay").trigger();
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(AllProviders, OnASmallScreenThePanelWaitsForItsCommand) {
    view_ = makeView();
    view_->resize(400, 300);
    view_->show();
    QApplication::processEvents();
    EXPECT_FALSE(panel().isVisible());
    EXPECT_FALSE(command("mnuVDisplay").isChecked());
    command("mnuVDisplay").trigger();
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(AllProviders, TabGoesThroughThePanelFromTopToBottom) {
    open();
    view_->activateWindow();
    box("cbodisc").setFocus();
    QStringList reached;
    for (int step = 0; step < 3; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached << QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(reached, (QStringList{"ctList1", "cboprovs", "cmdgo"}));
}

TEST_F(AllProviders, AnotherUsersNameForAPatientStandsInTheCommand) {
    Session().WordUsage = "Client";
    open();
    EXPECT_EQ(command("mnuPatient").text(), "&Schedule Client");
}

TEST_F(AllProviders, ThreeHundredProvidersHaveAColumnEach) {
    for (int i = 0; i < 297; ++i)
        run(QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values('P%1', 'Xu%1', 0)").arg(i));
    add(anAppointment("Of the last").of("P99"));
    open();
    EXPECT_EQ(calendar().ColumnCount(), 300);
    EXPECT_EQ(calendar().ColumnTitle(columnOf("Of the last")), "Xu99");
}

// The day.

TEST_F(AllProviders, EachRowStandsInTheColumnOfItsProvider) {
    add(anAppointment("Of Lane").of("lane"));
    add(anAppointment("Of Reed").of("REED"));
    add(anAppointment("Of one who is gone").of("GONE"));
    add(anAppointment("Tomorrow").on(QDate(2026, 3, 12)));
    open();
    QStringList texts = itemTexts();
    texts.sort();
    EXPECT_EQ(texts, (QStringList{"Of Lane", "Of Reed"}));
    EXPECT_EQ(columnOf("Of Lane"), 2);
    EXPECT_EQ(columnOf("Of Reed"), 3);
    EXPECT_TRUE(main.dateText.contains("2026"));
}

TEST_F(AllProviders, AllDayRowsAndActivitiesOfSeveralAreNotShown) {
    add(anAppointment("Vacation").with("allday", "-1"));
    const qint64 key = add(anAppointment("Meeting").of("~EVT").status(ncolor::Activity));
    run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, 'REED')").arg(key));
    open();
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(AllProviders, AnEarlyRowWidensTheGridOfAllAndALateOneDoesNot) {
    add(anAppointment("Early").of("LANE").at(7, 0).until(8, 0));
    add(anAppointment("Late").of("LANE").at(19, 0).until(20, 0));
    open();
    EXPECT_EQ(calendar().FirstTime(), 420);
    EXPECT_EQ(calendar().LastTime(), 1079);
}

TEST_F(AllProviders, HiddenNamesCannotBeRead) {
    add(anAppointment("Anna").status(ncolor::Pending));
    Session().HidePatientNames = true;
    open();
    EXPECT_EQ(item("Anna").ItemTextColor, TextColor::SameAsBackground);
}

TEST_F(AllProviders, AHolidayStandsInEveryColumn) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders', '2026/03/11', 0)");
    open();
    ASSERT_EQ(itemTexts(), (QStringList{"Founders", "Founders", "Founders"}));
    for (int index = 1; index <= 3; ++index) {
        EXPECT_EQ(calendar().ColumnOfItem(index), index);
        EXPECT_EQ(std::as_const(calendar()).Item(index).ItemKey, "0");
        EXPECT_TRUE(std::as_const(calendar()).Item(index).ItemBanner);
    }
    EXPECT_TRUE(calendar().HolidayFlag());
    EXPECT_EQ(calendar().DayBackColor(), ncolor::Holiday);
}

TEST_F(AllProviders, AReloadLeavesTheBookingWithTheProviderWhoseBannerIsSelected) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders', '2026/03/11', 0)");
    open();
    calendar().setSelectedItem(3);
    EXPECT_EQ(view_->Provider().id, "REED");
    all().Reload();
    EXPECT_EQ(view_->Provider().id, "REED");
}

TEST_F(AllProviders, AWeekdayWithOneRowOfHoursIsNotShaded) {
    hours("LANE", "600", "720");
    open();
    EXPECT_EQ(shaded(), QStringList());
}

TEST_F(AllProviders, EachColumnIsShadedAroundItsProvidersHours) {
    hours("LANE", "600", "720");
    hours("REED", "null", "null");
    open();
    EXPECT_EQ(shaded(), (QStringList{"2: 480-599", "2: 721-1079", "3: 480-1079"}));
}

TEST_F(AllProviders, AnApostropheInAProvidersIdFindsTheHours) {
    run("Insert Into provider_info (id, prov_lastname, archive) Values('O''BRIEN', 'O''Brien', 0)");
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('O''BRIEN', 4, 600, 1100)");
    hours("LANE", "480", "1100");
    open();
    EXPECT_EQ(shaded(), QStringList{"3: 480-599"});
}

TEST_F(AllProviders, AReloadKeepsThePlaceAndTheSelectedItem) {
    add(anAppointment("Anna").of("LANE").at(15, 0).until(16, 0));
    openByHand();
    calendar().setTopTime(600);
    const int top = calendar().TopTime();
    select("Anna");
    all().Reload();
    EXPECT_EQ(calendar().TopTime(), top);
    ASSERT_TRUE(view_->SelectedItem());
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Anna");
    EXPECT_EQ(box("cboprovs").currentText(), "Lane");
}

TEST_F(AllProviders, AppointmentsThatCannotBeReadAreTold) {
    const QString why = DropTable(database_.connection(), "appointmentsevents");
    desk.expectBox(QStringLiteral("Error loading schedule. ") + why, "Error");
    open();
    EXPECT_EQ(columns(), "Baker Lane Reed");
}

TEST_F(AllProviders, ADayOfAThousandRowsIsShownWhole) {
    for (int i = 0; i < 1000; ++i)
        add(anAppointment("Many").of(i % 2 == 0 ? "LANE" : "REED").at(8 + i % 9, 0).until(9 + i % 9, 0));
    open();
    EXPECT_EQ(calendar().ItemCount(), 1000);
}

TEST_F(AllProviders, WhoWasTakenOffThePanelStillWidensTheGridAndSoDoesAnAllDayRow) {
    add(anAppointment("Early").of("LANE").at(7, 0).until(8, 0));
    add(anAppointment("Vacation").with("allday", "-1").at(6, 0).until(7, 0));
    open();
    turn("Lane");
    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_EQ(calendar().FirstTime(), 360);
}

TEST_F(AllProviders, ACourtesyCallShowsOnAppointmentsThatAreStillAwaited) {
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory, CallDescription) Values('CP', 'C', 1, 'Confirmed')");
    for (const auto& [text, code] : {std::pair("Blank", ncolor::Blank), std::pair("Pending", ncolor::Pending),
                                     std::pair("Tentative", ncolor::Tentative), std::pair("Kept", ncolor::Kept),
                                     std::pair("Checked in", ncolor::CheckedIn)})
        add(anAppointment(text).status(code).with("CourtesyCallStatus", "'C'"));
    open();
    for (const char* awaited : {"Blank", "Pending", "Tentative"})
        EXPECT_EQ(item(awaited).ItemStatusIcon, 7) << awaited;
    EXPECT_EQ(item("Kept").ItemStatusIcon, 0);
    EXPECT_EQ(item("Checked in").ItemStatusIcon, 3);
}

TEST_F(AllProviders, ATypeSlotHasItsOwnColours) {
    add(anAppointment("Intake").status(0x123456).with("appttype", "4"));
    add(anAppointment("Odd").status(0x123456));
    open();
    EXPECT_EQ(item("Intake").ItemColor, 0x80FFFF);
    EXPECT_EQ(item("Intake").ItemBackColor, 0x123456);
    EXPECT_EQ(item("Odd").ItemColor, 0x123456);
    EXPECT_EQ(item("Odd").ItemBackColor, 0x123456);
}

TEST_F(AllProviders, HolidaysThatCannotBeReadAreTold) {
    add(anAppointment("Anna"));
    const QString why = DropTable(database_.connection(), "Holidays");
    desk.expectBox(QStringLiteral("Error loading schedule. ") + why, "Error");
    open();
    EXPECT_EQ(itemTexts(), QStringList{"Anna"}) << "The view stays as far as it was filled.";
}

TEST_F(AllProviders, AProviderArchivedMeanwhileKeepsTheColumnUntilTheViewIsOpenedAnew) {
    add(anAppointment("Of Lane").of("LANE"));
    open();
    otherDesk("Update provider_info Set archive = 1 Where id = 'LANE'");
    all().Reload();
    EXPECT_EQ(columns(), "Baker Lane Reed");
    EXPECT_EQ(columnOf("Of Lane"), 2);
    open();
    EXPECT_EQ(columns(), "Baker Reed");
    EXPECT_EQ(itemTexts(), QStringList());
}

TEST_F(AllProviders, AReloadKeepsTheColumnsThatWereScrolledTo) {
    addMany();
    openByHand();
    calendar().ScrollToColumn(15);
    const QRect heading = calendar().HeadingRect(15);
    ASSERT_FALSE(heading.isEmpty());
    all().Reload();
    EXPECT_EQ(calendar().HeadingRect(15), heading);
}
