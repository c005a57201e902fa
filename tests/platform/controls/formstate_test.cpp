#include "platform/controls/formstate.h"

#include <gtest/gtest.h>

#include <functional>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"

namespace {

class FormStateTest : public testing::Test {
  protected:
    FormStateTest() {
        list->SetColumns({{QStringLiteral("Here"), ListColumn::Kind::Check, 4}, {QStringLiteral("Name")}});
        list->AddRow({QStringLiteral("1"), QStringLiteral("Abel")});
        combo->addItems({QStringLiteral("one"), QStringLiteral("two")});
        several->setSelectionMode(QAbstractItemView::MultiSelection);
        several->addItems({QStringLiteral("Reed"), QStringLiteral("Lane")});
        before = FormState(form);
    }
    [[nodiscard]] bool differs() const { return FormState(form) != before; }

    QWidget form;
    QLineEdit* line = new QLineEdit(QStringLiteral("text"), &form);
    QPlainTextEdit* note = new QPlainTextEdit(&form);
    QCheckBox* check = new QCheckBox(&form);
    QComboBox* combo = new QComboBox(&form);
    ctDEdit* time = new ctDEdit(ctDEdit::Kind::Time, &form);
    ctList* list = new ctList(&form);
    QListWidget* several = new QListWidget(&form);
    QStringList before;
};

}  // namespace

TEST_F(FormStateTest, EveryKindOfFieldCounts) {
    const std::function<void()> changes[] = {
        [this] { line->setText(QStringLiteral("other")); },
        [this] { note->setPlainText(QStringLiteral("a note")); },
        [this] { check->setChecked(true); },
        [this] { combo->setCurrentIndex(1); },
        [this] { time->setTime(540); },
        [this] { list->SetChecked(0, 1, false); },
        [this] { several->item(1)->setSelected(true); },
    };
    int number = 0;
    for (const auto& change : changes) {
        before = FormState(form);
        change();
        EXPECT_TRUE(differs()) << number;
        ++number;
    }
}

TEST_F(FormStateTest, WhatIsTakenBackIsNoChange) {
    line->setText(QStringLiteral("other"));
    line->setText(QStringLiteral("text"));
    EXPECT_FALSE(differs());
}

TEST_F(FormStateTest, WhereTheFocusOrTheSelectedRowIsDoesNotCount) {
    list->SelectRow(0);
    line->selectAll();
    EXPECT_FALSE(differs());
}

TEST_F(FormStateTest, WhatPopsUpOverTheFormDoesNotCount) {
    QWidget popup(&form, Qt::Popup);
    QLineEdit inPopup(QStringLiteral("2026"), &popup);
    EXPECT_FALSE(differs());
}
