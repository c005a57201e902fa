#include <QMenuBar>

#include "platform/controls/noticebar.h"
#include "session/savedviews.h"
#include "tests/rooms/roomsfixture.h"
#include "tests/support/menuletters.h"

namespace {

class SavedRooms : public RoomScheduler {
  protected:
    NoticeBar bar;
};

}  // namespace

TEST_F(SavedRooms, TheRoomIsKeptAndShownAgain) {
    open();
    ViewContents kept;
    view_->AddContents(kept);
    EXPECT_EQ(kept.Lines(), "room=1");
    view_->ShowContents(ViewContents(QStringLiteral("room=2")));
    EXPECT_EQ(rooms().currentText(), "Green");
    view_->ShowContents(kept);
    EXPECT_EQ(rooms().currentText(), "Blue");

    main.LeaveContents(ViewContents(QStringLiteral("room=2")));
    open();
    EXPECT_EQ(rooms().currentText(), "Green");
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(SavedRooms, ARoomThatIsGoneLeavesTheOneThatIsShownAndSaysSo) {
    open();
    rooms().setCurrentIndex(1);
    for (const char* lines : {"room=99", "room=Green", "room=-1"}) {
        view_->ShowContents(ViewContents(QString::fromLatin1(lines)));
        EXPECT_EQ(rooms().currentText(), "Green") << lines;
    }
    EXPECT_EQ(bar.Texts().first(), "The room of the saved view is not on the list of rooms any more.");
    view_->ShowContents({});
    EXPECT_EQ(rooms().currentText(), "Green");
}

TEST_F(SavedRooms, EachAltLetterStandsOnceAndEachGreyedCommandSaysWhy) {
    main.savedViews = {{1, 7, "Seven", 1, {}}};
    for (const int access : {1, 2, 3}) {
        Session().ScreenAccess = access;
        open();
        QMenuBar menus;
        view_->FillMenus(menus);
        for (const QMenu* menu : menus.findChildren<QMenu*>())
            ExpectEachLetterOnce(menu->actions(), menu->title());
        ExpectEachGreyedCommandSaysWhy(menus);
    }
}
