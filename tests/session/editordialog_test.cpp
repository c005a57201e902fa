#include "session/editordialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/controls/noticebar.h"
#include "platform/desktop/opendialog.h"
#include "session/runeditor.h"
#include "tests/support/scripteddesk.h"

namespace {

const QString Question = QStringLiteral("Close without saving what you have changed?");
const QString Forget = QStringLiteral("Throw away what was typed and not saved?");
const QString Title = QStringLiteral("Edit Something");

/// An editor of one field, whose save fails while the field says so.
class SampleEditor : public EditorDialog {
  public:
    explicit SampleEditor(QWidget* parent = nullptr) : EditorDialog(parent) {
        setWindowTitle(Title);
        auto* column = new QVBoxLayout(this);
        column->addWidget(field);
        column->addWidget(cancel);
        connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    }
    [[nodiscard]] QString Subject() const override { return QStringLiteral("sample of today"); }
    void save() {
        if (field->text().contains(QStringLiteral("refused")))
            closeUnsaved();
        else
            accept();
    }
    bool takesEscape() override { return std::exchange(listOpen, false); }

    QLineEdit* field = new QLineEdit(this);
    QPushButton* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    bool listOpen = false;
};

class EditorDialogTest : public testing::Test {
  protected:
    ScriptedDesk desk;
};

}  // namespace

TEST_F(EditorDialogTest, AnUnchangedEditorClosesAtOnce) {
    SampleEditor editor;
    editor.show();
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_FALSE(editor.isVisible());
    editor.show();
    editor.close();
    EXPECT_FALSE(editor.isVisible());
}

TEST_F(EditorDialogTest, EscapeAndTheCloseButtonAskOnceBeforeTheyThrowAwayWhatWasTyped) {
    SampleEditor editor;
    editor.show();
    editor.field->setText(QStringLiteral("typed"));
    desk.expectBox(Question, Title, Answer::No);
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_TRUE(editor.isVisible());
    desk.expectBox(Question, Title, Answer::No);
    editor.close();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.field->text(), QStringLiteral("typed"));
    desk.expectBox(Question, Title, Answer::Yes);
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_FALSE(editor.isVisible());
    editor.show();
    desk.expectBox(Question, Title, Answer::Yes);
    editor.close();
    EXPECT_FALSE(editor.isVisible());
}

TEST(EditorDialogBox, TheQuestionKeepsEditingWhereItIsAnsweredByEnter) {
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
    EXPECT_EQ(RealDesktop().msgBox(Question, YesNoWarningBox, Title), Answer::No);
}

TEST_F(EditorDialogTest, CancelClosesWithoutAQuestion) {
    SampleEditor editor;
    editor.show();
    editor.field->setText(QStringLiteral("typed"));
    editor.cancel->click();
    EXPECT_FALSE(editor.isVisible());
}

TEST_F(EditorDialogTest, WhatWasTakenBackAsksNothing) {
    SampleEditor editor;
    editor.show();
    editor.field->setText(QStringLiteral("typed"));
    editor.field->clear();
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_FALSE(editor.isVisible());
}

TEST_F(EditorDialogTest, TheCloseButtonClosesWhatStandsOpenInTheFormAndGoesOn) {
    SampleEditor editor;
    editor.show();
    editor.field->setText(QStringLiteral("typed"));
    editor.listOpen = true;
    desk.expectBox(Question, Title, Answer::Yes);
    editor.close();
    EXPECT_FALSE(editor.isVisible());
    EXPECT_FALSE(editor.listOpen);
}

TEST_F(EditorDialogTest, EscapeFirstClosesWhatStandsOpenInTheForm) {
    SampleEditor editor;
    editor.show();
    editor.field->setText(QStringLiteral("typed"));
    editor.listOpen = true;
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_TRUE(editor.isVisible());
}

namespace {

class RunEditorTest : public testing::Test {
  protected:
    void run() {
        RunEditor(
            std::make_unique<SampleEditor>(&window), [this] { happened << QStringLiteral("closed"); },
            [this] { happened << QStringLiteral("reopened"); });
    }
    /// Types and saves in the form that is shown next.
    void expectSaving(const QString& text) {
        desk.expectForm("EditorDialog", [this, text](QDialog& form) {
            auto& editor = dynamic_cast<SampleEditor&>(form);
            shown = editor.field->text();
            editor.field->setText(text);
            editor.save();
        });
    }
    void press(const char* name) {
        auto* button = bar.findChild<QAbstractButton*>(QString::fromLatin1(name));
        ASSERT_NE(button, nullptr);
        button->click();
        QApplication::processEvents();
    }

    ScriptedDesk desk;
    QWidget window;
    NoticeBar bar;
    QStringList happened;
    QString shown;
};

}  // namespace

TEST_F(RunEditorTest, ASaveThatWentWellLeavesNothingBehind) {
    expectSaving(QStringLiteral("typed"));
    run();
    EXPECT_EQ(bar.Texts(), QStringList());
    EXPECT_EQ(happened, QStringList(QStringLiteral("closed")));
    EXPECT_EQ(window.findChild<EditorDialog*>(), nullptr);
}

TEST_F(RunEditorTest, WhatCouldNotBeSavedIsOpenedAgainWithAllThatWasTyped) {
    expectSaving(QStringLiteral("refused O'Brien"));
    run();
    EXPECT_EQ(bar.Texts(), QStringList(QStringLiteral("Not saved: sample of today")));
    EXPECT_EQ(happened, QStringList(QStringLiteral("closed")));

    expectSaving(QStringLiteral("refused again"));
    press("cmdNotice");
    EXPECT_EQ(shown, QStringLiteral("refused O'Brien"));
    EXPECT_EQ(bar.Texts().size(), 1);

    expectSaving(QStringLiteral("at last"));
    press("cmdNotice");
    EXPECT_EQ(shown, QStringLiteral("refused again"));
    EXPECT_EQ(bar.Texts(), QStringList());
    EXPECT_EQ(happened.last(), QStringLiteral("reopened"));
    EXPECT_EQ(window.findChild<EditorDialog*>(), nullptr);
}

TEST_F(RunEditorTest, TheNoticeIsClosedOnlyByWhoWantsToLoseWhatWasTyped) {
    expectSaving(QStringLiteral("refused"));
    run();
    desk.expectBox(Forget, Title, Answer::No);
    press("cmdCloseNotice");
    EXPECT_EQ(bar.Texts().size(), 1);
    desk.expectBox(Forget, Title, Answer::No);
    EXPECT_FALSE(bar.MayLeave());
    desk.expectBox(Forget, Title, Answer::Yes);
    press("cmdCloseNotice");
    EXPECT_EQ(bar.Texts(), QStringList());
    EXPECT_EQ(window.findChild<EditorDialog*>(), nullptr);
}

TEST_F(RunEditorTest, NoEditorIsOpenedAgainInFrontOfAnotherDialog) {
    expectSaving(QStringLiteral("refused"));
    run();
    {
        const OpenDialog other;
        press("cmdNotice");
        EXPECT_EQ(bar.Texts(), QStringList(QStringLiteral("Not saved: sample of today")));
    }
    expectSaving(QStringLiteral("at last"));
    press("cmdNotice");
    EXPECT_EQ(shown, QStringLiteral("refused"));
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(RunEditorTest, AnEditorThatWentWithItsWindowIsNotOpenedAgain) {
    expectSaving(QStringLiteral("refused"));
    run();
    delete window.findChild<EditorDialog*>();
    press("cmdNotice");
    EXPECT_EQ(happened, QStringList(QStringLiteral("closed")));
}
