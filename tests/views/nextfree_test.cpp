#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include "appointments/frmnore.h"
#include "data/codes.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/noticebar.h"
#include "search/frmnextfree.h"
#include "session/session.h"
#include "tests/views/eachview.h"

/// The command "Next Free Hour" in the views, and how long a new visit is.
class NextFreeInViews : public EachView {
  protected:
    NextFreeInViews() {
        Session().AllProviders = true;
        run(QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)"));
        run(QStringLiteral(
            "Insert Into patient_info (id, last_name, first_name, archive) Values ('10017', 'O''Brien', 'Anna', 0)"));
    }
    /// Chooses the first opening in the form, after `act`.
    void expectSearch(const std::function<void(frmnextfree&)>& act = {}) {
        desk.expectForm("frmnextfree", [act](QDialog& dialog) {
            auto& form = static_cast<frmnextfree&>(dialog);
            if (act)
                act(form);
            settle();
            form.cmdbook->click();
        });
    }
    void expectEditor(const std::function<void(frmnore&)>& act) {
        desk.expectForm("frmnore", [act](QDialog& dialog) { act(static_cast<frmnore&>(dialog)); });
    }
    void cell(int minute) {
        view_->activateWindow();
        calendar().setFocus();
        settle();
        const QRect place = calendar().CellRect(1, minute);
        QTest::mouseClick(&calendar(), Qt::LeftButton, {}, {place.right() - 2, place.top() + 1});
    }
    void expectNew(int start, int end) {
        expectEditor([=](frmnore& form) {
            EXPECT_EQ(form.ctstart->Time(), start);
            EXPECT_EQ(form.ctend->Time(), end);
            form.done(QDialog::Rejected);
        });
    }
};

TEST_F(NextFreeInViews, OpensTheEditorAtTheNextOpeningAndTheSavedVisitStandsSelected) {
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(9, 0)));
    add(anAppointment("Busy").at(9, 0).until(10, 0));
    for (const Which each : {Which::Day, Which::Week, Which::All}) {
        otherDesk(QStringLiteral("Delete from appointments Where cappttext <> 'Busy'"));
        openAs(each);
        expectSearch([](frmnextfree& form) { form.txtpatients->setText(QStringLiteral("typed")); });
        expectEditor([](frmnore& form) {
            EXPECT_EQ(form.ctstart->Time(), 600);
            EXPECT_EQ(form.ctend->Time(), 615);
            EXPECT_EQ(form.ctedate->Date(), QDate(2026, 3, 11));
            EXPECT_EQ(form.Request().provider.id, QStringLiteral("REED"));
            form.SetPatientTag(QStringLiteral("10017"));
            form.txtpatients->setText(QStringLiteral("O'Brien, Anna"));
            form.cmdOk->click();
        });
        command("mnuANext").trigger();
        settle();
        ASSERT_TRUE(view_->SelectedItem()) << static_cast<int>(each);
        EXPECT_EQ(view_->SelectedItem()->ItemText, QStringLiteral("O'Brien, Anna"));
        EXPECT_EQ(view_->SelectedItem()->ItemStart, 600);
    }
}

TEST_F(NextFreeInViews, GoesToTheDayAndTheProviderOfTheOpening) {
    run(QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)"));
    openAs(Which::Day);
    expectSearch([](frmnextfree& form) {
        form.cboproviders->setCurrentIndex(frmnextfree::AllProviders);
        form.ctdate->setDate(QDate(2026, 3, 17));
    });
    expectEditor([](frmnore& form) {
        EXPECT_EQ(form.Request().provider.id, QStringLiteral("LANE"));
        EXPECT_EQ(form.ctedate->Date(), QDate(2026, 3, 17));
        form.done(QDialog::Rejected);
    });
    command("mnuANext").trigger();
    EXPECT_EQ(main.Date(), QDate(2026, 3, 17));
    EXPECT_EQ(Session().ProviderId, QStringLiteral("LANE"));
}

TEST_F(NextFreeInViews, AnOpeningOnAWeekendIsToldOfInTheWeekOfFiveDays) {
    NoticeBar notices;
    openAs(Which::Week);
    const auto bookOn = [&](QDate date) {
        expectSearch([date](frmnextfree& form) {
            form.ckdays[6]->setChecked(true);
            form.ctdate->setDate(date);
        });
        expectEditor([date](frmnore& form) {
            EXPECT_EQ(form.ctedate->Date(), date);
            form.done(QDialog::Rejected);
        });
        command("mnuANext").trigger();
    };
    cell(540);
    bookOn(QDate(2026, 3, 14));
    EXPECT_LT(calendar().SelectedRange(), 0);
    EXPECT_EQ(notices.Texts(),
              QStringList{QStringLiteral(
                  "The opening is on Saturday, March 14, 2026, which the week of five days does not show.")});
    bookOn(QDate(2026, 3, 13));
    EXPECT_EQ(notices.Texts(), QStringList());
}

TEST_F(NextFreeInViews, ClosedWithoutAChoiceItChangesNothing) {
    openAs(Which::Day);
    desk.expectForm("frmnextfree", [](QDialog& form) { form.reject(); });
    command("mnuANext").trigger();
    EXPECT_EQ(main.Date(), QDate(2026, 3, 11));
}

TEST_F(NextFreeInViews, CannotBeUsedByWhoMayOnlyRead) {
    Session().ScreenAccess = 1;
    openAs(Which::Day);
    EXPECT_FALSE(command("mnuANext").isEnabled());
    command("mnuANext").trigger();
}

TEST_F(NextFreeInViews, AClickOnOneCellBeginsAVisitOfThePreferredLength) {
    Session().VisitLength = 50;
    for (const Which each : {Which::Day, Which::Week, Which::All}) {
        openAs(each);
        cell(540);
        expectNew(540, 590);
        view_->AddAppointment();
    }
}

TEST_F(NextFreeInViews, WithoutAPreferenceItIsOneRowAndADrawnTimeStays) {
    openAs(Which::Day);
    cell(540);
    expectNew(540, 555);
    command("mnuANPat").trigger();
    Session().VisitLength = 50;
    cell(540);
    key(Qt::Key_Down, Qt::ShiftModifier);
    expectNew(540, 570);
    command("mnuANPat").trigger();
    cell(540);
    key(Qt::Key_Down, Qt::ControlModifier);
    key(Qt::Key_Up, Qt::ControlModifier);
    expectNew(540, 555);
    command("mnuANPat").trigger();
}

TEST_F(NextFreeInViews, AnActivityBegunInOneCellStaysOneRowLong) {
    Session().VisitLength = 50;
    openAs(Which::Day);
    cell(540);
    expectNew(540, 555);
    command("mnuANEvent").trigger();
}
