#include <QAction>

#include "platform/controls/noticebar.h"
#include "session/savedviews.h"
#include "tests/support/menuletters.h"
#include "tests/views/eachview.h"
#include "views/frmmtv.h"

namespace {

class SavedContents : public EachView {
  protected:
    SavedContents() { desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(14, 20))); }
    NoticeBar bar;
};

}  // namespace

TEST_F(SavedContents, TheWeekKeepsItsDaysAndOpensWithThem) {
    openAs(Which::Week);
    EXPECT_EQ(calendar().ColumnCount(), 5);
    ViewContents kept;
    view_->AddContents(kept);
    EXPECT_EQ(kept.Lines(), "columns=5");

    main.LeaveContents(ViewContents(QStringLiteral("columns=7")));
    openAs(Which::Week);
    EXPECT_EQ(calendar().ColumnCount(), 7);
    view_->ShowContents(ViewContents(QStringLiteral("columns=5")));
    EXPECT_EQ(calendar().ColumnCount(), 5);
    view_->ShowContents(ViewContents(QStringLiteral("columns=6")));
    EXPECT_EQ(calendar().ColumnCount(), 5) << "No week has six days here.";
    view_->ShowContents(ViewContents(QStringLiteral("columns=7")));
    view_->ApplyPreferences();
    EXPECT_EQ(calendar().ColumnCount(), 5) << "The preferences count again.";
}

TEST_F(SavedContents, TheDayTakesTheRowsOfTheSavedView) {
    openAs(Which::Day);
    Session().TimeUnit = 30;
    Session().DayStartHour = 6;
    view_->ShowContents({});
    EXPECT_EQ(calendar().TimeInterval(), 30);
    EXPECT_EQ(calendar().FirstTime(), 360);
}

TEST_F(SavedContents, NowIsScrolledIntoTheUpperHalf) {
    run("Insert Into provider_info (id, prov_lastname, archive) Values('REED', 'Reed', 0)");
    for (const Which each : {Which::Day, Which::Week, Which::All}) {
        Session().DayEndHour = 24;
        Session().DayStartHour = 0;
        openAs(each);
        calendar().setTopTime(0);
        view_->ShowNow();
        EXPECT_LE(calendar().TopTime(), 860) << static_cast<int>(each);
        EXPECT_GE(calendar().TopTime(), 700);
        EXPECT_FALSE(calendar().CellRect(1, 860).isEmpty());
    }
}

TEST_F(SavedContents, AWeekOfFiveDaysSaysThatItDoesNotShowAWeekend) {
    desk.setNow(QDateTime(QDate(2026, 3, 14), QTime(14, 20)));
    main.SetDate(QDate(2026, 3, 14));
    openAs(Which::Week);
    for (int twice = 0; twice < 2; ++twice)
        view_->ShowNow();
    EXPECT_EQ(bar.Texts(),
              QStringList{"Today is Saturday, March 14, 2026, which the week of five days does not show."});
}

TEST_F(SavedContents, EachGreyedCommandSaysWhy) {
    for (const Which each : {Which::Day, Which::Week, Which::All})
        for (const int access : {1, 2, 3})
            for (const bool allProviders : {false, true}) {
                Session().ScreenAccess = access;
                Session().AllProviders = allProviders;
                openAs(each);
                QMenuBar menus;
                view_->FillMenus(menus);
                ExpectEachGreyedCommandSaysWhy(menus);
            }
    Session().AllProviders = true;
    frmmtv month(main);
    QMenuBar menus;
    month.FillMenus(menus);
    ExpectEachGreyedCommandSaysWhy(menus);
}

TEST_F(SavedContents, EachAltLetterStandsOnceInEachPopupAndMenu) {
    main.savedViews = {{1, 7, "Seven", 1, {}}, {2, 10, "", 2, {}}, {3, 12, "&Twelve", 99, {}}};
    for (const Which each : {Which::Day, Which::Week, Which::All}) {
        openAs(each);
        QMenuBar menus;
        view_->FillMenus(menus);
        ExpectEachLetterOnce(menus.actions(), "menu bar");
        for (QObject* owner : {static_cast<QObject*>(&menus), static_cast<QObject*>(view_.get())})
            for (const QMenu* menu : owner->findChildren<QMenu*>())
                ExpectEachLetterOnce(menu->actions(), menu->title().isEmpty() ? menu->objectName() : menu->title());
    }
}
