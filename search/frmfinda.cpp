#include "search/frmfinda.h"

#include <QCheckBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/datefield.h"
#include "platform/controls/formarea.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/printing/vsprinter.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "search/listprint.h"
#include "session/characterfilter.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

// A stored Tentative is another code and has no word here; see ncolor::LegendTentative.
QString statusWord(int code) {
    switch (code) {
        case ncolor::LegendTentative:
            return QStringLiteral("Tentative");
        case ncolor::Pending:
            return QStringLiteral("Pending");
        case ncolor::Kept:
            return QStringLiteral("Kept");
        case ncolor::Missed:
            return QStringLiteral("Missed");
        case ncolor::PatientCancelled:
            return QStringLiteral("Pt Cancelled");
        case ncolor::TherapistCancelled:
            return QStringLiteral("Th Cancelled");
        default:
            return {};
    }
}

QString statementFor(const QString& text) {
    const QString& provider = Session().ProviderId;
    if (text.size() == 1)
        return Sql("Select * from appointments Where CapptText Like '{}%' AND ClinicianId = '{}' Order by dapptdate",
                   db::LikeText(text), provider);
    return Sql("Select * from appointments Where CapptText Like '%{}%' AND ClinicianId = '{}' Order by dapptdate",
               db::LikeText(text), provider);
}

QString listLine(const Recordset& row, bool military, DateOrder order) {
    const auto time = [&row, military](const char* column) {
        return MinutesToTimeText(static_cast<int>(row[column].integer()), military);
    };
    return QStringList{CleanFieldText(row["cappttext"].text()),
                       DateFieldText(row["dapptdate"].date(), order),
                       time("nstarttime"),
                       time("nendtime"),
                       CleanFieldText(row["clocation"].text()),
                       statusWord(static_cast<int>(row["ncolor"].integer()))}
        .join(u';');
}

}  // namespace

frmfinda::frmfinda(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmfinda"));
    setWindowTitle(QStringLiteral("Find"));
    buildForm();
    layOutForm();
    connect(txtfind, &QLineEdit::textChanged, this, [this](const QString& text) {
        cmdfind->setEnabled(!text.isEmpty());
        cmdfind->setDefault(true);
    });
    connect(cmdfind, &QPushButton::clicked, this, &frmfinda::cmdfind_Click);
    connect(ctList1, &ctList::RowActivated, this, &frmfinda::cmdgoto_Click);
    connect(cmdgoto, &QPushButton::clicked, this, &frmfinda::cmdgoto_Click);
    connect(cmdprint, &QPushButton::clicked, this, &frmfinda::cmdprint_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

QSize frmfinda::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 30};
}

void frmfinda::buildForm() {
    txtfind = new QLineEdit(this);
    txtfind->setObjectName(QStringLiteral("txtfind"));
    txtfind->setClearButtonEnabled(true);
    // They would break the line of a list or the statement.
    txtfind->setValidator(
        new CharacterFilter([](QChar c) { return c != u'"' && c != u'*' && c != u';' && c != u'|'; }, txtfind));
    const auto button = [this](const char* name, const QString& text, const QIcon& icon, bool enabled) {
        auto* made = new QPushButton(icon, text, this);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        made->setEnabled(enabled);
        return made;
    };
    cmdfind = button("cmdfind", tr("&Find"), Icon("find"), false);
    ckselected = new QCheckBox(QStringLiteral("Print &Selected Items Only"), this);
    ckselected->setObjectName(QStringLiteral("ckselected"));
    cmdprint = button("cmdprint", tr("&Print..."), Icon("print"), false);
    cmdgoto = button("cmdgoto", tr("&Go To"), {}, false);
    cmdclose = button("cmdclose", tr("&Close"), {}, true);
    ctList1 = new ctList(this);
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(tr("Appointments"));
    ctList1->SetMultiSelect(true);
    ctList1->SetColumns({{QStringLiteral("Description")},
                         {QStringLiteral("Date"), ListColumn::Kind::Text, 13},
                         {QStringLiteral("Start"), ListColumn::Kind::Text, 12},
                         {QStringLiteral("End"), ListColumn::Kind::Text, 12},
                         {QStringLiteral("Location"), ListColumn::Kind::Text, 20},
                         {QStringLiteral("Status"), ListColumn::Kind::Text, 14}});
    lblcount = new QLabel(this);
    lblcount->setObjectName(QStringLiteral("lblcount"));
    allowResults(false);
}

void frmfinda::layOutForm() {
    auto* label = new QLabel(QStringLiteral("Find Appointment that contains the following name or description:"), this);
    label->setWordWrap(true);
    label->setBuddy(txtfind);
    auto* find = new QHBoxLayout;
    find->addWidget(txtfind, 1);
    find->addWidget(cmdfind);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblcount, 1);
    buttons->addWidget(ckselected);
    buttons->addSpacing(Space(8));
    buttons->addWidget(cmdprint);
    buttons->addWidget(cmdgoto);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(label);
    column->addLayout(find);
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
    FitToScreen(*this);
    txtfind->setFocus();
}

void frmfinda::allowResults(bool allowed) {
    ckselected->setEnabled(allowed);
    cmdprint->setEnabled(allowed);
    cmdgoto->setEnabled(allowed);
}

void frmfinda::cmdfind_Click() {
    const BusyPointer busy;
    allowResults(false);
    ctList1->Clear();
    lblcount->clear();
    try {
        addHits();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error finding appointments. "), error);
    }
    if (ctList1->RowCount() == 0)
        return;
    lblcount->setText(ctList1->RowCount() == 1 ? tr("1 appointment") : tr("%1 appointments").arg(ctList1->RowCount()));
    ctList1->SelectRow(0);
    allowResults(true);
    cmdgoto->setDefault(true);
    ctList1->setFocus();
}

void frmfinda::addHits() {
    Recordset rows(statementFor(txtfind->text()), Session().Connection);
    if (rows.Eof()) {
        MsgBox(QStringLiteral("No Matching Records."), InformationBox, QStringLiteral("Find"));
        txtfind->setFocus();
        txtfind->selectAll();
        return;
    }
    const auto order = static_cast<DateOrder>(Session().DateOrder);
    for (; !rows.Eof(); rows.MoveNext())
        ctList1->AddRow(listLine(rows, Session().MilitaryTime, order), rows["nkeyid"].integer());
}

void frmfinda::cmdgoto_Click() {
    const int row = ctList1->SelectedRow();
    if (row < 0)
        return;
    try {
        const Recordset hit(Sql("Select * from appointments Where nKeyId = {}", ctList1->ItemData(row).toLongLong()),
                            Session().Connection);
        if (!hit.Eof() && hit["dapptdate"].date().isValid()) {
            found_ = {hit["nkeyid"].text(), hit["dapptdate"].date(), static_cast<int>(hit["nstarttime"].integer())};
            accept();
            return;
        }
        lblcount->setText(tr("This appointment is not there any more. Another user may have deleted it."));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error finding appointments. "), error);
    }
}

void frmfinda::cmdprint_Click() {
    if (ckselected->isChecked() && ctList1->SelectedRow() < 0) {
        lblcount->setText(tr("Select the appointments to print."));
        return;
    }
    VSPrinter vp;
    vp.SetTitle(tr("Appointments"));
    vp.SetFooter(QStringLiteral("||Page %d"));
    vp.SetHeader(QStringLiteral("|Appointments|"));
    vp.AddTable(QStringLiteral("2160|1300|1300|1300|2800|1440;"),
                QStringLiteral("Description|Date|Start|End|Location|Status;"),
                TableBody(*ctList1, ckselected->isChecked()));
    vp.Preview(this);
}
