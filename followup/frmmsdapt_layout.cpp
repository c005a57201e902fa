#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

#include "appointments/editorparts.h"
#include "followup/frmmsdapt.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/notefield.h"
#include "platform/desktop/userstore.h"
#include "platform/signature/sigplus.h"
#include "platform/spelling/vsspell.h"
#include "platform/text/plaintext.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/session.h"

namespace {

constexpr int ComboCharacters = 26;
constexpr int LeastReasonLines = 4;
constexpr int MoreReasonLines = 11;  ///< Where the screen has room. A signature that comes later finds its place there.
constexpr int FormCharacters = 100;

QLabel* factLabel(const char* name, QWidget* parent) {
    auto* label = Named(new QLabel(parent), name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* statusLabel(const char* name, QWidget* parent) {
    auto* label = Named(new QLabel(parent), name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->hide();
    return label;
}

QToolButton* iconButton(const char* name, const char* icon, const QString& text, const QString& tip, QWidget* parent) {
    auto* button = Named(new QToolButton(parent), name);
    button->setIcon(Icon(icon));
    button->setAccessibleName(text);
    button->setToolTip(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}  // namespace

void frmmsdApt::buildForm() {
    auto* fields = new QWidget(this);
    buildReason(fields);
    buildSignature(fields);
    auto* column = new QVBoxLayout(fields);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(8));
    column->addLayout(buildHeading(fields));
    column->addLayout(buildReasonTitle(fields));
    column->addWidget(txtreason, 1);
    column->addWidget(lblhint);
    column->addWidget(pnlSig);
    column->addWidget(lblsignstatus);
    column->addLayout(buildSigning(fields));

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    whole->setSpacing(Space(12));
    whole->addWidget(new FormArea(fields, this), 1);
    whole->addLayout(buildButtons());
    setTabOrders();
    txtreason->setFocus();
}

QSize frmmsdApt::sizeHint() const {
    const QSize least = EditorDialog::sizeHint();
    return {std::max(least.width(), fontMetrics().averageCharWidth() * FormCharacters),
            least.height() + MoreReasonLines * fontMetrics().lineSpacing()};
}

QLayout* frmmsdApt::buildHeading(QWidget* parent) {
    lblpatient = factLabel("lblpatient", parent);
    // A long name takes a second line, and one that does not break does not widen the form.
    lblpatient->setWordWrap(true);
    lblpatient->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lbltype = factLabel("lbltype", parent);
    ctdate = EditorDate(ctDEdit::Kind::Date, "ctdate", tr("Date"), parent);
    cboprovider = EditorCombo(CompletingCombo::Entry::ListOnly, "cboprovider", tr("Provider"), ComboCharacters, parent);
    List1 = Named(new QListWidget(parent), "List1");
    List1->hide();
    Label1 = Named(new QLabel(CaptionText(Session().WordUsage) + QLatin1Char(':'), parent), "Label1");

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(8));
    grid->addWidget(Label1, 0, 0);
    grid->addWidget(lblpatient, 0, 1);
    grid->addWidget(new QLabel(tr("Type:"), parent), 1, 0);
    grid->addWidget(lbltype, 1, 1);
    grid->addWidget(FieldLabel(tr("Da&te:"), ctdate), 0, 3);
    grid->addLayout(InARow({ctdate, new QWidget(parent)}), 0, 4);
    grid->addWidget(FieldLabel(tr("Pro&vider:"), cboprovider), 1, 3);
    grid->addWidget(cboprovider, 1, 4);
    grid->setColumnMinimumWidth(2, Space(24));
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    return grid;
}

QLayout* frmmsdApt::buildReasonTitle(QWidget* parent) {
    btnspell = iconButton("btnspell", "spelling", tr("Check the spelling"), tr("Check the spelling (F7)"), parent);
    btnprint = iconButton("btnprint", "print", tr("Print the note"), tr("Print the note (Ctrl+P)"), parent);
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(4));
    row->addWidget(FieldLabel(tr("&Reason/Action:"), txtreason), 1, Qt::AlignBottom);
    row->addWidget(btnspell);
    row->addWidget(btnprint);
    return row;
}

void frmmsdApt::buildReason(QWidget* parent) {
    txtreason = Named(new NoteField(parent), "txtreason");
    txtreason->setAccessibleName(tr("Reason/Action"));
    txtreason->setKeepsSeparators(true);
    txtreason->setLines(LeastReasonLines);
    VSSpell1 = Named(new VSSpell(txtreason, UserDataFolder() + QStringLiteral("/Custom.dct"), this), "VSSpell1");
    lblhint = statusLabel("lblhint", parent);
    lblhint->setForegroundRole(QPalette::PlaceholderText);
}

void frmmsdApt::buildSignature(QWidget* parent) {
    pnlSig = Named(new QLabel(parent), "pnlSig");
    pnlSig->setTextFormat(Qt::PlainText);
    pnlSig->setWordWrap(true);
    pnlSig->setFrameShape(QFrame::StyledPanel);
    pnlSig->setMargin(Space(8));
    SigPlus1 = Named(new SigPlus(pnlSig), "SigPlus1");
    SigPlus1->setAccessibleName(tr("Signature"));
    SigPlus1->SetReadOnly(true);
    auto* filled = new QVBoxLayout(pnlSig);
    filled->setContentsMargins(0, 0, 0, 0);
    filled->addWidget(SigPlus1);
    SigPlus1->hide();
    pnlSig->hide();
    lblsignstatus = statusLabel("lblsignstatus", parent);
}

QHBoxLayout* frmmsdApt::buildSigning(QWidget* parent) {
    struct Way {
        QString text;
        const char* icon;
        QString tip;
    };
    const std::array ways{Way{tr("Pass&word"), "lock", tr("Sign with the provider's password")},
                          Way{tr("Signature Pa&d"), "edit", tr("Sign on the pad, with mouse, finger or pen")},
                          Way{tr("We&b"), "web", tr("Sign on the page of the signature service")}};
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(8));
    row->addWidget(new QLabel(tr("Sign with:"), parent));
    for (std::size_t way = 0; way < ways.size(); ++way) {
        btnsign[way] = Named(FormButton(ways[way].text, "", parent), QStringLiteral("btnsign%1").arg(way));
        btnsign[way]->setIcon(Icon(ways[way].icon));
        btnsign[way]->setToolTip(ways[way].tip);
        row->addWidget(btnsign[way]);
    }
    row->addStretch(1);
    return row;
}

QLayout* frmmsdApt::buildButtons() {
    Command1 = FormButton(QStringLiteral("&Spell Check"), "Command1", this);
    cmdprint = FormButton(tr("&Print..."), "cmdprint", this);
    cmdOk = FormButton(tr("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(tr("&Cancel"), "cmdCancel", this);
    QHBoxLayout* buttons = ButtonRow({cmdOk, cmdCancel});
    buttons->setSpacing(Space(8));
    buttons->insertWidget(0, Command1);
    buttons->insertWidget(1, cmdprint);
    return buttons;
}

void frmmsdApt::connectFields() {
    connect(txtreason, &NoteField::textChanged, this, &frmmsdApt::offerPrint);
    // By then it is known whether there is a dictionary.
    connect(txtreason, &NoteField::textChanged, this, &frmmsdApt::showHint);
    for (std::size_t way = 0; way < btnsign.size(); ++way)
        connect(btnsign[way], &QPushButton::clicked, this,
                [this, way] { btnsign_Click(static_cast<SignatureWay>(way)); });
    connect(btnspell, &QToolButton::clicked, this, &frmmsdApt::checkSpelling);
    connect(Command1, &QPushButton::clicked, this, &frmmsdApt::checkSpelling);
    connect(btnprint, &QToolButton::clicked, this, &frmmsdApt::cmdprint_Click);
    connect(cmdprint, &QPushButton::clicked, this, &frmmsdApt::cmdprint_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmmsdApt::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmmsdApt::reject);
    const auto key = [this](const QKeySequence& keys, QAbstractButton* button) {
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QAbstractButton::click);
    };
    key(QKeySequence(Qt::CTRL | Qt::Key_Return), cmdOk);
    key(QKeySequence(Qt::Key_F7), Command1);
    key(QKeySequence::Print, cmdprint);
}

void frmmsdApt::setTabOrders() {
    const QList<QWidget*> order{ctdate,     cboprovider, btnspell, btnprint, txtreason, btnsign[0],
                                btnsign[1], btnsign[2],  Command1, cmdprint, cmdOk,     cmdCancel};
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}
