#include <QPushButton>

#include "data/codes.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/noticebar.h"
#include "shell/finddialog.h"
#include "tests/views/allfixture.h"
#include "views/frmmtv.h"
#include "views/frmsched.h"
#include "views/frmweekv.h"

namespace {

/// Reed looks for Anna, whose appointment stands where the view does not show it just now.
class FoundPlaces : public AllProviders {
  protected:
    FoundPlaces() { notices.resize(600, 200); }
    std::unique_ptr<CalendarView> makeView() override {
        if (which == View::Week)
            return std::make_unique<frmweekv>(main);
        if (which == View::AllProviders)
            return std::make_unique<frmall>(main);
        return std::make_unique<frmsched>(main);
    }
    void openAs(View view) {
        which = view;
        Session().CurrentView = view;
        openByHand();
    }
    void goTo(const char* text) {
        desk.expectForm("frmfinda", [text](QDialog& form) {
            auto& find = dynamic_cast<FindDialog&>(form);
            find.txtfind->setText(QLatin1String(text));
            find.cmdfind->click();
            find.cmdgoto->click();
        });
        view_->FindAppointment();
    }
    QString selected() { return view_->SelectedItem().value_or(CalendarItem()).ItemText; }
    /// Whether the selected item can be seen.
    bool inSight() {
        const QRect place = calendar().ItemRect(calendar().SelectedItem());
        return !place.isEmpty() && calendar().rect().intersects(place);
    }
    QString told() { return notices.Texts().join(QLatin1Char('\n')); }

    View which = View::Day;
    NoticeBar notices;
};

}  // namespace

TEST_F(FoundPlaces, TheDayScrollsToTheAppointment) {
    add(anAppointment("Anna").on(QDate(2026, 3, 20)).at(17, 0).until(17, 50));
    openAs(View::Day);
    goTo("Anna");
    EXPECT_EQ(selected(), "Anna");
    EXPECT_TRUE(inSight());
    EXPECT_EQ(told(), QString());
}

TEST_F(FoundPlaces, AmongManyProvidersTheColumnComesIntoSight) {
    addMany();
    add(anAppointment("Anna").of("P16").at(17, 0).until(17, 50));
    Session().ProviderId = QStringLiteral("P16");
    Session().ProviderName = QStringLiteral("Xu16");
    openAs(View::AllProviders);
    calendar().ScrollToColumn(1);
    goTo("Anna");
    EXPECT_EQ(selected(), "Anna");
    EXPECT_TRUE(inSight());
    EXPECT_EQ(box("cboprovs").currentText(), "Xu16");
}

TEST_F(FoundPlaces, AProviderWhoseColumnWasTakenAwayGetsItBack) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openAs(View::AllProviders);
    turn("Reed");
    EXPECT_EQ(columns(), "Baker Lane");
    goTo("Anna");
    EXPECT_EQ(columns(), "Baker Lane Reed");
    EXPECT_EQ(selected(), "Anna");
    EXPECT_TRUE(inSight());
}

TEST_F(FoundPlaces, AProviderWhoIsNotAmongThemIsToldOfAndNothingStaysSelected) {
    add(anAppointment("Anna").of("GONE").at(9, 0).until(9, 50));
    add(anAppointment("Of Reed").at(9, 0).until(9, 50));
    Session().ProviderId = QStringLiteral("GONE");
    Session().ProviderName = QStringLiteral("Gone");
    openAs(View::AllProviders);
    select("Of Reed");
    goTo("Anna");
    EXPECT_EQ(selected(), QString());
    EXPECT_TRUE(told().contains("is of Gone, who is not among the providers that this view shows."))
        << told().toStdString();
}

TEST_F(FoundPlaces, AWeekOfFiveDaysTellsOfASaturdayAndKeepsNothingSelected) {
    const qint64 key = add(anAppointment("Anna").on(QDate(2026, 3, 14)).at(9, 0).until(9, 50));
    add(anAppointment("Of Wednesday").at(9, 0).until(9, 50));
    openAs(View::Week);
    select("Of Wednesday");
    goTo("Anna");
    EXPECT_EQ(selected(), QString());
    EXPECT_EQ(
        told(),
        "The appointment that was found is on Saturday, March 14, 2026, which the week of five days does not show.");
    this->key(Qt::Key_Delete);
    EXPECT_EQ(stored(key, "cappttext"), "Anna");
}

TEST_F(FoundPlaces, FromTheWeekTheDayOfAnUnseenAppointmentIsOpenedAtIt) {
    add(anAppointment("Anna").on(QDate(2026, 3, 14)).at(17, 0).until(17, 50));
    openAs(View::Week);
    goTo("Anna");
    QTest::mouseClick(notices.findChild<QPushButton*>(), Qt::LeftButton);
    settle();
    EXPECT_TRUE(main.asked.contains("changeview 0"));
    openAs(View::Day);
    EXPECT_EQ(selected(), "Anna");
    EXPECT_TRUE(inSight());
}

TEST_F(FoundPlaces, AWeekOfSevenDaysShowsTheSaturday) {
    run("Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('REED', 'SchedulerGeneral', 'WeekCols', '7')");
    add(anAppointment("Anna").on(QDate(2026, 3, 14)).at(17, 0).until(17, 50));
    openAs(View::Week);
    goTo("Anna");
    EXPECT_EQ(selected(), "Anna");
    EXPECT_TRUE(inSight());
}

TEST_F(FoundPlaces, AnAllDayEntryIsToldOfWhereTheViewLeavesItOut) {
    add(anAppointment("Anna").at(9, 0).until(9, 50).with("allday", "1"));
    for (const View view : {View::Week, View::AllProviders}) {
        openAs(view);
        goTo("Anna");
        EXPECT_EQ(selected(), QString());
        EXPECT_TRUE(told().contains("lasts all day")) << told().toStdString();
        notices.Drop(FoundNotice);
    }
}

TEST_F(FoundPlaces, AnAppointmentThatWasDeletedMeanwhileLeavesNothingSelected) {
    add(anAppointment("Anna").on(QDate(2026, 3, 20)));
    openAs(View::Day);
    desk.expectForm("frmfinda", [this](QDialog& form) {
        auto& find = dynamic_cast<FindDialog&>(form);
        find.txtfind->setText(QStringLiteral("Anna"));
        find.cmdfind->click();
        find.cmdgoto->click();
        otherDesk(QStringLiteral("Delete from appointments"));
    });
    view_->FindAppointment();
    EXPECT_EQ(selected(), QString());
    EXPECT_TRUE(told().contains("is not there any more")) << told().toStdString();
}

TEST_F(FoundPlaces, TheDayThatIsOpenedFromTheMonthShowsWhatWasFound) {
    add(anAppointment("Anna").on(QDate(2026, 4, 2)).at(17, 0).until(17, 50));
    {
        frmmtv month(main);
        desk.expectForm("frmfinda", [](QDialog& form) {
            auto& find = dynamic_cast<FindDialog&>(form);
            find.txtfind->setText(QStringLiteral("Anna"));
            find.cmdfind->click();
            find.cmdgoto->click();
        });
        month.FindAppointment();
        EXPECT_EQ(told(), "The appointment that was found is on Thursday, April 2, 2026, at 5:00 PM.");
    }
    openAs(View::Day);
    EXPECT_EQ(selected(), "Anna");
    EXPECT_TRUE(inSight());
}

TEST_F(FoundPlaces, AnotherDayOpenedFromTheMonthSelectsNothing) {
    add(anAppointment("Anna").on(QDate(2026, 4, 2)));
    add(anAppointment("Anna").on(QDate(2026, 4, 3)));
    main.LeaveFound({QStringLiteral("1"), QDate(2026, 4, 2), 540, false});
    main.SetDate(QDate(2026, 4, 3));
    openAs(View::Day);
    EXPECT_EQ(selected(), QString());
    main.SetDate(QDate(2026, 4, 2));
    view_->Reload();
    EXPECT_EQ(selected(), QString());
}

TEST_F(FoundPlaces, AllProvidersFollowsTheProviderThatASearchForAnOpeningChose) {
    openAs(View::AllProviders);
    turn("Baker");
    desk.expectForm("frmsavail", [](QDialog& form) {
        form.findChild<ctDEdit*>("ctdate")->setDate(QDate(2026, 3, 11));
        form.findChild<ctDEdit*>("ctstart")->setTime(600);
        form.findChild<ctDEdit*>("ctend")->setTime(660);
        form.findChild<QPushButton*>("cmdsearch")->click();
        form.findChild<ctList*>("List1")->SelectRow(0);
        form.findChild<QPushButton*>("cmdgoto")->click();
    });
    command("mnuASearchO").trigger();
    EXPECT_EQ(Session().ProviderId, "BAKER");
    EXPECT_EQ(box("cboprovs").currentText(), "Baker");
    EXPECT_EQ(view_->Provider().id, "BAKER");
    EXPECT_EQ(columns(), "Baker Lane Reed");
}

TEST_F(FoundPlaces, AllProvidersFollowsTheProviderThatASearchByTypeChose) {
    run("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Intake', 4660)");
    run("Insert Into passwords (pswd_user_id, pswd_type_of_access) Values ('LANE', 1)");
    add(anAppointment("Intake").of("LANE").at(14, 0).until(15, 0).status(4660).with("appttype", "4"));
    openAs(View::AllProviders);
    desk.expectForm("frmfirstatype", [](QDialog& form) {
        auto* providers = form.findChild<QComboBox*>("cboProviders");
        providers->setCurrentIndex(providers->findData("LANE"));
        form.findChild<QComboBox*>("cboatypes")->setCurrentIndex(0);
        form.findChild<QLineEdit*>("txtlength")->setText("30");
        form.findChild<QPushButton*>("cmdsearch")->click();
        form.findChild<QPushButton*>("cmdgoto")->click();
    });
    command("mnuASearchT").trigger();
    EXPECT_EQ(view_->Provider().id, "LANE");
}
