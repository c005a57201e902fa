#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "people/addressedit.h"
#include "people/frmnewpat.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctmedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/textfield.h"
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
};

/// Every row of fields is divided into this many parts, after the column of the headings.
constexpr int Parts = 24;
constexpr int AddressLines = 2;

enum class Need { Optional, Required };

/// The text of a field's label, also for screen readers, and whether the field must be filled.
struct Caption {
    QString text;
    Need need = Need::Optional;
};

QString withoutMnemonic(QString text) {
    return text.remove(QLatin1Char('&'));
}

QLabel* labelFor(QWidget* field, const Caption& caption) {
    const bool required = caption.need == Need::Required;
    auto* label = new QLabel(required ? caption.text + QStringLiteral(" *") : caption.text, field->parentWidget());
    label->setBuddy(field);
    field->setAccessibleName(withoutMnemonic(caption.text));
    if (required)
        field->setAccessibleDescription(QStringLiteral("Required"));
    return label;
}

/// Puts a field with its label above it at `part` of a row; it is `parts` wide.
QLabel* place(QGridLayout& grid, int row, int part, int parts, const Caption& caption, QWidget* field) {
    QLabel* label = labelFor(field, caption);
    auto* cell = new QVBoxLayout;
    cell->setSpacing(Space(4) / 2);
    cell->addWidget(label);
    cell->addWidget(field);
    cell->addStretch(1);
    grid.addLayout(cell, row, 1 + part, 1, parts);
    return label;
}

void addHeading(QGridLayout& grid, int row, const QString& text, QWidget* parent) {
    auto* heading = new QLabel(text, parent);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setContentsMargins(0, 0, Space(8), 0);
    grid.addWidget(heading, row, 0, Qt::AlignTop);
}

template <class Field>
Field* named(Field* field, const char* name) {
    field->setObjectName(QString::fromLatin1(name));
    return field;
}

TextField* textField(const char* name, int mostCharacters, QWidget* parent) {
    auto* field = named(new TextField(parent), name);
    field->SetMost(mostCharacters);
    return field;
}

ctMEdit* maskedField(const char* name, const QString& mask, const QString& extension, int mostCharacters,
                     QWidget* parent) {
    auto* field = named(new ctMEdit(parent), name);
    field->SetMost(mostCharacters);
    field->setMask(mask, extension);
    return field;
}

ctDEdit* dateField(const char* name, QWidget* parent) {
    auto* field = named(new ctDEdit(ctDEdit::Kind::Date, parent), name);
    field->setDateOrder(Session().DateOrder);
    return field;
}

QComboBox* choice(const char* name, const QString& prompt, QWidget* parent) {
    auto* field = named(new QComboBox(parent), name);
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
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(Space(16), Space(16), Space(16), Space(8));
    grid->setHorizontalSpacing(Space(4));
    grid->setVerticalSpacing(Space(12));
    for (int part = 1; part <= Parts; ++part)
        grid->setColumnStretch(part, 1);
    addName(*grid, 0);
    addIdentity(*grid, 1);
    addAddress(*grid, 3);
    addContact(*grid, 4);
    addProvider(*grid, 5);
    grid->setRowStretch(6, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new FormArea(fields, this), 1);
    column->addWidget(buttonRow());
    setTabOrders();
}

void frmnewpat::addName(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    addHeading(grid, row, tr("Name"), parent);
    txtlname = textField("txtlname", NameLength, parent);
    txtfname = textField("txtfname", NameLength, parent);
    txtmi = textField("txtmi", InitialLength, parent);
    txtsal = textField("txtsal", SalutationLength, parent);
    place(grid, row, 0, 10, {tr("&Last name"), Need::Required}, txtlname);
    place(grid, row, 10, 8, {tr("&First name"), Need::Required}, txtfname);
    place(grid, row, 18, 2, {tr("M&I")}, txtmi);
    place(grid, row, 20, 4, {tr("Sal&utation")}, txtsal);
}

void frmnewpat::addIdentity(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    addHeading(grid, row, tr("Identity"), parent);
    txtdob = dateField("txtdob", parent);
    txtdob->setYearReading(YearReading::Past);
    lblage = named(new QLabel(parent), "lblage");
    lblage->setAccessibleName(tr("Age"));
    lblage->setMinimumHeight(txtdob->sizeHint().height());
    cbosex = choice("cbosex", tr("Choose"), parent);
    cbosex->addItems({QStringLiteral("Female"), QStringLiteral("Male")});
    cbosex->setCurrentIndex(-1);
    txtssn = maskedField("txtssn", QStringLiteral("###-##-####"), {}, SsnLength, parent);
    txtid = textField("txtid", AccountLength, parent);
    place(grid, row, 0, 10, {tr("Date of &birth"), Need::Required}, txtdob);
    place(grid, row, 10, 4, {tr("Age")}, lblage);
    place(grid, row, 14, 10, {tr("Se&x"), Need::Required}, cbosex);
    place(grid, row + 1, 0, 10, {tr("&SSN")}, txtssn);
    lblid = named(place(grid, row + 1, 10, 14, {QStringLiteral("Acct/ID #")}, txtid), "lblid");
}

void frmnewpat::addAddress(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    addHeading(grid, row, tr("Address"), parent);
    txtaddress = named(new AddressEdit(AddressLength, AddressLines, parent), "txtaddress");
    txtcity = textField("txtcity", CityLength, parent);
    txtstate = textField("txtstate", StateLength, parent);
    txtzip = textField("txtzip", ZipLength, parent);
    place(grid, row, 0, 10, {tr("&Address")}, txtaddress);
    place(grid, row, 10, 6, {tr("Cit&y")}, txtcity);
    place(grid, row, 16, 3, {tr("Stat&e")}, txtstate);
    place(grid, row, 19, 5, {tr("&Zip")}, txtzip);
}

void frmnewpat::addContact(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    addHeading(grid, row, tr("Telephone"), parent);
    txthphone = maskedField("txthphone", Session().PhoneMask, {}, PhoneLength, parent);
    txtwphone = maskedField("txtwphone", Session().PhoneMask, QStringLiteral(" #####"), PhoneLength, parent);
    place(grid, row, 0, 10, {tr("&Home")}, txthphone);
    place(grid, row, 10, 14, {tr("&Work, with extension")}, txtwphone);
}

void frmnewpat::addProvider(QGridLayout& grid, int row) {
    QWidget* parent = grid.parentWidget();
    addHeading(grid, row, tr("Care"), parent);
    cboprovider = choice("cboprovider", tr("Choose a provider"), parent);
    lstproviders = named(new QListWidget(parent), "lstproviders");
    lstproviders->hide();
    txtdic = dateField("txtdic", parent);
    ckactive = named(new QCheckBox(QStringLiteral("Acti&ve %1?").arg(CaptionText(patientWord())), parent), "ckactive");
    ckactive->setChecked(true);
    place(grid, row, 0, 10, {tr("&Provider"), Need::Required}, cboprovider);
    place(grid, row, 10, 8, {tr("Date Initial Contac&t")}, txtdic);
    grid.addWidget(ckactive, row, 1 + 18, 1, 6, Qt::AlignBottom);
}

QWidget* frmnewpat::buttonRow() {
    auto* row = new QWidget(this);
    auto* sign = new QLabel(tr("* required"), row);
    sign->setForegroundRole(QPalette::PlaceholderText);
    lblmissing = named(new QLabel(row), "lblmissing");
    lblmissing->setWordWrap(true);
    lblmissing->setTextFormat(Qt::PlainText);
    lblmissing->setMinimumHeight(lblmissing->fontMetrics().lineSpacing() * 2);
    cmdOk = named(new QPushButton(tr("&OK"), row), "cmdOk");
    cmdOk->setDefault(true);
    cmdcancel = named(new QPushButton(tr("&Cancel"), row), "cmdcancel");
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
    const QList<QWidget*> order{txtlname,    txtfname,   txtmi,    txtsal,   txtdob,   cbosex,    txtssn,
                                txtid,       txtaddress, txtcity,  txtstate, txtzip,   txthphone, txtwphone,
                                cboprovider, txtdic,     ckactive, cmdOk,    cmdcancel};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}
