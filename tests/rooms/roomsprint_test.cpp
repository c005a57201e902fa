#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QPushButton>

#include "data/codes.h"
#include "platform/printing/printpreview.h"
#include "session/hiddennames.h"
#include "session/preferences.h"
#include "shell/frmpopts.h"
#include "tests/platform/printing/pagereader.h"
#include "tests/platform/printing/shownpaper.h"
#include "tests/rooms/roomsfixture.h"

namespace {

/// The day of the room Blue on paper.
class PrintedRoom : public RoomScheduler {
  protected:
    printing::Document print() {
        return PreviewOf(desk, [this] { trigger("mnuPrint"); });
    }
    static QStringList wordsOf(const printing::Document& document) {
        return WordsOf(printing::PageLayout(document), 0);
    }
    static void prefer(const char* key, const char* value) {
        SetPreference(QString::fromLatin1(value), QString::fromLatin1(key), QStringLiteral("PrintLayout"));
    }
};

}  // namespace

TEST_F(PrintedRoom, StandsUnderItsDateAndRoom) {
    book("Team meeting");
    open();
    const printing::Document day = print();
    EXPECT_EQ(ParagraphsOf(day), (QStringList{"Wednesday  March 11, 2026", "Room Schedule - Blue"}));
    EXPECT_TRUE(wordsOf(day).contains("Team meeting"));
    EXPECT_TRUE(wordsOf(day).contains("Wed 3/11"));
    EXPECT_EQ(day.footer, "|Printed 3/11/2026 10:30 AM|Page %d");
}

TEST_F(PrintedRoom, HasTheOtherDateWhereTheDayComesFirst) {
    open();
    Session().DateOrder = 1;
    EXPECT_EQ(ParagraphsOf(print()).value(0), "Wednesday, 11 March 2026");
}

TEST_F(PrintedRoom, WithoutABookingIsAnEmptyDay) {
    open();
    EXPECT_EQ(ParagraphsOf(print()).size(), 2);
    EXPECT_TRUE(wordsOf(print()).contains("9"));
}

TEST_F(PrintedRoom, TellsHowLongItIsBookedWhereTheOptionsSayIt) {
    book("Team meeting", 540, 600);
    book("Overlapping", 570, 660);
    book("Later", 900, 905);
    open();
    EXPECT_FALSE(print().footer.contains("Bookings"));
    prefer("TimeStats", "1");
    EXPECT_TRUE(print().footer.startsWith("Bookings: 3, 2:05 hours|")) << print().footer.toStdString();
}

TEST_F(PrintedRoom, HasTheFontsAndTheUnitsOfTheOptions) {
    open();
    prefer("TitleFont", "Georgia");
    prefer("TitleAlign", "2");
    prefer("TimeUnits", "1");
    const printing::Document day = print();
    EXPECT_EQ(std::get<printing::Paragraph>(day.blocks.at(0)).font.families().value(0), "Georgia");
    EXPECT_EQ(std::get<printing::Paragraph>(day.blocks.at(0)).alignment, Qt::AlignHCenter);
    EXPECT_TRUE(wordsOf(day).contains(":20"));
}

TEST_F(PrintedRoom, HidesTheNamesThatAreHiddenOnTheScreen) {
    const qint64 anna = add(anAppointment("Anna").status(ncolor::Pending));
    book("Anna", 540, 590, 1, static_cast<int>(anna));
    book("Team meeting", 660, 700);
    open();
    EXPECT_TRUE(wordsOf(print()).contains("Anna"));
    SetNamesHidden(true);
    const QStringList words = wordsOf(print());
    EXPECT_FALSE(words.contains("Anna"));
    EXPECT_TRUE(words.contains("Team meeting"));
    SetNamesHidden(false);
}

TEST_F(PrintedRoom, TheRoomSchedulerOpensThePrintOptions) {
    open();
    for (int time = 0; time < 2; ++time) {
        desk.expectForm("frmpopts", [](QDialog& form) {
            EXPECT_TRUE(dynamic_cast<frmpopts&>(form).ckweekends->isHidden());
            form.reject();
        });
        trigger("mnuPrntOpts");
    }
}
