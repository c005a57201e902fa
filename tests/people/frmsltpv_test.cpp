#include "people/frmsltpv.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

namespace {

class ProviderSelection : public testing::Test {
  protected:
    ProviderSelection() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        Session().UID = QStringLiteral("ADMIN");
        provider("YOUNG", "Young");
        provider("ABEL", "Abel");
        provider("OBRIEN", "O'Brien");
    }
    ~ProviderSelection() override { ResetSession(); }

    void provider(const char* id, const char* name, int archived = 0, const char* excluded = "Null") {
        database.connection().Execute(db::Sql(
            "Insert Into provider_info (id, prov_lastname, archive, ExcludeFromScheduler) Values ('{}', '{}', {}, {})",
            id, name, archived, db::Raw{QString::fromLatin1(excluded)}));
        database.connection().Execute(
            db::Sql("Insert Into passwords (pswd_user_id, pswd_type_of_access) Values ('{}', 1)", id));
    }

    static QStringList namesOf(const frmsltpv& form) {
        QStringList names;
        for (int row = 0; row < form.List1->RowCount(); ++row)
            names << form.List1->Cell(row, 1);
        return names;
    }

    TestDatabase database;
    ScriptedDesk desk;
};

}  // namespace

TEST_F(ProviderSelection, OffersTheProvidersByName) {
    EXPECT_EQ(namesOf(frmsltpv()),
              (QStringList{QStringLiteral("Abel"), QStringLiteral("O'Brien"), QStringLiteral("Young")}));
}

TEST_F(ProviderSelection, LeavesOutArchivedAndExcludedProvidersAndThoseWithoutALogon) {
    provider("GONE", "Gone", 1);
    provider("HIDDEN", "Hidden", 0, "1");
    provider("SHOWN", "Shown", 0, "0");
    database.connection().Execute(
        QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values ('NOLOGON', 'Nologon', 0)"));
    const QStringList names = namesOf(frmsltpv());
    EXPECT_FALSE(names.contains(QStringLiteral("Gone")));
    EXPECT_FALSE(names.contains(QStringLiteral("Hidden")));
    EXPECT_FALSE(names.contains(QStringLiteral("Nologon")));
    EXPECT_TRUE(names.contains(QStringLiteral("Shown")));
}

TEST_F(ProviderSelection, AnExcludedUserStillSeesThemself) {
    provider("HIDDEN", "Hidden", 0, "1");
    Session().UID = QStringLiteral("HIDDEN");
    EXPECT_TRUE(namesOf(frmsltpv()).contains(QStringLiteral("Hidden")));
}

TEST_F(ProviderSelection, BeginsAtTheProviderWhoseScheduleIsShown) {
    Session().ProviderId = QStringLiteral("OBRIEN");
    const frmsltpv form;
    EXPECT_EQ(form.List1->ItemData(form.List1->SelectedRow()).toString(), QStringLiteral("OBRIEN"));
}

TEST_F(ProviderSelection, BeginsAtTheFirstNameWhenNobodyIsShown) {
    const frmsltpv form;
    EXPECT_EQ(form.List1->SelectedRow(), 0);
    EXPECT_TRUE(form.cmdOk->isEnabled());
}

TEST_F(ProviderSelection, OkTakesTheSelectedProvider) {
    frmsltpv form;
    form.List1->SelectRow(1);
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(Session().ProviderId, QStringLiteral("OBRIEN"));
    EXPECT_EQ(Session().ProviderName, QStringLiteral("O'Brien"));
}

TEST_F(ProviderSelection, ADoubleClickTakesItToo) {
    frmsltpv form;
    Q_EMIT form.List1->RowActivated(0);
    form.List1->SelectRow(2);
    Q_EMIT form.List1->RowActivated(2);
    EXPECT_EQ(Session().ProviderId, QStringLiteral("YOUNG"));
}

TEST_F(ProviderSelection, CancelLeavesTheProviderAlone) {
    Session().ProviderId = QStringLiteral("ABEL");
    Session().ProviderName = QStringLiteral("Abel");
    frmsltpv form;
    form.List1->SelectRow(2);
    form.cmdcancel->click();
    EXPECT_EQ(Session().ProviderId, QStringLiteral("ABEL"));
    EXPECT_EQ(Session().ProviderName, QStringLiteral("Abel"));
}

TEST_F(ProviderSelection, TypingFindsTheFirstNameThatStartsSo) {
    frmsltpv form;
    QTest::keyClicks(form.txtfind, QStringLiteral("yO"));
    EXPECT_EQ(form.List1->SelectedRow(), 2);
}

TEST_F(ProviderSelection, ANameThatNobodyHasSelectsNobody) {
    frmsltpv form;
    QTest::keyClicks(form.txtfind, QStringLiteral("yo"));
    QTest::keyClicks(form.txtfind, QStringLiteral("zz"));
    EXPECT_LT(form.List1->SelectedRow(), 0);
    EXPECT_FALSE(form.cmdOk->isEnabled());
    QTest::keyClick(form.txtfind, Qt::Key_Return);
    EXPECT_EQ(form.result(), QDialog::Rejected);
}

TEST_F(ProviderSelection, TypingShowsTheNamesThatContainTheTextAndCountsThem) {
    frmsltpv form;
    EXPECT_EQ(form.lblcount->text(), QStringLiteral("3 providers"));
    QTest::keyClicks(form.txtfind, QStringLiteral("e"));
    EXPECT_EQ(form.lblcount->text(), QStringLiteral("2 of 3 providers"));
    EXPECT_FALSE(form.List1->IsRowShown(2));
    EXPECT_FALSE(form.cmdOk->isEnabled()) << "Nobody's name begins so.";
    form.show();
    QTest::keyClick(form.txtfind, Qt::Key_Down);
    EXPECT_EQ(form.List1->SelectedRow(), 0);
    form.txtfind->clear();
    EXPECT_EQ(form.lblcount->text(), QStringLiteral("3 providers"));
}

TEST_F(ProviderSelection, FindIsOfferedOnlyForATextAndFindsAgain) {
    frmsltpv form;
    EXPECT_FALSE(form.cmdfind->isEnabled());
    QTest::keyClicks(form.txtfind, QStringLiteral("o"));
    EXPECT_TRUE(form.cmdfind->isEnabled());
    form.List1->SelectRow(0);
    form.cmdfind->click();
    EXPECT_EQ(form.List1->SelectedRow(), 1);
}

TEST_F(ProviderSelection, ArrowsMoveTheSelectionWhileTheCursorStaysInTheName) {
    frmsltpv form;
    form.show();
    QTest::keyClick(form.txtfind, Qt::Key_Down);
    EXPECT_EQ(form.List1->SelectedRow(), 1);
    QTest::keyClick(form.txtfind, Qt::Key_Up);
    EXPECT_EQ(form.List1->SelectedRow(), 0);
}

TEST_F(ProviderSelection, ANameWithASemicolonDoesNotSlipIntoTheNextColumn) {
    provider("ODD", "A;B");
    frmsltpv form;
    const int row = form.List1->FindItemData(QStringLiteral("ODD"));
    EXPECT_EQ(form.List1->Cell(row, 1), QStringLiteral("A;B"));
    form.List1->SelectRow(row);
    form.cmdOk->click();
    EXPECT_EQ(Session().ProviderName, QStringLiteral("A;B"));
}

TEST_F(ProviderSelection, WithoutADatabaseNothingCanBeTaken) {
    Session().Connection.Close();
    frmsltpv form;
    EXPECT_EQ(form.List1->RowCount(), 0);
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(ProviderSelection, APracticeWithoutProvidersIsToldWhatToDo) {
    frmsltpv full;
    EXPECT_TRUE(full.lblnobody->isHidden());
    database.connection().Execute(QStringLiteral("Delete from passwords"));
    frmsltpv form;
    form.show();
    EXPECT_TRUE(form.lblnobody->isVisible());
    EXPECT_TRUE(form.lblnobody->text().contains(QStringLiteral("Add a provider with a password in Solvane")));
    EXPECT_FALSE(form.cmdOk->isEnabled());
}
