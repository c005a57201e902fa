#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"
#include "views/frmall.h"

namespace {

constexpr int PanelCharacters = 34;

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
    panel_ = makePanel();
    splitter->addWidget(ctMDay1);
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
    if (!std::exchange(sized_, true) && width() < fontMetrics().averageCharWidth() * PanelCharacters * 3) {
        panel_->hide();
        menus().Command(menu::mnuVDisplay).setChecked(false);
    }
}

QWidget* frmall::makePanel() {
    auto* panel = Named(new QWidget(this), "pnlproviders");
    auto* heading = new QLabel(QStringLiteral("Display Providers"), panel);
    heading->setFont(HeadingFont());
    cbodisc = combo("cbodisc", tr("Discipline"), panel);
    ctList1 = Named(new ctList(panel), "ctList1");
    ctList1->setAccessibleName(QStringLiteral("Display Providers"));
    ctList1->SetColumns({{QString(), ListColumn::Kind::Check, 4, Qt::AlignCenter},
                         {QStringLiteral("Provider")},
                         {QStringLiteral("Discipline"), ListColumn::Kind::Text, 12}});
    heading->setBuddy(ctList1);
    cboprovs = combo("cboprovs", tr("Provider"), panel);
    cmdgo = FormButton(tr("&Go"), "cmdgo", panel);
    cmdgo->setToolTip(tr("Show this provider's day"));

    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(Space(8), 0, Space(8), Space(8));
    column->setSpacing(Space(8));
    column->addWidget(heading);
    column->addLayout(besideEachOther({FieldLabel(QStringLiteral("Filter:"), cbodisc), cbodisc}, 1));
    column->addWidget(ctList1, 1);
    column->addLayout(besideEachOther({cboprovs, cmdgo}, 0));
    panel->setMinimumWidth(fontMetrics().averageCharWidth() * PanelCharacters);
    return panel;
}
