#include "people/frmholidays.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int MostCharacters = 100;  // Length of Holidays.Holiday.
constexpr int DateColumn = 2;
/// Returns a date as this list shows it, whatever the system's order.
const QString DateForm = QStringLiteral("MM/dd/yyyy");

}  // namespace

frmholidays::frmholidays(QWidget* parent) : EditorDialog(parent) {
    setObjectName(QStringLiteral("frmholidays"));
    setWindowTitle(QStringLiteral("Holidays"));
    buildForm();
    layOutForm();
    loadholidays();
    connect(txtholiday, &QLineEdit::textChanged, this,
            [this](const QString& text) { cmdadd->setEnabled(!text.trimmed().isEmpty()); });
    connect(ctList1, &ctList::SelectionChanged, this, [this] { cmdremove->setEnabled(ctList1->SelectedRow() >= 0); });
    connect(cmdadd, &QPushButton::clicked, this, &frmholidays::cmdadd_Click);
    connect(cmdremove, &QPushButton::clicked, this, &frmholidays::cmdremove_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::accept);
}

QSize frmholidays::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 76, fontMetrics().height() * 26};
}

bool frmholidays::IsChanged() const {
    return !txtholiday->text().trimmed().isEmpty();
}

void frmholidays::buildForm() {
    auto* entry = new TextField(this);
    entry->SetMost(MostCharacters);
    txtholiday = entry;
    txtholiday->setObjectName(QStringLiteral("txtholiday"));
    ctDateCDrop = new ctDEdit(ctDEdit::Kind::Date, this);
    ctDateCDrop->setObjectName(QStringLiteral("ctDateCDrop"));
    ctDateCDrop->setDateOrder(Session().DateOrder);
    ctDateCDrop->setDate(Today());
    ckRepeat = new QCheckBox(tr("Repeat &yearly"), this);
    ckRepeat->setObjectName(QStringLiteral("ckRepeat"));
    cmdadd = new QPushButton(QStringLiteral("&Add >>"), this);
    cmdadd->setObjectName(QStringLiteral("cmdadd"));
    cmdadd->setDefault(true);
    cmdadd->setEnabled(false);
    ctList1 = new ctList(this);
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(QStringLiteral("Holidays"));
    ctList1->SetColumns({{QStringLiteral("Holiday")},
                         {QStringLiteral("Date"), ListColumn::Kind::Text, 13},
                         {QStringLiteral("Recurring"), ListColumn::Kind::Text, 11}});
    cmdremove = new QPushButton(Icon("delete"), tr("&Remove"), this);
    cmdremove->setObjectName(QStringLiteral("cmdremove"));
    cmdremove->setAutoDefault(false);
    cmdremove->setEnabled(false);
    cmdclose = new QPushButton(tr("&Close"), this);
    cmdclose->setObjectName(QStringLiteral("cmdclose"));
    cmdclose->setAutoDefault(false);
}

void frmholidays::layOutForm() {
    auto* fields = new QFormLayout;
    fields->setVerticalSpacing(Space(8));
    fields->addRow(tr("&Holiday:"), txtholiday);
    auto* date = new QHBoxLayout;
    date->addWidget(ctDateCDrop);
    date->addSpacing(Space(12));
    date->addWidget(ckRepeat);
    date->addStretch(1);
    date->addWidget(cmdadd);
    fields->addRow(tr("&Date:"), date);
    static_cast<QLabel*>(fields->labelForField(date))->setBuddy(ctDateCDrop);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdremove);
    buttons->addStretch(1);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(fields);
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
    txtholiday->setFocus();
}

void frmholidays::loadholidays() {
    ctList1->Clear();
    try {
        for (Recordset rows(QStringLiteral("Select * from Holidays Order by HolidayDate DESC"), Session().Connection);
             !rows.Eof(); rows.MoveNext()) {
            const QString name = rows["Holiday"].text();
            QStringList cells{name, rows["HolidayDate"].date().toString(DateForm)};
            if (rows["HolidayRepeat"].integer() == 1)
                cells << QStringLiteral("Y");
            ctList1->SetItemText(ctList1->AddRow(cells, rows["HolidayID"].integer()), name);
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading holidays. "), error);
    }
    cmdremove->setEnabled(ctList1->SelectedRow() >= 0);
}

bool frmholidays::listed(const QString& name, QDate date) const {
    for (int row = 0; row < ctList1->RowCount(); ++row)
        if (ctList1->Cell(row, DateColumn) == date.toString(DateForm) &&
            ctList1->ItemText(row).compare(name, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

void frmholidays::cmdadd_Click() {
    const QString name = txtholiday->text().trimmed();
    const QDate date = ctDateCDrop->Date();
    if (!date.isValid()) {
        MsgBox(QStringLiteral("Enter a valid date."), ExclamationBox, QStringLiteral("Missing Data"));
        ctDateCDrop->setFocus();
        return;
    }
    if (listed(name, date)) {
        MsgBox(QStringLiteral("Item is already on list."), ExclamationBox, QStringLiteral("Duplicate Item"));
        return;
    }
    try {
        Session().Connection.Execute(
            Sql("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('{}', '{}', {})", name,
                date.toString(QStringLiteral("M/d/yyyy")), ckRepeat->isChecked() ? 1 : 0));
    } catch (const db::DatabaseError& error) {
        MsgBox(QStringLiteral("Error adding holiday. ") + error.description, ErrorBox,
               QStringLiteral("Database Error"));
        return;
    }
    txtholiday->clear();
    ctDateCDrop->setText({});
    ckRepeat->setChecked(false);
    loadholidays();
    txtholiday->setFocus();
}

void frmholidays::cmdremove_Click() {
    const int row = ctList1->SelectedRow();
    if (row < 0)
        return;
    try {
        Session().Connection.Execute(
            Sql("Delete from holidays Where HolidayID = {}", ctList1->ItemData(row).toLongLong()));
    } catch (const db::DatabaseError& error) {
        MsgBox(QStringLiteral("Error deleting holiday. ") + error.description, ErrorBox,
               QStringLiteral("Database Error"));
        return;
    }
    loadholidays();
    ctList1->SelectRow(std::min(row, ctList1->RowCount() - 1));
}
