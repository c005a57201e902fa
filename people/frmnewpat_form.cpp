#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "people/addressedit.h"
#include "people/fieldgrid.h"
#include "people/frmnewpat.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctmedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/text/plaintext.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/session.h"

namespace {

/// Lengths of the columns of patient_info. The columns of the companion's clients have the same lengths.
enum Length {
    NameLength = 100,
    InitialLength = 10,
    SalutationLength = 20,
    AccountLength = 50,
    SsnLength = 20,
    AddressLength = 255,
    CityLength = 100,
    StateLength = 50,
    ZipLength = 20,
    PhoneLength = 40,
    EmailLength = 255,
};

constexpr int AddressLines = 2;

ctDEdit* dateField(const char* name, QWidget* parent) {
    auto* field = Named(new ctDEdit(ctDEdit::Kind::Date, parent), name);
    field->setDateOrder(Session().DateOrder);
    return field;
}

QComboBox* choice(const char* name, const QString& prompt, QWidget* parent) {
    auto* field = Named(new QComboBox(parent), name);
    field->setPlaceholderText(prompt);
    field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    field->setMinimumContentsLength(8);
    return field;
}

QString patientWord() {
    const QString& word = Session().WordUsage;
    return word.trimmed().isEmpty() ? QStringLiteral("Patient") : word;
}

}  // namespace

void frmnewpat::buildForm() {
    setWindowTitle(QStringLiteral("%1 Information").arg(patientWord()));
    auto* fields = new QWidget;
    auto* grid = FieldGrid(fields);
    addName(*grid, 0);
    addIdentity(*grid, 1);
    addAddress(*grid, 3);
    addContact(*grid, 4);
    addProvider(*grid, 6);
    grid->setRowStretch(7, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new FormArea(fields, this), 1);
    column->addWidget(buttonRow());
    setTabOrders();
}

void frmnewpat::addName(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    AddHeading(grid, row, tr("Name"));
    txtlname = LimitedField("txtlname", NameLength, parent);
    txtfname = LimitedField("txtfname", NameLength, parent);
    txtmi = LimitedField("txtmi", InitialLength, parent);
    txtsal = LimitedField("txtsal", SalutationLength, parent);
    PlaceField(grid, row, 0, 10, {tr("&Last name"), FieldNeed::Required}, txtlname);
    PlaceField(grid, row, 10, 8, {tr("&First name"), FieldNeed::Required}, txtfname);
    PlaceField(grid, row, 18, 2, {tr("M&I")}, txtmi);
    PlaceField(grid, row, 20, 4, {tr("Sal&utation")}, txtsal);
}

void frmnewpat::addIdentity(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    AddHeading(grid, row, tr("Identity"));
    txtdob = dateField("txtdob", parent);
    txtdob->setYearReading(YearReading::Past);
    lblage = Named(new QLabel(parent), "lblage");
    lblage->setAccessibleName(tr("Age"));
    lblage->setMinimumHeight(txtdob->sizeHint().height());
    cbosex = choice("cbosex", tr("Choose"), parent);
    cbosex->addItems({QStringLiteral("Female"), QStringLiteral("Male")});
    cbosex->setCurrentIndex(-1);
    txtssn = MaskedField("txtssn", {QStringLiteral("###-##-####"), {}}, SsnLength, parent);
    txtid = LimitedField("txtid", AccountLength, parent);
    PlaceField(grid, row, 0, 10, {tr("Date of &birth"), FieldNeed::Required}, txtdob);
    PlaceField(grid, row, 10, 4, {tr("Age")}, lblage);
    PlaceField(grid, row, 14, 10, {tr("Se&x"), FieldNeed::Required}, cbosex);
    PlaceField(grid, row + 1, 0, 10, {tr("&SSN")}, txtssn);
    lblid = Named(PlaceField(grid, row + 1, 10, 14, {QStringLiteral("Acct/ID #")}, txtid), "lblid");
}

void frmnewpat::addAddress(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    AddHeading(grid, row, tr("Address"));
    txtaddress = Named(new AddressEdit(AddressLength, AddressLines, parent), "txtaddress");
    txtcity = LimitedField("txtcity", CityLength, parent);
    txtstate = LimitedField("txtstate", StateLength, parent);
    txtzip = LimitedField("txtzip", ZipLength, parent);
    PlaceField(grid, row, 0, 10, {tr("&Address")}, txtaddress);
    PlaceField(grid, row, 10, 6, {tr("Cit&y")}, txtcity);
    PlaceField(grid, row, 16, 3, {tr("Stat&e")}, txtstate);
    PlaceField(grid, row, 19, 5, {tr("&Zip")}, txtzip);
}

void frmnewpat::addContact(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    AddHeading(grid, row, tr("Contact"));
    txthphone = MaskedField("txthphone", {Session().PhoneMask, {}}, PhoneLength, parent);
    txtwphone = MaskedField("txtwphone", {Session().PhoneMask, ExtensionMask}, PhoneLength, parent);
    txtcphone = MaskedField("txtcphone", {Session().PhoneMask, {}}, PhoneLength, parent);
    txtemail = LimitedField("txtemail", EmailLength, parent);
    PlaceField(grid, row, 0, 8, {tr("&Home")}, txthphone);
    PlaceField(grid, row, 8, 8, {tr("&Work, with extension")}, txtwphone);
    PlaceField(grid, row, 16, 8, {tr("Cell pho&ne")}, txtcphone);
    PlaceField(grid, row + 1, 0, 16, {tr("E-&mail")}, txtemail);
}

void frmnewpat::addProvider(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    AddHeading(grid, row, tr("Care"));
    cboprovider = choice("cboprovider", tr("Choose a provider"), parent);
    lstproviders = Named(new QListWidget(parent), "lstproviders");
    lstproviders->hide();
    txtdic = dateField("txtdic", parent);
    ckactive = Named(new QCheckBox(QStringLiteral("Acti&ve %1?").arg(CaptionText(patientWord())), parent), "ckactive");
    ckactive->setChecked(true);
    PlaceField(grid, row, 0, 10, {tr("&Provider"), FieldNeed::Required}, cboprovider);
    PlaceField(grid, row, 10, 8, {tr("Date Initial Contac&t")}, txtdic);
    grid.addWidget(ckactive, row, 1 + 18, 1, 6, Qt::AlignBottom);
}

QWidget* frmnewpat::buttonRow() {
    auto* row = new QWidget(this);
    auto* sign = new QLabel(tr("* required"), row);
    sign->setForegroundRole(QPalette::PlaceholderText);
    lblmissing = Named(new QLabel(row), "lblmissing");
    lblmissing->setWordWrap(true);
    lblmissing->setTextFormat(Qt::PlainText);
    lblmissing->setMinimumHeight(lblmissing->fontMetrics().lineSpacing() * 2);
    cmdOk = Named(new QPushButton(tr("&OK"), row), "cmdOk");
    cmdOk->setDefault(true);
    cmdcancel = Named(new QPushButton(tr("&Cancel"), row), "cmdcancel");
    cmdcancel->setAutoDefault(false);

    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    words->addWidget(sign);
    words->addWidget(lblmissing);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(Space(16), Space(8), Space(16), Space(12));
    line->setSpacing(Space(8));
    line->addLayout(words, 1);
    line->addWidget(cmdOk, 0, Qt::AlignBottom);
    line->addWidget(cmdcancel, 0, Qt::AlignBottom);
    return row;
}

void frmnewpat::setTabOrders() {
    const QList<QWidget*> order{txtlname,  txtfname,   txtmi,       txtsal,   txtdob,   cbosex,    txtssn,
                                txtid,     txtaddress, txtcity,     txtstate, txtzip,   txthphone, txtwphone,
                                txtcphone, txtemail,   cboprovider, txtdic,   ckactive, cmdOk,     cmdcancel};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}
