#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <QAction>
#include <QMenu>
#include <QTemporaryDir>
#include <QWidget>

#include "platform/controls/notefield.h"
#include "platform/spelling/vsspell.h"
#include "tests/support/scripteddesk.h"

/// A form with a note and another field, and the user's own list of words in a folder of the test's own.
class Spelling : public testing::Test {
  protected:
    Spelling();
    ~Spelling() override;

    /// Makes the spelling of the note, as a form does when it opens, and shows the form.
    void open();
    void type(const QString& text);
    /// The words underlined in the note, in order, once all of it has been checked.
    QStringList underlined();
    /// Opens the menu of the place in the note that the pointer is at, or that the caret is at.
    QMenu* menuAt(int position);
    QMenu* menuByKey();
    /// The texts of a menu up to the field's own "Undo"; "-" is a line.
    static QStringList offered(const QMenu& menu);
    static QAction* entry(const QMenu& menu, const QString& text);

    ScriptedDesk desk;
    QTemporaryDir folder;
    QString list = folder.filePath(QStringLiteral("Custom.dct"));
    QString dictionaryBefore;
    QWidget form;
    NoteField* note;
    QWidget* other;
    std::unique_ptr<VSSpell> spell;
};
