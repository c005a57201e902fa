#include "platform/controls/notefield.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

TEST(NoteFieldTest, SeparatorsAreLeftOutHoweverTheyCome) {
    NoteField note;
    note.show();
    QTest::keyClicks(&note, QStringLiteral("a;b|c"));
    EXPECT_EQ(note.toPlainText(), QStringLiteral("abc"));

    QApplication::clipboard()->setText(QStringLiteral("; d|e\nf"));
    QTest::keyClick(&note, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(note.toPlainText(), QStringLiteral("abc de\nf"));

    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral(";é|"));
    QApplication::sendEvent(&note, &composed);
    EXPECT_EQ(note.toPlainText(), QStringLiteral("abc de\nfé"));
}

TEST(NoteFieldTest, AFieldThatKeepsSeparatorsKeepsThemHoweverTheyCome) {
    NoteField note;
    note.setKeepsSeparators(true);
    note.show();
    QTest::keyClicks(&note, QStringLiteral("a;b|c"));
    QApplication::clipboard()->setText(QStringLiteral("; d|e\r\nf"));
    QTest::keyClick(&note, Qt::Key_V, Qt::ControlModifier);
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral(";é|"));
    QApplication::sendEvent(&note, &composed);
    EXPECT_EQ(note.toPlainText(), QStringLiteral("a;b|c; d|e\nf;é|"));
}

TEST(NoteFieldTest, AnAltLetterThatNothingAnswersToIsNotTyped) {
    NoteField note;
    note.show();
    QTest::keyClicks(&note, QStringLiteral("Ill."));
    QTest::keyClick(&note, 'w', Qt::AltModifier);
    EXPECT_EQ(note.toPlainText(), QStringLiteral("Ill."));
    QTest::keyClick(&note, Qt::Key_Backspace);
    EXPECT_EQ(note.toPlainText(), QStringLiteral("Ill"));
    // Some keyboards have signs behind both keys together.
    QTest::keyClick(&note, '@', Qt::AltModifier | Qt::ControlModifier);
    EXPECT_EQ(note.toPlainText(), QStringLiteral("Ill@"));
}

TEST(NoteFieldTest, AStoredNoteIsShownAsItIs) {
    NoteField note;
    note.setPlainText(QStringLiteral("old; note"));
    QTest::keyClicks(&note, QStringLiteral("x"));
    EXPECT_TRUE(note.toPlainText().contains(QStringLiteral("old; note")));
}

TEST(NoteFieldTest, LineEndsAreKeptAsTheNotesProductWritesThem) {
    NoteField note;
    note.setPlainText(QStringLiteral("one\r\ntwo"));
    EXPECT_EQ(note.toPlainText(), QStringLiteral("one\ntwo"));
    EXPECT_EQ(note.StoredText(), QStringLiteral("one\r\ntwo"));
}

TEST(NoteFieldTest, TabLeavesTheField) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* note = new NoteField;
    auto* next = new QLineEdit;
    column->addWidget(note);
    column->addWidget(next);
    window.show();
    QApplication::setActiveWindow(&window);
    note->setFocus();
    QTest::keyClick(note, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    EXPECT_EQ(note->toPlainText(), QString());
}
