// A view whose database cannot be read: the file of the practice is away, and comes back.

#include <QFile>
#include <QPushButton>

#include "platform/calendar/ctweek.h"
#include "rooms/frmrooms.h"
#include "tests/shell/practicefixture.h"
#include "views/frmall.h"
#include "views/frmmtv.h"
#include "views/frmsched.h"
#include "views/frmweekv.h"

namespace {

struct Opened {
    const char* name;
    const char* told;       ///< The view's own text, which comes before the reason.
    const char* toldAgain;  ///< That of what is read first when all is read anew.
    std::function<std::unique_ptr<ViewWindow>(MainWindow&)> make;
};

template <class Form>
Opened opened(const char* name, const char* told, const char* toldAgain = nullptr) {
    return {name, told, toldAgain != nullptr ? toldAgain : told,
            [](MainWindow& main) { return std::make_unique<Form>(main); }};
}

const char* const moved =
    "The file of the database \"test\" was moved, deleted or replaced while it was open. Nothing is saved until it is opened again.";

class UnreadView : public PracticeFixture, public testing::WithParamInterface<Opened> {
  protected:
    void SetUp() override {
        if (database_.isOnServer())
            GTEST_SKIP() << "A server's database has no file here.";
        Session().AllProviders = true;
        run("Insert Into provider_info (id, prov_lastname, archive) Values('REED', 'Reed', 0)");
        run("Insert Into rooms (Room) Values('Blue')");
        run("Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomtext, croomid) Values(540, 600, '2026/03/11', 'Meeting', 1)");
        add(anAppointment("Anna"));
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
    }
    [[nodiscard]] QWidget& openView() override { return *view_; }

    void open() {
        view_ = GetParam().make(main);
        view_->resize(1000, 700);
        view_->show();
        settle();
    }
    [[nodiscard]] QString file() const {
        const QString text = database_.connectionText();
        const QString source = text.section("Data Source=", 1).section(';', 0, 0);
        return source.contains('/') ? source + "/test.db" : QString();
    }
    void takeAway() { ASSERT_TRUE(QFile::rename(file(), file() + ".away")); }
    void bringBack() { ASSERT_TRUE(QFile::rename(file() + ".away", file())); }
    [[nodiscard]] QWidget& place() {
        auto* month = view_->findChild<ctWeek*>();
        return month != nullptr ? static_cast<QWidget&>(*month) : calendar();
    }
    [[nodiscard]] QWidget* notice() { return view_->findChild<QWidget*>(QStringLiteral("unread")); }
    [[nodiscard]] int shownItems() {
        auto* month = view_->findChild<ctWeek*>();
        return month != nullptr ? month->ItemCount() : calendar().ItemCount();
    }
    void tryAgain() {
        QTest::mouseClick(view_->findChild<QPushButton*>(QStringLiteral("cmdTryAgain")), Qt::LeftButton);
        settle();
    }
    void expectUnread() {
        ASSERT_NE(notice(), nullptr);
        EXPECT_TRUE(notice()->isVisible());
        EXPECT_EQ(notice()->mapToGlobal(QPoint()), place().mapToGlobal(QPoint()));
        EXPECT_EQ(notice()->size(), place().size());
        EXPECT_FALSE(place().isEnabled()) << "Nobody can book into what was not read.";
        for (QAction* leaving : leavingCommands())
            EXPECT_TRUE(!leaving->isEnabled() && !leaving->toolTip().isEmpty()) << leaving->objectName().toStdString();
    }
    void expectRead() {
        EXPECT_TRUE(notice() == nullptr || !notice()->isVisible());
        EXPECT_TRUE(place().isEnabled());
        EXPECT_EQ(shownItems(), 1);
        for (const QAction* leaving : leavingCommands())
            EXPECT_TRUE(leaving->isEnabled()) << leaving->objectName().toStdString();
    }
    /// What of the view would carry the schedule out of the program, where the view has it.
    [[nodiscard]] QList<QAction*> leavingCommands() {
        QList<QAction*> found;
        for (const char* name : {"mnuFExport", "mnuFRSched", "mnuFRCancel", "mnuFRCalls"})
            if (auto* action = view_->findChild<QAction*>(QLatin1String(name)))
                if (dynamic_cast<frmall*>(view_.get()) == nullptr ||
                    action->objectName() != QLatin1String("mnuFExport"))
                    found << action;
        return found;
    }

    std::unique_ptr<ViewWindow> view_;
};

}  // namespace

TEST_P(UnreadView, SaysSoInItsPlaceIsToldOnceAndIsReadOnceTheDatabaseIsBack) {
    open();
    expectRead();

    takeAway();
    desk.expectBox(QString::fromLatin1(GetParam().told) + QString::fromLatin1(moved), "Error");
    view_->Reload();
    settle();
    expectUnread();

    desk.expectBox(QString::fromLatin1(GetParam().toldAgain) +
                       QStringLiteral("Cannot open database \"test\" requested by the login. The login failed."),
                   "Error");
    tryAgain();
    expectUnread();

    bringBack();
    settle();
    desk.expectBox(QString::fromLatin1(GetParam().toldAgain) +
                       QStringLiteral("Cannot open database \"test\" requested by the login. The login failed."),
                   "Error");
    view_->Reload();
    settle();
    expectUnread();  // Another file would be another practice.

    tryAgain();
    expectRead();
}

INSTANTIATE_TEST_SUITE_P(
    Views, UnreadView,
    testing::Values(opened<frmsched>("Day", "Error reading appointments. "),
                    opened<frmweekv>("Week", "Error loading schedule. "),
                    opened<frmmtv>("Month", "Error reading appointments. "),
                    opened<frmall>("AllProviders", "Error loading schedule. ", "Error loading provider list. "),
                    opened<frmrooms>("Rooms", "Error reading room schedule. ", "Error loading room list. ")),
    [](const auto& tested) { return std::string(tested.param.name); });
