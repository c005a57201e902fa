#include <algorithm>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "platform/desktop/userstore.h"
#include "platform/theme/theme.h"
#include "views/frmsched.h"

namespace {

constexpr char mainPanesKey[] = "frmsched.SSSplitter1";
constexpr char sidePanesKey[] = "frmsched.SidePanes";

// A pane is a caption over its content; the caption is the content's buddy, so that Alt and its letter go there.
QWidget* makePane(const QString& caption, QWidget* content) {
    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Space(4));
    auto* label = new QLabel(caption, pane);
    label->setFont(HeadingFont());
    label->setBuddy(content);
    layout->addWidget(label);
    layout->addWidget(content, 1);
    return pane;
}

bool restoreSplitter(QSplitter& splitter, const char* key) {
    const QString stored = ReadUserSetting(QLatin1String(key));
    return !stored.isEmpty() && splitter.restoreState(QByteArray::fromBase64(stored.toLatin1()));
}

void storeSplitter(const QSplitter& splitter, const char* key) {
    WriteUserSetting(QLatin1String(key), QString::fromLatin1(splitter.saveState().toBase64()));
}

}  // namespace

void frmsched::layOut() {
    SSSplitter1 = new QSplitter(Qt::Horizontal, this);
    SSSplitter1->setObjectName(QStringLiteral("SSSplitter1"));
    SSSplitter1->setChildrenCollapsible(false);
    sidePanes_ = new QSplitter(Qt::Vertical, SSSplitter1);
    sidePanes_->setObjectName(QStringLiteral("sidePanes"));
    sidePanes_->setChildrenCollapsible(false);
    sidePanes_->addWidget(makeInfoPane());
    sidePanes_->addWidget(makeNotePane());
    sidePanes_->addWidget(makeTaskPane());
    sidePanes_->setStretchFactor(0, 5);
    sidePanes_->setStretchFactor(1, 2);
    sidePanes_->setStretchFactor(2, 4);

    SSSplitter1->addWidget(ctMDay1);
    SSSplitter1->addWidget(sidePanes_);
    SSSplitter1->setStretchFactor(0, 1);
    SSSplitter1->setStretchFactor(1, 0);
    sidePanes_->setMinimumWidth(fontMetrics().averageCharWidth() * 24);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, Space(8), Space(8));
    layout->addWidget(SSSplitter1);
    ctMDay1->setAccessibleName(tr("Day"));
    setFocusProxy(ctMDay1);
    rememberPanes();
}

QWidget* frmsched::makeInfoPane() {
    ctListInfo = new ctList;
    ctListInfo->setObjectName(QStringLiteral("ctListInfo"));
    ctListInfo->setAccessibleName(tr("Appointment details"));
    ctListInfo->SetColumns({{QString(), ListColumn::Kind::Text, 29}, {QString()}});
    ctListInfo->setHeaderHidden(true);
    ctListInfo->setMinimumWidth(1);
    return makePane(tr("A&ppointment"), ctListInfo);
}

QWidget* frmsched::makeNotePane() {
    txtnote = new QPlainTextEdit;
    txtnote->setObjectName(QStringLiteral("txtnote"));
    txtnote->setAccessibleName(tr("Appointment note"));
    txtnote->setReadOnly(true);
    txtnote->setTabChangesFocus(true);
    return txtnote;
}

QWidget* frmsched::makeTaskPane() {
    ctList1 = new ctList;
    ctList1->setObjectName(QStringLiteral("ctList1"));
    ctList1->setAccessibleName(tr("Tasks"));
    ctList1->SetColumns({{QStringLiteral("Done"), ListColumn::Kind::Check, 6},
                         {QStringLiteral("Task")},
                         {QStringLiteral("Priority"), ListColumn::Kind::Text, 9},
                         {QStringLiteral("Complete by"), ListColumn::Kind::Text, 12}});
    ctList1->setMinimumWidth(1);
    return makePane(tr("Tas&ks"), ctList1);
}

// Only a place that the user chose is worth remembering.
void frmsched::rememberPanes() {
    panesChosen_ = restoreSplitter(*SSSplitter1, mainPanesKey);
    restoreSplitter(*sidePanes_, sidePanesKey);
    connect(SSSplitter1, &QSplitter::splitterMoved, this, [this] {
        panesChosen_ = true;
        storeSplitter(*SSSplitter1, mainPanesKey);
    });
    connect(sidePanes_, &QSplitter::splitterMoved, this, [this] { storeSplitter(*sidePanes_, sidePanesKey); });
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
