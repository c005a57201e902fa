#include <QLineEdit>
#include <QPushButton>

#include "people/typelengths.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "tests/appointments/editorfixture.h"

namespace {

/// The end of a new appointment for which only the start was chosen.
class VisitLength : public EditorFixture {
  protected:
    VisitLength() {
        Session().AllProviders = true;
        database.connection().Execute("Update patient_info Set defaultCPT = '90834' Where id = '10017'");
        EXPECT_TRUE(SetTypeLength(typeOf("Intake"), 90));
    }
    int typeOf(const char* name) {
        return static_cast<int>(
            database.number(db::Sql("Select aptcategoryid from AptCategories Where aptcategory = '{}'", name)));
    }
    frmnore& openAt(EditorRequest request) {
        form = std::make_unique<frmnore>(request);
        form->show();
        form->activateWindow();
        QCoreApplication::processEvents();
        return *form;
    }
    EditorRequest cell(int kind = 1) const {
        EditorRequest request = newEntry(kind);
        request.slot = SelectedSlot{day, 540, 590};
        request.endIsOpen = true;
        return request;
    }
    static void pick(CompletingCombo& box, const QString& item) {
        box.SetListIndex(box.FindExact(item));
        Q_EMIT box.Click(box.ListIndex());
    }
};

}  // namespace

TEST_F(VisitLength, IsTheProposedOneUntilMoreIsKnown) {
    openAt(cell());
    EXPECT_EQ(form->ctend->Time(), 590);
}

TEST_F(VisitLength, FollowsThePatientsUsualServiceAndGoesBackWithoutIt) {
    openAt(cell());
    type(form->txtpatients, QStringLiteral("jon"));
    EXPECT_EQ(form->ctend->Time(), 585);
    press(form->txtpatients, Qt::Key_Backspace);
    EXPECT_EQ(form->ctend->Time(), 590);
}

TEST_F(VisitLength, TheTypeThatIsChosenCountsBeforeTheUsualService) {
    openAt(cell());
    pick(*form->cboapttype, QStringLiteral("Intake"));
    EXPECT_EQ(form->ctend->Time(), 630);
    type(form->txtpatients, QStringLiteral("jon"));
    EXPECT_EQ(form->ctend->Time(), 630);
    pick(*form->cboapttype, QStringLiteral("Follow-up"));
    EXPECT_EQ(form->ctend->Time(), 585) << "a type without a length leaves it to the service";
}

TEST_F(VisitLength, AServiceThatIsClickedSetsTheEndAsBefore) {
    openAt(cell());
    pick(*form->cboapttype, QStringLiteral("Intake"));
    pick(*form->cbocpt, QStringLiteral("90834  Psychotherapy"));
    EXPECT_EQ(form->ctend->Time(), 585);
}

TEST_F(VisitLength, AnEndThatTheUserEntersStays) {
    openAt(cell());
    form->ctend->setTime(720);
    type(form->txtpatients, QStringLiteral("jon"));
    pick(*form->cboapttype, QStringLiteral("Intake"));
    EXPECT_EQ(form->ctend->Time(), 720);
}

TEST_F(VisitLength, ADrawnTimeAndAnExistingAppointmentStayAsTheyAre) {
    openNew(1);
    type(form->txtpatients, QStringLiteral("jon"));
    pick(*form->cboapttype, QStringLiteral("Intake"));
    EXPECT_EQ(form->ctend->Time(), 600);
    const int key = savedPatientAppointment();
    openRow(key, 1);
    const int end = form->ctend->Time();
    pick(*form->cboapttype, QStringLiteral("Intake"));
    EXPECT_EQ(form->ctend->Time(), end);
}

TEST_F(VisitLength, ASlotOfATypeGetsTheLengthOfTheType) {
    openAt(cell(4));
    pick(*form->cbocats, QStringLiteral("Intake"));
    EXPECT_EQ(form->ctend->Time(), 630);
}

TEST_F(VisitLength, EndsWithTheDay) {
    EditorRequest late = cell();
    late.slot = SelectedSlot{day, 1410, 1425};
    openAt(late);
    pick(*form->cboapttype, QStringLiteral("Intake"));
    EXPECT_EQ(form->ctend->Time(), 1440);
}

TEST_F(VisitLength, AKnownPatientTypeAndTimeStandInTheFormAndEnterSaves) {
    EditorRequest known = newEntry(1);
    known.patientId = QStringLiteral("10017");
    known.category = 255;
    openAt(known);
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(form->cboapttype->ItemData(), 255);
    EXPECT_EQ(form->ctend->Time(), 600);
    press(form->txtpatients, Qt::Key_Return);
    EXPECT_EQ(stored(newestKey()), QStringLiteral("540-600 2026-03-11 Jones, Mary @ "));
}

TEST_F(VisitLength, ANameThatNobodyHasStandsInTheFormAndIsAskedFor) {
    EditorRequest unknown = newEntry(1);
    unknown.patientName = QStringLiteral("Novak, Eva");
    openAt(unknown);
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Novak, Eva"));
    desk.expectBox(QStringLiteral("Patient not found in database. Add patient now?"), QStringLiteral("Solvane"),
                   Answer::No);
    clickOk();
    EXPECT_EQ(rowCount("appointments"), 0);
}
