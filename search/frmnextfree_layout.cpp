#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "appointments/patientbox.h"
#include "data/minutetime.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "search/frmnextfree.h"
#include "session/session.h"
#include "shell/providerpanel.h"

namespace {

constexpr int LengthStep = 5;
constexpr int FirstDay = 1;  // The row of days begins on Monday, as the week view does.

}  // namespace

void frmnextfree::buildForm() {
    buildFields();
    buildList();
    panel = new ProviderPanel(ProviderPanel::Columns::ProviderAndDiscipline, this);
    layOutForm();
}

void frmnextfree::buildFields() {
    patient_ = new PatientBox(*this);
    txtpatients = patient_->txtpatients;
    cmdPatientList = patient_->cmdPatientList;
    lblpatient = Named(new QLabel(this), "lblpatient");
    lblpatient->setTextFormat(Qt::PlainText);
    lblpatient->setForegroundRole(QPalette::PlaceholderText);
    txtlength = Named(new QSpinBox(this), "txtlength");
    txtlength->setRange(1, MinutesPerDay);
    txtlength->setSingleStep(LengthStep);
    txtlength->setSuffix(tr(" mins."));
    txtlength->setKeyboardTracking(false);
    cboatypes = Named(new QComboBox(this), "cboatypes");
    cboproviders = Named(new QComboBox(this), "cboproviders");
    for (std::size_t day = 0; day < ckdays.size(); ++day) {
        const int number = day == 0 ? Qt::Sunday : static_cast<int>(day);
        ckdays[day] = Named(new QCheckBox(QLocale::c().dayName(number, QLocale::ShortFormat), this),
                            QStringLiteral("ckdays%1").arg(day));
        ckdays[day]->setAccessibleName(QLocale::c().dayName(number));
    }
    cbopart = Named(new QComboBox(this), "cbopart");
    const auto field = [this](ctDEdit::Kind kind, const char* fieldName, const QString& accessibleName) {
        auto* made = Named(new ctDEdit(kind, this), fieldName);
        made->setAccessibleName(accessibleName);
        made->setTwentyFourHour(Session().MilitaryTime);
        made->setDateOrder(Session().DateOrder);
        made->setRange(0, MinutesPerDay);
        return made;
    };
    ctstart = field(ctDEdit::Kind::Time, "ctstart", tr("Not before"));
    ctend = field(ctDEdit::Kind::Time, "ctend", tr("Not after"));
    ctend->setIsEnd(true);
    ctdate = field(ctDEdit::Kind::Date, "ctdate", tr("From this date on"));
    ctdate->setDate(Today());
    ckholidays = Named(new QCheckBox(tr("&Holidays too"), this), "ckholidays");
}

void frmnextfree::buildList() {
    ctList1 = Named(new ctList(this), "ctList1");
    ctList1->setAccessibleName(tr("Openings"));
    ctList1->SetColumns({{tr("Date"), ListColumn::Kind::Text, 22},
                         {tr("Start Time"), ListColumn::Kind::Text, 14},
                         {tr("End Time"), ListColumn::Kind::Text, 14},
                         {tr("Provider"), ListColumn::Kind::Text, 24},
                         {tr("Note")}});
    lblcount = Named(new QLabel(this), "lblcount");
    lblcount->setWordWrap(true);
    cmdmore = FormButton(tr("&More"), "cmdmore", this);
    cmdbook = FormButton(tr("&Book..."), "cmdbook", this);
    cmdclose = FormButton(tr("Close"), "cmdclose", this);
}

void frmnextfree::layOutWho(QFormLayout& fields) {
    auto* length = new QHBoxLayout;
    length->setSpacing(Space(8));
    length->addWidget(txtlength);
    length->addSpacing(Space(8));
    length->addWidget(FieldLabel(tr("T&ype:"), cboatypes));
    length->addWidget(cboatypes, 1);
    const QString patient = CaptionText(Session().WordUsage);
    fields.addRow(FieldLabel(QLatin1Char('&') + patient + QLatin1Char(':'), txtpatients), patient_);
    fields.addRow(QString(), lblpatient);
    fields.addRow(FieldLabel(tr("&Length:"), txtlength), length);
    fields.addRow(FieldLabel(tr("Pro&vider:"), cboproviders), cboproviders);
}

void frmnextfree::layOutWhen(QFormLayout& fields) {
    auto* days = new QHBoxLayout;
    days->setSpacing(Space(8));
    for (std::size_t i = 0; i < ckdays.size(); ++i)
        days->addWidget(ckdays[(i + FirstDay) % ckdays.size()]);
    days->addStretch(1);
    auto* times = new QHBoxLayout;
    times->setSpacing(Space(8));
    times->addWidget(cbopart);
    times->addWidget(ctstart);
    times->addWidget(new QLabel(tr("to"), this));
    times->addWidget(ctend);
    times->addStretch(1);
    auto* from = new QHBoxLayout;
    from->setSpacing(Space(16));
    from->addWidget(ctdate);
    from->addWidget(ckholidays);
    from->addStretch(1);
    fields.addRow(FieldLabel(tr("&Days:"), ckdays[FirstDay]), days);
    fields.addRow(FieldLabel(tr("&Time:"), cbopart), times);
    fields.addRow(FieldLabel(tr("&From:"), ctdate), from);
}

void frmnextfree::layOutForm() {
    auto* fields = new QFormLayout;
    fields->setVerticalSpacing(Space(8));
    fields->setHorizontalSpacing(Space(8));
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    layOutWho(*fields);
    layOutWhen(*fields);
    auto* top = new QHBoxLayout;
    top->setSpacing(Space(12));
    top->addLayout(fields, 1);
    top->addWidget(panel);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addWidget(lblcount, 1);
    buttons->addWidget(cmdmore);
    buttons->addWidget(cmdbook);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(8));
    column->addLayout(top);
    column->addWidget(FieldLabel(tr("&Openings:"), ctList1));
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
    resize(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 38);
    setTabOrder(cmdclose, cmdPatientList);
    txtpatients->setFocus();
}
