#include <QAction>
#include <QComboBox>
#include <QDialog>

#include "data/codes.h"
#include "output/frmschrpt.h"
#include "platform/controls/ctdedit.h"
#include "platform/printing/printpreview.h"
#include "session/session.h"
#include "tests/views/eachview.h"

namespace {

/// The reports that the views of Wednesday, March 11, 2026, open.
class Reports : public EachView {
  protected:
    Reports() {
        Session().AllProviders = true;
        run("Insert Into provider_info (id, prov_lastname, archive) Values('REED', 'Reed', 0)");
        run("Insert Into provider_info (id, prov_lastname, archive) Values('LANE', 'Lane', 0)");
    }
    /// Opens a report by its command, and returns its days, its provider and its first line.
    QStringList opened(const char* name) {
        QStringList seen;
        desk.expectForm("frmschrpt", [&seen](QDialog& dialog) {
            auto& form = dynamic_cast<frmschrpt&>(dialog);
            for (const ctDEdit* date : form.ctdate)
                seen << date->Date().toString(Qt::ISODate);
            form.show();
            settle();
            const printing::Document& document = form.vp->Document();
            seen << form.cboprovider->currentText() << std::get<printing::Paragraph>(document.blocks.at(0)).text;
        });
        command(name).trigger();
        return seen;
    }
};

}  // namespace

TEST_F(Reports, BeginWithTheDaysAndTheProviderThatTheViewShows) {
    main.SetDate(QDate(2026, 3, 12));
    openAs(Which::Day);
    EXPECT_EQ(opened("mnuFRSched"), (QStringList{"2026-03-12", "2026-03-12", "Reed", "Schedule"}));
    openAs(Which::Week);
    EXPECT_EQ(opened("mnuFRSched"), (QStringList{"2026-03-09", "2026-03-15", "Reed", "Schedule"}));
    openAs(Which::All);
    EXPECT_EQ(opened("mnuFRSched"), (QStringList{"2026-03-12", "2026-03-12", "All Providers", "Schedule"}));
}

TEST_F(Reports, AreThreeInEachView) {
    for (const Which view : {Which::Day, Which::Week, Which::All}) {
        openAs(view);
        EXPECT_EQ(opened("mnuFRSched").last(), QStringLiteral("Schedule"));
        EXPECT_EQ(opened("mnuFRCancel").last(), QStringLiteral("Missed Appointment/Cancellation Report"));
        EXPECT_EQ(opened("mnuFRCalls").last(), QStringLiteral("Courtesy Calls - Reminder Status"));
    }
}

TEST_F(Reports, AreOfferedToAReaderToo) {
    Session().ScreenAccess = 1;
    openAs(Which::Day);
    EXPECT_TRUE(command("mnuFRSched").isEnabled() && command("mnuFReport").isEnabled());
}

TEST_F(Reports, TakeTheTextThatIsBeingTyped) {
    add(anAppointment("Lunch").status(ncolor::Unavailable));
    openAs(Which::Day);
    beginTyping("Lunch", "Late lunch");
    desk.expectForm("frmschrpt", [](QDialog& dialog) {
        auto& form = dynamic_cast<frmschrpt&>(dialog);
        form.show();
        settle();
        bool found = false;
        for (const printing::Block& block : form.vp->Document().blocks)
            if (const auto* table = std::get_if<printing::Table>(&block))
                for (const QStringList& row : table->rows)
                    found = found || row.contains(QStringLiteral("Late lunch"));
        EXPECT_TRUE(found);
    });
    command("mnuFRSched").trigger();
}
