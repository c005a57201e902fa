#include <QAction>
#include <QMenu>

#include "data/codes.h"
#include "output/frmpappt.h"
#include "platform/controls/textfield.h"
#include "platform/database/sql.h"
#include "session/hiddennames.h"
#include "tests/views/dayhand.h"
#include "views/frmall.h"
#include "views/frmweekv.h"

namespace {

struct Which {
    const char* name;
    const char* command;
    std::unique_ptr<CalendarView> (*make)(MainWindow& main);
    bool tentative;  ///< Whether a Tentative appointment has a slip there.
};

void PrintTo(const Which& which, std::ostream* out) {
    *out << which.name;
}

/// The slips of a view.
class Slips : public DayHand, public testing::WithParamInterface<Which> {
  protected:
    Slips() {
        Session().AllProviders = true;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        run("Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)");
        mary = add(anAppointment("Jones, Mary").at(9, 0).until(9, 50).with("CLOCATION", "'Main Office'"));
    }
    [[nodiscard]] std::unique_ptr<CalendarView> makeView() override { return GetParam().make(main); }

    [[nodiscard]] QAction& slipCommand() { return command(GetParam().command); }
    /// Chooses the command and gives what the form tells: for whom, with whom, where and when.
    QStringList slip() {
        QStringList told;
        desk.expectForm("frmpappt", [&](QDialog& dialog) {
            auto& form = dynamic_cast<frmpappt&>(dialog);
            for (const TextField* field : {form.txtafor, form.txtawith, form.txtlocation, form.txtdatetime})
                told << field->text();
            form.reject();
        });
        slipCommand().trigger();
        settle();
        return told;
    }
    void expectChanged() {
        desk.expectBox("Another user has changed this appointment. " + why(), "Print Appointment Slip");
    }
    static QString why() {
        return GetParam().tentative ? "Only a patient's appointment that is blank, pending or tentative has a slip."
                                    : "Only a patient's appointment that is blank or pending has a slip.";
    }
    /// Whether the popup of the item with that text offers the slip.
    bool popupOffers(const char* text) {
        rightClick(rectOf(text).center());
        auto* popup = view_->findChild<QMenu*>(QStringLiteral("popup"));
        const bool offers = popup->isVisible() && popup->actions().contains(&slipCommand()) &&
                            slipCommand().isVisible() && slipCommand().isEnabled();
        popup->close();
        settle();
        return offers;
    }

    qint64 mary = 0;
};

}  // namespace

TEST_P(Slips, TellTheSelectedAppointmentEachTimeItIsChosen) {
    openByHand();
    select("Jones, Mary");
    for (int round = 1; round <= 2; ++round)
        EXPECT_EQ(slip(), (QStringList{"Jones, Mary", "Reed", "Main Office", "Wednesday Mar 11, 2026 at 9:00 AM"}));
}

TEST_P(Slips, AreOfBlankAndPendingAppointmentsAndWhereToldOfTentativeOnes) {
    struct Row {
        int code, apptType;
        bool has;
    };
    const Row rows[] = {{ncolor::Blank, 0, true},
                        {ncolor::Pending, 0, true},
                        {ncolor::Tentative, 0, GetParam().tentative},
                        {ncolor::Blank, ApptTypeSlot, false},
                        {ncolor::CheckedIn, 0, false},
                        {ncolor::Kept, 0, false},
                        {ncolor::Missed, 0, false},
                        {ncolor::PatientCancelled, 0, false},
                        {ncolor::TherapistCancelled, 0, false},
                        {ncolor::Activity, 0, false},
                        {ncolor::Unavailable, 0, false},
                        {ncolor::Group, 0, false},
                        {ncolor::LegendTentative, 0, false}};
    openByHand();
    for (const Row& row : rows) {
        otherDeskSets(mary, QStringLiteral("ncolor = %1, appttype = %2").arg(row.code).arg(row.apptType));
        view_->Reload();
        select("Jones, Mary");
        EXPECT_EQ(slipCommand().isEnabled(), row.has) << row.code;
        EXPECT_NE(row.has, slipCommand().toolTip() == why()) << row.code;
        EXPECT_EQ(popupOffers("Jones, Mary"), row.has) << row.code;
        EXPECT_TRUE(slipCommand().isVisible()) << row.code;
    }
}

TEST_P(Slips, NeedASelectedAppointment) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders'' Day', '2026/03/11', 0)");
    openByHand();
    calendar().clearSelection();
    EXPECT_FALSE(slipCommand().isEnabled());
    EXPECT_EQ(slipCommand().toolTip(), "Select an appointment first.");
    select("Founders' Day");
    EXPECT_FALSE(slipCommand().isEnabled());
    EXPECT_EQ(slipCommand().toolTip(), why());
}

TEST_P(Slips, FollowAStatusThatIsSetMeanwhile) {
    openByHand();
    select("Jones, Mary");
    EXPECT_TRUE(slipCommand().isEnabled());
    command("mnuAMissed").trigger();
    EXPECT_FALSE(slipCommand().isEnabled());
    EXPECT_EQ(slipCommand().toolTip(), why());
}

TEST_P(Slips, TellTheNewTimeOfAnAppointmentThatAnotherDeskMoved) {
    openByHand();
    select("Jones, Mary");
    otherDeskSets(mary, "nStartTime = 630, nEndTime = 680, CLOCATION = 'Annex', cappttext = 'O''Brien, Mary'");
    EXPECT_EQ(slip(), (QStringList{"O'Brien, Mary", "Reed", "Annex", "Wednesday Mar 11, 2026 at 10:30 AM"}));
    EXPECT_EQ(item("O'Brien, Mary").ItemStart, 630) << "The view shows it, too.";
}

TEST_P(Slips, OfAnAppointmentThatAnotherDeskDeletedAreNot) {
    openByHand();
    select("Jones, Mary");
    otherDeskDeletes(mary);
    desk.expectBox("Appointment not found in database. It may have been deleted by another user.",
                   "Appointment not found");
    slipCommand().trigger();
    EXPECT_FALSE(itemTexts().contains("Jones, Mary"));
    EXPECT_FALSE(slipCommand().isEnabled());
}

TEST_P(Slips, OfAnAppointmentThatAnotherDeskCancelledAreNot) {
    openByHand();
    select("Jones, Mary");
    otherDeskSets(mary, QStringLiteral("ncolor = %1").arg(ncolor::PatientCancelled));
    expectChanged();
    slipCommand().trigger();
    EXPECT_EQ(item("Jones, Mary").ItemColor, ncolor::PatientCancelled);
    EXPECT_FALSE(slipCommand().isEnabled());
}

TEST_P(Slips, CannotBeReadFromALostDatabase) {
    openByHand();
    select("Jones, Mary");
    Session().Connection.Close();
    desk.expectBox(
        "Error loading appointment. The connection cannot be used to perform this operation. It is either closed or invalid in this context.",
        "Error");
    slipCommand().trigger();
    EXPECT_TRUE(itemTexts().contains("Jones, Mary"));
}

TEST_P(Slips, HideNamesThatAreHidden) {
    openByHand();
    select("Jones, Mary");
    SetNamesHidden(true);
    EXPECT_EQ(slip().first(), "(hidden)");
    SetNamesHidden(false);
    EXPECT_EQ(slip().first(), "Jones, Mary");
}

TEST_P(Slips, AreForThoseTooWhoMayOnlyRead) {
    Session().ScreenAccess = 1;
    openByHand();
    select("Jones, Mary");
    EXPECT_EQ(slip().first(), "Jones, Mary");
}

TEST_P(Slips, OfAProviderWhoIsNotOnTheListTellTheId) {
    openByHand();
    select("Jones, Mary");
    run("Delete from provider_info");
    EXPECT_EQ(slip().at(1), "REED");
}

INSTANTIATE_TEST_SUITE_P(
    InEachView, Slips,
    testing::Values(
        Which{"Day", "mnuFPrintA",
              [](MainWindow& main) -> std::unique_ptr<CalendarView> { return std::make_unique<frmsched>(main); },
              false},
        Which{"Week", "mnuFPrintA",
              [](MainWindow& main) -> std::unique_ptr<CalendarView> { return std::make_unique<frmweekv>(main); },
              false},
        Which{"AllProviders", "mnuAptSlip",
              [](MainWindow& main) -> std::unique_ptr<CalendarView> { return std::make_unique<frmall>(main); }, true}),
    [](const auto& tested) { return std::string(tested.param.name); });

using DaySlips = DayHand;

TEST_F(DaySlips, OfAWholeDayTellNoTime) {
    add(anAppointment("Jones, Mary").at(0, 0).until(24, 0).with("allday", "-1"));
    openByHand();
    select("Jones, Mary");
    QString told;
    desk.expectForm("frmpappt", [&](QDialog& form) { told = dynamic_cast<frmpappt&>(form).txtdatetime->text(); });
    command("mnuFPrintA").trigger();
    EXPECT_EQ(told, "Wednesday Mar 11, 2026");
}
