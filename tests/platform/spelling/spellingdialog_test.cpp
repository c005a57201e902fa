#include "platform/spelling/spellingdialog.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include "tests/platform/spelling/spellingfixture.h"
#include "tests/support/files.h"

namespace {

class SpellingRoom : public Spelling {
  protected:
    /// Checks this text; `act` plays the user in the dialog.
    void check(const QString& text, const std::function<void(SpellingDialog&)>& act) {
        note->setPlainText(text);
        open();
        desk.expectForm("SpellingDialog", [act](QDialog& modal) { act(static_cast<SpellingDialog&>(modal)); });
        expectEnd();
        spell->CheckSpelling();
    }
    void expectEnd() { desk.expectBox(QStringLiteral("The spelling check is complete."), QStringLiteral("Spelling")); }
    static QString word(const SpellingDialog& dialog) { return dialog.txtnotfound->accessibleDescription(); }
};

}  // namespace

TEST_F(SpellingRoom, ATextWithoutAMistakeIsToldAsComplete) {
    note->setPlainText(QStringLiteral("The patient came."));
    open();
    expectEnd();
    spell->CheckSpelling();
}

TEST_F(SpellingRoom, AnEmptyTextIsComplete) {
    open();
    expectEnd();
    spell->CheckSpelling();
}

TEST_F(SpellingRoom, EachWordIsShownInItsPlaceWithWhatMayBeMeant) {
    check(QStringLiteral("The patiemt came.\nHe wil call."), [this](SpellingDialog& dialog) {
        EXPECT_EQ(word(dialog), QStringLiteral("patiemt"));
        EXPECT_EQ(dialog.txtnotfound->toPlainText(), QStringLiteral("The patiemt came."));
        EXPECT_EQ(dialog.txtchange->text(), QStringLiteral("patient"));
        EXPECT_EQ(note->textCursor().selectedText(), QStringLiteral("patiemt")) << "The note shows it, too.";
        dialog.cmdignore->click();
        EXPECT_EQ(word(dialog), QStringLiteral("wil"));
        EXPECT_GT(dialog.lstsuggestions->count(), 1);
        dialog.lstsuggestions->setCurrentRow(1);
        EXPECT_EQ(dialog.txtchange->text(), dialog.lstsuggestions->item(1)->text());
        dialog.txtchange->setText(QStringLiteral("will"));
        dialog.cmdchange->click();
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    });
    EXPECT_EQ(note->toPlainText(), QStringLiteral("The patiemt came.\nHe will call."));
}

TEST_F(SpellingRoom, EachChangeIsOneUndo) {
    check(QStringLiteral("patiemt wil patiemt; patiemt"), [](SpellingDialog& dialog) {
        dialog.cmdchangeall->click();
        dialog.txtchange->setText(QStringLiteral("will"));
        dialog.cmdchange->click();
    });
    EXPECT_EQ(note->toPlainText(), QStringLiteral("patient will patient; patient"));
    note->undo();
    EXPECT_EQ(note->toPlainText(), QStringLiteral("patient wil patient; patient"));
    note->undo();
    EXPECT_EQ(note->toPlainText(), QStringLiteral("patiemt wil patiemt; patiemt"));
}

TEST_F(SpellingRoom, ChangeAllLeavesWhatTheUserHasPassedAndOtherWords) {
    check(QStringLiteral("wil Wil wil\nwils wil"), [](SpellingDialog& dialog) {
        dialog.cmdignore->click();
        dialog.cmdignore->click();
        dialog.txtchange->setText(QStringLiteral("will"));
        dialog.cmdchangeall->click();
        EXPECT_EQ(word(dialog), QStringLiteral("wils"));
        dialog.cmdignore->click();
    });
    EXPECT_EQ(note->toPlainText(), QStringLiteral("wil Wil will\nwils will"));
}

TEST_F(SpellingRoom, AChangeThatHoldsTheWordItselfEndsToo) {
    check(QStringLiteral("wil wil"), [](SpellingDialog& dialog) {
        dialog.txtchange->setText(QStringLiteral("wil wil"));
        dialog.cmdchangeall->click();
        dialog.cmdignoreall->click();
    });
    EXPECT_EQ(note->toPlainText(), QStringLiteral("wil wil wil wil"));
}

TEST_F(SpellingRoom, IgnoreAllAndAddPassEachLaterWordLikeIt) {
    check(QStringLiteral("gabapentin solvane gabapentin solvane wil"), [](SpellingDialog& dialog) {
        dialog.cmdadd->click();
        EXPECT_EQ(word(dialog), QStringLiteral("solvane"));
        dialog.cmdignoreall->click();
        EXPECT_EQ(word(dialog), QStringLiteral("wil"));
        dialog.cmdignore->click();
    });
    EXPECT_EQ(FileBytes(list), QByteArray("gabapentin\n"));
    EXPECT_EQ(underlined(), QStringList{QStringLiteral("wil")});
}

TEST_F(SpellingRoom, AWordThatCannotBeAddedStaysInQuestion) {
    list = folder.filePath(QStringLiteral("taken/Custom.dct"));
    PutFile(folder.filePath(QStringLiteral("taken")), "a file where the folder should be");
    note->setPlainText(QStringLiteral("gabapentin"));
    open();
    desk.expectForm("SpellingDialog", [](QDialog& modal) {
        auto& dialog = static_cast<SpellingDialog&>(modal);
        dialog.cmdadd->click();
        EXPECT_EQ(word(dialog), QStringLiteral("gabapentin"));
        dialog.cmdclose->click();
    });
    desk.expectBox(QStringLiteral("The word could not be added, because this file cannot be written:\n") + list,
                   QStringLiteral("Spelling"));
    spell->CheckSpelling();
}

TEST_F(SpellingRoom, WhatANoteDoesNotTakeIsNotTakenFromTheDialogEither) {
    check(QStringLiteral("wil and wil"), [](SpellingDialog& dialog) {
        dialog.txtchange->setText(QStringLiteral("wi;ll|"));
        dialog.cmdchangeall->click();
    });
    EXPECT_EQ(note->toPlainText(), QStringLiteral("will and will"));
}

TEST_F(SpellingRoom, AnEmptyChangeIsNotOffered) {
    check(QStringLiteral("wil"), [](SpellingDialog& dialog) {
        dialog.txtchange->clear();
        EXPECT_FALSE(dialog.cmdchange->isEnabled());
        EXPECT_FALSE(dialog.cmdchangeall->isEnabled());
        dialog.cmdignore->click();
    });
}

TEST_F(SpellingRoom, ClosingKeepsWhatWasChangedAndTellsNoEnd) {
    note->setPlainText(QStringLiteral("patiemt wil"));
    note->moveCursor(QTextCursor::End);
    open();
    desk.expectForm("SpellingDialog", [](QDialog& modal) {
        auto& dialog = static_cast<SpellingDialog&>(modal);
        dialog.cmdchange->click();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    spell->CheckSpelling();
    EXPECT_EQ(note->toPlainText(), QStringLiteral("patient wil"));
    EXPECT_EQ(note->textCursor().position(), 11) << "The caret is where the user left it.";
    EXPECT_FALSE(note->textCursor().hasSelection());
}

TEST_F(SpellingRoom, TheWholeDialogGoesByKeyboard) {
    check(QStringLiteral("patiemt and recieve wil"), [](SpellingDialog& dialog) {
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        EXPECT_TRUE(dialog.txtchange->hasFocus());
        QTest::keyClick(dialog.txtchange, Qt::Key_Return);
        EXPECT_EQ(word(dialog), QStringLiteral("recieve"));
        QTest::keyClick(&dialog, Qt::Key_N, Qt::AltModifier);
        EXPECT_TRUE(dialog.lstsuggestions->hasFocus());
        QTest::keyClick(dialog.lstsuggestions, Qt::Key_Down);
        QTest::keyClick(dialog.lstsuggestions, Qt::Key_Up);
        QTest::keyClick(dialog.lstsuggestions, Qt::Key_Return);
        EXPECT_EQ(word(dialog), QStringLiteral("wil")) << "Enter changes one word, not two.";
        EXPECT_TRUE(dialog.txtchange->hasFocus());
        QTest::keyClick(&dialog, Qt::Key_I, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&dialog] { return dialog.result() == QDialog::Accepted; }));
    });
    EXPECT_EQ(note->toPlainText(), QStringLiteral("patient and receive wil"));
}

TEST_F(SpellingRoom, EveryAltKeyOfTheDialogIsItsOwn) {
    check(QStringLiteral("wil"), [](SpellingDialog& dialog) {
        QStringList letters;
        for (const QWidget* part : dialog.findChildren<QWidget*>())
            if (const QString text = part->property("text").toString(); text.contains(QLatin1Char('&')))
                letters << text.mid(text.indexOf(QLatin1Char('&')) + 1, 1).toLower();
        EXPECT_EQ(letters.size(), 9);
        EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(QLatin1Char(' ')).toStdString();
        dialog.cmdignore->click();
    });
}

TEST_F(SpellingRoom, ALongParagraphIsShownAroundTheWord) {
    const QString filler = QStringLiteral("The patient came again today. ").repeated(50);
    check(filler + QStringLiteral("wil ") + filler, [](SpellingDialog& dialog) {
        EXPECT_LT(dialog.txtnotfound->toPlainText().size(), 400);
        EXPECT_TRUE(dialog.txtnotfound->toPlainText().contains(QLatin1String(" wil ")));
        dialog.cmdignore->click();
    });
}
