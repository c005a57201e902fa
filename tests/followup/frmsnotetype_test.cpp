#include "followup/frmsnotetype.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "tests/followup/notefixture.h"

namespace {

const QString Line = QStringLiteral("---------------------------------------------");

class NoteTypes : public NoteFixture {
  protected:
    NoteTypes() {
        addType("Progress Note", 1);
        addType("Intake", 1);
        addType("Retired", 0);
        addType("Group Note", 1);
    }
    void addType(const char* name, int applies) {
        run(db::Sql("Insert Into NoteTypes (NoteType, applyauths) Values('{}', {})", QString::fromUtf8(name), applies));
    }
    void addOwn(int type, const char* name, const char* user = "REED") {
        run(db::Sql("Insert Into DocNewMenu (NoteID, NoteName, UID) Values({}, '{}', '{}')", type,
                    QString::fromUtf8(name), QLatin1String(user)));
    }
    /// "name=type" of each row.
    static QStringList rows(const frmSNoteType& form) {
        QStringList rows;
        for (int row = 0; row < form.List1->RowCount(); ++row)
            rows << form.List1->Cell(row, 1) + u'=' + form.List1->ItemData(row).toString();
        return rows;
    }
    static void doubleClick(const frmSNoteType& form, int row) {
        const QPoint at = form.List1->visualRect(form.List1->model()->index(row, 0)).center();
        QTest::mouseClick(form.List1->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(form.List1->viewport(), Qt::LeftButton, {}, at);
    }
};

}  // namespace

TEST_F(NoteTypes, AreThePracticesWhereTheUserHasNoList) {
    addOwn(1, "Lane's note", "LANE");
    const frmSNoteType form;
    EXPECT_EQ(form.windowTitle(), "Select Note Type");
    EXPECT_EQ(rows(form), (QStringList{"Group Note=4", "Intake=2", "Progress Note=1"}));
}

TEST_F(NoteTypes, TheUsersOwnStandAboveALine) {
    addOwn(4, "The Thursday note");
    addOwn(1, "My note");
    EXPECT_EQ(rows(frmSNoteType()), (QStringList{"My note=1", "The Thursday note=4", Line + "=0", "Group Note=4",
                                                 "Intake=2", "Progress Note=1"}));
}

TEST_F(NoteTypes, OneThatIsInTheUsersListIsNotListedAgain) {
    addOwn(2, "progress note");
    EXPECT_EQ(rows(frmSNoteType()), (QStringList{"progress note=2", Line + "=0", "Group Note=4", "Intake=2"}));
}

TEST_F(NoteTypes, OneOfTheUserThatDoesNotApplyIsNotOffered) {
    addOwn(3, "My retired note");
    EXPECT_EQ(rows(frmSNoteType()), (QStringList{"Group Note=4", "Intake=2", "Progress Note=1"}));
}

TEST_F(NoteTypes, NamesWithApostrophesAndPicturesStandAsTheyAre) {
    Session().UID = QStringLiteral("O'NEIL");
    addOwn(1, "Müller's; \"note\" | \U0001F4DD", "O'NEIL");
    EXPECT_EQ(rows(frmSNoteType()).first(), QStringLiteral("Müller's; \"note\" | \U0001F4DD=1"));
}

TEST_F(NoteTypes, OkTakesTheSelectedOne) {
    frmSNoteType form;
    EXPECT_TRUE(form.cmdOk->isEnabled());
    EXPECT_EQ(form.List1->SelectedRow(), 0) << "Enter takes the user's first one.";
    EXPECT_EQ(form.NoteType(), 0) << "Nothing is chosen before OK.";
    form.List1->SelectRow(1);

    form.cmdOk->click();

    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.NoteType(), 2);
}

TEST_F(NoteTypes, ADoubleClickIsOk) {
    frmSNoteType form;
    form.show();
    doubleClick(form, 2);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.NoteType(), 1);
}

TEST_F(NoteTypes, TheLineCanBeSelectedAndChoosesNothing) {
    addOwn(1, "My note");
    frmSNoteType form;
    form.show();
    doubleClick(form, 1);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.NoteType(), 0);
}

TEST_F(NoteTypes, TheKeyboardChoosesOne) {
    frmSNoteType form;
    form.show();
    form.activateWindow();
    QCoreApplication::processEvents();
    ASSERT_TRUE(form.List1->hasFocus());
    QTest::keyClick(form.List1, Qt::Key_Down);
    QTest::keyClick(form.List1, Qt::Key_Return);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(form.NoteType(), 2);

    frmSNoteType byLetter;
    byLetter.show();
    QTest::keyClick(byLetter.List1, Qt::Key_P);
    QTest::keyClick(byLetter.List1, Qt::Key_Return);
    EXPECT_EQ(byLetter.NoteType(), 1);
}

TEST_F(NoteTypes, CancelAndEscapeChooseNothing) {
    for (const bool byKey : {false, true}) {
        frmSNoteType form;
        form.show();
        form.List1->SelectRow(0);
        if (byKey)
            QTest::keyClick(&form, Qt::Key_Escape);
        else
            form.cmdcancel->click();
        EXPECT_EQ(form.result(), QDialog::Rejected);
        EXPECT_EQ(form.NoteType(), 0);
    }
}

TEST_F(NoteTypes, APracticeWithoutAnySaysSo) {
    run("Delete from NoteTypes");
    frmSNoteType form;
    form.show();
    EXPECT_TRUE(form.lblnothing->isVisible());
    EXPECT_FALSE(form.List1->isVisible());
    EXPECT_EQ(form.lblnothing->text(), "There is no note type to choose yet. Note types are set up in Solvane.");
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(NoteTypes, ThatCannotBeReadSaySoInTheForm) {
    Session().Connection.Close();
    frmSNoteType form;
    form.show();
    EXPECT_TRUE(form.lblnothing->isVisible());
    EXPECT_EQ(form.lblnothing->text(), "The note types could not be read.");
    EXPECT_FALSE(form.cmdOk->isEnabled());
}
