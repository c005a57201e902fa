#include <QButtonGroup>
#include <QGridLayout>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>

#include "people/addressedit.h"
#include "people/fieldgrid.h"
#include "people/frmcontact.h"
#include "platform/controls/ctmedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/notefield.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/session.h"

namespace {

/// Lengths of the columns of ContactList.
enum Length {
    NameLength = 100,
    InitialLength = 10,
    AddressLength = 255,
    CityLength = 100,
    StateLength = 50,
    ZipLength = 20,
    PhoneLength = 40,
    MailLength = 255,
};

constexpr int AddressLines = 3;

}  // namespace

void frmcontact::buildForm() {
    buildPages();
    SSRibbon1 = FormButton(tr("&Basic Information"), "SSRibbon1", this);
    SSRibbon2 = FormButton(tr("&Notes"), "SSRibbon2", this);
    auto* group = new QButtonGroup(this);
    auto* ribbons = new QHBoxLayout;
    ribbons->setContentsMargins(Space(16), Space(12), Space(16), 0);
    ribbons->setSpacing(Space(4));
    for (QPushButton* ribbon : {SSRibbon1, SSRibbon2}) {
        ribbon->setCheckable(true);
        // By its own letter a button waits a tenth of a second before it clicks, and what is typed meanwhile is lost.
        ribbon->setShortcut({});
        connect(new QShortcut(QKeySequence::mnemonic(ribbon->text()), this), &QShortcut::activated, ribbon,
                &QPushButton::click);
        group->addButton(ribbon);
        ribbons->addWidget(ribbon);
    }
    SSRibbon1->setIcon(Icon("user"));
    SSRibbon2->setIcon(Icon("note"));
    SSRibbon1->setChecked(true);
    ribbons->addStretch(1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(ribbons);
    column->addWidget(pages_, 1);
    column->addWidget(buttonRow());
    setTabOrders();
    FitToScreen(*this);
    txtlname->setFocus();
}

void frmcontact::buildPages() {
    auto* fields = new QWidget;
    QGridLayout* grid = FieldGrid(fields);
    addName(*grid, 0);
    addWork(*grid, 1);
    addAddress(*grid, 2);
    addPhones(*grid, 3);
    addMail(*grid, 5);
    grid->setRowStretch(6, 1);
    pages_ = new QStackedWidget(this);
    pages_->addWidget(new FormArea(fields, this));
    pages_->addWidget(pageOfNotes());
    for (QLineEdit* field : pages_->findChildren<QLineEdit*>())
        field->installEventFilter(this);
    for (QPlainTextEdit* field : pages_->findChildren<QPlainTextEdit*>())
        field->installEventFilter(this);
}

void frmcontact::addName(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    AddHeading(grid, row, tr("Name"));
    txtlname = LimitedField("txtlname", NameLength, parent);
    txtfname = LimitedField("txtfname", NameLength, parent);
    txtmi = LimitedField("txtmi", InitialLength, parent);
    PlaceField(grid, row, 0, 11, {tr("&Last name")}, txtlname);
    PlaceField(grid, row, 11, 10, {tr("&First name")}, txtfname);
    PlaceField(grid, row, 21, 3, {tr("M&I")}, txtmi);
}

void frmcontact::addWork(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    AddHeading(grid, row, tr("Work"));
    txtco = LimitedField("txtco", NameLength, parent);
    txttitle = LimitedField("txttitle", NameLength, parent);
    txtdept = LimitedField("txtdept", NameLength, parent);
    PlaceField(grid, row, 0, 11, {tr("Com&pany")}, txtco);
    PlaceField(grid, row, 11, 7, {tr("&Title")}, txttitle);
    PlaceField(grid, row, 18, 6, {tr("&Department")}, txtdept);
}

void frmcontact::addAddress(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    AddHeading(grid, row, tr("Address"));
    txtaddress = Named(new AddressEdit(AddressLength, AddressLines, parent), "txtaddress");
    txtcity = LimitedField("txtcity", CityLength, parent);
    txtstate = LimitedField("txtstate", StateLength, parent);
    txtzip = LimitedField("txtzip", ZipLength, parent);
    PlaceField(grid, row, 0, 11, {tr("&Address")}, txtaddress);
    PlaceField(grid, row, 11, 6, {tr("Cit&y")}, txtcity);
    PlaceField(grid, row, 17, 3, {tr("&State")}, txtstate);
    PlaceField(grid, row, 20, 4, {tr("&Zip")}, txtzip);
}

void frmcontact::addPhones(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    const auto phone = [parent](const char* name, const QString& extension = {}) {
        return MaskedField(name, {Session().PhoneMask, extension}, PhoneLength, parent);
    };
    AddHeading(grid, row, tr("Telephone"));
    txthphone = phone("txthphone");
    txtwphone = phone("txtwphone", ExtensionMask);
    txtmphone = phone("txtmphone");
    txtfax = phone("txtfax");
    txtpager = phone("txtpager");
    PlaceField(grid, row, 0, 8, {tr("&Home")}, txthphone);
    PlaceField(grid, row, 8, 8, {tr("&Work, with extension")}, txtwphone);
    PlaceField(grid, row, 16, 8, {tr("&Mobile")}, txtmphone);
    PlaceField(grid, row + 1, 0, 8, {tr("Fa&x")}, txtfax);
    PlaceField(grid, row + 1, 8, 8, {tr("Pa&ger")}, txtpager);
}

void frmcontact::addMail(QGridLayout& grid, int row) {
    AddHeading(grid, row, tr("Mail"));
    txtemail = LimitedField("txtemail", MailLength, grid.parentWidget());
    PlaceField(grid, row, 0, 16, {tr("&E-mail")}, txtemail);
}

QWidget* frmcontact::pageOfNotes() {
    auto* page = new QWidget(this);
    txtnotes = Named(new NoteField(page), "txtnotes");
    txtnotes->setAccessibleName(tr("Notes"));
    txtnotes->setKeepsSeparators(true);  // The form takes the keys, as in its other fields.
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(8));
    column->addWidget(txtnotes);
    return page;
}

QWidget* frmcontact::buttonRow() {
    auto* row = new QWidget(this);
    cmdOk = Named(new QPushButton(tr("&OK"), row), "cmdOk");
    cmdOk->setDefault(true);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", row);
    QHBoxLayout* line = ButtonRow({cmdOk, cmdcancel});
    line->setContentsMargins(Space(16), Space(8), Space(16), Space(12));
    line->setSpacing(Space(8));
    row->setLayout(line);
    return row;
}

void frmcontact::setTabOrders() {
    const QList<QWidget*> order{SSRibbon1, SSRibbon2,  txtlname, txtfname, txtmi,    txtco,     txttitle,
                                txtdept,   txtaddress, txtcity,  txtstate, txtzip,   txthphone, txtwphone,
                                txtmphone, txtfax,     txtpager, txtemail, txtnotes, cmdOk,     cmdcancel};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}
