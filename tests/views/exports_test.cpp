#include <QAction>
#include <QDialog>

#include "data/codes.h"
#include "output/frmexportopts.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/textfield.h"
#include "session/session.h"
#include "tests/support/files.h"
#include "tests/views/eachview.h"

#include <QPushButton>
#include <QRadioButton>

namespace {

/// What leaves the program from the views of Wednesday, March 11, 2026.
class Exports : public EachView {
  protected:
    Exports() {
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        Session().DocPath = folder_.path();
    }
    /// Exports what `choose` chooses, and gives the summaries of the file.
    QStringList exported(const std::function<void(frmExportOpts&)>& choose) {
        const QString path = folder_.filePath("export.ics");
        QFile::remove(path);
        desk.expectForm("frmExportOpts", [&](QDialog& dialog) {
            auto& form = static_cast<frmExportOpts&>(dialog);
            form.txtFilePath->setText(path);
            choose(form);
            form.cmdok->click();
            desk.expectBox("iCalender export done. \n" + path, "Exporting Appointments To File");
            desk.passTime();
        });
        command("mnuFExportiCal").trigger();
        QStringList texts;
        for (const QString& line : QString::fromUtf8(FileBytes(path)).split("\r\n"))
            if (line.startsWith("SUMMARY:"))
                texts << line.mid(8);
        return texts;
    }
    QString exportedPage(const QString& name) {
        const QString path = folder_.filePath("Documents/" + name);
        desk.expectBox("Appointments HTML file created - " + path + ". Do you want to open it now?", "HTML Created",
                       Answer::Yes);
        command("mnuFExportHTML").trigger();
        EXPECT_EQ(desk.opened, QStringList{path});
        desk.opened.clear();
        return QString::fromUtf8(FileBytes(path));
    }
    /// Hears of each time that the command is switched on or off, as long as the view stands.
    void connectTo(QAction& action, const std::function<void(bool)>& heard) {
        QObject::connect(&action, &QAction::enabledChanged, view_.get(), heard);
    }
    [[nodiscard]] bool canExport() {
        return command("mnuFExport").isEnabled() && command("mnuFExportiCal").isEnabled() &&
               command("mnuFExportHTML").isEnabled();
    }
};

}  // namespace

TEST_F(Exports, AreOfferedByTheDayAndTheWeekOnceTheyAreRead) {
    openAs(Which::Day);
    EXPECT_TRUE(canExport());
    openAs(Which::Week);
    EXPECT_TRUE(canExport());
    openAs(Which::All);
    EXPECT_FALSE(canExport());
}

TEST_F(Exports, AndReportsAreOffFromTheBeginningOfALoadUntilTheRowsAreThere) {
    Session().AllProviders = true;
    run("Insert Into provider_info (id, prov_lastname, archive) Values('REED', 'Reed', 0)");
    add(anAppointment("Anna"));
    for (const Which view : {Which::Day, Which::Week, Which::All}) {
        openAs(view);
        const int before = calendar().ItemCount();
        QStringList changes;
        for (const char* name : {"mnuFExport", "mnuFReport"})
            connectTo(command(name), [this, &changes, name, before](bool isEnabled) {
                changes << QStringLiteral("%1 %2 at %3")
                               .arg(name, isEnabled ? "on" : "off")
                               .arg(calendar().ItemCount() - before);
            });
        add(anAppointment("Ben").at(11 + static_cast<int>(view), 0));
        view_->Reload();
        settle();
        changes.sort();
        const QStringList reports{"mnuFReport off at 0", "mnuFReport on at 1"};
        EXPECT_EQ(changes,
                  (view == Which::All ? reports : QStringList{"mnuFExport off at 0", "mnuFExport on at 1"} + reports));
    }
}

TEST_F(Exports, AreOfferedToAReaderToo) {
    Session().ScreenAccess = 1;
    openAs(Which::Day);
    EXPECT_TRUE(canExport());
}

TEST_F(Exports, OfTheDayAreTodaysAppointmentsWhateverDayIsShown) {
    add(anAppointment("today"));
    add(anAppointment("shown").on(QDate(2026, 3, 12)));
    main.SetDate(QDate(2026, 3, 12));
    openAs(Which::Day);
    EXPECT_EQ(exported([](frmExportOpts& form) { EXPECT_TRUE(form.optSelect[1]->isChecked()); }), QStringList{"today"});
}

TEST_F(Exports, OfTheSelectedAppointmentAreThatOne) {
    add(anAppointment("one"));
    add(anAppointment("other").at(11, 0));
    openAs(Which::Day);
    select("other");
    EXPECT_EQ(exported([](frmExportOpts& form) { form.optSelect[0]->click(); }), QStringList{"other"});
    openAs(Which::Week);
    select("one");
    EXPECT_EQ(exported([](frmExportOpts& form) { form.optSelect[0]->click(); }), QStringList{"one"});
}

TEST_F(Exports, WithAHolidaySelectedNothingIs) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values ('Spring', '2026/03/11', 0)");
    openAs(Which::Day);
    select("Spring");
    desk.expectForm("frmExportOpts", [&](QDialog& dialog) {
        auto& form = static_cast<frmExportOpts&>(dialog);
        form.optSelect[0]->click();
        desk.expectBox("There are No Appointments in the Date Range specified.", "No Appointments For Export");
        form.cmdok->click();
        form.reject();
    });
    command("mnuFExportiCal").trigger();
}

TEST_F(Exports, OfTheWeekAreItsSevenDaysThoughItShowsFive) {
    for (int day = 8; day <= 16; ++day)
        add(anAppointment(QByteArray::number(day).constData()).on(QDate(2026, 3, day)));
    openAs(Which::Week);
    EXPECT_EQ(exported([](frmExportOpts&) {}), (QStringList{"9", "10", "11", "12", "13", "14", "15"}));
}

TEST_F(Exports, ThatFailedCanBeOpenedAgainFromTheBar) {
    add(anAppointment("today"));
    openAs(Which::Day);
    NoticeBar bar;
    const QString nowhere = folder_.filePath("gone/export.ics");
    desk.expectForm("frmExportOpts", [&](QDialog& dialog) {
        auto& form = static_cast<frmExportOpts&>(dialog);
        form.txtFilePath->setText(nowhere);
        form.cmdok->click();
        desk.expectBox("Error writing iCalender export file. \nNo such file or directory",
                       "Error Exporting Appointments To File");
        desk.passTime();
    });
    command("mnuFExportiCal").trigger();
    desk.expectForm("frmExportOpts", [&](QDialog& dialog) {
        EXPECT_EQ(static_cast<frmExportOpts&>(dialog).txtFilePath->text(), nowhere);
        dialog.reject();
    });
    takeNotice(bar);
}

TEST_F(Exports, TakeTheTextThatIsBeingTyped) {
    add(anAppointment("Lunch").status(ncolor::Unavailable));
    openAs(Which::Day);
    beginTyping("Lunch", "Late lunch");
    EXPECT_EQ(exported([](frmExportOpts&) {}), QStringList{"Late lunch"});
}

TEST_F(Exports, AsPagesAreTheDayAndTheWeekThatAreShown) {
    add(anAppointment("on Thursday").on(QDate(2026, 3, 12)));
    main.SetDate(QDate(2026, 3, 12));
    openAs(Which::Day);
    const QString day = exportedPage("REED03122026.HTM");
    EXPECT_TRUE(day.contains("March 12, 2026") && day.contains("on Thursday"));
    openAs(Which::Week);
    const QString week = exportedPage("REEDWeek03092026.HTM");
    EXPECT_TRUE(week.contains("Week of March 9, 2026") && week.contains("on Thursday"));
}
