#include "shell/dayboard.h"

#include "platform/database/recordset.h"
#include "session/hiddennames.h"
#include "tests/shell/practicefixture.h"

namespace {

constexpr int Patient = 0xFF0001;
constexpr int Event = 0xFFFF80;

CalendarItem anItem(const char* key, int start = 540, int color = Patient) {
    CalendarItem item;
    item.ItemKey = item.ItemText = QString::fromLatin1(key);
    item.ItemStart = start;
    item.ItemEnd = start + 50;
    item.ItemColor = color;
    return item;
}

CalendarItem inColumn(CalendarItem item, int column) {
    item.ItemColumn = column;
    return item;
}

CalendarItem on(CalendarItem item, QDate day) {
    item.ItemDay = day;
    return item;
}

/// A board on its own, whose rules are: an event is locked and names nobody.
class ABoard : public PracticeFixture {
  protected:
    ABoard() {
        Session().DayStartHour = 8;
        Session().DayEndHour = 18;
        view.resize(800, 300);
        view.show();
        calendar().setGeometry(view.rect());
        settle();
    }
    [[nodiscard]] QWidget& openView() override { return view; }

    std::vector<bool> namesOf(std::span<const CalendarItem> items) {
        asked.push_back(static_cast<int>(items.size()));
        std::vector<bool> named;
        for (const CalendarItem& item : items)
            named.push_back(item.ItemColor != Event);
        return named;
    }
    void load(QDate date, const QString& of, const std::vector<CalendarItem>& rows) {
        board.BeginLoad(date, of);
        for (const CalendarItem& row : rows) {
            board.WidenTo(row.ItemStart);
            board.AddRow(row);
        }
        board.EndLoad();
    }
    void load(const std::vector<CalendarItem>& rows) { load(day, {}, rows); }
    QStringList readable() {
        QStringList texts;
        for (int index = 1; index <= calendar().ItemCount(); ++index)
            if (std::as_const(calendar()).Item(index).ItemTextColor == TextColor::Normal)
                texts << std::as_const(calendar()).Item(index).ItemText;
        return texts;
    }
    QStringList shaded() {
        QStringList ranges;
        for (const TimeRange& range : calendar().TimeRanges())
            ranges << QStringLiteral("%1%2: %3-%4")
                          .arg(range.day.toString(Qt::ISODate))
                          .arg(range.column)
                          .arg(range.start)
                          .arg(range.end);
        return ranges;
    }
    db::Recordset hours(const char* start, const char* end) {
        run(QStringLiteral(
                "Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', 4, %1, %2)")
                .arg(QLatin1String(start), QLatin1String(end)));
        return {QStringLiteral("Select * from ProvSched"), Session().Connection};
    }

    const QDate day{2026, 3, 11};
    std::vector<int> asked;  ///< Of how many items at a time.
    QWidget view;
    DayBoard board{QStringLiteral("ctMDay1"),
                   {[](CalendarItem& item) { item.ItemTextLocked = item.ItemMoveLocked = item.ItemColor == Event; },
                    [this](std::span<const CalendarItem> items) { return namesOf(items); }},
                   &view};
};

}  // namespace

TEST_F(ABoard, HasThePreferredHoursAndScale) {
    Session().DayStartHour = 7;
    Session().DayEndHour = 20;
    Session().MilitaryTime = true;
    board.SetScale(10);
    load({});
    EXPECT_EQ(calendar().objectName(), "ctMDay1");
    EXPECT_EQ(calendar().Date(), day);
    EXPECT_EQ(calendar().FirstTime(), 420);
    EXPECT_EQ(calendar().PrimeStart(), 420);
    EXPECT_EQ(calendar().PrimeEnd(), 1200);
    EXPECT_EQ(calendar().LastTime(), 1199);
    EXPECT_EQ(calendar().TimeInterval(), 10);
    EXPECT_TRUE(calendar().TwentyFourHour());
}

TEST_F(ABoard, HasTheHoursOfTheSavedViewThatIsShown) {
    Session().SavedHours = ShownHours{6, 22};
    load({});
    EXPECT_EQ(calendar().FirstTime(), 360);
    EXPECT_EQ(calendar().PrimeStart(), 360);
    EXPECT_EQ(calendar().PrimeEnd(), 1320);
    EXPECT_EQ(calendar().LastTime(), 1319);
}

TEST_F(ABoard, AnEarlyRowWidensItUntilTheNextLoad) {
    load({anItem("1", 400), anItem("2", 500)});
    EXPECT_EQ(calendar().FirstTime(), 400);
    EXPECT_EQ(calendar().PrimeStart(), 480);
    load({anItem("2", 500)});
    EXPECT_EQ(calendar().FirstTime(), 480);
}

TEST_F(ABoard, ARowWithoutAStartDoesNotOpenTheNight) {
    load({anItem("1", -1)});
    EXPECT_EQ(calendar().FirstTime(), 480);
    EXPECT_EQ(calendar().ItemCount(), 1);
}

TEST_F(ABoard, ARowThatAJoinGivesTwiceIsOneItem) {
    board.BeginLoad(day);
    EXPECT_EQ(board.AddRow(anItem("1")), 1);
    EXPECT_EQ(board.AddRow(anItem("1")), 0);
    board.EndLoad();
    EXPECT_EQ(calendar().ItemCount(), 1);
    load({anItem("1")});
    EXPECT_EQ(calendar().ItemCount(), 1) << "A new load knows nothing of the last one.";
}

TEST_F(ABoard, ARowOfSeveralColumnsOrDaysIsAnItemInEach) {
    load({inColumn(anItem("1"), 1), inColumn(anItem("1"), 2), on(anItem("1"), day), on(anItem("1"), day.addDays(1))});
    EXPECT_EQ(calendar().ItemCount(), 4);
}

TEST_F(ABoard, TwoKindsOfRowMayHaveTheSameKey) {
    load({anItem("12"), anItem("12", 600, Event)});
    EXPECT_EQ(calendar().ItemCount(), 2);
}

TEST_F(ABoard, AReloadKeepsThePlaceAndTheSelection) {
    load(day, "REED", {anItem("1"), anItem("2", 900)});
    calendar().setTopTime(720);
    calendar().setSelectedItem(2);
    EXPECT_TRUE(board.Shows(day, "REED"));
    load(day, "REED", {anItem("2", 960), anItem("1")});
    EXPECT_EQ(calendar().TopTime(), 720);
    ASSERT_TRUE(board.SelectedItem());
    EXPECT_EQ(board.SelectedItem()->ItemKey, "2");
    EXPECT_EQ(board.SelectedItem()->ItemStart, 960);
}

TEST_F(ABoard, AnotherDayOrProviderStartsAtItsFirstMinute) {
    for (const auto& [date, of] : {std::pair(day.addDays(1), "REED"), std::pair(day, "LANE")}) {
        load(day, "REED", {anItem("1")});
        calendar().setTopTime(720);
        calendar().setSelectedItem(1);
        EXPECT_FALSE(board.Shows(date, of));
        load(date, of, {anItem("1")});
        EXPECT_EQ(calendar().TopTime(), 480) << of;
        EXPECT_FALSE(board.SelectedItem()) << of;
    }
}

TEST_F(ABoard, WhatIsGoneIsNotSelectedAnyMore) {
    load({anItem("1"), anItem("2")});
    calendar().setSelectedItem(2);
    load({anItem("1")});
    EXPECT_FALSE(board.SelectedItem());
}

TEST_F(ABoard, OfSeveralItemsOfOneKeyTheOneInTheSameColumnStaysSelected) {
    for (const char* title : {"Baker", "Lane", "Reed"})
        calendar().AddColumn(title);
    const std::vector<CalendarItem> meeting{inColumn(anItem("7", 540, Event), 1), inColumn(anItem("7", 540, Event), 2),
                                            inColumn(anItem("7", 600), 2), inColumn(anItem("7", 540, Event), 3)};
    load(meeting);
    for (const int index : {2, 3, 4}) {
        calendar().setSelectedItem(index);
        load(meeting);
        EXPECT_EQ(calendar().SelectedItem(), index);
    }
    load({inColumn(anItem("7", 540, Event), 1)});
    EXPECT_EQ(calendar().SelectedItem(), 1) << "It was moved to another column meanwhile.";
}

TEST_F(ABoard, AnItemThatNoColumnShowsIsNotSelected) {
    load({anItem("1")});
    calendar().setSelectedItem(1);
    load({on(anItem("1"), day.addDays(1))});
    EXPECT_FALSE(board.SelectedItem());
}

TEST_F(ABoard, ALoadLeavesNoHolidayBehind) {
    calendar().setHolidayFlag(true);
    calendar().setDayBackColor(0xC0C0);
    calendar().setDayHeaderColor(0xC0C0);
    load({});
    EXPECT_FALSE(calendar().HolidayFlag());
    EXPECT_EQ(calendar().DayBackColor(), SystemInfoColor);
    EXPECT_EQ(calendar().DayHeaderColor(), SystemInfoColor);
}

TEST_F(ABoard, HidesTheNamesOfPatientsAtOnceAndShowsThemAgain) {
    load({anItem("Anna"), anItem("Meeting", 600, Event)});
    EXPECT_EQ(readable(), (QStringList{"Anna", "Meeting"}));
    EXPECT_TRUE(asked.empty()) << "Nobody needs to know while all names are shown.";
    SetNamesHidden(true);
    EXPECT_EQ(readable(), QStringList{"Meeting"});
    SetNamesHidden(false);
    EXPECT_EQ(readable(), (QStringList{"Anna", "Meeting"}));
}

TEST_F(ABoard, AsksOnceWhomTheItemsOfALoadName) {
    SetNamesHidden(true);
    asked.clear();
    load({anItem("Anna"), anItem("Bert"), anItem("Meeting", 600, Event)});
    EXPECT_EQ(readable(), QStringList{"Meeting"});
    EXPECT_EQ(asked, std::vector<int>{3});
}

TEST_F(ABoard, ShowsNoNameWhileItIsBeingLoaded) {
    SetNamesHidden(true);
    board.BeginLoad(day);
    board.AddRow(anItem("Anna"));
    EXPECT_EQ(readable(), QStringList()) << "A box may come up now, with the grid behind it.";
    board.EndLoad();
}

TEST_F(ABoard, AnItemThatIsPutBackIsLockedAndHiddenAsBefore) {
    SetNamesHidden(true);
    load({anItem("Anna"), anItem("Meeting", 600, Event)});
    CalendarItem stored = anItem("Anna");
    calendar().Item(1).ItemStart = 700;
    board.Show(1, stored);
    EXPECT_EQ(std::as_const(calendar()).Item(1).ItemStart, 540);
    EXPECT_EQ(readable(), QStringList{"Meeting"});
    stored.ItemColor = Event;
    board.Show(1, stored);
    EXPECT_TRUE(std::as_const(calendar()).Item(1).ItemMoveLocked);
    EXPECT_EQ(readable(), (QStringList{"Anna", "Meeting"}));
    board.Show(0, stored);
    EXPECT_EQ(calendar().ItemCount(), 2);
}

TEST_F(ABoard, AsksForTheLocksAgainBeforeTheUserWorksOnAnItem) {
    load({anItem("Anna")});
    calendar().Item(1).ItemColor = Event;
    calendar().EditItem(1);
    EXPECT_FALSE(calendar().IsEditing());
    calendar().Item(1).ItemColor = Patient;
    calendar().EditItem(1);
    EXPECT_TRUE(calendar().IsEditing());
}

TEST_F(ABoard, StoresWhatIsBeingTypedBeforeItsItemGoes) {
    load({anItem("Anna")});
    QStringList stored;
    QObject::connect(&calendar(), &ctMDay::TextEdited, &view, [&](int index) {
        stored << std::as_const(calendar()).Item(index).ItemText;
        load({anItem("Bert")});  // As a view does that finds the row changed by another desk.
    });
    beginTyping("Anna", "Bert");
    load(day.addDays(1), {}, {anItem("Cora")});
    EXPECT_EQ(stored, QStringList{"Bert"});
    EXPECT_EQ(itemTexts(), QStringList{"Cora"});
    EXPECT_TRUE(board.Shows(day.addDays(1)));
}

TEST_F(ABoard, ShadesTheTimeOutsideTheWorkingHours) {
    load({});
    const db::Recordset row = hours("540", "1020");
    board.ShadeAround(row);
    board.ShadeAround(row, 2);
    board.ShadeAround(row, day);
    EXPECT_EQ(shaded(), (QStringList{"0: 480-539", "0: 1021-1079", "2: 480-539", "2: 1021-1079", "2026-03-110: 480-539",
                                     "2026-03-110: 1021-1079"}));
    EXPECT_EQ(calendar().TimeRanges().front().color, DayBoard::NonWorkingColor);
}

TEST_F(ABoard, HoursWithoutAStartShadeTheWholeDay) {
    load({});
    board.ShadeAround(hours("Null", "1020"));
    EXPECT_EQ(shaded(), QStringList{"0: 480-1079"});
}
