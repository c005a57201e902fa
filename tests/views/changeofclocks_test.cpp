#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

#include "appointments/frmnore.h"
#include "appointments/frmrecurappt.h"
#include "data/codes.h"
#include "followup/frmcheckedin.h"
#include "platform/calendar/ctweek.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdate.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/ctnedit.h"
#include "platform/database/sql.h"
#include "platform/desktop/localefacts.h"
#include "platform/printing/printpreview.h"
#include "rooms/frmrooms.h"
#include "tests/shell/practicefixture.h"
#include "tests/support/timezone.h"
#include "views/frmall.h"
#include "views/frmmtv.h"
#include "views/frmsched.h"
#include "views/frmweekv.h"

namespace {

/// Reed's practice on the day on which the clocks of a zone go forward, in some at midnight.
class ChangeOfClocks : public PracticeFixture, public testing::WithParamInterface<ZoneOfTest> {
  protected:
    ChangeOfClocks() : zone_(GetParam()), day(GetParam().change) {
        main.SetDate(day);
        desk.setNow(QDateTime(day, QTime(10, 30)));
        Session().AllProviders = true;
        run("Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)");
        run("Insert Into patient_info (id, last_name, first_name, archive) Values ('10017', 'Jones', 'Mary', 0)");
        run("Insert Into rooms (Room) Values ('Blue')");
    }

    template <class Form>
    void open() {
        view_ = std::make_unique<Form>(main);
        view_->resize(1000, 700);
        view_->show();
        view_->activateWindow();
        settle();
    }
    [[nodiscard]] QWidget& openView() override { return *view_; }
    template <class Widget>
    static Widget& in(QDialog& form, const char* name) {
        return *form.findChild<Widget*>(QLatin1String(name));
    }
    [[nodiscard]] QDate storedDate(const QString& statement) {
        const db::Recordset rows(statement, database_.connection());
        return rows.Eof() ? QDate() : rows[0].date();
    }
    [[nodiscard]] QDate dateOf(qint64 key) {
        return storedDate(QStringLiteral("Select dapptdate from appointments Where nkeyid = %1").arg(key));
    }
    [[nodiscard]] qint64 newest() { return database_.number("Select Max(nkeyid) from appointments"); }
    /// The rows of the day as a search of the database by its date finds them.
    [[nodiscard]] qint64 onTheDay(const char* table, const char* column) {
        return database_.number(db::Sql("Select Count(*) from {} Where {} = '{}'", db::Raw{QString::fromLatin1(table)},
                                        db::Raw{QString::fromLatin1(column)}, day));
    }

    InTimeZone zone_;
    const QDate day;
    std::unique_ptr<MenuView> view_;
};

}  // namespace

TEST_P(ChangeOfClocks, EveryViewShowsTheDaysAppointments) {
    add(anAppointment("Jones, Mary").on(day));
    open<frmsched>();
    EXPECT_EQ(item("Jones, Mary").ItemDay, day);
    EXPECT_GT(rectOf("Jones, Mary").height(), 0);
    open<frmall>();
    EXPECT_EQ(itemTexts(), QStringList{"Jones, Mary"});
    open<frmmtv>();
    EXPECT_EQ(view_->findChild<ctWeek*>()->Item(1).ItemDay, day);
    run("Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('REED', 'SchedulerGeneral', 'WeekCols', '7')");
    open<frmweekv>();
    EXPECT_EQ(calendar().ColumnOfItem(1), day.dayOfWeek());
}

TEST_P(ChangeOfClocks, APatientIsBookedOnTheDayWithAReminder) {
    open<frmsched>();
    calendar().selectRange(1, 600, 645);
    desk.expectForm("frmnore", [](QDialog& form) {
        auto& editor = dynamic_cast<frmnore&>(form);
        editor.txtpatients->setText(QStringLiteral("Jones, Mary"));
        editor.SetPatientTag(QStringLiteral("10017"));
        editor.PatientChosen();
        editor.ckAlarm->setChecked(true);
        editor.cborooms->SetText(QStringLiteral("Blue"));
        editor.cmdOk->click();
    });
    command("mnuANPat").trigger();
    EXPECT_EQ(dateOf(newest()), day);
    EXPECT_EQ(onTheDay("appointments", "dapptdate"), 1);
    EXPECT_EQ(onTheDay("roomschedule", "nApptDate"), 1);
    EXPECT_EQ(database_.number("Select ReminderTime from appointments"), 590);
    EXPECT_EQ(itemTexts(), QStringList{"Jones, Mary"});
}

TEST_P(ChangeOfClocks, ADragStaysOnTheDay) {
    const qint64 key = add(anAppointment("Jones, Mary").on(day).at(9, 0).until(9, 50));
    open<frmsched>();
    moveTo("Jones, Mary", 660);
    EXPECT_EQ(dateOf(key), day);
    EXPECT_EQ(database_.number("Select nStartTime from appointments"), 660);
}

TEST_P(ChangeOfClocks, ADragOfTheWeekLeadsToTheDayAndAwayFromIt) {
    run("Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('REED', 'SchedulerGeneral', 'WeekCols', '7')");
    const qint64 key = add(anAppointment("Jones, Mary").on(day.addDays(-1)).at(9, 0).until(9, 50));
    open<frmweekv>();
    const int column = day.dayOfWeek();
    const auto dragBy = [&](int columns) {
        const QPoint from = rectOf("Jones, Mary").center();
        const int across = calendar().CellRect(column, 540).left() - calendar().CellRect(column - 1, 540).left();
        mouseDrag(from, from + QPoint(columns * across, 0));
    };
    dragBy(1);
    EXPECT_EQ(dateOf(key), day);
    dragBy(-1);
    EXPECT_EQ(dateOf(key), day.addDays(-1));
}

TEST_P(ChangeOfClocks, ASeriesOfDaysDoesNotSkipIt) {
    add(anAppointment("Jones, Mary").on(day.addDays(-1)));
    main.SetDate(day.addDays(-1));
    open<frmsched>();
    select("Jones, Mary");
    desk.expectForm("frmRecurAppt", [](QDialog& form) {
        in<QAbstractButton>(form, "radRecurrence0").click();
        in<ctNEdit>(form, "txtRecrMaxEvents").setValue(3);
        in<QPushButton>(form, "cmdRecur0").click();
    });
    command("mnuARepeat").trigger();
    EXPECT_EQ(onTheDay("appointments", "dapptdate"), 1);
    EXPECT_EQ(database_.number("Select Count(*) from appointments"), 3);
}

TEST_P(ChangeOfClocks, FindGoesToTheDay) {
    add(anAppointment("Jones, Mary").on(day));
    main.SetDate(day.addDays(7));
    open<frmsched>();
    desk.expectForm("frmfinda", [](QDialog& form) {
        in<QLineEdit>(form, "txtfind").setText(QStringLiteral("Jones"));
        in<QPushButton>(form, "cmdfind").click();
        in<QPushButton>(form, "cmdgoto").click();
    });
    command("mnuAFind").trigger();
    EXPECT_EQ(main.Date(), day);
    EXPECT_EQ(itemTexts(), QStringList{"Jones, Mary"});
}

TEST_P(ChangeOfClocks, TheSearchesForFreeTimeKnowTheDay) {
    run("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Intake', 4660)");
    add(anAppointment("Intake").on(day).at(14, 0).until(15, 0).status(4660).with("appttype", "4"));
    open<frmsched>();
    desk.expectForm("frmsavail", [this](QDialog& form) {
        EXPECT_EQ(in<ctDEdit>(form, "ctdate").Date(), day);
        in<ctDEdit>(form, "ctstart").setTime(840);
        in<ctDEdit>(form, "ctend").setTime(900);
        in<QPushButton>(form, "cmdsearch").click();
        EXPECT_EQ(in<ctList>(form, "List1").RowCount(), 0);
        form.reject();
    });
    command("mnuASearchO").trigger();
    EXPECT_EQ(main.Date(), day);
    desk.expectForm("frmfirstatype", [](QDialog& form) {
        in<QComboBox>(form, "cboatypes").setCurrentIndex(0);
        in<QLineEdit>(form, "txtlength").setText(QStringLiteral("30"));
        in<QPushButton>(form, "cmdsearch").click();
        in<QPushButton>(form, "cmdgoto").click();
    });
    main.SetDate(day.addDays(7));
    command("mnuASearchT").trigger();
    EXPECT_EQ(main.Date(), day);
}

TEST_P(ChangeOfClocks, TheDayIsPrintedUnderItsDate) {
    open<frmsched>();
    QString title;
    desk.expectForm("frmpreview", [&title](QDialog& preview) {
        title = std::get<printing::Paragraph>(preview.findChild<PrintPreview*>()->Document().blocks.at(0)).text;
        preview.reject();
    });
    command("mnuFPrintS").trigger();
    EXPECT_EQ(title, QLocale().toString(day, QStringLiteral("dddd  MMMM d, yyyy")));
}

TEST_P(ChangeOfClocks, TheMonthCalendarStepsThroughItDayByDay) {
    ctDate month;
    month.show();
    month.SetDate(day.addDays(-1));
    QTest::keyClick(&month, Qt::Key_Right);
    EXPECT_EQ(month.Date(), day);
    QTest::keyClick(&month, Qt::Key_Right);
    EXPECT_EQ(month.Date(), day.addDays(1));
}

TEST_P(ChangeOfClocks, ARoomIsBookedOnTheDay) {
    open<frmrooms>();
    calendar().selectRange(1, 600, 660);
    QTest::keyClicks(&calendar(), QStringLiteral("B"));
    ASSERT_NE(editor(), nullptr);
    QTest::keyClick(editor(), Qt::Key_Return);
    settle();
    EXPECT_EQ(onTheDay("roomschedule", "nApptDate"), 1);
    dynamic_cast<frmrooms&>(*view_).LoadRooms();
    EXPECT_EQ(itemTexts(), QStringList{"B"});
}

TEST_P(ChangeOfClocks, WhoIsCheckedInOnTheDayIsListed) {
    add(anAppointment("Jones, Mary").on(day).status(ncolor::CheckedIn));
    const frmCheckedIn form;
    ASSERT_EQ(form.ctList1->RowCount(), 1);
    EXPECT_TRUE(form.ctList1->Cell(0, 3).startsWith(ShortDateText(day)));
}

INSTANTIATE_TEST_SUITE_P(Zones, ChangeOfClocks, testing::ValuesIn(zonesOfTest),
                         [](const testing::TestParamInfo<ZoneOfTest>& zone) { return std::string(zone.param.name); });
