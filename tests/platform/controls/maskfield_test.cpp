#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "platform/controls/ctmedit.h"
#include "platform/controls/maskedtext.h"
#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/tips.h"

namespace {

const QString Phone = QStringLiteral("(###) ###-####");

/// A telephone field, and another one to go to.
class MaskEntry : public testing::Test {
  protected:
    MaskEntry() {
        Theme::Install(ThemeMode::Light);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&field);
        column->addWidget(&next);
        field.setMask(Phone);
        window.show();
        QApplication::setActiveWindow(&window);
        field.setFocus(Qt::TabFocusReason);
    }

    void type(const char* text) { QTest::keyClicks(&field, QString::fromUtf8(text)); }
    void paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keySequence(&field, QKeySequence::Paste);
    }
    void leave() { next.setFocus(Qt::TabFocusReason); }
    [[nodiscard]] QString tip() { return TipAt(field, QPoint(5, 5)); }

    ScriptedDesk desk;
    QWidget window;
    ctMEdit field;
    QLineEdit next;
};

}  // namespace

TEST_F(MaskEntry, APastedNumberTakesTheFormHoweverItIsWritten) {
    for (const char* written : {"5551234567", "555-123-4567", "(555) 123-4567", "555 123 4567", "555.123.4567\n"}) {
        field.clear();
        paste(QString::fromLatin1(written));
        EXPECT_EQ(field.Text(), QStringLiteral("(555) 123-4567")) << written;
        EXPECT_EQ(field.Raw(), QStringLiteral("5551234567")) << written;
    }
}

TEST_F(MaskEntry, UndoTakesAStepBackAndTheRestStaysInTheForm) {
    paste(QStringLiteral("5551234567"));
    QTest::keySequence(&field, QKeySequence::SelectAll);
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_TRUE(field.IsEmpty());
    paste(QStringLiteral("5559876543"));
    EXPECT_EQ(field.Text(), QStringLiteral("(555) 987-6543"));
}

TEST_F(MaskEntry, LettersAreRefusedByTheFlagAndStayInTheField) {
    type("call 5");
    EXPECT_EQ(field.Text(), QStringLiteral("call 5"));
    EXPECT_EQ(field.ErrorTip(), QStringLiteral("This does not fill the form (___) ___-____."));
    EXPECT_EQ(tip(), field.ErrorTip());
    EXPECT_EQ(field.Raw(), QStringLiteral("call 5")) << "Storing it loses nothing.";
}

TEST_F(MaskEntry, AFieldThatIsInOrderHasTheFormsOwnTip) {
    paste(QStringLiteral("5551234567"));
    EXPECT_EQ(tip(), QString());
    field.setToolTip(QStringLiteral("With the area code"));
    EXPECT_EQ(tip(), QStringLiteral("With the area code"));
}

TEST_F(MaskEntry, AnIncompleteNumberIsToldEachTimeTheFieldIsLeft) {
    const QSignalSpy errors(&field, &ctMEdit::EditError);
    type("555");
    for (int time = 1; time <= 2; ++time) {
        leave();
        EXPECT_EQ(errors.count(), time);
        EXPECT_EQ(errors.last()[0].toString(), field.ErrorTip());
        field.setFocus(Qt::TabFocusReason);
    }
}

TEST_F(MaskEntry, AnEmptyFieldABlankOneAndAReadOnlyOneAreLeftInPeace) {
    const QSignalSpy errors(&field, &ctMEdit::EditError);
    leave();
    field.setFocus(Qt::TabFocusReason);
    field.setText(QStringLiteral("555"));
    field.setReadOnly(true);
    leave();
    EXPECT_EQ(errors.count(), 0);
    EXPECT_FALSE(field.IsFilled());
}

TEST_F(MaskEntry, AnotherWindowInFrontLeavesTheEntryAlone) {
    const QSignalSpy errors(&field, &ctMEdit::EditError);
    type("555");
    for (const Qt::FocusReason reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
        QFocusEvent away(QEvent::FocusOut, reason);
        QApplication::sendEvent(&field, &away);
        QFocusEvent back(QEvent::FocusIn, reason);
        QApplication::sendEvent(&field, &back);
    }
    EXPECT_EQ(errors.count(), 0);
    EXPECT_FALSE(field.hasSelectedText()) << "Coming back goes on where the user was.";
}

TEST_F(MaskEntry, BackspaceGoesThroughTheSignsWithoutHanging) {
    paste(QStringLiteral("5551234567"));
    QStringList stages;
    for (int press = 0; press < 11; ++press) {
        QTest::keyClick(&field, Qt::Key_Backspace);
        stages << field.Raw();
    }
    EXPECT_EQ(stages.first(), QStringLiteral("555123456"));
    EXPECT_EQ(stages.at(9), QString());
    EXPECT_EQ(stages.at(10), QString());
}

TEST_F(MaskEntry, DeleteAtTheEndTakesNothing) {
    paste(QStringLiteral("555123"));
    field.end(false);
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.Raw(), QStringLiteral("555123"));
}

TEST_F(MaskEntry, AFlaggedFieldHasABorderThatGoesWithTheFlag) {
    leave();
    const QImage calm = field.grab().toImage();
    field.setText(QStringLiteral("nobody"));
    EXPECT_NE(field.grab().toImage(), calm);
    field.setText(QString());
    EXPECT_TRUE(field.ErrorTip().isEmpty());
    EXPECT_EQ(field.grab().toImage(), calm);
}

TEST_F(MaskEntry, TheHintShowsTheFormAndTheFieldHasRoomForIt) {
    EXPECT_EQ(field.placeholderText(), QStringLiteral("(___) ___-____"));
    const int wide = field.sizeHint().width();
    EXPECT_GE(wide, field.fontMetrics().horizontalAdvance(QStringLiteral("(000) 000-0000")));
    field.setMask(Phone, QStringLiteral(" #####"));
    EXPECT_GT(field.sizeHint().width(), wide);
    field.setMask(QString(), QStringLiteral(" #####"));
    EXPECT_EQ(field.placeholderText(), QString());
    field.setText(QStringLiteral("12345"));
    EXPECT_EQ(field.Text(), QStringLiteral("12345"));
}

TEST_F(MaskEntry, LettersAndEitherArePlacesOfTheirOwn) {
    field.setMask(QStringLiteral("AA-##-N"));
    type("ab12c");
    EXPECT_EQ(field.Text(), QStringLiteral("ab-12-c"));
    EXPECT_TRUE(field.IsFilled());
    field.clear();
    type("1");
    EXPECT_FALSE(field.ErrorTip().isEmpty());
}

TEST_F(MaskEntry, AnEmptyMaskIsFilledByAnyTextAndEmptyByBlanks) {
    field.setMask(QStringLiteral("   "));
    EXPECT_FALSE(field.IsFilled());
    field.setText(QStringLiteral("   "));
    EXPECT_TRUE(field.IsEmpty());
    field.setText(QStringLiteral("any"));
    EXPECT_TRUE(field.IsFilled());
}

TEST_F(MaskEntry, ADragWithTheMouseSelectsAPartAndAClickTheWhole) {
    paste(QStringLiteral("5551234567"));
    leave();
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(20, field.height() / 2));
    EXPECT_EQ(field.selectedText(), field.Text());
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(20, field.height() / 2));
    EXPECT_FALSE(field.hasSelectedText()) << "The second click puts the cursor.";
}

TEST(MaskedTextEdges, AMaskWithoutPlacesTakesNothing) {
    EXPECT_EQ(mask::Places(QStringLiteral("()-")), 0);
    EXPECT_EQ(mask::Form(QStringLiteral("()-"), QStringLiteral("12")), QString());
    EXPECT_EQ(mask::Raw(QStringLiteral("()-"), QStringLiteral("1")), std::nullopt);
    EXPECT_EQ(mask::Raw(QStringLiteral("()-"), QStringLiteral("()-")), QString());
    EXPECT_EQ(mask::Raw(QString(), QString()), QString());
}

TEST(MaskedTextEdges, ALiteralDigitOfTheMaskIsNotTakenForAPlace) {
    const QString mask = QStringLiteral("+1 ###");
    EXPECT_EQ(mask::Form(mask, QStringLiteral("234")), QStringLiteral("+1 234"));
    EXPECT_EQ(mask::Raw(mask, QStringLiteral("+1 234")), QStringLiteral("234"));
    EXPECT_EQ(mask::Hint(mask), QStringLiteral("+1 ___"));
}

TEST(MaskedTextEdges, FiguresOfOtherScriptsAreNoDigits) {
    EXPECT_EQ(mask::Raw(QStringLiteral("##"), QStringLiteral("١٢")), std::nullopt);
    EXPECT_EQ(mask::Raw(QStringLiteral("NN"), QStringLiteral("é1")), QStringLiteral("é1"));
}
