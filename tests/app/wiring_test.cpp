#include "app/wiring.h"

#include <gtest/gtest.h>

#include "data/codes.h"
#include "followup/frmcheckedin.h"
#include "platform/controls/ctlist.h"
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
