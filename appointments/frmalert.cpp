#include "appointments/frmalert.h"

#include <algorithm>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "appointments/notice.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"

namespace {

constexpr int MostLines = 20;

}  // namespace

frmAlert::frmAlert(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAlert"));
    setWindowTitle(QStringLiteral("Patient Alert"));
    lblalert = NoticeLabel(QStringLiteral("lblalert"), {}, this);
    lblalert->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    scroll->setWidget(lblalert);
    cmdOk = new QPushButton(QStringLiteral("&OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);

    auto* text = new QVBoxLayout;
    text->addWidget(scroll);
    auto* buttons = ButtonRow({cmdOk});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(16));
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addLayout(NoticeLayout(text, this), 1);
    column->addLayout(buttons);
    cmdOk->setFocus();
    connect(cmdOk, &QPushButton::clicked, this, &QDialog::accept);
}

void frmAlert::showEvent(QShowEvent* event) {
    fitToText();
    QDialog::showEvent(event);
}

// A scroll area does not ask for the room that its text needs.
void frmAlert::fitToText() {
    auto* scroll = lblalert->parentWidget()->parentWidget();
    const int wanted = lblalert->heightForWidth(lblalert->minimumWidth());
    const int most = fontMetrics().lineSpacing() * MostLines;
    scroll->setFixedSize(lblalert->minimumWidth() + Space(24), std::clamp(wanted, Space(24), most));
}
