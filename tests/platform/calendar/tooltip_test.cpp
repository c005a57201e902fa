// What a tool tip and a screen reader say of an item, fact by fact.

#include <gtest/gtest.h>

#include <functional>

#include "tests/platform/calendar/calendarunderhand.h"

namespace {

class ItemInWords : public testing::Test {
  protected:
    ItemInWords() { index = hand.add(540, 600, QStringLiteral("Anna <O'Brien>")); }

    CalendarItem& item() { return hand.calendar.Item(index); }
    [[nodiscard]] QString tip() const { return hand.calendar.ToolTipOf(index); }
    [[nodiscard]] QString name() const { return hand.calendar.AccessibleItemName(index); }

    CalendarUnderHand hand;
    int index = 0;
    const QString title = QStringLiteral("<b>Anna &lt;O'Brien&gt;</b>");
    const QString time = QStringLiteral("<br>9:00 – 10:00 AM");
};

}  // namespace

TEST_F(ItemInWords, TheTipTellsEachFactAloneAndOnlyIt) {
    const struct {
        const char* fact;
        std::function<void(CalendarItem&)> set;
        QString line;
    } facts[] = {
        {"nothing", [](CalendarItem&) {}, {}},
        {"a status", [](CalendarItem& i) { i.ItemStatusText = "Kept & paid"; }, "<br>Kept &amp; paid"},
        {"a call", [](CalendarItem& i) { i.ItemStatusIcon = 7; }, "<br>Confirmed"},
        {"no call", [](CalendarItem& i) { i.ItemStatusIcon = -1; }, {}},
        {"tentative", [](CalendarItem& i) { i.ItemTentativeIcon = true; }, "<br>Tentative"},
        {"a session note", [](CalendarItem& i) { i.ItemSessionIcon = 1; }, "<br>Session note"},
        {"a second one", [](CalendarItem& i) { i.ItemSessionIcon = 2; }, "<br>Session note"},
        {"no session note", [](CalendarItem& i) { i.ItemSessionIcon = -1; }, {}},
        {"a series", [](CalendarItem& i) { i.ItemSeriesIcon = 1; }, "<br>Repeating"},
        {"no series", [](CalendarItem& i) { i.ItemSeriesIcon = -1; }, {}},
        {"a reminder", [](CalendarItem& i) { i.ItemReminderIcon = true; }, "<br>Reminder"},
        {"a place", [](CalendarItem& i) { i.ItemLocation = "Main <Street>"; }, "<br>Main &lt;Street&gt;"},
        {"a note", [](CalendarItem& i) { i.ItemTip = "Bring\nthe <form>"; }, "<br>Bring<br>the &lt;form&gt;"},
        {"the view's own note", [](CalendarItem& i) { i.ItemNote = "for the view"; }, {}},
    };
    const CalendarItem plain = item();
    for (const auto& fact : facts) {
        item() = plain;
        fact.set(item());
        EXPECT_EQ(tip(), title + time + fact.line) << fact.fact;
    }
}

TEST_F(ItemInWords, TheTipTellsAllFactsInOneOrderAndNoneTwice) {
    item().ItemStatusText = QStringLiteral("Kept");
    item().ItemStatusIcon = 2;
    item().ItemTentativeIcon = item().ItemReminderIcon = true;
    item().ItemSessionIcon = item().ItemSeriesIcon = 1;
    item().ItemLocation = QStringLiteral("Main Street");
    item().ItemTip = QStringLiteral("Bring the form");
    const QString rest = QStringLiteral("<br>Main Street<br>Bring the form");
    EXPECT_EQ(tip(), title + time +
                         QStringLiteral("<br>Kept · Charged · Tentative · Session note · Repeating · Reminder") + rest);
    item().ItemStatusText = QStringLiteral("Charged");
    EXPECT_EQ(tip(),
              title + time + QStringLiteral("<br>Charged · Tentative · Session note · Repeating · Reminder") + rest);
    item().ItemStatusText = QStringLiteral("Tentative");
    EXPECT_EQ(tip(),
              title + time + QStringLiteral("<br>Tentative · Charged · Session note · Repeating · Reminder") + rest);
}

TEST_F(ItemInWords, TheTipLeavesOutWhatIsNotThereOrHidden) {
    item().ItemText.clear();
    EXPECT_EQ(tip(), time.mid(4));
    item().ItemText = QStringLiteral("Holiday");
    item().ItemBanner = true;
    EXPECT_EQ(tip(), QStringLiteral("<b>Holiday</b>")) << "a banner lasts the day";
    item().ItemBanner = false;
    hand.calendar.setTwentyFourHour(true);
    EXPECT_EQ(tip(), QStringLiteral("<b>Holiday</b><br>09:00 – 10:00"));
    item().ItemTip = QStringLiteral("private");
    item().ItemLocation = QStringLiteral("Main Street");
    item().ItemTextColor = TextColor::SameAsBackground;
    EXPECT_EQ(tip(), QStringLiteral("09:00 – 10:00<br>Main Street"));
    for (const int wrong : {-1, 0, 2}) {
        EXPECT_EQ(hand.calendar.ToolTipOf(wrong), QString()) << wrong;
        EXPECT_EQ(hand.calendar.AccessibleItemName(wrong), QString()) << wrong;
    }
}

TEST_F(ItemInWords, TheTipOfEndlessTextsEnds) {
    item().ItemText = item().ItemLocation = item().ItemTip = QString(5000, QLatin1Char('x'));
    const auto letters = [](int count) { return QString(count, QLatin1Char('x')); };
    EXPECT_EQ(tip(), QStringLiteral("<b>%1</b>").arg(letters(300)) + time + QStringLiteral("<br>") + letters(300) +
                         QStringLiteral("<br>") + letters(1000));
    EXPECT_EQ(name(), QStringLiteral("9:00 AM to 10:00 AM, ") + letters(300));
}

TEST_F(ItemInWords, TheNameTellsTimesTextAndStatus) {
    EXPECT_EQ(name(), QStringLiteral("9:00 AM to 10:00 AM, Anna <O'Brien>"));
    item().ItemStatusText = QStringLiteral("Kept");
    EXPECT_EQ(name(), QStringLiteral("9:00 AM to 10:00 AM, Anna <O'Brien>, Kept"));
    hand.calendar.setTwentyFourHour(true);
    item().ItemText = QStringLiteral("Anna\n  O'Brien ");
    EXPECT_EQ(name(), QStringLiteral("09:00 to 10:00, Anna O'Brien, Kept"));
    item().ItemText.clear();
    EXPECT_EQ(name(), QStringLiteral("09:00 to 10:00, Kept"));
    item().ItemText = QStringLiteral("Anna");
    item().ItemTextColor = TextColor::SameAsBackground;
    item().ItemBanner = true;
    EXPECT_EQ(name(), QStringLiteral("Kept"));
}

TEST_F(ItemInWords, TheSelectedRangeIsToldInTheClockOfTheDesk) {
    EXPECT_EQ(hand.calendar.SelectionText(), QString());
    hand.calendar.selectRange(1, 540, 810);
    EXPECT_EQ(hand.calendar.SelectionText(), QStringLiteral("9:00 AM to 1:30 PM, Wednesday, March 11, 2026"));
    hand.calendar.setTwentyFourHour(true);
    EXPECT_EQ(hand.calendar.SelectionText(), QStringLiteral("09:00 to 13:30, Wednesday, March 11, 2026"));
}
