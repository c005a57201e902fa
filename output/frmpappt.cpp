#include "output/frmpappt.h"

#include <QAccessible>
#include <QFormLayout>
#include <QShortcut>

#include "output/reportpage.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/notefield.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/namedpreview.h"
#include "session/preferences.h"
#include "session/session.h"

namespace {

const QString NoticeKey = QStringLiteral("Notice");
const QString NoticeCategory = QStringLiteral("General");
const QString StandardNotice = QStringLiteral("24 HOUR NOTICE REQUESTED FOR CANCELLATION");

constexpr int HeaderLines = 4;
constexpr int NoticeLines = 3;
constexpr int Columns = 64;

constexpr int SideMargin = 1440;  // Twips.
constexpr double NamePoints = 16;
constexpr double HeaderPoints = 10;
constexpr double TextPoints = 12;

TextField* lineOf(const char* name, const QString& text, QWidget* parent) {
    auto* field = Named(new TextField(parent), name);
    field->setText(text);
    field->setCursorPosition(0);
    return field;
}

NoteField* linesOf(const char* name, int lines, QWidget* parent) {
    auto* field = Named(new NoteField(parent), name);
    field->setKeepsSeparators(true);
    field->setLines(lines);
    return field;
}

}  // namespace

frmpappt::frmpappt(const AppointmentSlip& slip, QWidget* parent)
    : EditorDialog(parent), namesPatient_(slip.namesPatient) {
    setObjectName(QStringLiteral("frmpappt"));
    setWindowTitle(QStringLiteral("Print Appointment Slip"));
    buildFields();
    layOut();
    loadHeader();
    loadNotice();
    txtafor->setText(slip.appointmentFor);
    txtawith->setText(slip.appointmentWith);
    txtlocation->setText(slip.location);
    txtdatetime->setText(SlipDateText(slip));
    for (TextField* field : {txtafor, txtawith, txtlocation, txtdatetime})
        field->setCursorPosition(0);
    settled_ = entered();
    bindForm();
}

// A field with the focus is left while the form is destroyed, so the form is hidden while it is still whole.
frmpappt::~frmpappt() {
    hide();
}

void frmpappt::buildFields() {
    txtheader = linesOf("txtheader", HeaderLines, this);
    txtafor = lineOf("txtafor", {}, this);
    txtawith = lineOf("txtawith", {}, this);
    txtlocation = lineOf("txtlocation", {}, this);
    txtdatetime = lineOf("txtdatetime", {}, this);
    txtnotice = linesOf("txtnotice", NoticeLines, this);
    lblstatus = Named(new QLabel(this), "lblstatus");
    lblstatus->setMinimumHeight(fontMetrics().lineSpacing());
    cmdsave = FormButton(QStringLiteral("&Save"), "cmdsave", this);
    cmdsave->setToolTip(tr("Keep this notice for all your later slips (Ctrl+S)"));
    cmdprint = FormButton(QStringLiteral("&Print"), "cmdprint", this);
    cmdprint->setIcon(Icon("print"));
    cmdprint->setToolTip(tr("Show the slip and print it (Ctrl+P)"));
    cmdprint->setDefault(true);
    cmdclose = FormButton(tr("&Close"), "cmdclose", this);
}

void frmpappt::addFields(QFormLayout& form) {
    struct Row {
        QString caption;
        QWidget* field;
    };
    for (const Row& row :
         {Row{QStringLiteral("&Header:"), txtheader}, Row{QStringLiteral("Appointment &for:"), txtafor},
          Row{QStringLiteral("Appointment &with:"), txtawith}, Row{QStringLiteral("&Location:"), txtlocation},
          Row{QStringLiteral("&Date/Time:"), txtdatetime}, Row{QStringLiteral("&Notice:"), txtnotice}}) {
        QString name = row.caption;
        row.field->setAccessibleName(name.remove(QLatin1Char('&')).remove(QLatin1Char(':')));
        form.addRow(FieldLabel(row.caption, row.field), row.field);
    }
}

void frmpappt::layOut() {
    auto* fields = new QWidget(this);
    auto* form = new QFormLayout(fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(Space(12));
    form->setVerticalSpacing(Space(8));
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    addFields(*form);
    txtafor->setMinimumWidth(fontMetrics().averageCharWidth() * Columns);
    QHBoxLayout* buttons = ButtonRow({cmdprint, cmdclose});
    buttons->insertWidget(0, cmdsave);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(new FormArea(fields, this), 1);
    column->addWidget(lblstatus);
    column->addLayout(buttons);
    const QList<QWidget*> order{txtheader, txtafor, txtawith, txtlocation, txtdatetime,
                                txtnotice, cmdsave, cmdprint, cmdclose};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    cmdprint->setFocus();
    FitToScreen(*this);
}

void frmpappt::bindForm() {
    connect(cmdsave, &QPushButton::clicked, this, &frmpappt::cmdsave_Click);
    connect(cmdprint, &QPushButton::clicked, this, &frmpappt::cmdprint_Click);
    connect(cmdclose, &QPushButton::clicked, this, [this] {
        if (mayGiveUp())
            reject();
    });
    connect(txtnotice, &NoteField::textChanged, this, [this] { showStatus({}); });
    const auto key = [this](QKeySequence::StandardKey keys, QPushButton* button) {
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
    };
    key(QKeySequence::Save, cmdsave);
    key(QKeySequence::Print, cmdprint);
    if (namesPatient_)
        FollowHiddenNames(this, [this](bool hidden) { followHiddenNames(hidden); });
}

void frmpappt::loadHeader() {
    try {
        const db::Recordset row(QStringLiteral("Select header from report_headers Where abs([default]) = 1"),
                                Session().Connection);
        if (!row.Eof())
            txtheader->setPlainText(HeadingLines(row["header"].text()));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading report header. "), error);
    }
}

void frmpappt::loadNotice() {
    const QString saved =
        GetPreference(Session().SchedulerIni, NoticeKey, NoticeCategory, QString::fromLatin1(AllUsers));
    txtnotice->setPlainText(saved.isEmpty() ? StandardNotice : ManyLines(saved));
}

void frmpappt::followHiddenNames(bool hidden) {
    if (hidden == isHidden_)
        return;
    isHidden_ = hidden;
    if (hidden)
        hiddenFor_ = txtafor->text();
    txtafor->setText(hidden ? ShownName(hiddenFor_) : hiddenFor_);
    txtafor->setCursorPosition(0);
    txtafor->setReadOnly(hidden);
}

QStringList frmpappt::entered() const {
    return {txtheader->toPlainText(), isHidden_ ? hiddenFor_ : txtafor->text(),
            txtawith->text(),         txtlocation->text(),
            txtdatetime->text(),      txtnotice->toPlainText()};
}

QString frmpappt::giveUpQuestion() const {
    return tr("Close without printing or saving what you have changed?");
}

void frmpappt::cmdsave_Click() {
    // The store sends its values as they are: a quote is doubled for the statement, and stored as one.
    const QString quoted = txtnotice->toPlainText().replace(u'\'', QStringLiteral("''"));
    if (!SetPreference(quoted, NoticeKey, NoticeCategory)) {
        MsgBox(tr("The notice could not be saved. It holds for this slip."), ExclamationBox, windowTitle());
        return;
    }
    settled_.last() = txtnotice->toPlainText();
    showStatus(tr("The notice is saved for all your later slips."));
}

void frmpappt::cmdprint_Click() {
    const QStringList printed = entered();
    if (PreviewWithNames([this] { return printedSlip(); }, this))
        settled_ = printed;
}

void frmpappt::showStatus(const QString& text) {
    if (text == lblstatus->text())
        return;
    lblstatus->setText(text);
    QAccessibleEvent told(lblstatus, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

VSPrinter frmpappt::printedSlip() const {
    VSPrinter vp;
    vp.SetTitle(QStringLiteral("Appointment Slip"));
    vp.SetMargins({.left = SideMargin, .top = SideMargin, .right = SideMargin, .bottom = SideMargin});
    const auto add = [&vp](const QString& text, double points, bool isBold = false) {
        vp.SetFontSize(points);
        vp.SetFontBold(isBold);
        vp.AddParagraph(text);
    };
    if (const QString header = txtheader->toPlainText().trimmed(); !header.isEmpty()) {
        add(header.section(u'\n', 0, 0), NamePoints, true);
        if (const QString rest = header.section(u'\n', 1); !rest.isEmpty())
            add(rest, HeaderPoints);
        add({}, TextPoints);
        add({}, TextPoints);
    }
    for (const QString& line :
         {QStringLiteral("Appointment for: ") + txtafor->text(),
          QStringLiteral("Appointment with: ") + txtawith->text(), QStringLiteral("Location: ") + txtlocation->text(),
          QStringLiteral("Date/Time: ") + txtdatetime->text()}) {
        add(line, TextPoints);
        add({}, TextPoints);
    }
    add(txtnotice->toPlainText(), TextPoints, true);
    return vp;
}
