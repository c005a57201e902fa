#include <QAction>
#include <QMenu>
#include <QPushButton>

#include "data/codes.h"
#include "followup/frmmsdapt.h"
#include "followup/frmsnotetype.h"
#include "platform/controls/notefield.h"
#include "tests/views/dayhand.h"
#include "views/frmall.h"
#include "views/frmsched.h"
#include "views/frmweekv.h"

namespace {

struct NotedView {
    const char* name;
    View view;
    bool reloads;  ///< Whether a note is shown by a reload.
    std::unique_ptr<CalendarView> (*make)(MainWindow& main);
};

template <class Form>
std::unique_ptr<CalendarView> make(MainWindow& main) {
    return std::make_unique<Form>(main);
}

constexpr NotedView views[]{{"Day", View::Day, false, make<frmsched>},
                            {"Week", View::Week, false, make<frmweekv>},
                            {"AllProviders", View::AllProviders, true, make<frmall>}};

/// The command "Session Note..." of each view that has it, at Reed's desk.
class SessionNote : public DayHand, public testing::WithParamInterface<NotedView> {
  protected:
    SessionNote() {
        Session().CurrentView = GetParam().view;
        Session().AllProviders = true;
        Session().AppPath = QStringLiteral("/opt/solvane");
        run("Insert Into provider_info (id, prov_lastname, archive) Values('LANE', 'Lane', 0)");
        run("Insert Into provider_info (id, prov_lastname, archive) Values('REED', 'Reed', 0)");
        run("Insert Into patient_info (id, last_name, first_name) Values('P1', 'Jones', 'Anna')");
        run("Insert Into NoteTypes (NoteType, applyauths) Values('Progress Note', 1)");
        anna = add(anAppointment("Anna").status(ncolor::Kept).with("patientid", "'P1'"));
    }
    std::unique_ptr<CalendarView> makeView() override { return GetParam().make(main); }

    void press() {
        command("mnuANote").trigger();
        settle();
    }
    void expectType(const std::function<void(QDialog&)>& meanwhile = [](QDialog&) {}) {
        desk.expectForm("frmSNoteType", [meanwhile](QDialog& dialog) {
            meanwhile(dialog);
            auto& form = dynamic_cast<frmSNoteType&>(dialog);
            form.List1->SelectRow(0);
            form.cmdOk->click();
        });
    }
    [[nodiscard]] QString started(const char* mode) {
        return QStringLiteral("/opt/solvane/solvaned.exe %1|REED|%2|P1")
            .arg(stored(anna, "NoteID"), QLatin1String(mode));
    }

    qint64 anna = 0;
};

}  // namespace

TEST_P(SessionNote, OfAKeptVisitShowsItsIconAndTheNextCommandOpensIt) {
    openByHand();
    select("Anna");
    expectType();

    press();

    EXPECT_EQ(desk.started, QStringList{started("1")});
    EXPECT_GT(item("Anna").ItemSessionIcon, 0);
    EXPECT_EQ(calendar().SelectedItem(), calendar().IndexOfKey(item("Anna").ItemKey));

    press();
    EXPECT_EQ(desk.started, (QStringList{started("1"), started("2")}));
    EXPECT_EQ(database_.number("Select Count(*) from sessions"), 1);
}

TEST_P(SessionNote, IsShownWithoutAReloadOnlyWhereItIsTheProvidersOwnView) {
    openByHand();
    select("Anna");
    expectType();
    add(anAppointment("Bert").at(11, 0));

    press();

    EXPECT_EQ(itemTexts().contains("Bert"), GetParam().reloads);
}

TEST_P(SessionNote, HidesTheCommandForTheMomentOfTheDialog) {
    openByHand();
    select("Anna");
    ASSERT_TRUE(command("mnuANote").isVisible());
    expectType([this](QDialog&) { EXPECT_FALSE(command("mnuANote").isVisible()); });

    press();

    EXPECT_TRUE(command("mnuANote").isVisible());
}

TEST_P(SessionNote, WithNothingSelectedSaysWhatToSelect) {
    openByHand();
    view_->DropSelection();
    EXPECT_TRUE(command("mnuANote").isEnabled());
    desk.expectBox("No appointment selected. First select a Kept or Missed appointment.", "Warning");
    press();
}

TEST_P(SessionNote, StaysShownWhenTheAppointmentIsMovedAfterwards) {
    openByHand();
    select("Anna");
    expectType();
    press();

    key(Qt::Key_Down, Qt::ControlModifier);
    settle();

    EXPECT_EQ(stored(anna, "nStartTime"), "555");
    EXPECT_GT(item("Anna").ItemSessionIcon, 0);
    EXPECT_GT(stored(anna, "NoteID").toInt(), 0);
}

TEST_P(SessionNote, OfAVisitThatHasJustBeenKeptIsMade) {
    add(anAppointment("Bert").at(11, 0).status(ncolor::Pending).with("patientid", "'P1'"));
    openByHand();
    select("Bert");
    desk.expectBox("No appointment selected. First select a Kept or Missed appointment.", "Warning");
    press();

    command("mnuAKept").trigger();
    settle();
    expectType();
    press();

    EXPECT_GT(item("Bert").ItemSessionIcon, 0);
}

TEST_P(SessionNote, OfAnAppointmentThatAnotherDeskDeletedIsToldAndGoes) {
    openByHand();
    select("Anna");
    otherDeskDeletes(anna);
    desk.expectBox("Appointment not found in database. It may have been deleted by another user.",
                   "Appointment not found");
    press();
    EXPECT_FALSE(itemTexts().contains("Anna"));
    EXPECT_TRUE(command("mnuANote").isVisible());
}

TEST_P(SessionNote, OfAnotherProvidersVisitIsRefused) {
    add(anAppointment("Cora").at(13, 0).of("LANE").status(ncolor::Kept));
    if (GetParam().view != View::AllProviders)
        Session().ProviderId = "LANE";
    openByHand();
    select("Cora");
    desk.expectBox(
        "In order to create a note or view an existing associated note, you must be logged on as the rendering provider for this appointment.",
        "Solvane");
    press();
    EXPECT_EQ(database_.number("Select Count(*) from sessions"), 0);
}

TEST_P(SessionNote, IsChosenFromThePopup) {
    openByHand();
    rightClick(rectOf("Anna").center());
    auto* popup = view_->findChild<QMenu*>(QStringLiteral("popup"));
    ASSERT_TRUE(popup->isVisible());
    expectType([this](QDialog&) { EXPECT_FALSE(command("mnuANote").isVisible()); });

    QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(&command("mnuANote")).center());
    settle();

    EXPECT_EQ(desk.started, QStringList{started("1")});
    EXPECT_TRUE(command("mnuANote").isVisible());
}

TEST_P(SessionNote, HasAKeyInEachView) {
    openByHand();
    EXPECT_EQ(command("mnuANote").shortcut(), QKeySequence("Ctrl+Shift+S"));
    EXPECT_EQ(command("mnuANote").text(), "&Session Note...");
}

TEST_P(SessionNote, StoresATextThatIsBeingTypedFirst) {
    add(anAppointment("Lunch").at(12, 0).status(ncolor::Unavailable));
    openByHand();
    beginTyping("Lunch", "Late lunch");
    desk.expectBox("No appointment selected. First select a Kept or Missed appointment.", "Warning");
    press();
    EXPECT_EQ(database_.text("Select cappttext from appointments Where nStartTime = 720"), "Late lunch");
}

TEST_P(SessionNote, OfAMissedVisitIsTheMissedAppointmentNote) {
    for (const int code : {ncolor::Missed, ncolor::PatientCancelled, ncolor::TherapistCancelled}) {
        otherDeskSets(anna, QStringLiteral("ncolor = %1").arg(code));
        openByHand();
        select("Anna");
        desk.expectForm("frmmsdApt", [this](QDialog& form) {
            EXPECT_FALSE(command("mnuANote").isVisible());
            form.reject();
        });
        press();
        EXPECT_EQ(item("Anna").ItemSessionIcon, 0) << "Nothing was saved.";
        EXPECT_TRUE(command("mnuANote").isVisible());
    }
    EXPECT_TRUE(desk.started.isEmpty());
}

TEST_P(SessionNote, OfAMissedVisitShowsItsIconOnceItIsSaved) {
    otherDeskSets(anna, "ncolor = 192");
    openByHand();
    select("Anna");
    desk.expectForm("frmmsdApt", [](QDialog& dialog) {
        auto& form = dynamic_cast<frmmsdApt&>(dialog);
        EXPECT_EQ(form.Request().NoteId, 0);
        EXPECT_EQ(form.Request().date, QDate(2026, 3, 11));
        EXPECT_FALSE(form.Request().ReadOnly);
        form.txtreason->setPlainText(QStringLiteral("Ill."));
        form.cmdOk->click();
    });
    press();
    EXPECT_GT(item("Anna").ItemSessionIcon, 0);
    EXPECT_GT(stored(anna, "NoteID").toInt(), 0);

    desk.expectForm("frmmsdApt", [this](QDialog& dialog) {
        auto& form = dynamic_cast<frmmsdApt&>(dialog);
        EXPECT_TRUE(command("mnuANote").isVisible()) << "It is hidden only for a new note.";
        EXPECT_EQ(QString::number(form.Request().NoteId), stored(anna, "NoteID"));
        EXPECT_EQ(form.txtreason->toPlainText(), QStringLiteral("Ill."));
        form.cmdCancel->click();
    });
    press();
    EXPECT_GT(item("Anna").ItemSessionIcon, 0);
    EXPECT_TRUE(desk.started.isEmpty());
}

TEST_P(SessionNote, OfAMissedVisitIsOnlyShownToWhoMayOnlyRead) {
    Session().ScreenAccess = 1;
    otherDeskSets(anna, "ncolor = 192");
    openByHand();
    select("Anna");
    desk.expectForm("frmmsdApt", [](QDialog& form) {
        EXPECT_TRUE(dynamic_cast<frmmsdApt&>(form).Request().ReadOnly);
        form.reject();
    });
    press();
}

INSTANTIATE_TEST_SUITE_P(In, SessionNote, testing::ValuesIn(views),
                         [](const auto& tested) { return std::string(tested.param.name); });
