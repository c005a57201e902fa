#include "session/formheading.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLocale>
#include <QTest>
#include <QVBoxLayout>

#include "platform/controls/ctdedit.h"
#include "tests/support/scripteddesk.h"

namespace {

/// An editor of one entry with a date.
class HeadedForm : public testing::Test {
  protected:
    HeadedForm() {
        auto* column = new QVBoxLayout(&form);
        date = new ctDEdit(ctDEdit::Kind::Date, &form);
        column->addWidget(date);
        date->setDate(QDate(2026, 11, 18));
        heading = FormHeading::Above(form, QStringLiteral("Unavailable Time"));
        heading->SetWhom(QStringLiteral("Reed"));
        heading->FollowDay(*date);
    }
    ~HeadedForm() override { QLocale::setDefault(QLocale::c()); }

    QDialog form;
    ctDEdit* date = nullptr;
    FormHeading* heading = nullptr;
};

}  // namespace

TEST_F(HeadedForm, TheFirstLineTellsWhatItIsOnWhichDayAndWithWhom) {
    EXPECT_EQ(heading->text(), QString::fromUtf8("Unavailable Time · Wed, Nov 18, 2026 · Reed"));
    EXPECT_EQ(form.layout()->itemAt(0)->widget(), heading);
}

TEST_F(HeadedForm, ItFollowsTheDateThatIsTypedAndLeavesOutOneThatIsNone) {
    date->setDate(QDate(2026, 11, 20));
    EXPECT_EQ(heading->text(), QString::fromUtf8("Unavailable Time · Fri, Nov 20, 2026 · Reed"));
    form.show();
    date->setFocus();
    QTest::keyClick(date, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(date, QStringLiteral("11/23/2026"));
    EXPECT_EQ(heading->text(), QString::fromUtf8("Unavailable Time · Mon, Nov 23, 2026 · Reed"));
    date->setText({});
    EXPECT_EQ(heading->text(), QString::fromUtf8("Unavailable Time · Reed"));
}

TEST_F(HeadedForm, WhatIsNotKnownIsLeftOut) {
    heading->SetWhom(QStringLiteral("  "));
    EXPECT_EQ(heading->text(), QString::fromUtf8("Unavailable Time · Wed, Nov 18, 2026"));
    heading->SetDay({});
    EXPECT_EQ(heading->text(), QStringLiteral("Unavailable Time"));
}

TEST_F(HeadedForm, ANameIsShownAsItIsAndInOneLine) {
    heading->SetWhom(QStringLiteral("<b>Reed</b>\n& Lane"));
    EXPECT_EQ(heading->textFormat(), Qt::PlainText);
    EXPECT_TRUE(heading->text().endsWith(QStringLiteral("<b>Reed</b> & Lane")));
}

TEST_F(HeadedForm, AVeryLongNameIsBrokenAndDoesNotWidenTheForm) {
    const int before = form.minimumSizeHint().width();
    heading->SetWhom(QString(500, u'W') + QStringLiteral(" Reed"));
    EXPECT_LE(form.minimumSizeHint().width(), std::max(before, heading->minimumSizeHint().width() + 100));
}

TEST_F(HeadedForm, TheDateHasTheOrderOfTheCountryInEnglishNames) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(NamedDateText(QDate(2026, 11, 18)), QStringLiteral("Wed, 18 Nov 2026"));
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    EXPECT_EQ(NamedDateText(QDate(2026, 11, 18)), QStringLiteral("2026 Nov 18, Wed"));
    EXPECT_EQ(NamedDateText({}), QString());
    EXPECT_EQ(NamedDayText({}), QString());
}

TEST_F(HeadedForm, TheYearIsLeftOutWhereItIsThePresentOne) {
    ScriptedDesk desk;
    desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(9, 0)));
    EXPECT_EQ(NamedDayText(QDate(2026, 11, 18)), QStringLiteral("Wed, Nov 18"));
    EXPECT_EQ(NamedDayText(QDate(2027, 1, 4)), QStringLiteral("Mon, Jan 4, 2027"));
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(NamedDayText(QDate(2026, 11, 18)), QStringLiteral("Wed, 18 Nov"));
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    EXPECT_EQ(NamedDayText(QDate(2026, 11, 18)), QStringLiteral("Nov 18, Wed"));
}
