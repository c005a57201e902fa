#include "tests/desks/deskfront.h"

namespace {

/// The schedule on paper, by mouse and keyboard.
class PrintingAtTheDesk : public FrontDesk {
  protected:
    PrintingAtTheDesk() {
        const QString anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(soon([&] { return desk->tell("items").contains(anna); }));
    }
    void click(const char* widget) { person->click(desk->tell("widgetPlace", QLatin1String(widget))); }
    /// Opens File > Print Options by its letters.
    void openOptions() {
        person->press({QStringLiteral("alt+f")});
        person->turnTo("popup");
        person->press({QStringLiteral("o")});
        person->turnTo("frmpopts");
    }
    QString option(const char* key) {
        return value(db::Sql(
            "Select UP_PD_Value from User_Preferences Where UP_UserID = 'REED' AND UP_Pref_Detail = '{}'", key));
    }
    /// Saves the preview that is in front as a PDF, closes it and returns the file's bytes.
    QByteArray saved(const char* name) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        person->turnTo("frmpreview");
        person->picture(name);
        person->press({QStringLiteral("ctrl+s")});
        person->chooseFile(path);
        person->turnTo("frmpreview");
        EXPECT_TRUE(soon([&] { return desk->tell("text", QStringLiteral("lblstatus")).contains(path); }));
        person->press({QStringLiteral("Escape")});
        person->turnTo("mdisched");
        return FileBytes(path);
    }
};

}  // namespace

TEST_F(PrintingAtTheDesk, OptionsAreChangedAndTheScheduleIsPrintedByThemTwice) {
    openOptions();
    person->picture("printoptions");
    person->press({QStringLiteral("alt+p"), QStringLiteral("ctrl+a"), QStringLiteral("0"), QStringLiteral("alt+o")});
    person->turnTo("box");
    EXPECT_EQ(desk->tell("box"), QStringLiteral("Enter a number between 1 and 9."));
    person->press({QStringLiteral("Return")});
    person->turnTo("frmpopts");
    person->press({QStringLiteral("7")});
    click("ckTaskBar");
    person->press({QStringLiteral("alt+a"), QStringLiteral("End"), QStringLiteral("alt+t")});
    person->turnTo("QFontDialog");
    person->picture("printoptions-font");
    person->press({QStringLiteral("Escape")});
    person->turnTo("frmpopts");
    person->picture("printoptions-changed");
    person->press({QStringLiteral("alt+o")});
    person->turnTo("mdisched");
    EXPECT_EQ(option("AllViewCols"), QStringLiteral("7"));
    EXPECT_EQ(option("Taskbar"), QStringLiteral("1"));
    EXPECT_EQ(option("TitleAlign"), QStringLiteral("2"));

    person->press({QStringLiteral("ctrl+p")});
    const QByteArray first = saved("first.pdf");
    EXPECT_TRUE(first.startsWith("%PDF-"));

    openOptions();
    person->press({QStringLiteral("alt+u"), QStringLiteral("Home"), QStringLiteral("alt+o")});
    person->turnTo("mdisched");
    EXPECT_EQ(option("TimeUnits"), QStringLiteral("0"));
    EXPECT_EQ(option("AllViewCols"), QStringLiteral("7"));

    person->press({QStringLiteral("ctrl+p")});
    const QByteArray second = saved("second.pdf");
    EXPECT_TRUE(second.startsWith("%PDF-"));
    EXPECT_NE(second.size(), first.size()) << "The page has other lines now.";
}

TEST_F(PrintingAtTheDesk, TheWeekTellsOfThePaperAndTheMonthIsOnePage) {
    person->press({QStringLiteral("ctrl+2")});
    awaitView("frmweekv");
    person->press({QStringLiteral("ctrl+p")});
    person->turnTo("box");
    EXPECT_TRUE(desk->tell("box").startsWith(QStringLiteral("To print in Landscape mode")));
    person->press({QStringLiteral("Return")});
    EXPECT_TRUE(saved("week.pdf").startsWith("%PDF-"));
    person->press({QStringLiteral("ctrl+3")});
    awaitView("frmmtv");
    person->press({QStringLiteral("ctrl+p")});
    EXPECT_EQ(saved("month.pdf").count("/Type /Page\n"), 1);
}
