#include <algorithm>
#include <QSplitter>
#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "platform/theme/theme.h"
#include "shell/detailspane.h"
#include "shell/keptsplitter.h"
#include "views/frmsched.h"

namespace {

constexpr char mainPanesKey[] = "frmsched.SSSplitter1";
constexpr char sidePanesKey[] = "frmsched.SidePanes";
constexpr int TasksShare = 4;

}  // namespace

void frmsched::layOut() {
    SSSplitter1 = new QSplitter(Qt::Horizontal, this);
    SSSplitter1->setObjectName(QStringLiteral("SSSplitter1"));
    SSSplitter1->setChildrenCollapsible(false);
    details_ = new DetailsPane(tr("A&ppointment"), SSSplitter1);
    details_->setObjectName(QStringLiteral("sidePanes"));
    addTaskPane();

    SSSplitter1->addWidget(calendarWithShelf());
    SSSplitter1->addWidget(details_);
    SSSplitter1->setStretchFactor(0, 1);
    SSSplitter1->setStretchFactor(1, 0);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, Space(8), Space(8));
    layout->addWidget(SSSplitter1);
    ctMDay1->setAccessibleName(tr("Day"));
    setFocusProxy(ctMDay1);
    rememberPanes();
}

void frmsched::addTaskPane() {
    ctList1 = new ctList;
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(tr("Tasks"));
    ctList1->SetColumns({{QStringLiteral("Done"), ListColumn::Kind::Check, 6},
                         {QStringLiteral("Task")},
                         {QStringLiteral("Priority"), ListColumn::Kind::Text, 9},
                         {QStringLiteral("Complete by"), ListColumn::Kind::Text, 12}});
    details_->AddPane(tr("Tas&ks"), ctList1, TasksShare);
}

// Only a place that the user chose is worth remembering.
void frmsched::rememberPanes() {
    panesChosen_ = KeepSplitter(*SSSplitter1, mainPanesKey);
    KeepSplitter(*details_, sidePanesKey);
    connect(SSSplitter1, &QSplitter::splitterMoved, this, [this] { panesChosen_ = true; });
}

void frmsched::resizeEvent(QResizeEvent* event) {
    CalendarView::resizeEvent(event);
    if (!panesChosen_)
        sharePanes();
}

// The day comes first where room is short; the panes beside it scroll.
void frmsched::sharePanes() {
    const int room = SSSplitter1->width() - SSSplitter1->handleWidth();
    const int side = std::min(fontMetrics().averageCharWidth() * 60, room * 2 / 5);
    SSSplitter1->setSizes({room - side, side});
}
