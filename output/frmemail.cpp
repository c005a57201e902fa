#include "output/frmemail.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>

#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

constexpr int FewestLinesOfBody = 4;
constexpr int Columns = 92;
constexpr int Lines = 36;
constexpr int LastStep = 4;

QLineEdit* lineOf(const char* name, const QString& text, QWidget* parent) {
    auto* field = Named(new TextField(parent), name);
    field->setText(text);
    field->setCursorPosition(0);
    return field;
}

QLabel* noticeOf(QWidget* parent) {
    auto* notice = Named(
        new QLabel(
            QStringLiteral(
                "Note: EMail sent using this feature is not sent via secure email. Do not send PHI using this function. For PHI contained in the email, you are required to use a secure email service."),
            parent),
        "lblnotice");
    notice->setWordWrap(true);
    return notice;
}

void addField(QGridLayout& grid, const QString& caption, QWidget* field) {
    const int row = grid.rowCount();
    QString name = caption;
    field->setAccessibleName(name.remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    grid.addWidget(FieldLabel(caption, field), row, 0);
    grid.addWidget(field, row, 1);
}

}  // namespace

frmEmail::frmEmail(const NewMessage& message, QWidget* parent) : EditorDialog(parent) {
    setObjectName(QStringLiteral("frmEmail"));
    setWindowTitle(QStringLiteral("New Message"));
    loadSettings();
    loadCompany();
    buildForm(message);
    layOutForm();
    connect(SSRibbon1, &QPushButton::clicked, this, &frmEmail::SSRibbon1_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEmail::cmdCancel_Click);
    auto* sendKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), this);
    connect(sendKey, &QShortcut::activated, SSRibbon1, &QPushButton::click);
}

// A field with the focus is left while the form is destroyed, so the form is hidden while it is still whole.
frmEmail::~frmEmail() {
    hide();
}

QSize frmEmail::sizeHint() const {
    return {fontMetrics().averageCharWidth() * Columns, fontMetrics().lineSpacing() * Lines};
}

void frmEmail::buildForm(const NewMessage& message) {
    lblfrom = Named(new QLabel(this), "lblfrom");
    lblfrom->setTextFormat(Qt::PlainText);
    lblfrom->setText(company_ ? company_->emailaddress : QString());
    txtto = lineOf("txtto", message.to, this);
    txtcc = lineOf("txtcc", {}, this);
    txtbcc = lineOf("txtbcc", {}, this);
    txtsubject = lineOf("txtsubject", message.subject, this);
    txtbody = Named(new QPlainTextEdit(message.body, this), "txtbody");
    txtbody->setAccessibleName(tr("Message"));
    txtbody->setTabChangesFocus(true);
    txtbody->setMinimumHeight(fontMetrics().lineSpacing() * FewestLinesOfBody);
    pnlprogress = Named(new QProgressBar(this), "pnlprogress");
    pnlprogress->setRange(0, LastStep);
    pnlprogress->setTextVisible(false);
    pnlprogress->setFixedHeight(Space(8));
    QSizePolicy keepsItsPlace = pnlprogress->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    pnlprogress->setSizePolicy(keepsItsPlace);
    pnlprogress->setAccessibleName(tr("Progress of the sending"));
    pnlprogress->hide();
    lblstatus = Named(new QLabel(this), "lblstatus");
    lblstatus->setTextFormat(Qt::PlainText);
    lblstatus->setWordWrap(true);
    lblstatus->setMinimumHeight(fontMetrics().lineSpacing());
    lblstatus->setTextInteractionFlags(Qt::TextSelectableByMouse);
    SSRibbon1 = FormButton(QStringLiteral("&Send"), "SSRibbon1", this);
    SSRibbon1->setIcon(Icon("mail"));
    SSRibbon1->setToolTip(tr("Send the message (Ctrl+Enter)"));
    cmdCancel = FormButton(tr("Ca&ncel"), "cmdCancel", this);
}

QWidget* frmEmail::fieldArea() {
    auto* fields = new QWidget(this);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Space(12));
    grid->setVerticalSpacing(Space(8));
    grid->setColumnStretch(1, 1);
    grid->addWidget(new QLabel(tr("From:"), this), 0, 0);
    grid->addWidget(lblfrom, 0, 1);
    addField(*grid, QStringLiteral("&To:"), txtto);
    addField(*grid, QStringLiteral("&Cc:"), txtcc);
    addField(*grid, QStringLiteral("&Bcc:"), txtbcc);
    addField(*grid, QStringLiteral("S&ubject:"), txtsubject);
    auto* column = new QVBoxLayout(fields);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(12));
    column->addLayout(grid);
    column->addWidget(txtbody, 1);
    return fields;
}

void frmEmail::layOutForm() {
    auto* foot = ButtonRow({SSRibbon1, cmdCancel});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(8));
    column->addWidget(new FormArea(fieldArea(), this), 1);
    column->addWidget(noticeOf(this));
    column->addWidget(pnlprogress);
    column->addWidget(lblstatus);
    column->addLayout(foot);
    const QList<QWidget*> order{txtto, txtcc, txtbcc, txtsubject, txtbody, SSRibbon1, cmdCancel};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    (txtto->text().isEmpty() ? static_cast<QWidget*>(txtto) : txtbody)->setFocus();
    FitToScreen(*this);
}

QString frmEmail::giveUpQuestion() const {
    return tr("Close without sending the message?");
}

bool frmEmail::takesEscape() {
    if (!IsSending())
        return false;
    sending_->Cancel();
    return true;
}

void frmEmail::closeEvent(QCloseEvent* event) {
    if (takesEscape())
        event->ignore();
    else
        EditorDialog::closeEvent(event);
}
