#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "followup/frmesign.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/signature/sigplus.h"
#include "platform/theme/theme.h"

namespace {

constexpr int FieldCharacters = 28;
constexpr int PinCharacters = 12;
constexpr int MessageCharacters = 60;
constexpr QSize SurfaceSize(40, 20);  // In steps of 16 of the spacing grid.

/// The place of the page, which asks for the room that a page needs and lives with less.
class SurfaceFrame : public QFrame {
  public:
    using QFrame::QFrame;
    [[nodiscard]] QSize sizeHint() const override { return SurfaceSize * Space(16); }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint() / 2; }
};

QLabel* plainLabel(const QString& text, const char* name, QWidget* parent) {
    auto* label = Named(new QLabel(text, parent), name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* messageLabel(const QString& text, const char* name, QWidget* parent) {
    QLabel* label = plainLabel(text, name, parent);
    label->setWordWrap(true);
    // A label that wraps takes the height of its text at the width that it gets.
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * MessageCharacters);
    return label;
}

TextField* shortField(const char* name, int characters, QWidget* parent) {
    auto* field = Named(new TextField(parent), name);
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * characters);
    return field;
}

TextField* hiddenField(const char* name, int characters, QWidget* parent) {
    TextField* field = shortField(name, characters, parent);
    field->setEchoMode(QLineEdit::Password);
    return field;
}

QVBoxLayout* columnOf(QWidget* panel) {
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(12));
    return column;
}

/// Who signs on the left, and the date on the right.
QHBoxLayout* headLine(QLabel* name, QLabel* date) {
    name->setFont(HeadingFont(1));
    name->setWordWrap(true);
    auto* line = new QHBoxLayout;
    line->setSpacing(Space(16));
    line->addWidget(name, 1);
    line->addWidget(date);
    return line;
}

/// The buttons that end the form, and at the other end the one that clears.
QHBoxLayout* buttonLine(QPushButton* clear, QPushButton* sign, QPushButton* cancel) {
    QHBoxLayout* line = ButtonRow({sign, cancel});
    line->insertWidget(0, clear);
    return line;
}

}  // namespace

void frmesign::buildForm() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    pnlpassword = Named(passwordPanel(), "pnlpassword");
    pnlpad = Named(padPanel(), "pnlpad");
    pnlweb = Named(webPanel(), "pnlweb");
    QWidget* const panels[] = {pnlpassword, pnlpad, pnlweb};
    QPushButton* const signs[] = {cmdSign, cmdsign2, cmdSign3};
    QWidget* const firsts[] = {txtuserid, SigPlus1, cmdSign3};
    for (QWidget* panel : panels) {
        column->addWidget(panel);
        panel->setVisible(panel == panels[static_cast<int>(request_.way)]);
    }
    signs[static_cast<int>(request_.way)]->setDefault(true);
    firsts[static_cast<int>(request_.way)]->setFocus();
    FitToScreen(*this);
}

QWidget* frmesign::passwordPanel() {
    auto* panel = new QWidget(this);
    lblusername = plainLabel(request_.UserName, "lblusername", panel);
    if (request_.UserName.isEmpty())
        lblusername->setText(tr("None. This provider cannot sign by password."));
    txtuserid = shortField("txtuserid", FieldCharacters, panel);
    txtpw = hiddenField("txtpw", FieldCharacters, panel);
    lblmessage1 = messageLabel(request_.Message, "lblmessage1", panel);
    cmdSign = FormButton(tr("&Sign"), "cmdSign", panel);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", panel);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Space(12));
    grid->setVerticalSpacing(Space(8));
    grid->setColumnStretch(1, 1);
    grid->addWidget(new QLabel(tr("User name:"), panel), 0, 0);
    grid->addWidget(lblusername, 0, 1);
    grid->addWidget(FieldLabel(tr("&User ID:"), txtuserid), 1, 0);
    grid->addWidget(txtuserid, 1, 1);
    grid->addWidget(FieldLabel(tr("&Password:"), txtpw), 2, 0);
    grid->addWidget(txtpw, 2, 1);
    QVBoxLayout* column = columnOf(panel);
    column->addLayout(grid);
    column->addWidget(lblmessage1);
    column->addStretch(1);
    column->addLayout(ButtonRow({cmdSign, cmdcancel}));
    return panel;
}

QWidget* frmesign::padPanel() {
    auto* panel = new QWidget(this);
    pnlSigName = plainLabel(request_.ProviderName, "pnlSigName", panel);
    lblDateSigned = plainLabel(request_.DateText, "lblDateSigned", panel);
    SigPlus1 = Named(new SigPlus(panel), "SigPlus1");
    picPin = Named(new QWidget(panel), "picPin");
    txtpin = hiddenField("txtpin", PinCharacters, picPin);
    txtpin->setToolTip(tr("The PIN is not checked. The note is signed with any PIN, or without one."));
    txtpin->setAccessibleDescription(txtpin->toolTip());
    lblmessage2 = messageLabel(request_.Message, "lblmessage2", panel);
    cmdClear = FormButton(tr("C&lear"), "cmdClear", panel);
    cmdsign2 = FormButton(tr("&Sign"), "cmdsign2", panel);
    cmdcancel2 = FormButton(tr("&Cancel"), "cmdcancel2", panel);

    auto* pin = new QHBoxLayout(picPin);
    pin->setContentsMargins(0, 0, 0, 0);
    pin->setSpacing(Space(8));
    pin->addWidget(FieldLabel(tr("Enter &PIN to Sign:"), txtpin));
    pin->addWidget(txtpin);
    pin->addStretch(1);
    QVBoxLayout* column = columnOf(panel);
    column->addLayout(headLine(pnlSigName, lblDateSigned));
    column->addWidget(SigPlus1, 1);
    column->addWidget(picPin);
    column->addWidget(lblmessage2);
    column->addLayout(buttonLine(cmdClear, cmdsign2, cmdcancel2));
    return panel;
}

QWidget* frmesign::webPanel() {
    auto* panel = new QWidget(this);
    pnlname3 = plainLabel(request_.ProviderName, "pnlname3", panel);
    pnldate3 = plainLabel(request_.DateText, "pnldate3", panel);
    pnlwait = plainLabel({}, "pnlwait", panel);
    pnlwait->setWordWrap(true);
    pnlwait->setAlignment(Qt::AlignCenter);
    pnlwait->setMargin(Space(24));
    pnlwait->setBackgroundRole(QPalette::Base);
    pnlwait->setAutoFillBackground(true);
    SigPlus2 = Named(new SigPlus(panel), "SigPlus2");
    SigPlus2->SetReadOnly(true);
    lblmessage3 = messageLabel(request_.Message, "lblmessage3", panel);
    cmdClearPic = FormButton(tr("C&lear"), "cmdClearPic", panel);
    cmdSign3 = FormButton(tr("&Sign"), "cmdSign3", panel);
    cmdCancel3 = FormButton(tr("&Cancel"), "cmdCancel3", panel);

    surface_ = new QStackedLayout;
    surface_->addWidget(pnlwait);
    surface_->addWidget(SigPlus2);
    auto* frame = new SurfaceFrame(panel);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setLayout(surface_);
    QVBoxLayout* column = columnOf(panel);
    column->addLayout(headLine(pnlname3, pnldate3));
    column->addWidget(frame, 1);
    column->addWidget(lblmessage3);
    column->addLayout(buttonLine(cmdClearPic, cmdSign3, cmdCancel3));
    return panel;
}
