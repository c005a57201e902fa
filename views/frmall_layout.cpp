#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"
#include "views/frmall.h"

namespace {

QComboBox* combo(const char* name, const QString& accessibleName, QWidget* parent) {
    auto* box = Named(new QComboBox(parent), name);
    box->setAccessibleName(accessibleName);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(8);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

QHBoxLayout* besideEachOther(std::initializer_list<QWidget*> widgets, int stretched) {
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(8));
    for (QWidget* widget : widgets)
        row->addWidget(widget);
    row->setStretch(stretched, 1);
    return row;
}

}  // namespace

void frmall::layOut() {
    auto* splitter = new QSplitter(this);
    splitter->setObjectName(QStringLiteral("SSSplitter1"));
    splitter->setChildrenCollapsible(false);
    makePanel();
    splitter->addWidget(calendarWithShelf());
    splitter->addWidget(panel_);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(splitter);
    setFocusProxy(ctMDay1);
}

// On a small screen the panel would leave the columns no room; its command shows it.
void frmall::resizeEvent(QResizeEvent* event) {
    CalendarView::resizeEvent(event);
    if (!std::exchange(sized_, true) && width() < panel_->minimumWidth() * 3) {
        panel_->hide();
        menus().Command(menu::mnuVDisplay).setChecked(false);
    }
}

// The filter stands over the list and comes before it by Tab, too.
void frmall::makePanel() {
    panel_ = Named(new ProviderPanel(ProviderPanel::Columns::ProviderAndDiscipline, this), "pnlproviders");
    cbodisc = combo("cbodisc", tr("Discipline"), panel_);
    cboprovs = combo("cboprovs", tr("Provider"), panel_);
    cmdgo = FormButton(tr("&Go"), "cmdgo", panel_);
    cmdgo->setToolTip(tr("Show this provider's day"));
    QVBoxLayout& rows = panel_->Rows();
    rows.insertLayout(1, besideEachOther({FieldLabel(QStringLiteral("Filter:"), cbodisc), cbodisc}, 1));
    rows.addLayout(besideEachOther({cboprovs, cmdgo}, 0));
    setTabOrder(cbodisc, &panel_->List());
}
