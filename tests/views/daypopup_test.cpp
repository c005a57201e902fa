#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTest>

#include "data/codes.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

namespace {

class DayPopup : public DayFixture {
  protected:
    /// The right mouse button on the item with that text.
    void rightClick(const char* text) {
        const QRect rect = calendar().ItemRect(calendar().IndexOfKey(item(text).ItemKey));
        QContextMenuEvent click(QContextMenuEvent::Mouse, rect.center(), calendar().mapToGlobal(rect.center()));
        QApplication::sendEvent(&calendar(), &click);
        QApplication::processEvents();
    }
    [[nodiscard]] QMenu* popup() {
        for (QMenu* menu : view_->findChildren<QMenu*>(QStringLiteral("popup"))) {
            if (menu->isVisible())
                return menu;
        }
        return nullptr;
    }
    /// What the popup shows, a "*" behind what is ticked and a "-" before what is greyed.
    [[nodiscard]] QStringList shown() {
        QStringList names;
        for (const QAction* action : popup()->actions()) {
            if (action->isVisible() && !action->isSeparator())
                names << (action->isEnabled() ? "" : "-") + action->objectName() + (action->isChecked() ? "*" : "");
        }
        return names;
    }
    [[nodiscard]] bool shows(const char* name) {
        return popup()->actions().contains(&command(name)) && command(name).isVisible();
    }
    [[nodiscard]] QStringList ticked() {
        QStringList names;
        for (const QAction* action : view_->findChildren<QAction*>()) {
            if (action->isChecked() && action->objectName().startsWith(QLatin1String("mnuA")))
                names << action->objectName();
            else if (action->isChecked() && action->objectName() == QLatin1String("mnuCheckediN"))
                names << action->objectName();
        }
        return names;
    }
};

struct Row {
    const char* kind;
    int code;
    int apptType;
    bool repeat, edit, slip, note;
    const char* tick;
};

class DayPopupTable : public DayPopup, public testing::WithParamInterface<Row> {};

constexpr Row table[] = {
    {"TypeSlot", 0x336699, 4, true, true, false, false, nullptr},
    {"TypeSlotInAStatusColour", 49152, 4, true, true, false, false, nullptr},
    {"Missed", 192, 0, true, true, false, true, "mnuAMissed"},
    {"PatientCancelled", 193, 0, true, true, false, true, "mnuAPCancel"},
    {"TherapistCancelled", 194, 0, true, true, false, true, "mnuATCancel"},
    {"Kept", 49152, 0, true, true, false, true, "mnuAKept"},
    {"Holiday", 49344, 0, false, false, false, false, nullptr},
    {"Blank", 16711680, 0, true, true, true, false, nullptr},
    {"Pending", 16711681, 0, true, true, true, false, "mnuAPending"},
    {"Group", 12632064, 0, false, true, false, false, nullptr},
    {"CheckedIn", 16777215, 0, true, true, false, false, "mnuCheckediN"},
    {"Tentative", 126322256, 0, false, true, false, false, nullptr},
    {"Activity", 16777088, 0, true, true, false, false, nullptr},
    {"Unavailable", 16744703, 0, true, true, false, false, nullptr},
    {"LegendTentative", 12632256, 0, true, true, false, false, nullptr},
};

}  // namespace

TEST_P(DayPopupTable, OffersWhatSuitsTheRow) {
    const Row& row = GetParam();
    add(anAppointment("The row").status(row.code).with("appttype", QString::number(row.apptType)));
    open();

    rightClick("The row");

    ASSERT_NE(popup(), nullptr);
    EXPECT_EQ(shows("mnuARepeat"), row.repeat);
    EXPECT_EQ(shows("mnuAEdit"), row.edit);
    EXPECT_EQ(shows("mnuFPrintA"), row.slip);
    EXPECT_EQ(shows("mnuANote"), row.note);
    EXPECT_EQ(ticked(), row.tick ? QStringList{QString::fromLatin1(row.tick)} : QStringList());
    for (const char* name : {"mnuANew", "mnuAsep1", "mnuAFind", "mnuASearchA"})
        EXPECT_FALSE(command(name).isEnabled()) << name;
}

INSTANTIATE_TEST_SUITE_P(Kind, DayPopupTable, testing::ValuesIn(table),
                         [](const auto& tested) { return std::string(tested.param.kind); });

TEST_F(DayPopup, TheHolidayBannerOffersNothingThatCouldTouchIt) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders'' Day', '2026/03/11', 0)");
    open();

    rightClick("Founders' Day");

    ASSERT_NE(popup(), nullptr);
    for (const char* name : {"mnuARepeat", "mnuAEdit", "mnuFPrintA", "mnuANote", "mnuADelete"})
        EXPECT_FALSE(shows(name)) << name;
    for (const QString& entry : shown())
        EXPECT_TRUE(entry.startsWith(QLatin1Char('-'))) << entry.toStdString();
}

TEST_F(DayPopup, SelectsTheAppointmentUnderThePointer) {
    add(anAppointment("Anna").status(ncolor::Kept));
    add(anAppointment("Bert").at(11, 0).status(ncolor::Missed));
    open();
    select("Anna");

    rightClick("Bert");

    EXPECT_EQ(info().first(), "Appointment;Bert");
    EXPECT_EQ(ticked(), QStringList{"mnuAMissed"});
}

TEST_F(DayPopup, OnceClosedTheMenuBarHasItsCommandsBackAndNoTick) {
    Session().AllProviders = true;
    add(anAppointment("Thursday group").status(ncolor::Group));
    add(anAppointment("Anna").at(11, 0).status(ncolor::Kept));
    open();
    const bool newBefore = command("mnuANew").isEnabled();
    const bool searchBefore = command("mnuASearchA").isEnabled();

    for (const char* text : {"Thursday group", "Anna"}) {
        rightClick(text);
        ASSERT_NE(popup(), nullptr);
        QTest::keyClick(popup(), Qt::Key_Escape);
        EXPECT_EQ(popup(), nullptr);

        EXPECT_EQ(command("mnuANew").isEnabled(), newBefore);
        EXPECT_EQ(command("mnuASearchA").isEnabled(), searchBefore);
        EXPECT_TRUE(ticked().isEmpty());
        for (const char* name : {"mnuARepeat", "mnuAEdit", "mnuFPrintA", "mnuANote", "mnuADelete"})
            EXPECT_TRUE(command(name).isVisible()) << name;
    }
}

TEST_F(DayPopup, ClosingItGivesNobodyRightsHeLacks) {
    Session().ScreenAccess = 2;
    add(anAppointment("Anna"));
    open();

    rightClick("Anna");
    EXPECT_FALSE(command("mnuADelete").isEnabled());
    QTest::keyClick(popup(), Qt::Key_Escape);

    EXPECT_FALSE(command("mnuADelete").isEnabled());
    EXPECT_FALSE(command("mnuASearchA").isEnabled());
}

TEST_F(DayPopup, AStatusChosenInItIsStoredAndTicked) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    rightClick("Anna");

    QTest::mouseClick(popup(), Qt::LeftButton, {}, popup()->actionGeometry(&command("mnuAMissed")).center());
    QApplication::processEvents();

    EXPECT_EQ(database_.number(db::Sql("Select ncolor from appointments Where nkeyid = {}", key)), ncolor::Missed);
    EXPECT_EQ(ticked(), QStringList{"mnuAMissed"});
    EXPECT_EQ(popup(), nullptr);
}

TEST_F(DayPopup, TheStatusIsARadioAndPendingLeadsBack) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Kept));
    open();
    const auto stored = [&] {
        return database_.number(db::Sql("Select ncolor from appointments Where nkeyid = {}", key));
    };
    const auto choose = [&](const char* name) {
        rightClick("Anna");
        QTest::mouseClick(popup(), Qt::LeftButton, {}, popup()->actionGeometry(&command(name)).center());
        QApplication::processEvents();
    };
    for (const char* name : {"mnuAPending", "mnuCheckediN", "mnuAKept", "mnuAMissed", "mnuAPCancel", "mnuATCancel"}) {
        ASSERT_NE(command(name).actionGroup(), nullptr) << name;
        EXPECT_TRUE(command(name).actionGroup()->isExclusive()) << name;
    }
    for (int time = 1; time <= 2; ++time) {
        choose("mnuAPending");
        EXPECT_EQ(stored(), ncolor::Pending);
        EXPECT_EQ(item("Anna").ItemColor, ncolor::Pending);
        EXPECT_EQ(ticked(), QStringList{"mnuAPending"});
        choose("mnuATCancel");
        EXPECT_EQ(stored(), ncolor::TherapistCancelled);
        EXPECT_EQ(ticked(), QStringList{"mnuATCancel"});
    }
    choose("mnuATCancel");
    EXPECT_EQ(ticked(), QStringList{"mnuATCancel"}) << "the one that is set stays set";
}

TEST_F(DayPopup, PendingIsForPatientsOnly) {
    add(anAppointment("Meeting").status(ncolor::Activity));
    open();
    rightClick("Meeting");
    EXPECT_TRUE(shown().contains(QStringLiteral("-mnuAPending")));
}

TEST_F(DayPopup, TheMenuKeyOpensItForTheSelectedAppointment) {
    add(anAppointment("Anna").status(ncolor::Kept));
    open();
    select("Anna");

    QTest::keyClick(&calendar(), Qt::Key_Menu);
    QApplication::processEvents();

    ASSERT_NE(popup(), nullptr);
    EXPECT_EQ(ticked(), QStringList{"mnuAKept"});
}

TEST_F(DayPopup, OpensForNobodyWhoMayOnlyRead) {
    for (const int access : {0, 1}) {
        Session().ScreenAccess = access;
        add(anAppointment("Anna"));
        open();

        rightClick("Anna");

        EXPECT_EQ(popup(), nullptr);
    }
}

TEST_F(DayPopup, StandsBesideTheMenusOfTheMenuBar) {
    add(anAppointment("Anna").status(ncolor::Pending));
    QMenuBar bar;
    open().FillMenus(bar);

    rightClick("Anna");

    ASSERT_NE(popup(), nullptr);
    EXPECT_TRUE(shown().contains(QStringLiteral("-mnuANew")));
    EXPECT_FALSE(shown().contains(QStringLiteral("mnuANPat"))) << "What stands in a submenu stays there.";
}

TEST_F(DayPopup, TheMenuLivesOnWhileTheDialogThatWasChosenFromItIsOpen) {
    add(anAppointment("Anna").status(ncolor::Pending));
    open();
    for (int round = 1; round <= 10; ++round) {
        rightClick("Anna");
        ASSERT_NE(popup(), nullptr) << round;
        const QPointer<QMenu> chosenFrom(popup());
        desk.expectForm("frmnore", [&](QDialog&) {
            settle();
            EXPECT_FALSE(chosenFrom.isNull()) << "Qt still works in it.";
        });
        QTest::mouseClick(popup(), Qt::LeftButton, {}, popup()->actionGeometry(&command("mnuAEdit")).center());
        settle();
        EXPECT_EQ(popup(), nullptr);
    }
}
