#include "tests/desks/deskfront.h"

namespace {

/// What a caller asks, and what the desk does each evening, done by the keyboard alone and by the mouse alone. A step
/// is one key, one click or one text.
class FrontQuestions : public FrontDesk {
  protected:
    FrontQuestions() {
        for (
            const char* statement :
            {"Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)",
             "Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access) Values ('LANE', 1, '333333336')",
             "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid) Values ('2020/05/06', 540, 600, 'O''Brien, Anna', 49152, 'REED', '10017')",
             "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid) Values ('2098/05/06', 540, 600, 'O''Brien, Anna', 16711681, 'REED', '10017')",
             "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid) Values ('2097/05/06', 900, 950, 'O''Brien, Anna', 16711681, 'LANE', '10017')"})
            connection.Execute(QString::fromLatin1(statement));
        next = newestKey();
    }

    void key(const char* key) {
        ++steps;
        person->press({QString::fromLatin1(key)});
    }
    void write(const char* text) {
        ++steps;
        person->type(QString::fromLatin1(text));
    }
    void click(const char* widget) {
        ++steps;
        person->click(place(widget));
    }
    QString place(const char* widget) { return desk->tell("widgetPlace", QLatin1String(widget)); }
    QString told(const char* widget) { return desk->tell("text", QLatin1String(widget)); }
    bool found() {
        return soon([&] { return told("lblcount") == QLatin1String("3 appointments: 2 to come, 1 past"); });
    }
    void expectLanesDay() {
        person->turnTo("mdisched");
        EXPECT_TRUE(soon([&] { return desk->tell("items").startsWith(next + QStringLiteral(" 900-950")); }));
        EXPECT_EQ(told("pnlsched").trimmed(), QStringLiteral("Schedule for: Lane"));
    }
    /// Chooses once, as each user does, that Find searches all providers.
    void chooseAllOnce() {
        person->press({QStringLiteral("ctrl+f")});
        person->turnTo("frmfinda");
        person->picture("find-own");
        person->press({QStringLiteral("alt+v")});
        person->press({QStringLiteral("Escape")});
        person->turnTo("mdisched");
    }

    int steps = 0;
    QString next;
};

}  // namespace

TEST_F(FrontQuestions, WhenAPatientIsHereIsToldAndGoneToInFourStepsByTheKeyboard) {
    chooseAllOnce();
    for (int time = 0; time < 2; ++time) {
        steps = 0;
        key("ctrl+f");
        person->turnTo("frmfinda");
        write("o'bri");
        key("Return");
        ASSERT_TRUE(found());
        const QStringList rows = told("ctList1").split(u'\n');
        ASSERT_EQ(rows.size(), 3);
        EXPECT_TRUE(rows[0].startsWith(QStringLiteral("O'Brien, Anna;Lane;"))) << rows[0].toStdString();
        EXPECT_TRUE(rows[0].endsWith(QStringLiteral(";Pending")));
        EXPECT_TRUE(rows[1].contains(QStringLiteral("2098")));
        EXPECT_TRUE(rows[2].endsWith(QStringLiteral(";Kept")));
        person->picture("find-all");
        key("Return");
        expectLanesDay();
        EXPECT_EQ(steps, 4);
    }
}

TEST_F(FrontQuestions, WhenAPatientIsHereIsGoneToInFiveStepsByTheMouse) {
    click("cmdfind");
    person->turnTo("frmfinda");
    click("ckall");
    EXPECT_TRUE(soon([&] {
        return number(QStringLiteral(
                   "Select Count(*) from User_Preferences Where UP_UserID = 'REED' AND UP_Pref_Detail = 'FindAllProviders' AND UP_PD_Value = '1'")) ==
               1;
    }));
    person->press({QStringLiteral("Escape")});
    person->turnTo("mdisched");
    steps = 0;
    click("cmdfind");
    person->turnTo("frmfinda");
    click("txtfind");
    // A name has to be typed, whoever works by the mouse.
    write("o'bri");
    click("cmdfind");
    ASSERT_TRUE(found());
    ++steps;
    person->doubleClick(desk->tell("rowPlace", QStringLiteral("ctList1"), QStringLiteral("0")));
    expectLanesDay();
    EXPECT_EQ(steps, 5);
}

TEST_F(FrontQuestions, TomorrowIsPrintedInThreeStepsByTheKeyboard) {
    key("alt+Right");
    key("ctrl+p");
    person->turnTo("frmpreview");
    person->picture("print-tomorrow");
    EXPECT_EQ(desk->tell("focus"), QStringLiteral("cmdprint")) << "The third step, Enter, prints.";
    ++steps;
    person->press({QStringLiteral("Escape")});
    person->turnTo("mdisched");
    EXPECT_TRUE(told("pnldate").contains(QStringLiteral("March 12, 2026"))) << told("pnldate").toStdString();
    EXPECT_EQ(steps, 3);
}

TEST_F(FrontQuestions, TomorrowIsPrintedInThreeStepsByTheMouse) {
    click("btnNav1");
    click("cmdprint");
    person->turnTo("frmpreview");
    EXPECT_EQ(desk->tell("shows", QStringLiteral("cmdprint")), QStringLiteral("yes")) << "The third step prints.";
    ++steps;
    person->click(place("cmdclose"));
    person->turnTo("mdisched");
    EXPECT_TRUE(told("pnldate").contains(QStringLiteral("March 12, 2026")));
    EXPECT_EQ(steps, 3);
}

TEST_F(FrontQuestions, ANewCallersNameAndProviderAreNotAskedForAgainByTheButton) {
    person->click(at(600));
    person->press({QStringLiteral("ctrl+n")});
    person->turnTo("frmnore");
    EXPECT_TRUE(told("lblheading").startsWith(QString::fromUtf8("Patient Appointment · Wed, Mar 11, 2026 · Reed")))
        << told("lblheading").toStdString();
    write("Eva Novak");
    person->click(place("cmdnewpat"));
    person->turnTo("frmnewpat");
    EXPECT_EQ(told("txtlname"), QStringLiteral("Novak"));
    EXPECT_EQ(told("txtfname"), QStringLiteral("Eva"));
    EXPECT_EQ(told("cboprovider"), QStringLiteral("Reed"));
    desk->tell("type", QStringLiteral("txtdob"), QStringLiteral("5/6/1990"));
    desk->tell("choose", QStringLiteral("cbosex"), QStringLiteral("Female"));
    desk->tell("type", QStringLiteral("txtemail"), QStringLiteral("eva@example.org"));
    person->picture("newpatient-filled");
    person->press({QStringLiteral("alt+o")});
    person->turnTo("frmnore");
    EXPECT_EQ(told("lblemail"), QStringLiteral("eva@example.org"));
}

TEST_F(FrontQuestions, ADuplicateIsShownAndEnterAddsNobody) {
    connection.Execute(QStringLiteral(
        "Update patient_info Set birth_date = '1980/12/03', telephone_h = '5551234567' Where id = '10017'"));
    person->click(at(600));
    person->press({QStringLiteral("ctrl+n")});
    person->turnTo("frmnore");
    write("Anna O'Brien");
    person->click(place("cmdnewpat"));
    person->turnTo("frmnewpat");
    desk->tell("type", QStringLiteral("txtdob"), QStringLiteral("5/6/1990"));
    desk->tell("choose", QStringLiteral("cbosex"), QStringLiteral("Female"));
    person->press({QStringLiteral("alt+o")});
    person->turnTo("box");
    EXPECT_EQ(desk->tell("box"), QStringLiteral("O'Brien, Anna is already in the database. Continue?"));
    EXPECT_TRUE(told("qt_msgbox_informativelabel").contains(QString::fromUtf8("O'Brien, Anna · born 12/03/1980")))
        << told("qt_msgbox_informativelabel").toStdString();
    person->picture("duplicate");
    person->press({QStringLiteral("Return")});
    person->turnTo("frmnewpat");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from patient_info")), 2);
    person->press({QStringLiteral("Escape")});
    person->turnTo("box");
    person->press({QStringLiteral("alt+n")});
}

TEST_F(FrontQuestions, AListOfProvidersShrinksWhileItIsTypedInto) {
    person->press({QStringLiteral("ctrl+l")});
    person->turnTo("frmsltpv");
    EXPECT_EQ(told("lblcount"), QStringLiteral("2 providers"));
    write("la");
    EXPECT_TRUE(soon([&] { return told("lblcount") == QLatin1String("1 of 2 providers"); }));
    person->picture("providers-filtered");
    key("Return");
    person->turnTo("mdisched");
    EXPECT_EQ(told("pnlsched").trimmed(), QStringLiteral("Schedule for: Lane"));
    EXPECT_EQ(steps, 2);
}
