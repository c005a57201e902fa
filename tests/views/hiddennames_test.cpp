#include "session/hiddennames.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "appointments/appointmentconflict.h"
#include "appointments/conflicts.h"
#include "appointments/frmdelrepeat.h"
#include "data/codes.h"
#include "platform/calendar/ctweek.h"
#include "platform/controls/ctlist.h"
#include "platform/printing/printpreview.h"
#include "rooms/frmfroom.h"
#include "rooms/frmrooms.h"
#include "rooms/frmroomview.h"
#include "tests/views/dayhand.h"
#include "views/frmall.h"
#include "views/frmmtv.h"
#include "views/frmweekv.h"

namespace {

/// Reed's day with Mary Jones and what names nobody: the switch is flipped while it is shown.
class HiddenNames : public DayHand {
  protected:
    HiddenNames() {
        Session().AllProviders = true;
        Session().PhoneMask = QStringLiteral("(###) ###-####");
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        run("Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)");
        run("Insert Into patient_info (id, last_name, first_name, telephone_h, telephone_b, Other_Phone_Type, Other_Phone, EmailAddress, archive) Values ('10017', 'Jones', 'Mary', '5551234567', '5559876543', 'Mother', '5550001111', 'mary@example.org', 0)");
        run("Insert Into rooms (Room) Values ('Blue')");
        mary = add(anAppointment("Jones, Mary")
                       .at(9, 0)
                       .until(9, 50)
                       .with("patientid", "'10017'")
                       .with("CapptNote", "'90834|Mary brings forms'"));
        lunch = add(anAppointment("Lunch").at(12, 0).until(13, 0).status(ncolor::Unavailable));
        meeting = add(anAppointment("Staff Meeting").at(13, 0).until(14, 0).status(ncolor::Activity));
        group = add(anAppointment("Anger").at(15, 0).until(16, 0).status(ncolor::Group));
        run(QStringLiteral(
                "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept) Values (%1, '10017', 'Jones, Mary', 1)")
                .arg(group));
        takeRoom(mary, "Jones, Mary", 540);
        takeRoom(meeting, "Staff Meeting", 780);
        takeRoom(group, "Anger", 900);
        takeRoom(0, "Painters", 960);
        takeRoom(99999, "Gone, Gil", 1000);
    }

    void takeRoom(qint64 key, const char* text, int start) {
        run(QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, croomtext, nStartTime, nEndTime, nApptDate) Values (%1, 1, '%2', %3, %4, '2026/03/11')")
                .arg(key)
                .arg(QLatin1String(text))
                .arg(start)
                .arg(start + 30));
    }
    /// The texts of a calendar that can be read.
    static QStringList readable(const ctMDay& calendar) {
        QStringList texts;
        for (int index = 1; index <= calendar.ItemCount(); ++index)
            if (calendar.Item(index).ItemTextColor == TextColor::Normal)
                texts << calendar.Item(index).ItemText;
        texts.sort();
        return texts;
    }
    static QStringList rowsOf(const ctList& list) {
        QStringList rows;
        for (int row = 0; row < list.RowCount(); ++row)
            rows << list.ShownCells(row).join(u';');
        return rows;
    }
    template <class Widget>
    static Widget& in(const QWidget& form, const char* name) {
        return *form.findChild<Widget*>(QLatin1String(name));
    }
    /// What holds a patient's name or would betray it among these texts.
    static QString betrayal(const QStringList& texts) {
        for (const QString& text : texts)
            for (const char* word : {"Jones", "Mary", "555", "example.org", "Gone"})
                if (text.contains(QLatin1String(word)))
                    return text;
        return {};
    }
    QStringList details() { return rowsOf(in<ctList>(*view_, "ctListInfo")); }
    QString note() { return in<QPlainTextEdit>(*view_, "txtnote").toPlainText(); }

    const QStringList everybody{"Anger", "Jones, Mary", "Lunch", "Staff Meeting"};
    const QStringList nobody{"Anger", "Lunch", "Staff Meeting"};
    qint64 mary = 0;
    qint64 lunch = 0;
    qint64 meeting = 0;
    qint64 group = 0;
};

}  // namespace

TEST_F(HiddenNames, TheDayHidesThemAtOnceAndShowsThemAgainAtOnce) {
    open();
    EXPECT_EQ(readable(calendar()), everybody);
    SetNamesHidden(true);
    EXPECT_EQ(readable(calendar()), nobody);
    EXPECT_EQ(betrayal({calendar().AccessibleItemName(1), calendar().ToolTipOf(1)}), QString());
    SetNamesHidden(false);
    EXPECT_EQ(readable(calendar()), everybody);
}

TEST_F(HiddenNames, TheWeekAllProvidersAndTheRoomsHideThemAtOnce) {
    view_ = std::make_unique<frmweekv>(main);
    SetNamesHidden(true);
    EXPECT_EQ(readable(calendar()), nobody);
    SetNamesHidden(false);
    EXPECT_EQ(readable(calendar()), everybody);
    view_ = std::make_unique<frmall>(main);
    SetNamesHidden(true);
    EXPECT_EQ(readable(calendar()), nobody);
    SetNamesHidden(false);
    EXPECT_EQ(readable(calendar()), everybody);
    frmrooms rooms(main);
    const ctMDay& grid = *rooms.findChild<ctMDay*>();
    SetNamesHidden(true);
    EXPECT_EQ(readable(grid), (QStringList{"Anger", "Painters", "Staff Meeting"}));
    rooms.LoadRooms();
    EXPECT_EQ(readable(grid), (QStringList{"Anger", "Painters", "Staff Meeting"}));
    SetNamesHidden(false);
    EXPECT_EQ(readable(grid).size(), 5);
}

TEST_F(HiddenNames, TheMonthHidesThemAtOnce) {
    frmmtv month(main);
    month.resize(1000, 700);
    month.show();
    settle();
    const ctWeek& days = *month.findChild<ctWeek*>();
    EXPECT_TRUE(days.SelectionText().contains("Jones, Mary"));
    SetNamesHidden(true);
    EXPECT_EQ(betrayal({days.SelectionText(), days.accessibleDescription()}), QString());
    EXPECT_TRUE(days.SelectionText().contains("Staff Meeting"));
    SetNamesHidden(false);
    EXPECT_TRUE(days.SelectionText().contains("Jones, Mary"));
}

TEST_F(HiddenNames, AMovedAppointmentStaysHidden) {
    openByHand();
    SetNamesHidden(true);
    moveTo("Jones, Mary", 660);
    EXPECT_EQ(readable(calendar()), nobody);
}

TEST_F(HiddenNames, ADragThatIsPutBackLeavesTheNameHidden) {
    openByHand();
    SetNamesHidden(true);
    run(QStringLiteral("Update appointments Set nStartTime = 545 Where nkeyid = %1").arg(mary));
    desk.expectBox(
        "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read.",
        "Error");
    moveTo("Jones, Mary", 660);
    EXPECT_EQ(readable(calendar()), nobody);
}

TEST_F(HiddenNames, TheDetailsKeepTheirCaptionsAndTellNobody) {
    open();
    select("Jones, Mary");
    const QStringList told = details();
    EXPECT_TRUE(told.contains("Appointment;Jones, Mary")) << told.join('\n').toStdString();
    EXPECT_TRUE(told.contains("Mother;(555) 000-1111"));
    SetNamesHidden(true);
    const QStringList hidden = details();
    EXPECT_EQ(betrayal(hidden + QStringList{note()}), QString());
    EXPECT_EQ(hidden.size(), told.size());
    for (const char* row : {"Appointment;(hidden)", "Home Phone;(hidden)", "Work Phone;(hidden)", "Mother;(hidden)",
                            "E-Mail;(hidden)", "Length;50 mins.", "Service;90834", "Room;Blue"})
        EXPECT_TRUE(hidden.contains(QLatin1String(row))) << row << '\n' << hidden.join('\n').toStdString();
    SetNamesHidden(false);
    EXPECT_EQ(details(), told);
    EXPECT_EQ(note(), "Appointment Note\nMary brings forms");
}

TEST_F(HiddenNames, TheDetailsOfAGroupHideItsMembersAlone) {
    open();
    select("Anger");
    SetNamesHidden(true);
    EXPECT_TRUE(details().contains("Appointment;Anger"));
    EXPECT_TRUE(details().contains("Members;(hidden)"));
    EXPECT_EQ(betrayal(details()), QString());
    select("Lunch");
    EXPECT_TRUE(details().contains("Appointment;Lunch"));
}

TEST_F(HiddenNames, FindHidesThemWhileItIsOpenAndOnItsPages) {
    add(anAppointment("Jones' birthday").at(16, 0).until(17, 0).status(ncolor::Activity));
    open();
    desk.expectForm("frmfinda", [this](QDialog& form) {
        in<QLineEdit>(form, "txtfind").setText("Jones");
        in<QPushButton>(form, "cmdfind").click();
        const ctList& hits = in<ctList>(form, "ctList1");
        const QStringList told = rowsOf(hits);
        SetNamesHidden(true);
        EXPECT_EQ(hits.ShownCell(0, 1), "(hidden)");
        EXPECT_EQ(hits.ShownCell(1, 1), "Jones' birthday");
        desk.expectForm("frmpreview", [](QDialog& preview) {
            const printing::Document pages = preview.findChild<PrintPreview*>()->Document();
            const auto& table = std::get<printing::Table>(pages.blocks.at(0));
            EXPECT_EQ(table.rows.at(0).at(0), "(hidden)");
            preview.reject();
        });
        in<QPushButton>(form, "cmdprint").click();
        SetNamesHidden(false);
        EXPECT_EQ(rowsOf(hits), told);
        form.reject();
    });
    command("mnuAFind").trigger();
}

TEST_F(HiddenNames, FoundBookingsHideThoseOfPatientsAlone) {
    frmfroom form([](const FoundBooking&) { return QString(); });
    in<QLineEdit>(form, "txtfind").setText("n");
    in<QPushButton>(form, "cmdfind").click();
    const ctList& hits = in<ctList>(form, "ctList1");
    const auto shown = [&hits] {
        QStringList texts;
        for (int row = 0; row < hits.RowCount(); ++row)
            texts << hits.ShownCell(row, 1);
        texts.sort();
        return texts;
    };
    const QStringList told{"Anger", "Gone, Gil", "Jones, Mary", "Painters", "Staff Meeting"};
    EXPECT_EQ(shown(), told);
    SetNamesHidden(true);
    EXPECT_EQ(shown(), (QStringList{"(hidden)", "(hidden)", "Anger", "Painters", "Staff Meeting"}));
    SetNamesHidden(false);
    EXPECT_EQ(shown(), told);
}

TEST_F(HiddenNames, TheRoomsSideBySideHideThemAtOnce) {
    const frmRoomView rooms({QDate(2026, 3, 11), 540, 600}, "3/11/2026");
    SetNamesHidden(true);
    EXPECT_EQ(readable(*rooms.ctMDay1), (QStringList{"Anger", "Painters", "Staff Meeting"}));
    SetNamesHidden(false);
    EXPECT_EQ(readable(*rooms.ctMDay1).size(), 5);
}

TEST_F(HiddenNames, AConflictTellsWhatIsInTheWayButNotWho) {
    SetNamesHidden(true);
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        const auto& conflict = dynamic_cast<AppointmentConflict&>(form);
        QStringList texts;
        for (int row = 0; row < conflict.ctList1->RowCount(); ++row)
            texts << conflict.ctList1->ShownCell(row, 4);
        EXPECT_EQ(texts, (QStringList{"(hidden)", "Lunch"}));
        EXPECT_EQ(conflict.lbllength->text(), "(hidden): 50 minutes, all in the new time.");
        SetNamesHidden(false);
        EXPECT_EQ(conflict.lbllength->text(), "Jones, Mary: 50 minutes, all in the new time.");
    });
    EXPECT_TRUE(CheckApptConflicts(0, QDate(2026, 3, 11), 540, 750, {}, "REED"));
    SetNamesHidden(true);
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        EXPECT_EQ(dynamic_cast<AppointmentConflict&>(form).ctList1->ShownCell(0, 4), "(hidden)");
    });
    EXPECT_TRUE(CheckRoomConflicts(0, QDate(2026, 3, 11), 545, 550, 1, 0));
    desk.expectForm("AppointmentConflict", [](QDialog& form) {
        EXPECT_EQ(dynamic_cast<AppointmentConflict&>(form).ctList1->ShownCell(0, 4), "Anger");
    });
    EXPECT_TRUE(CheckRoomConflicts(0, QDate(2026, 3, 11), 905, 910, 1, 0));
}

TEST_F(HiddenNames, ASeriesIsDeletedWithoutTellingWhose) {
    run(QStringLiteral("Update appointments Set repeating = 1, repeating_ref = %1 Where nkeyid = %1").arg(mary));
    open();
    SetNamesHidden(true);
    select("Jones, Mary");
    desk.expectBox("Are you sure you want to delete this appointment?", "Delete Appointment", Answer::Yes);
    desk.expectForm("frmdelrepeat", [](QDialog& form) {
        EXPECT_EQ(dynamic_cast<frmdelrepeat&>(form).ctList1->ShownCell(0, 4), "(hidden)");
        form.reject();
    });
    command("mnuADelete").trigger();
}
