#include <QMenuBar>

#include "session/savedviews.h"
#include "tests/companion/schedulefixture.h"
#include "tests/support/menuletters.h"

namespace {

/// The companion's schedule as a saved view.
class SavedCompanion : public ScheduleFixture {
  protected:
    QString contents() {
        ViewContents kept;
        view_->AddContents(kept);
        return kept.Lines().replace(u'\n', u' ');
    }
    void reopenFor(const char* lines) {
        main.LeaveContents(ViewContents(QString::fromLatin1(lines)));
        reopen();
        EXPECT_FALSE(main.TakeContents()) << "The view has taken them.";
    }
};

}  // namespace

TEST_F(SavedCompanion, ItsProvidersAreKeptAndShownAgain) {
    open();
    const QStringList all = titles();
    ASSERT_GT(all.size(), 2);
    EXPECT_EQ(contents(), "");
    clickBox(0);
    const QString some = contents();
    EXPECT_TRUE(some.startsWith("providers=")) << some.toStdString();
    clickBox(0);
    ASSERT_EQ(titles(), all);

    for (int twice = 0; twice < 2; ++twice) {
        view_->ShowContents(ViewContents(some));
        EXPECT_EQ(titles(), all.mid(1));
        view_->ShowContents({});
        EXPECT_EQ(titles(), all);
    }
    reopenFor(some.toLatin1().constData());
    EXPECT_EQ(titles(), all.mid(1));
    reopen();
    EXPECT_EQ(titles(), all) << "The user's own choice stays as it was.";
}

TEST_F(SavedCompanion, TheWeekOfAProviderOpensAtOnce) {
    open();
    openWeekOf(2);
    const QString week = label("pnlView");
    const QString kept = contents().replace(u' ', u'\n');
    EXPECT_TRUE(kept.startsWith("mode=week")) << kept.toStdString();
    reopenFor(kept.toLatin1().constData());
    EXPECT_EQ(view_->ShownMode(), frmFHAppts::Mode::Week);
    EXPECT_EQ(label("pnlView"), week);
    view_->ShowContents({});
    EXPECT_EQ(view_->ShownMode(), frmFHAppts::Mode::Day);
}

TEST_F(SavedCompanion, RubbishAndProvidersWhoAreGoneShowTheDayOfAll) {
    open();
    const QStringList all = titles();
    reopenFor("providers=9999|x|\nmode=week\ncolumn=9999\npanel=maybe\nroom=1");
    EXPECT_EQ(titles(), all);
    EXPECT_EQ(view_->ShownMode(), frmFHAppts::Mode::Day);
}

TEST_F(SavedCompanion, EachAltLetterStandsOnceAndEachGreyedCommandSaysWhy) {
    main.savedViews = {{1, 7, "Seven", 1, {}}, {2, 11, "", 2, {}}};
    open();
    for (const int access : {1, 2, 3}) {
        Session().ScreenAccess = access;
        reopenFor("");
        QMenuBar menus;
        view_->FillMenus(menus);
        for (QObject* owner : {static_cast<QObject*>(&menus), static_cast<QObject*>(view_.get())})
            for (const QMenu* menu : owner->findChildren<QMenu*>())
                ExpectEachLetterOnce(menu->actions(), menu->title().isEmpty() ? menu->objectName() : menu->title());
        ExpectEachGreyedCommandSaysWhy(menus);
    }
}
