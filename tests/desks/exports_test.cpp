#include "tests/desks/deskfront.h"

namespace {

/// What leaves the program, by mouse and keyboard.
class Exporting : public FrontDesk {
  protected:
    Exporting() {
        anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(soon([this] { return desk->tell("items").contains(anna); }));
    }
    /// Opens File > Export by its letters, and chooses one of its two commands.
    void chooseExport(const char* letter) {
        person->press({QStringLiteral("alt+f")});
        person->turnTo("popup");
        person->press({QStringLiteral("e"), QLatin1String(letter)});
    }
    void click(const char* widget) { person->click(desk->tell("widgetPlace", QLatin1String(widget))); }
    /// Waits for a box, presses Return or the key, and gives what the box said.
    QString read(const char* key = "Return") {
        person->turnTo("box");
        const QString said = desk->tell("box");
        person->press({QLatin1String(key)});
        return said;
    }

    QString anna;
};

}  // namespace

TEST_F(Exporting, ARangeOfDatesLeavesTheRealWindowAsACalendarFile) {
    const QString path = folder.filePath(QStringLiteral("march.ics"));
    chooseExport("i");
    person->turnTo("frmExportOpts");
    person->picture("export");
    click("optSelect2");
    desk->tell("replace", QStringLiteral("txtfrom"), QStringLiteral("3/11/2026"));
    desk->tell("replace", QStringLiteral("txtto"), QStringLiteral("3/11/2026"));
    person->press({QStringLiteral("alt+p")});
    person->type(path);
    person->press({QStringLiteral("Return")});
    EXPECT_EQ(read(), QStringLiteral("iCalender export done. \n") + path);
    person->turnTo("mdisched");
    EXPECT_TRUE(FileBytes(path).contains("SUMMARY:O'Brien, Anna\r\n"));
}

TEST_F(Exporting, TheSelectedAppointmentLeavesAsAStandardFileThatTheFileDialogNames) {
    const QString path = folder.filePath(QStringLiteral("anna.ics"));
    PutFile(path, "before");
    person->click(itemOf(anna));
    chooseExport("i");
    person->turnTo("frmExportOpts");
    person->press({QStringLiteral("alt+s"), QStringLiteral("alt+o"), QStringLiteral("Down")});
    click("cmdCmdDlg");
    person->turnTo("QFileDialog");
    person->picture("export-file");
    person->press({QStringLiteral("ctrl+a")});
    person->type(path);
    person->press({QStringLiteral("Return")});
    person->turnTo("frmExportOpts");
    EXPECT_EQ(desk->tell("text", QStringLiteral("txtFilePath")), path);
    person->picture("export-standard");
    click("cmdok");
    EXPECT_EQ(desk->answer("Yes"), path + QStringLiteral(" already exists.\nDo you want to replace it?"));
    EXPECT_EQ(read(), QStringLiteral("iCalender export done. \n") + path);
    person->turnTo("mdisched");
    EXPECT_TRUE(FileBytes(path).contains("SUMMARY:A. O.\r\n"));
    EXPECT_TRUE(FileBytes(path).contains("BEGIN:VTIMEZONE"));
}

TEST_F(Exporting, TheDayAndTheWeekLeaveAsPages) {
    const QString page = folder.filePath(QStringLiteral("Documents/REED03112026.HTM"));
    chooseExport("h");
    EXPECT_EQ(read("alt+n"),
              QStringLiteral("Appointments HTML file created - %1. Do you want to open it now?").arg(page));
    person->turnTo("mdisched");
    EXPECT_TRUE(FileBytes(page).contains("O'Brien, Anna"));
    person->press({QStringLiteral("ctrl+2")});
    awaitView("frmweekv");
    chooseExport("h");
    EXPECT_TRUE(read("Escape").contains(QStringLiteral("REEDWeek03092026.HTM")));
    person->turnTo("mdisched");
    EXPECT_TRUE(FileBytes(folder.filePath(QStringLiteral("Documents/REEDWeek03092026.HTM"))).contains("Wednesday"));
}
