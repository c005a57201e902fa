#include "people/w_item.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "platform/controls/ctdedit.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;
using db::Value;

namespace {

const QString ErrorTitle = QStringLiteral("Error");

void tell(const QString& text) {
    MsgBox(text, ErrorBox, ErrorTitle);
}

Value textOrNull(const QString& text) {
    return text.isEmpty() ? Value() : Value(text);
}

}  // namespace

w_Item::w_Item(int CurrentTaskId, QWidget* parent) : EditorDialog(parent), taskId_(CurrentTaskId) {
    setObjectName(QStringLiteral("w_Item"));
    setWindowTitle(isNew() ? QStringLiteral("New To Do") : QStringLiteral("Edit To Do"));
    buildForm();
    layOutForm();
    if (isNew())
        lbldate->setText(ShortDateText(Today()));
    else
        loadTask();
    connect(btnOK, &QPushButton::clicked, this, &w_Item::btnOK_Click);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void w_Item::buildForm() {
    const auto named = [](auto* widget, const char* name) {
        widget->setObjectName(QLatin1String(name));
        return widget;
    };
    auto* task = named(new TextField(this), "txtTaskDesc");
    // These characters separate the cells and fields in which a task is listed and printed.
    task->SetAccepts([](QChar c) { return c != u'"' && c != u'*' && c != u';' && c != u'|'; });
    txtTaskDesc = task;
    txtnotes = named(new QPlainTextEdit(this), "txtnotes");
    txtnotes->setTabChangesFocus(true);
    ctDEditComp = named(new ctDEdit(ctDEdit::Kind::Date, this), "ctDEditComp");
    ctDEditComp->setDateOrder(Session().DateOrder);
    Option4 = named(new QRadioButton(tr("&Urgent"), this), "Option4");
    Option3 = named(new QRadioButton(tr("&High"), this), "Option3");
    Option2 = named(new QRadioButton(tr("&Medium"), this), "Option2");
    option1 = named(new QRadioButton(tr("&Low"), this), "option1");
    Option2->setChecked(true);
    lbldate = named(new QLabel(this), "lbldate");
    btnOK = named(new QPushButton(tr("&OK"), this), "btnOK");
    btnOK->setDefault(true);
    btnCancel = named(new QPushButton(tr("&Cancel"), this), "btnCancel");
    btnCancel->setAutoDefault(false);
}

void w_Item::layOutForm() {
    auto* priorities = new QHBoxLayout;
    priorities->setSpacing(Space(12));
    for (QRadioButton* option : {Option4, Option3, Option2, option1})
        priorities->addWidget(option);
    priorities->addStretch(1);
    auto* date = new QHBoxLayout;
    date->addWidget(ctDEditComp);
    date->addStretch(1);
    auto* fields = new QFormLayout;
    fields->setVerticalSpacing(Space(8));
    fields->addRow(tr("&Task:"), txtTaskDesc);
    fields->addRow(tr("Priority:"), priorities);
    fields->addRow(tr("Complete &by:"), date);
    static_cast<QLabel*>(fields->labelForField(date))->setBuddy(ctDEditComp);
    fields->addRow(tr("&Notes:"), txtnotes);
    fields->addRow(tr("Entered:"), lbldate);
    auto* buttons = ButtonRow({btnOK, btnCancel});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(fields, 1);
    column->addLayout(buttons);
    resize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 18);
    txtTaskDesc->setFocus();
}

void w_Item::loadTask() {
    QString why;
    try {
        const Recordset task(Sql("Select * from ToDo where TaskId = {}", taskId_), Session().Connection);
        if (!task.Eof()) {
            txtTaskDesc->setText(task["ToDo"].text());
            txtnotes->setPlainText(task["Notes"].text());
            ctDEditComp->setDate(task["datedue"].date());
            lbldate->setText(ShortDateText(task["DateEntered"].date()));
            switch (task["Priority"].integer()) {
                case 1:
                    option1->setChecked(true);
                    break;
                case 2:
                    Option2->setChecked(true);
                    break;
                case 3:
                    Option3->setChecked(true);
                    break;
                default:
                    Option4->setChecked(true);
            }
            return;
        }
    } catch (const db::DatabaseError& error) {
        why = error.description;
    }
    tell(QStringLiteral("Unable to load Task. Another user may have deleted this task. ") + why);
}

QString w_Item::notes() const {
    return ManyLines(txtnotes->toPlainText());
}

int w_Item::priority() const {
    if (Option4->isChecked())
        return 4;
    if (Option3->isChecked())
        return 3;
    return Option2->isChecked() ? 2 : 1;
}

void w_Item::btnOK_Click() {
    if (txtTaskDesc->text().trimmed().isEmpty()) {
        MsgBox(QStringLiteral("No item entered!"), ExclamationBox, QStringLiteral("Warning"));
        txtTaskDesc->setFocus();
        return;
    }
    if (!ctDEditComp->IsEmpty() && !ctDEditComp->IsValid()) {
        // A date that is not understood would be stored as no date.
        MsgBox(QStringLiteral("Enter a valid date."), ExclamationBox, QStringLiteral("Warning"));
        ctDEditComp->setFocus();
        return;
    }
    if (isNew() ? addTask() : changeTask())
        accept();
}

bool w_Item::addTask() const {
    try {
        Recordset task(QStringLiteral("Select * from ToDo where 0=1"), Session().Connection, Lock::Optimistic);
        task.AddNew();
        task.Set("Priority", priority());
        task.Set("ToDo", txtTaskDesc->text());
        task.Set("DateEntered", Today());
        task.Set("datedue", ctDEditComp->Date());
        task.Set("ClinicianId", Session().ProviderId);
        task.Set("Notes", textOrNull(notes()));
        task.Update();
        return true;
    } catch (const db::DatabaseError& error) {
        tell(QStringLiteral("Error adding task. Try again. ") + error.description);
        return false;
    }
}

bool w_Item::changeTask() const {
    QString why;
    try {
        Recordset task(Sql("Select * from ToDo where TaskId = {}", taskId_), Session().Connection, Lock::Optimistic);
        if (!task.Eof()) {
            task.Set("Priority", priority());
            task.Set("ToDo", txtTaskDesc->text());
            task.Set("datedue", ctDEditComp->Date());
            task.Set("Notes", textOrNull(notes()));
            task.Update();
            return true;
        }
    } catch (const db::DatabaseError& error) {
        why = error.description;
    }
    tell(QStringLiteral("Error saving task. Try again. ") + why);
    return false;
}
