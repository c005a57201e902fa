#include "tests/desks/deskfront.h"
#include "tests/desks/deskreader.h"

namespace {

/// What somebody hears who works without seeing the screen, as the program tells it to a screen reader.
class ReadAloud : protected DeskReader, public FrontDesk {
  protected:
    ReadAloud() { anna = booked(540, 600); }

    /// A visit of the day that is shown.
    QString booked(int start, int end) {
        const QString key = add(start, end, QStringLiteral("O'Brien, Anna"));
        show(key);
        return key;
    }
    void show(const QString& key) {
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(soon([&] { return desk->tell("items").contains(key + QLatin1Char(' ')); }));
    }
    /// Opens a form by a key, so that it can be read.
    void open(const char* keys, const char* form) {
        person->press({QLatin1String(keys)});
        person->turnTo(form);
    }
    /// What is heard in a window, one a line: "role: name (label) description". Fails for what can have the focus and
    /// has no name; a cell and a fact that is only shown may be empty.
    std::string read(const char* title) const {
        QString lines;
        for (const Heard& one : Window(QLatin1String(title))) {
            const bool isCell = one.role.endsWith(QLatin1String("item")) || one.role == QLatin1String("table cell") ||
                                one.role == QLatin1String("label");
            const bool isButton = one.role.endsWith(QLatin1String("button"));
            EXPECT_FALSE((one.isFocusable || isButton) && !isCell && one.name.isEmpty() && one.label.isEmpty())
                << title << " has a nameless " << one.role.toStdString() << " after\n"
                << lines.toStdString();
            EXPECT_FALSE(one.role == QLatin1String("combo box") && one.label.isEmpty())
                << title << ": nobody hears what is chosen by " << one.name.toStdString();
            lines += QStringLiteral("%1: %2 (%3) %4\n").arg(one.role, one.name, one.label, one.description);
        }
        return lines.toStdString();
    }
    static void expectHeard(const std::string& text, std::initializer_list<const char*> words) {
        for (const char* word : words)
            EXPECT_NE(text.find(word), std::string::npos) << "\"" << word << "\" is not heard in:\n" << text;
    }

    QString anna;
};

}  // namespace

TEST_F(ReadAloud, TheNextFreeHourWithEachOpening) {
    open("ctrl+shift+n", "frmnextfree");
    person->type(QStringLiteral("o'b"));
    person->press({QStringLiteral("Return")});
    EXPECT_TRUE(soon([&] { return desk->tell("focus") == QLatin1String("ctList1"); }));
    expectHeard(read("Next Free Hour"),
                {"dialog: Next Free Hour", "text: Patient (Patient:)", "spin box: Length:", "(Type:)", "(Provider:)",
                 "check box: Wednesday", "(Time:)", "tree: Openings", "column header: Start Time", "tree item: Reed",
                 "push button: Book...", "label: The first 100 openings."});
}

TEST_F(ReadAloud, AMoveWithWhereTheVisitIsAndWhatIsInTheWay) {
    desk->tell("select", anna);
    open("ctrl+shift+m", "frmmove");
    expectHeard(read("Move Appointment"),
                {"label: Move Appointment · Wed, Mar 11, 2026 · O'Brien, Anna",
                 "label: Now 9:00 AM to 10:00 AM with Reed, 60 minutes.", "spin box: Date (Date:)",
                 "spin box: Time (Time:)", "(Provider:)", "tree: In the way", "push button: OK"});
}

TEST_F(ReadAloud, TheHoldingShelfWithItsVisits) {
    desk->tell("select", anna);
    person->press({QStringLiteral("ctrl+x")});
    EXPECT_TRUE(soon([&] { return number(QStringLiteral("Select Count(*) from HoldingShelf")) == 1; }));
    const auto shelfIsRead = [this] {
        return read("Solvane Scheduler").find("list item: O'Brien, Anna, Wed, Mar 11, 9:00 AM, 60 minutes") !=
               std::string::npos;
    };
    EXPECT_TRUE(soon(shelfIsRead));
    expectHeard(read("Solvane Scheduler"),
                {"list item: 9:00 AM to 10:00 AM, O'Brien, Anna, Pending, On the shelf", "list: Holding Shelf ()",
                 "push button: Take Off", "push button: Schedule of Reed"});
}

TEST_F(ReadAloud, TodaysBoardWithEachPlaceAndEachCommand) {
    open("ctrl+shift+b", "frmboard");
    EXPECT_TRUE(soon([&] { return read("Today's Board").find("As of ") != std::string::npos; }));
    expectHeard(read("Today's Board"), {"list: Due, 0 () Visits of today that have not begun", "list: Late, 0",
                                        "list: Waiting, 0", "list: In Session, 0", "list: Gone, 0",
                                        "list: Not Coming, 0", "list: Notes to Sign, 0", "list: Series That End, 0",
                                        "push button: Check In () Select a visit first.", "(Provider:)", "(Find:)"});
}

TEST_F(ReadAloud, TheWaitListAndANewEntryOfIt) {
    open("ctrl+shift+l", "frmwait");
    expectHeard(read("Wait List"), {"tree: Who waits", "column header: Until", "label: Nobody waits.",
                                    "push button: Edit... () Select an entry first."});
    open("alt+a", "frmwaitentry");
    expectHeard(read("Add to Wait List"), {"(Patient:)", "spin box", "check box: Wednesday", "push button: OK"});
}

TEST_F(ReadAloud, TheSavedViews) {
    person->press({QStringLiteral("alt+v"), QStringLiteral("v"), QStringLiteral("s")});
    person->turnTo("frmsviews");
    expectHeard(read(""), {"F7", "F12"});
}

TEST_F(ReadAloud, TheRestOfASeriesWithWhatWillHappen) {
    connection.Execute(db::Sql("Update appointments Set dapptdate = '{}', repeating = 1, repeating_ref = nkeyid", day));
    show(anna);
    desk->tell("select", anna);
    open("ctrl+shift+r", "frmrest");
    expectHeard(read("Rest of Series"), {"radio button: ", "tree: ", "push button: OK"});
}

TEST_F(ReadAloud, TheEditorsAndTheOtherFormsWithoutANamelessField) {
    const struct {
        const char* keys;
        const char* form;
    } forms[] = {{"ctrl+n", "frmnore"},       {"ctrl+shift+g", "frmgrptx"}, {"ctrl+shift+e", "frmnore"},
                 {"ctrl+shift+u", "frmnore"}, {"ctrl+f", "frmfinda"},       {"ctrl+comma", "frmaopts"},
                 {"ctrl+b", "frmabook"}};
    person->click(at(660));
    for (const auto& form : forms) {
        person->press({QStringLiteral("Down")});
        open(form.keys, form.form);
        EXPECT_NE(read("").find("dialog: "), std::string::npos) << form.keys << " opens no dialog with a title.";
        person->press({QStringLiteral("Escape")});
        person->turnTo("mdisched");
    }
}
