#include "app/wiring.h"

#include <gtest/gtest.h>

#include "appointments/seriesmark.h"
#include "data/codes.h"
#include "followup/frmboard.h"
#include "followup/frmcheckedin.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/forms.h"
#include "shell/mdisched.h"
#include "tests/shell/placeholderview.h"
#include "tests/shell/practicefixture.h"

namespace {

/// The main window as the program wires it, on a practice; views are not needed.
class WiredWindow : public PracticeFixture {
  protected:
    WiredWindow() { WireMainWindow(window); }
    ~WiredWindow() override {
        if (QWidget* form = list())
            delete form;
    }

    static frmCheckedIn* list() { return qobject_cast<frmCheckedIn*>(FindForm(QStringLiteral("frmCheckedIn"))); }
    [[nodiscard]] QWidget& openView() override { return window; }

    ViewFactories dayAlone() {
        return {{View::Day, [this](MainWindow& holder) { return std::make_unique<PlaceholderView>(1, holder, log); }}};
    }

    ViewLog log;
    mdisched window{dayAlone()};
};

}  // namespace

TEST_F(WiredWindow, OpensTheListOfThoseWhoHaveCheckedIn) {
    Q_EMIT window.CheckedInRequested();
    ASSERT_NE(list(), nullptr);
    EXPECT_TRUE(list()->isVisible());
}

TEST_F(WiredWindow, ReadsTheListAnewWhenTheDatabaseWasOpenedAgain) {
    Q_EMIT window.CheckedInRequested();
    EXPECT_EQ(list()->ctList1->RowCount(), 0);
    add(anAppointment("Anna").on(QDate(2026, 3, 11)).at(9, 0).status(ncolor::CheckedIn));
    Q_EMIT window.DatabaseOpenedAgain();
    EXPECT_EQ(list()->ctList1->RowCount(), 1);
}

TEST_F(WiredWindow, OpensTodaysBoardBesideItAndReadsItAnewWhenTheDatabaseWasOpenedAgain) {
    window.OpenBoard();
    auto* board = window.findChild<frmboard*>();
    ASSERT_NE(board, nullptr);
    EXPECT_TRUE(board->isVisible());
    const auto isRead = [board] { return !board->IsReading(); };
    ASSERT_TRUE(QTest::qWaitFor(isRead, 20000));
    otherDesk(QStringLiteral(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid) Values ('2026/03/11', 1400, 1430, 'Anna', 16711681, 'REED', '1')"));
    Q_EMIT window.DatabaseOpenedAgain();
    ASSERT_TRUE(QTest::qWaitFor(isRead, 20000));
    EXPECT_EQ(board->Count(BoardPlace::Due), 1);
}

TEST_F(WiredWindow, OffersTheRestOfACutOffSeriesOnceAndReadsTheViewAnewAfterIt) {
    const auto appointment = static_cast<int>(add(anAppointment("Anna").at(9, 0)));
    SeriesWork deletion;
    deletion.kind = SeriesWork::Kind::Deletion;
    deletion.date = QDate(2026, 3, 11);
    deletion.start = 540;
    deletion.end = 590;
    deletion.keys = {appointment};
    SeriesMark::Begin(deletion);  // Nobody holds it: the program that worked on it has ended.

    window.changeview(View::Day);
    auto* bar = window.findChild<NoticeBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->Texts().size(), 1);
    log.events.clear();
    takeNotice(*bar);
    EXPECT_TRUE(log.events.contains(QStringLiteral("reload 1"))) << log.events.join(QStringLiteral(", ")).toStdString();
    deletion.keys = {static_cast<int>(add(anAppointment("Bert").at(11, 0)))};
    SeriesMark::Begin(deletion);
    const auto before = bar->Texts();
    Q_EMIT window.ViewOpened();
    EXPECT_EQ(bar->Texts(), before) << "Only the first view of a run offers it.";
}
