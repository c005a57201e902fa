#include "views/frmfroom.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

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

QString listLine(const Recordset& row, bool military, DateOrder order) {
    const auto time = [&row, military](const char* column) {
        return MinutesToTimeText(static_cast<int>(row[column].integer()), military);
    };
    return QStringList{CleanFieldText(row["croomtext"].text()), DateFieldText(row["napptdate"].date(), order),
                       time("nstarttime"), time("nendtime"), CleanFieldText(row["room"].text())}
        .join(u';');
}

}  // namespace

frmfroom::frmfroom(GoTo goTo, QWidget* parent) : QDialog(parent), goTo_(std::move(goTo)) {
    setObjectName(QStringLiteral("frmfroom"));
    setWindowTitle(QStringLiteral("Find Room"));
    buildForm();
    layOutForm();
    connect(txtfind, &QLineEdit::textChanged, this, [this](const QString& text) {
        cmdfind->setEnabled(!text.isEmpty());
        cmdfind->setDefault(true);
    });
    connect(cmdfind, &QPushButton::clicked, this, &frmfroom::cmdfind_Click);
    connect(ctList1, &ctList::RowActivated, this, &frmfroom::cmdgoto_Click);
    connect(cmdgoto, &QPushButton::clicked, this, &frmfroom::cmdgoto_Click);
    connect(cmdprint, &QPushButton::clicked, this, &frmfroom::cmdprint_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

QSize frmfroom::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 30};
}

void frmfroom::buildForm() {
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
    cmdprint = button("cmdprint", tr("P&rint..."), Icon("print"), false);
    cmdgoto = button("cmdgoto", tr("&Go To"), {}, false);
    cmdclose = button("cmdclose", tr("&Close"), {}, true);
    ckselected = new QCheckBox(QStringLiteral("Print &Selected Items Only"), this);
    ckselected->setObjectName(QStringLiteral("ckselected"));
    ckselected->setEnabled(false);
    ctList1 = new ctList(this);
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(tr("Bookings"));
    ctList1->SetMultiSelect(true);
    ctList1->SetColumns({{QStringLiteral("Description")},
                         {QStringLiteral("Date"), ListColumn::Kind::Text, 13},
                         {QStringLiteral("Start"), ListColumn::Kind::Text, 12},
                         {QStringLiteral("End"), ListColumn::Kind::Text, 12},
                         {QStringLiteral("Room"), ListColumn::Kind::Text, 24}});
    lblcount = new QLabel(this);
    lblcount->setObjectName(QStringLiteral("lblcount"));
    lblcount->setWordWrap(true);
}

void frmfroom::layOutForm() {
    auto* label = new QLabel(tr("Find bookings of any room whose description contains:"), this);
    label->setWordWrap(true);
    label->setBuddy(txtfind);
    auto* find = new QHBoxLayout;
    find->addWidget(txtfind, 1);
    find->addWidget(cmdfind);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(ckselected);
    buttons->addStretch(1);
    buttons->addWidget(cmdprint);
    buttons->addWidget(cmdgoto);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(label);
    column->addLayout(find);
    column->addWidget(ctList1, 1);
    column->addWidget(lblcount);
    column->addLayout(buttons);
    FitToScreen(*this);
    txtfind->setFocus();
}

void frmfroom::cmdfind_Click() {
    const BusyPointer busy;
    ctList1->Clear();
    lblcount->clear();
    allowResults(false);
    try {
        addHits();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error finding bookings. "), error);
    }
    if (ctList1->RowCount() == 0)
        return;
    lblcount->setText(ctList1->RowCount() == 1 ? tr("1 booking") : tr("%1 bookings").arg(ctList1->RowCount()));
    ctList1->SelectRow(0);
    allowResults(true);
    cmdgoto->setDefault(true);
    ctList1->setFocus();
}

void frmfroom::allowResults(bool allowed) {
    ckselected->setEnabled(allowed);
    cmdprint->setEnabled(allowed);
    cmdgoto->setEnabled(allowed);
}

void frmfroom::cmdprint_Click() {
    if (ckselected->isChecked() && ctList1->SelectedRow() < 0) {
        lblcount->setText(tr("Select the bookings to print."));
        return;
    }
    VSPrinter vp;
    vp.SetTitle(QStringLiteral("Room Schedule"));
    vp.SetHeader(QStringLiteral("|Room Schedule|"));
    vp.SetFooter(QStringLiteral("||Page %d"));
    vp.AddTable(QStringLiteral("2880|1440|1440|1440|2880;"), QStringLiteral("Description|Date|Start|End|Room;"),
                TableBody(*ctList1, ckselected->isChecked()));
    vp.Preview(this);
}

void frmfroom::addHits() {
    Recordset rows(
        Sql("Select * from roomschedule, rooms Where croomid = roomid AND CroomText Like '%{}%' Order by napptdate",
            db::LikeText(txtfind->text())),
        Session().Connection);
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

void frmfroom::cmdgoto_Click() {
    const int row = ctList1->SelectedRow();
    if (row < 0)
        return;
    try {
        const Recordset hit(Sql("Select * from roomschedule, rooms Where croomid = roomid AND nKeyId = {}",
                                ctList1->ItemData(row).toLongLong()),
                            Session().Connection);
        if (hit.Eof() || !hit["napptdate"].date().isValid()) {
            lblcount->setText(tr("This booking is not there any more. Another user may have deleted it or its room."));
            return;
        }
        if (goTo_({static_cast<int>(hit["nkeyid"].integer()), static_cast<int>(hit["roomid"].integer()),
                   hit["napptdate"].date(), static_cast<int>(hit["nstarttime"].integer())}))
            accept();
        else
            lblcount->setText(tr("This booking's room is not in the list of rooms."));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error finding bookings. "), error);
    }
}
