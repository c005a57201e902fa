#include "platform/controls/fieldedit.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/controls/ctdedit.h"
#include "platform/controls/datepopup.h"
#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/tips.h"

namespace {

/// A date field and a time field in one window, on November 21, 2026.
class FieldEditTest : public testing::Test {
  protected:
    FieldEditTest() {
        Theme::Install(ThemeMode::Light);
        desk.setNow(QDateTime(QDate(2026, 11, 21), QTime(10, 0)));
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&date);
        column->addWidget(&time);
        window.show();
        QApplication::setActiveWindow(&window);
        date.setFocus(Qt::TabFocusReason);
    }
    ~FieldEditTest() override { Theme::Instance().setMode(ThemeMode::Light); }

    static QLineEdit& editOf(const ctDEdit& field) { return *field.findChild<QLineEdit*>(); }
    static QString tipOf(ctDEdit& field) { return TipAt(field, QPoint(5, 5)); }
    static void paste(ctDEdit& field, const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keySequence(&field, QKeySequence::Paste);
    }

    ScriptedDesk desk;
    QWidget window;
    ctDEdit date{ctDEdit::Kind::Date};
    ctDEdit time{ctDEdit::Kind::Time};
};

}  // namespace

TEST_F(FieldEditTest, AnotherKindEmptiesTheField) {
    date.setDate(QDate(2026, 12, 3));
    date.setKind(ctDEdit::Kind::Time);
    EXPECT_TRUE(date.IsEmpty());
    date.setTime(570);
    EXPECT_EQ(date.Text(), QStringLiteral("9:30 AM"));
    date.setKind(ctDEdit::Kind::Date);
    EXPECT_EQ(date.Value(), 0);
}

TEST_F(FieldEditTest, AFieldOfOneKindHasNoValueOfTheOther) {
    date.setText(QStringLiteral("12/3/26"));
    time.setText(QStringLiteral("9:30"));
    EXPECT_EQ(date.Time(), -1);
    EXPECT_FALSE(time.Date().isValid());
}

TEST_F(FieldEditTest, ImpossibleDatesAndTimesAreNone) {
    for (const char* typed : {"2/30/2026", "13/1/2026", "0/5/2026", "2/29/2027", "1/1/1700", "99/99/9999", "+99999"}) {
        date.setText(QString::fromLatin1(typed));
        EXPECT_FALSE(date.Date().isValid()) << typed;
        EXPECT_EQ(date.Value(), 1) << typed;
        EXPECT_EQ(date.Text(), QLatin1String(typed));
    }
    for (const char* typed : {"25", "9:60", "24:01", "13 am", "12:30 noon", "-5", "9:3:3"}) {
        time.setText(QString::fromLatin1(typed));
        EXPECT_EQ(time.Time(), -1) << typed;
        EXPECT_FALSE(time.ErrorTip().isEmpty()) << typed;
    }
}

TEST_F(FieldEditTest, TheProgramCanEmptyAFieldByWhatIsNoDateOrTime) {
    date.setDate(QDate(2026, 12, 3));
    date.setDate({});
    EXPECT_TRUE(date.IsEmpty());
    for (const int minutes : {-1, 1441}) {
        time.setTime(540);
        time.setTime(minutes);
        EXPECT_TRUE(time.IsEmpty()) << minutes;
    }
    EXPECT_TRUE(date.ErrorTip().isEmpty());
    EXPECT_TRUE(time.ErrorTip().isEmpty());
}

TEST_F(FieldEditTest, WhatStandsInTheFieldIsShownAnewInAnotherForm) {
    date.setDate(QDate(2026, 12, 3));
    for (const auto& [order, text] : {std::pair(1, "03/12/2026"), std::pair(2, "2026/12/03"),
                                      std::pair(7, "2026/12/03"), std::pair(-1, "12/03/2026")}) {
        date.setDateOrder(order);
        EXPECT_EQ(date.Text(), QLatin1String(text)) << order;
        EXPECT_EQ(date.Date(), QDate(2026, 12, 3)) << order;
    }
    time.setTime(1440);
    EXPECT_EQ(time.Text(), QStringLiteral("24:00"));
    time.setIsEnd(true);
    EXPECT_EQ(time.Text(), QStringLiteral("12:00 Mid"));
    time.setTwentyFourHour(true);
    EXPECT_EQ(time.Text(), QStringLiteral("24:00"));
    EXPECT_EQ(time.Time(), 1440);
}

TEST_F(FieldEditTest, YearsAreReadAsOfABirthWhereThatIsMeant) {
    date.setYearReading(YearReading::Past);
    date.setText(QStringLiteral("12/3/30"));
    EXPECT_EQ(date.Date(), QDate(1930, 12, 3));
    date.setYearReading(YearReading::NearToday);
    date.setText(QStringLiteral("12/3/30"));
    EXPECT_EQ(date.Date(), QDate(2030, 12, 3));
}

TEST_F(FieldEditTest, APastedDateIsReadInOneLine) {
    paste(date, QStringLiteral("\n12/3/26\r\n"));
    EXPECT_FALSE(date.Text().contains(u'\n'));
    EXPECT_EQ(date.Date(), QDate(2026, 12, 3));
    time.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(date.Text(), QStringLiteral("12/03/2026"));
    paste(time, QStringLiteral("9:30\tpm"));
    EXPECT_EQ(time.Time(), 21 * 60 + 30);
}

TEST_F(FieldEditTest, UndoBringsBackWhatWasTypedOver) {
    QTest::keyClicks(&date, QStringLiteral("12/3"));
    QTest::keySequence(&date, QKeySequence::SelectAll);
    QTest::keyClick(&date, Qt::Key_Backspace);
    EXPECT_TRUE(date.IsEmpty());
    QTest::keySequence(&date, QKeySequence::Undo);
    EXPECT_EQ(date.Text(), QStringLiteral("12/3"));
}

TEST_F(FieldEditTest, ATextOfTenThousandCharactersIsNoDateAndBreaksNothing) {
    paste(date, QStringLiteral("1/").repeated(5000));
    EXPECT_FALSE(date.IsValid());
    time.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(date.ErrorTip().isEmpty());
    EXPECT_EQ(date.Text().size(), 10000);
}

TEST_F(FieldEditTest, TheTipIsTheDateInWordsTheFormsOwnOrTheComplaint) {
    EXPECT_EQ(tipOf(date), QString());
    date.setDate(QDate(2026, 12, 3));
    EXPECT_EQ(tipOf(date), QStringLiteral("Thursday, December 3, 2026"));
    date.setToolTip(QStringLiteral("The first day"));
    EXPECT_EQ(tipOf(date), QStringLiteral("The first day"));
    date.setText(QStringLiteral("someday"));
    EXPECT_EQ(tipOf(date), date.ErrorTip());
    EXPECT_EQ(tipOf(time), QString());
}

TEST_F(FieldEditTest, TheComplaintShowsAnExampleInTheFieldsForm) {
    date.setText(QStringLiteral("x"));
    EXPECT_EQ(date.ErrorTip(),
              QStringLiteral("This is not a date. Enter it like 12/28/2026, or t for today, +1 for tomorrow."));
    date.setDateOrder(2);
    EXPECT_TRUE(date.ErrorTip().contains(QStringLiteral("2026/12/28")));
    time.setText(QStringLiteral("x"));
    EXPECT_EQ(time.ErrorTip(), QStringLiteral("This is not a time of day. Enter it like 9:30 AM, or 930, noon."));
    time.setTwentyFourHour(true);
    EXPECT_TRUE(time.ErrorTip().contains(QStringLiteral("09:30")));
}

TEST_F(FieldEditTest, PageKeysStepAnHourWhateverTheStep) {
    for (const int step : {1, 5, 15, 60, 90}) {
        time.setStep(step);
        time.setTime(600);
        QTest::keyClick(&time, Qt::Key_PageUp);
        EXPECT_EQ(time.Time(), step == 90 ? 690 : 660) << step;
        QTest::keyClick(&time, Qt::Key_PageDown);
        EXPECT_EQ(time.Time(), 600) << step;
    }
}

TEST_F(FieldEditTest, PageKeysStepMonthsAndStayWithinThem) {
    date.setDate(QDate(2026, 1, 31));
    QTest::keyClick(&date, Qt::Key_PageUp);
    EXPECT_EQ(date.Date(), QDate(2026, 2, 28));
    QTest::keyClick(&date, Qt::Key_PageDown);
    EXPECT_EQ(date.Date(), QDate(2026, 1, 28));
    date.setReadOnly(true);
    QTest::keyClick(&date, Qt::Key_PageUp);
    EXPECT_EQ(date.Date(), QDate(2026, 1, 28));
}

TEST_F(FieldEditTest, TheSignOfTheCalendarIsThereOnlyWhereItDropsOne) {
    const auto signs = [](const ctDEdit& field) {
        int seen = 0;
        for (const QToolButton* sign : field.findChildren<QToolButton*>())
            seen += sign->isHidden() ? 0 : 1;
        return seen;
    };
    EXPECT_EQ(signs(date), 1);
    EXPECT_EQ(signs(time), 0);
    date.setReadOnly(true);
    EXPECT_EQ(signs(date), 0);
    date.setReadOnly(false);
    EXPECT_EQ(signs(date), 1);
}

TEST_F(FieldEditTest, ADisabledFieldDropsNoCalendar) {
    date.setEnabled(false);
    date.dropCalendar();
    EXPECT_EQ(date.findChild<DatePopup*>(), nullptr);
}

TEST_F(FieldEditTest, TheCalendarDropsAgainAndAgainAndTheDateIsToldOnceEach) {
    const QSignalSpy told(&date, &ctDEdit::Change);
    for (int round = 1; round <= 2; ++round) {
        QTest::keyClick(&date, Qt::Key_F4);
        auto& calendar = date.findChild<DatePopup*>()->Calendar();
        QTest::keyClick(&calendar, Qt::Key_Right);
        QTest::keyClick(&calendar, Qt::Key_Return);
        EXPECT_EQ(date.Date(), QDate(2026, 11, 21 + round));
        EXPECT_EQ(told.count(), round);
        EXPECT_EQ(editOf(date).selectedText(), date.Text());
    }
    EXPECT_EQ(date.findChildren<DatePopup*>().size(), 1);
}

TEST_F(FieldEditTest, AClickSelectsTheWholeTextAndASecondPutsTheCursor) {
    date.setDate(QDate(2026, 12, 3));
    time.setFocus(Qt::TabFocusReason);
    QLineEdit& edit = editOf(date);
    QTest::mouseClick(&edit, Qt::LeftButton, {}, QPoint(10, edit.height() / 2));
    EXPECT_EQ(edit.selectedText(), date.Text());
    QTest::mouseClick(&edit, Qt::LeftButton, {}, QPoint(10, edit.height() / 2));
    EXPECT_FALSE(edit.hasSelectedText());
}

TEST_F(FieldEditTest, AFlagIsSeenInBothThemesAndAboveAllWhileTheFieldHasTheFocus) {
    for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
        Theme::Instance().setMode(mode);
        QApplication::processEvents();
        time.setText({});
        const QImage calm = time.grab().toImage();
        time.setText(QStringLiteral("x"));
        EXPECT_NE(time.grab().toImage(), calm);
        time.setText({});
        EXPECT_EQ(time.grab().toImage(), calm);
    }
}

TEST_F(FieldEditTest, AReaderIsToldOfAStepAndOfTheComplaint) {
    date.setDate(QDate(2026, 12, 3));
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&date);
    EXPECT_EQ(access->text(QAccessible::Value), QStringLiteral("12/03/2026"));
    QTest::keyClick(&date, Qt::Key_Up);
    EXPECT_EQ(access->text(QAccessible::Value), QStringLiteral("12/04/2026"));
    date.setText(QStringLiteral("x"));
    EXPECT_EQ(access->text(QAccessible::Description), date.ErrorTip());
    date.setText({});
    EXPECT_EQ(access->text(QAccessible::Description), QString());
}
