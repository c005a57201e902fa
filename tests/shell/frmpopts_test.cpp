#include "shell/frmpopts.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFontDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "platform/controls/textfield.h"
#include "platform/database/sql.h"
#include "session/preferences.h"
#include "session/session.h"
#include "tests/support/files.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

namespace {

class PrintOptionsForm : public testing::Test {
  protected:
    PrintOptionsForm() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        Session().UID = QStringLiteral("REED");
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
    }
    ~PrintOptionsForm() override { ResetSession(); }

    static PrintOptionsRequest fromTheDay() {
        return {false, [] {}};
    }
    static PrintOptionsRequest fromTheWeek() {
        return {true, [] {}};
    }

    QString stored(const char* key) {
        return database.text(db::Sql(
            "Select UP_PD_Value from User_Preferences Where UP_UserID = 'REED' AND UP_Pref_Category = 'PrintLayout' AND UP_Pref_Detail = '{}'",
            key));
    }
    int rows() { return database.text(QStringLiteral("Select Count(*) from User_Preferences")).toInt(); }
    void store(const char* user, const char* key, const char* value) {
        database.connection().Execute(db::Sql(
            "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('{}', 'PrintLayout', '{}', '{}')",
            user, key, value));
    }
    void choose(const QFont& font) {
        desk.expectForm("QFontDialog", [font](QDialog& dialog) {
            dynamic_cast<QFontDialog&>(dialog).setCurrentFont(font);
            dialog.accept();
        });
    }
    /// The style that the family calls "Book".
    static QFont regular(const char* family, int points) {
        QFont font(QString::fromLatin1(family), points);
        font.setStyleName(QStringLiteral("Book"));
        return font;
    }
    void expectNumberAsked() {
        desk.expectBox(QStringLiteral("Enter a number between 1 and 9."), QStringLiteral("Print Options"));
    }
    /// Presses OK with this text in "Columns Per Page", which must be refused.
    void expectRefused(const char* columns) {
        frmpopts form(fromTheDay());
        form.show();
        form.activateWindow();
        form.ckTaskBar->setChecked(true);
        form.txtcols->setText(QString::fromUtf8(columns));
        form.cmdok->setFocus();
        expectNumberAsked();
        form.cmdok->click();
        EXPECT_TRUE(form.isVisible()) << columns;
        EXPECT_EQ(form.focusWidget(), form.txtcols) << columns;
        EXPECT_TRUE(form.ckTaskBar->isChecked()) << columns;
        EXPECT_EQ(rows(), 0) << columns;
    }
    void expectKept(const char* columns) {
        frmpopts form(fromTheDay());
        form.txtcols->setText(QString::fromUtf8(columns));
        form.cmdok->click();
        EXPECT_EQ(form.result(), QDialog::Accepted);
        EXPECT_EQ(stored("AllViewCols"), QString::fromUtf8(columns).trimmed());
    }

    TestDatabase database;
    ScriptedDesk desk;
};

}  // namespace

TEST_F(PrintOptionsForm, HasTheCaptionsAndTheChoices) {
    const frmpopts form(fromTheWeek());
    EXPECT_EQ(form.windowTitle(), "Print Options");
    EXPECT_EQ(form.cmdtitlefont->text().remove('&'), "Title Font...");
    EXPECT_EQ(form.cmdtimefont->text().remove('&'), "Time Font...");
    EXPECT_EQ(form.cmdhelp->text(), "&Help");
    EXPECT_EQ(form.ckweekends->text().remove('&'), "Print Weekend Appointments");
    EXPECT_EQ(form.ckTaskBar->text().remove('&'), "Print Task Bar (useful for color print-outs)");
    const auto choices = [](const QComboBox& list) {
        QStringList texts;
        for (int i = 0; i < list.count(); ++i)
            texts << list.itemText(i);
        return texts;
    };
    EXPECT_EQ(choices(*form.cboalign), (QStringList{"Left justify", "Right justify", "Center justify"}));
    EXPECT_EQ(choices(*form.cbounits), (QStringList{"5 minutes", "10 minutes", "15 minutes", "30 minutes"}));
    QStringList labels;
    for (const QLabel* label : form.findChildren<QLabel*>())
        labels << label->text().remove('&');
    EXPECT_TRUE(labels.contains("Units:"));
    EXPECT_TRUE(labels.contains("Columns Per Page"));
}

TEST_F(PrintOptionsForm, EachLetterOfAltIsUsedOnce) {
    const frmpopts form(fromTheWeek());
    QStringList letters;
    for (const QWidget* part : form.findChildren<QWidget*>()) {
        const QString text = part->property("text").toString();
        if (const auto at = text.indexOf('&'); at >= 0)
            letters << text.mid(at + 1, 1).toLower();
    }
    EXPECT_EQ(letters.size(), 10);
    EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(' ').toStdString();
}

TEST_F(PrintOptionsForm, ShowsWhatIsStored) {
    store("REED", "TitleFont", "Georgia");
    store("REED", "TitleFontSize", "14");
    store("REED", "TitleFontBold", "True");
    store("REED", "TitleFontItalic", "1");
    store("REED", "TimeFont", "DejaVu Sans");
    store("REED", "TimeFontSize", "9.5");
    store("REED", "TitleAlign", "2");
    store("REED", "TimeUnits", "3");
    store("REED", "PrintWeekends", "1");
    store("REED", "AllViewCols", "7");
    store("REED", "Taskbar", "1");
    const frmpopts form(fromTheWeek());
    EXPECT_TRUE(form.lbltitlefont->text().startsWith("Georgia"));
    EXPECT_TRUE(form.lbltitlefont->text().endsWith(", 14 points, bold, italic"));
    EXPECT_EQ(form.lbltimefont->text(), "DejaVu Sans, 9.5 points");
    EXPECT_EQ(form.cboalign->currentText(), "Center justify");
    EXPECT_EQ(form.cbounits->currentText(), "30 minutes");
    EXPECT_TRUE(form.ckweekends->isChecked());
    EXPECT_EQ(form.txtcols->text(), "7");
    EXPECT_TRUE(form.ckTaskBar->isChecked());
}

TEST_F(PrintOptionsForm, WithNothingStoredItShowsWhatIsPrinted) {
    const frmpopts form(fromTheWeek());
    EXPECT_EQ(form.lbltitlefont->text(), "Arial, 8.25 points");
    EXPECT_EQ(form.lbltimefont->text(), "Arial, 8.25 points");
    EXPECT_EQ(form.cboalign->currentText(), "Left justify");
    EXPECT_EQ(form.cbounits->currentIndex(), -1);
    EXPECT_EQ(form.cbounits->placeholderText(), "As on screen");
    EXPECT_EQ(form.txtcols->text(), "5");
    EXPECT_FALSE(form.ckweekends->isChecked());
    EXPECT_FALSE(form.ckTaskBar->isChecked());
}

TEST_F(PrintOptionsForm, AnEmptyTitleFontIsArial) {
    store("REED", "TitleFont", "");
    EXPECT_EQ(frmpopts(fromTheDay()).lbltitlefont->text(), "Arial, 8.25 points");
    EXPECT_EQ(ReadPrintOptions().titleFont.families().value(0), "Arial");
}

TEST_F(PrintOptionsForm, StoredValuesThatMakeNoSenseAreShownAsTheyArePrinted) {
    for (const char* key : {"TitleFontSize", "TitleAlign", "TimeUnits", "AllViewCols", "Taskbar", "PrintWeekends"})
        store("REED", key, "900");
    const frmpopts form(fromTheWeek());
    EXPECT_EQ(form.lbltitlefont->text(), "Arial, 8.25 points");
    EXPECT_EQ(form.cboalign->currentText(), "Left justify");
    EXPECT_EQ(form.cbounits->currentIndex(), -1);
    EXPECT_EQ(form.txtcols->text(), "5");
    EXPECT_FALSE(form.ckweekends->isChecked());
    EXPECT_FALSE(form.ckTaskBar->isChecked());
}

TEST_F(PrintOptionsForm, SvwschedIniIsReadWhereThereIsNoPreference) {
    QTemporaryDir folder;
    Session().SchedulerIni = folder.filePath(QStringLiteral("svwsched.ini"));
    PutFile(Session().SchedulerIni, "[PrintLayout]\nTitleFont=Georgia\nTitleFontSize=12\nAllViewCols=3\n");
    store("REED", "AllViewCols", "8");
    const frmpopts form(fromTheDay());
    EXPECT_TRUE(form.lbltitlefont->text().startsWith("Georgia")) << form.lbltitlefont->text().toStdString();
    EXPECT_EQ(form.txtcols->text(), "8");
}

TEST_F(PrintOptionsForm, OkStoresEveryOptionForTheUser) {
    frmpopts form(fromTheWeek());
    QFont title(QStringLiteral("DejaVu Sans Mono"), 16);
    title.setBold(true);
    choose(title);
    form.cmdtitlefont->click();
    QFont time(QStringLiteral("DejaVu Serif"), 9);
    time.setItalic(true);
    choose(time);
    form.cmdtimefont->click();
    form.cboalign->setCurrentIndex(1);
    form.cbounits->setCurrentIndex(0);
    form.ckweekends->setChecked(true);
    form.txtcols->setText(QStringLiteral("6"));
    form.ckTaskBar->setChecked(true);
    form.cmdok->click();

    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(stored("TitleFont"), "DejaVu Sans Mono");
    EXPECT_EQ(stored("TitleFontSize"), "16");
    EXPECT_EQ(stored("TitleFontBold"), "True");
    EXPECT_EQ(stored("TitleFontItalic"), "False");
    EXPECT_EQ(stored("TimeFont"), "DejaVu Serif");
    EXPECT_EQ(stored("TimeFontSize"), "9");
    EXPECT_EQ(stored("TimeFontBold"), "False");
    EXPECT_EQ(stored("TimeFontItalic"), "True");
    EXPECT_EQ(stored("TitleAlign"), "1");
    EXPECT_EQ(stored("TimeUnits"), "0");
    EXPECT_EQ(stored("PrintWeekends"), "1");
    EXPECT_EQ(stored("AllViewCols"), "6");
    EXPECT_EQ(stored("Taskbar"), "1");
    EXPECT_EQ(rows(), 13);
}

TEST_F(PrintOptionsForm, WhatWasStoredIsShownTheNextTime) {
    for (int time = 1; time <= 2; ++time) {
        frmpopts form(fromTheWeek());
        form.cbounits->setCurrentIndex(time);
        form.ckweekends->setChecked(time == 1);
        form.txtcols->setText(QString::number(time));
        form.cmdok->click();
        const frmpopts again(fromTheWeek());
        EXPECT_EQ(again.cbounits->currentIndex(), time);
        EXPECT_EQ(again.ckweekends->isChecked(), time == 1);
        EXPECT_EQ(again.txtcols->text(), QString::number(time));
    }
    EXPECT_EQ(rows(), 13);
}

TEST_F(PrintOptionsForm, OkWithoutAChangeMakesWhatHoldsTheUsersOwn) {
    store("![ALL]!", "AllViewCols", "4");
    frmpopts(fromTheDay()).cmdok->click();
    EXPECT_EQ(stored("AllViewCols"), "4");
    EXPECT_EQ(stored("TitleFont"), "Arial");
    EXPECT_EQ(stored("TimeUnits"), "") << "The units of the screen go on to be printed.";
    EXPECT_EQ(ReadPrintOptions().timeUnit, std::nullopt);
    EXPECT_EQ(rows(), 14);
}

TEST_F(PrintOptionsForm, TheWeekendIsOfferedToTheWeekAlone) {
    store("REED", "PrintWeekends", "1");
    frmpopts day(fromTheDay());
    day.show();
    EXPECT_FALSE(day.ckweekends->isVisible());
    day.cmdok->click();
    EXPECT_EQ(stored("PrintWeekends"), "1");
    frmpopts week(fromTheWeek());
    week.show();
    EXPECT_TRUE(week.ckweekends->isVisible());
}

TEST_F(PrintOptionsForm, NoColumnsAreRefused) {
    expectRefused("");
    expectRefused("  ");
}

TEST_F(PrintOptionsForm, ZeroColumnsAreRefused) {
    expectRefused("0");
    expectRefused("-1");
}

TEST_F(PrintOptionsForm, TenColumnsAreRefused) {
    expectRefused("10");
}

TEST_F(PrintOptionsForm, OneAndAHalfColumnsAreRefused) {
    expectRefused("1.5");
    expectRefused("1,5");
}

TEST_F(PrintOptionsForm, LettersAreNoColumns) {
    expectRefused("five");
    expectRefused("5 columns");
    expectRefused("'");
    expectRefused("😀");
}

TEST_F(PrintOptionsForm, OneColumnIsKept) {
    expectKept("1");
}

TEST_F(PrintOptionsForm, NineColumnsAreKept) {
    expectKept("9");
    expectKept(" 3 ");
}

TEST_F(PrintOptionsForm, ARefusedNumberCanBeMended) {
    frmpopts form(fromTheDay());
    form.show();
    form.txtcols->setText(QStringLiteral("12"));
    expectNumberAsked();
    form.cmdok->click();
    QTest::keyClicks(form.txtcols, QStringLiteral("8"));
    form.cmdok->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(stored("AllViewCols"), "8");
}

TEST_F(PrintOptionsForm, CancelStoresNothing) {
    frmpopts form(fromTheDay());
    form.show();
    form.ckTaskBar->setChecked(true);
    form.txtcols->setText(QString());
    form.cmdcancel->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(rows(), 0);
}

TEST_F(PrintOptionsForm, AChosenFontIsNotThrownAwayUnasked) {
    frmpopts form(fromTheDay());
    form.show();
    choose(regular("DejaVu Serif", 20));
    form.cmdtimefont->click();
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("Print Options"),
                   Answer::No);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.lbltimefont->text(), "DejaVu Serif, 20 points");
}

TEST_F(PrintOptionsForm, WithoutAChangeEscapeClosesAtOnce) {
    frmpopts form(fromTheDay());
    form.show();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(PrintOptionsForm, AFontThatIsGivenUpStays) {
    frmpopts form(fromTheDay());
    desk.expectForm("QFontDialog", [](QDialog& dialog) {
        dynamic_cast<QFontDialog&>(dialog).setCurrentFont(regular("DejaVu Serif", 20));
        dialog.reject();
    });
    form.cmdtitlefont->click();
    EXPECT_EQ(form.lbltitlefont->text(), "Arial, 8.25 points");
    EXPECT_FALSE(form.IsChanged());
}

TEST_F(PrintOptionsForm, WhatIsLeftAloneInTheFontWindowStays) {
    store("REED", "TitleFont", "No Such Hand");
    frmpopts form(fromTheDay());
    desk.expectForm("QFontDialog", [](QDialog& dialog) { dialog.accept(); });
    form.cmdtitlefont->click();
    EXPECT_FALSE(form.IsChanged());
    desk.expectForm("QFontDialog", [](QDialog& dialog) {
        auto& fonts = dynamic_cast<QFontDialog&>(dialog);
        QFont larger = fonts.currentFont();
        larger.setPointSize(20);
        fonts.setCurrentFont(larger);
        dialog.accept();
    });
    form.cmdtitlefont->click();
    EXPECT_TRUE(form.lbltitlefont->text().startsWith("No Such Hand"));
    EXPECT_TRUE(form.lbltitlefont->text().contains(", 20 points"));
}

TEST_F(PrintOptionsForm, TheFontWindowBeginsWithTheFontAtHand) {
    store("REED", "TimeFont", "DejaVu Serif");
    store("REED", "TimeFontSize", "11");
    frmpopts form(fromTheDay());
    desk.expectForm("QFontDialog", [](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Time Font");
        EXPECT_EQ(dynamic_cast<QFontDialog&>(dialog).currentFont().family(), "DejaVu Serif");
        EXPECT_EQ(dynamic_cast<QFontDialog&>(dialog).currentFont().pointSize(), 11);
        EXPECT_FALSE(dynamic_cast<QFontDialog&>(dialog).currentFont().italic());
        dialog.accept();
    });
    form.cmdtimefont->click();
    EXPECT_EQ(form.lbltimefont->text(), "DejaVu Serif, 11 points");
}

TEST_F(PrintOptionsForm, AFontTooLargeForPaperIsTakenAtTheLargestSize) {
    frmpopts form(fromTheDay());
    choose(regular("DejaVu Serif", 200));
    form.cmdtitlefont->click();
    EXPECT_EQ(form.lbltitlefont->text(), "DejaVu Serif, 72 points");
    form.cmdok->click();
    EXPECT_EQ(stored("TitleFontSize"), "72");
    EXPECT_EQ(ReadPrintOptions().titleFont.pointSizeF(), 72);
}

TEST_F(PrintOptionsForm, AFontThatIsNotInstalledIsToldAndKept) {
    store("REED", "TitleFont", "No Such Hand");
    frmpopts form(fromTheDay());
    EXPECT_TRUE(form.lbltitlefont->text().startsWith("No Such Hand (not on this computer, printed in "))
        << form.lbltitlefont->text().toStdString();
    form.cmdok->click();
    EXPECT_EQ(stored("TitleFont"), "No Such Hand");
}

TEST_F(PrintOptionsForm, AFontWithAnApostropheIsStoredWithIt) {
    store("REED", "TitleFont", "O'Brien's Hand");
    store("REED", "TimeFont", "O'Brien's Hand");
    frmpopts form(fromTheDay());
    database.connection().Execute(QStringLiteral("Delete from User_Preferences"));
    form.cmdok->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(stored("TitleFont"), "O'Brien's Hand");
    EXPECT_EQ(stored("TimeFont"), "O'Brien's Hand");
}

TEST_F(PrintOptionsForm, TheSampleShowsFontAndPlaceAtOnce) {
    frmpopts form(fromTheDay());
    EXPECT_EQ(form.lblTitle->text(), "Wednesday  March 11, 2026");
    EXPECT_EQ(form.lbltime->text(), "9:00 AM");
    form.cboalign->setCurrentIndex(2);
    EXPECT_TRUE(form.lblTitle->alignment().testFlag(Qt::AlignHCenter));
    form.cboalign->setCurrentIndex(1);
    EXPECT_TRUE(form.lblTitle->alignment().testFlag(Qt::AlignRight));
    const int width = form.sizeHint().width();
    QFont font(QStringLiteral("DejaVu Serif"), 72);
    font.setBold(true);
    choose(font);
    form.cmdtitlefont->click();
    EXPECT_EQ(form.lblTitle->font().families().value(0), "DejaVu Serif");
    EXPECT_TRUE(form.lblTitle->font().bold());
    EXPECT_EQ(form.sizeHint().width(), width) << "A large font does not widen the form.";
    EXPECT_FALSE(form.cmdtitlefont->accessibleDescription().isEmpty());
}

TEST_F(PrintOptionsForm, HelpOpensTheHelp) {
    int helped = 0;
    const frmpopts form({false, [&] { ++helped; }});
    form.cmdhelp->click();
    form.cmdhelp->click();
    EXPECT_EQ(helped, 2);
}

TEST_F(PrintOptionsForm, WhatTheSameUserChangedAtAnotherDeskStays) {
    store("REED", "AllViewCols", "3");
    store("REED", "Taskbar", "0");
    frmpopts form(fromTheDay());
    database.connection().Execute(
        QStringLiteral("Update User_Preferences Set UP_PD_Value = '7' Where UP_Pref_Detail = 'AllViewCols'"));
    form.ckTaskBar->setChecked(true);
    form.cmdok->click();
    EXPECT_EQ(stored("AllViewCols"), "7");
    EXPECT_EQ(stored("Taskbar"), "1");
}

TEST_F(PrintOptionsForm, ALostDatabaseIsToldAndNothingIsLost) {
    frmpopts form(fromTheDay());
    form.show();
    form.ckTaskBar->setChecked(true);
    form.txtcols->setText(QStringLiteral("3"));
    Session().Connection.Close();
    for (int time = 0; time < 2; ++time) {
        desk.expectBox(
            QStringLiteral(
                "The print options could not be saved. What you have changed is still here, so that you can try again."),
            QStringLiteral("Print Options"));
        form.cmdok->click();
        EXPECT_TRUE(form.isVisible());
    }
    EXPECT_EQ(form.txtcols->text(), "3");
    Session().Connection.Open(database.connectionText());
    form.cmdok->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored("AllViewCols"), "3");
    EXPECT_EQ(stored("Taskbar"), "1");
}

TEST_F(PrintOptionsForm, ASaveThatFailsHalfWayStoresNothing) {
    frmpopts(fromTheDay()).cmdok->click();
    database.connection().Execute(QStringLiteral(
        "Delete from User_Preferences Where UP_Pref_Detail = 'AllViewCols' or UP_Pref_Detail = 'Taskbar'"));
    frmpopts form(fromTheDay());
    form.show();
    form.cboalign->setCurrentIndex(2);
    form.txtcols->setText(QStringLiteral("3"));
    database.refuse(QStringLiteral("Insert"), QStringLiteral("User_Preferences"));
    desk.expectBox(
        QStringLiteral(
            "The print options could not be saved. What you have changed is still here, so that you can try again."),
        QStringLiteral("Print Options"));
    form.cmdok->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(stored("TitleAlign"), "0");
    database.allow(QStringLiteral("Insert"), QStringLiteral("User_Preferences"));
    form.cmdok->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored("TitleAlign"), "2");
    EXPECT_EQ(stored("AllViewCols"), "3");
    // No transaction was left open: another one can begin.
    Session().Connection.BeginTrans();
    Session().Connection.RollbackTrans();
}
