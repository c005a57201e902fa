#include "platform/spelling/vsspell.h"

#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include "platform/spelling/dictionary.h"
#include "platform/theme/colours.h"
#include "tests/platform/spelling/spellingfixture.h"
#include "tests/support/files.h"

TEST_F(Spelling, MisspeltWordsOfATextAreUnderlinedOnceTheFormIsOpen) {
    note->setPlainText(
        QStringLiteral("The patiemt did not come.\nHe couldn't, and wil call; Dr. O'Brien's PTSD H0032."));
    open();
    EXPECT_EQ(underlined(), (QStringList{QStringLiteral("patiemt"), QStringLiteral("wil")}));
    EXPECT_EQ(spell->Hint(), QString());
}

TEST_F(Spelling, TheDictionaryIsNotReadBeforeTheFormIsSeen) {
    spell = std::make_unique<VSSpell>(note, list, &form);
    QApplication::processEvents();
    EXPECT_EQ(Dictionary::With(list)->GetState(), Dictionary::State::Unread);
}

TEST_F(Spelling, AWordIsUnderlinedWhenItHasBeenTyped) {
    open();
    type(QStringLiteral("the patiemt"));
    EXPECT_EQ(underlined(), QStringList()) << "The word may still become another one.";
    type(QStringLiteral(" "));
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("patiemt")});
    type(QStringLiteral("wil\nthen"));
    EXPECT_EQ(underlined(), (QStringList{QStringLiteral("patiemt"), QStringLiteral("wil")}));
}

TEST_F(Spelling, AWordIsUnderlinedWhenTheCaretOrTheUserLeavesIt) {
    open();
    type(QStringLiteral("wil"));
    QTest::keyClick(note, Qt::Key_Left);
    EXPECT_EQ(underlined(), QStringList()) << "The caret is still in the word.";
    QTest::keyClick(note, Qt::Key_End);
    other->setFocus();
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("wil")});
    note->setFocus();
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("wil")}) << "Coming back is not typing.";
    type(QStringLiteral("x"));
    EXPECT_EQ(underlined(), QStringList());
    QTest::keyClick(note, Qt::Key_Backspace);
    type(QStringLiteral("l"));
    other->setFocus();
    EXPECT_EQ(underlined(), QStringList()) << "\"will\" is a word.";
}

TEST_F(Spelling, ATextThatIsCorrectedLosesItsUnderlineAndOneThatIsBrokenGetsIt) {
    note->setPlainText(QStringLiteral("patiemt come"));
    open();
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("patiemt")});
    note->setPlainText(QStringLiteral("patient cmoe"));
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("cmoe")});
}

TEST_F(Spelling, ATextThatCannotBeTypedInHasNoUnderlines) {
    note->setPlainText(QStringLiteral("patiemt"));
    note->setReadOnly(true);
    open();
    EXPECT_EQ(underlined(), QStringList());
    note->setReadOnly(false);
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("patiemt")});
    note->setEnabled(false);
    EXPECT_EQ(underlined(), QStringList());
    spell->CheckSpelling();
    note->setEnabled(true);
    note->setReadOnly(true);
    spell->CheckSpelling();
}

TEST_F(Spelling, TheUnderlineIsSeenInTheDarkToo) {
    note->setPlainText(QStringLiteral("patiemt"));
    open();
    for (const ThemeMode mode : {ThemeMode::Dark, ThemeMode::Light}) {
        form.setPalette(PaletteOf(ColoursOf(mode)));
        ASSERT_EQ(underlined(), QStringList{QStringLiteral("patiemt")});
        const auto format = note->document()->firstBlock().layout()->formats().constFirst().format;
        EXPECT_EQ(format.underlineColor(), ColoursOf(mode).danger);
    }
}

TEST_F(Spelling, TheMenuOfAMisspeltWordOffersWhatMayBeMeant) {
    note->setPlainText(QStringLiteral("The patiemt came."));
    open();
    underlined();
    QMenu* menu = menuAt(6);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(offered(*menu),
              (QStringList{QStringLiteral("patient"), QStringLiteral("-"), QStringLiteral("A&dd to Dictionary"),
                           QStringLiteral("&Ignore All"), QStringLiteral("-")}));
    entry(*menu, QStringLiteral("patient"))->trigger();
    menu->close();
    EXPECT_EQ(note->toPlainText(), QStringLiteral("The patient came."));
    note->undo();
    EXPECT_EQ(note->toPlainText(), QStringLiteral("The patiemt came.")) << "One step back.";
    note->redo();
    EXPECT_EQ(note->toPlainText(), QStringLiteral("The patient came."));
}

TEST_F(Spelling, TheMenuOpensByKeyOnTheWordOfTheCaret) {
    note->setPlainText(QStringLiteral("The patiemt came."));
    open();
    note->moveCursor(QTextCursor::Start);
    for (int step = 0; step < 6; ++step)
        QTest::keyClick(note, Qt::Key_Right);
    QMenu* menu = menuByKey();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(offered(*menu).value(0), QStringLiteral("patient"));
    menu->close();
}

TEST_F(Spelling, AWordNobodyCanGuessHasNoSuggestionsButCanBeAdded) {
    note->setPlainText(QStringLiteral("Xqzwvbnk came."));
    open();
    QMenu* menu = menuAt(2);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(offered(*menu).value(0), QStringLiteral("(no suggestions)"));
    EXPECT_FALSE(entry(*menu, QStringLiteral("(no suggestions)"))->isEnabled());
    menu->close();
}

TEST_F(Spelling, AnAddedWordIsKnownInEveryFieldAndAfterwards) {
    NoteField second;
    const VSSpell secondSpell(&second, list, nullptr);
    note->setPlainText(QStringLiteral("gabapentin, Gabapentin's and gabapentn"));
    open();
    EXPECT_EQ(underlined().size(), 3);
    QMenu* menu = menuAt(2);
    ASSERT_NE(menu, nullptr);
    entry(*menu, QStringLiteral("A&dd to Dictionary"))->trigger();
    menu->close();
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("gabapentn")});
    EXPECT_EQ(FileBytes(list), QByteArray("gabapentin\n"));
    EXPECT_TRUE(
        Dictionary::With(list)->Suggestions(QStringLiteral("gabapentn")).contains(QStringLiteral("gabapentin")));
}

TEST_F(Spelling, WordsThatAnotherWindowAddedAreKnownWhenTheNextFormOpens) {
    note->setPlainText(QStringLiteral("sertraline"));
    open();
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("sertraline")});
    PutFile(list, "sertraline\n");
    spell.reset();
    open();
    EXPECT_TRUE(QTest::qWaitFor([this] { return underlined().isEmpty(); }));
}

TEST_F(Spelling, AWordThatCannotBeAddedIsToldWithTheFile) {
    list = folder.filePath(QStringLiteral("taken/Custom.dct"));
    PutFile(folder.filePath(QStringLiteral("taken")), "a file where the folder should be");
    note->setPlainText(QStringLiteral("gabapentin"));
    open();
    QMenu* menu = menuAt(2);
    ASSERT_NE(menu, nullptr);
    desk.expectBox(QStringLiteral("The word could not be added, because this file cannot be written:\n") + list,
                   QStringLiteral("Spelling"));
    entry(*menu, QStringLiteral("A&dd to Dictionary"))->trigger();
    menu->close();
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("gabapentin")});
}

TEST_F(Spelling, IgnoreAllIsForThisFieldAndThisTimeOnly) {
    note->setPlainText(QStringLiteral("Solvane and Solvane and solvane"));
    open();
    QMenu* menu = menuAt(2);
    ASSERT_NE(menu, nullptr);
    entry(*menu, QStringLiteral("&Ignore All"))->trigger();
    menu->close();
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("solvane")});
    EXPECT_FALSE(QFile::exists(list));
    spell.reset();
    open();
    EXPECT_EQ(underlined().size(), 3);
}

TEST_F(Spelling, ATypographicApostropheIsLikeAnyOther) {
    note->setPlainText(QStringLiteral("He can\u2019t, didn\u2019t; dosn\u2019t"));
    open();
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("dosn\u2019t")});
    EXPECT_TRUE(
        Dictionary::With(list)->Suggestions(QStringLiteral("dosn\u2019t")).contains(QStringLiteral("doesn\u2019t")));
}

TEST_F(Spelling, WithoutADictionaryNothingIsUnderlinedAndOneLineSaysSo) {
    DictionaryFolder() = folder.path();
    note->setPlainText(QStringLiteral("patiemt"));
    open();
    EXPECT_EQ(underlined(), QStringList());
    const QString hint = QStringLiteral("Spelling is not checked, because no dictionary is installed.");
    EXPECT_EQ(spell->Hint(), hint);
    desk.expectBox(hint, QStringLiteral("Spelling"));
    spell->CheckSpelling();
}

TEST_F(Spelling, ADamagedDictionaryUnderlinesNothing) {
    DictionaryFolder() = folder.path();
    PutFile(folder.filePath(QStringLiteral("en_US.aff")), "SET UTF-8\n");
    PutFile(folder.filePath(QStringLiteral("en_US.dic")), QByteArray("\0\xff\xfe garbage\n", 12));
    note->setPlainText(QStringLiteral("patiemt came"));
    open();
    EXPECT_EQ(underlined(), QStringList());
    EXPECT_FALSE(spell->Hint().isEmpty());
}

TEST_F(Spelling, ALongTextIsCheckedInPiecesAndMeanwhileOneCanType) {
    constexpr int Lines = 5000;
    open();
    note->setPlainText(
        QStringLiteral("The patiemt could not come today, because the bus did not run.\n").repeated(Lines));
    EXPECT_EQ(note->document()->firstBlock().userState(), 1);
    EXPECT_NE(note->document()->lastBlock().userState(), 1) << "Not all of it is checked at once.";
    type(QStringLiteral("wrng "));
    EXPECT_NE(note->document()->lastBlock().userState(), 1) << "What is typed is not kept waiting.";
    const QStringList words = underlined();
    EXPECT_EQ(words.size(), Lines + 1);
    EXPECT_EQ(words.value(0), QStringLiteral("wrng"));
}
