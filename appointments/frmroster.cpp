#include "appointments/frmroster.h"

#include <algorithm>
#include <QButtonGroup>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "appointments/seriestexts.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/noticebar.h"
#include "platform/database/error.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"

namespace {

using Member = GroupFields::Member;

constexpr int DateCharacters = 20;
constexpr int TimeCharacters = 24;
constexpr int ThenCharacters = 50;
constexpr int Lines = 5;

QString namesOf(const std::vector<Member>& members) {
    QStringList names;
    for (const Member& member : members)
        names << ShownName(member.name.simplified());
    return names.join(QStringLiteral("; "));
}

}  // namespace

frmroster::frmroster(RosterChange change, RestRow saved, std::vector<RosterDate> dates, QWidget* parent)
    : QDialog(parent), change_(std::move(change)), saved_(std::move(saved)), dates_(std::move(dates)) {
    setObjectName(QStringLiteral("frmroster"));
    setWindowTitle(tr("Members on Other Dates"));
    buildForm();
    fillRows();
    connect(radWhich, &QButtonGroup::idToggled, this, [this](int, bool checked) { checked ? showRows() : void(); });
    connect(cmdOk, &QPushButton::clicked, this, &frmroster::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    FollowHiddenNames(this, [this](bool) {
        showChange();
        showRows();
    });
    radWhich->checkedButton()->setFocus();
    FitToScreen(*this);
}

void frmroster::buildForm() {
    lblgroup = Named(new QLabel(this), "lblgroup");
    lblgroup->setFont(HeadingFont());
    lbladded = Named(new QLabel(this), "lbladded");
    lblremoved = Named(new QLabel(this), "lblremoved");
    lblcount = Named(new QLabel(this), "lblcount");
    for (QLabel* label : {lblgroup, lbladded, lblremoved, lblcount}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    lstdates = Named(new QTreeWidget(this), "lstdates");
    lstdates->setAccessibleName(tr("Other dates of the group"));
    lstdates->setRootIsDecorated(false);
    lstdates->setUniformRowHeights(true);
    lstdates->setAllColumnsShowFocus(true);
    lstdates->setTabKeyNavigation(false);
    lstdates->setHeaderLabels({tr("Date"), tr("Time"), tr("Then")});
    const int character = fontMetrics().averageCharWidth();
    lstdates->header()->resizeSection(0, DateCharacters * character);
    lstdates->header()->resizeSection(1, TimeCharacters * character);
    lstdates->setMinimumSize(character * (DateCharacters + TimeCharacters + ThenCharacters),
                             fontMetrics().height() * 3 / 2 * Lines);
    cmdOk = FormButton(QStringLiteral("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(QStringLiteral("Cancel"), "cmdCancel", this);

    auto* fields = new QWidget(this);
    auto* inner = new QVBoxLayout(fields);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->setSpacing(Space(8));
    for (QLabel* label : {lblgroup, lbladded, lblremoved})
        inner->addWidget(label);
    inner->addWidget(buildWhich());
    inner->addWidget(lstdates, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addWidget(lblcount, 1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(new FormArea(fields, this), 1);
    column->addLayout(buttons);
}

// The appointment itself is saved already: whoever presses Enter has changed this one alone.
QWidget* frmroster::buildWhich() {
    auto* box = Named(new QGroupBox(tr("Change the members of"), this), "fraWhich");
    radWhich = Named(new QButtonGroup(box), "radWhich");
    auto* row = new QHBoxLayout(box);
    row->setSpacing(Space(24));
    const QStringList texts{tr("Th&is date only"), tr("This and &following"), tr("&All dates from today")};
    for (int scope = 0; scope < texts.size(); ++scope) {
        auto* button = Named(new QRadioButton(texts[scope], box), QStringLiteral("radWhich%1").arg(scope));
        radWhich->addButton(button, scope);
        // The button's Alt key clicks it a moment later, which may be after the Enter that follows.
        connect(button, &QRadioButton::pressed, button, [button] { button->setChecked(true); });
        row->addWidget(button);
    }
    row->addStretch(1);
    radWhich->button(0)->setChecked(true);
    return box;
}

void frmroster::fillRows() {
    QList<QTreeWidgetItem*> rows;
    for (const RosterDate& date : dates_) {
        const SeriesPlace& place = date.row.place;
        auto* row = new QTreeWidgetItem;
        row->setText(0, WeekdayAndDate(place.date));
        row->setText(1, TimesText({static_cast<double>(place.start), static_cast<double>(place.end)}));
        row->setSizeHint(0, QSize(0, fontMetrics().height() * 3 / 2));
        rows << row;
    }
    lstdates->addTopLevelItems(rows);
    const auto next = std::ranges::find_if(
        dates_, [this](const RosterDate& date) { return IsChosenDate(date, saved_, RestScope::Following); });
    const auto place = next == dates_.end() ? 0 : next - dates_.begin();
    lstdates->setCurrentItem(lstdates->topLevelItem(static_cast<int>(place)));
    lstdates->scrollToItem(lstdates->currentItem(), QAbstractItemView::PositionAtTop);
}

void frmroster::showChange() {
    lblgroup->setText(tr("%1, %2").arg(change_.group, WeekdayAndDate(saved_.place.date)));
    lbladded->setText(tr("Added: %1").arg(namesOf(change_.added)));
    lbladded->setVisible(!change_.added.empty());
    lblremoved->setText(tr("Taken out: %1").arg(namesOf(change_.removed)));
    lblremoved->setVisible(!change_.removed.empty());
}

RestScope frmroster::scope() const {
    return static_cast<RestScope>(radWhich->checkedId());
}

QString frmroster::thenText(const RosterDate& date) const {
    if (!IsChosenDate(date, saved_, scope()))
        return StayText(Stay::NotChosen);
    if (date.stay != Stay::No)
        return StayText(date.stay);
    QStringList parts;
    if (!date.adds.empty())
        parts << tr("adds %1").arg(namesOf(date.adds));
    if (!date.removes.empty())
        parts << tr("takes out %1").arg(namesOf(date.removes));
    if (!date.ended.empty())
        parts << tr("not in the group then: %1").arg(namesOf(date.ended));
    if (!date.attended.empty())
        parts << tr("attended and stays: %1").arg(namesOf(date.attended));
    return parts.isEmpty() ? StayText(Stay::NothingNew) : parts.join(QStringLiteral(", "));
}

void frmroster::showRows() {
    for (std::size_t i = 0; i < dates_.size(); ++i) {
        QTreeWidgetItem& row = *lstdates->topLevelItem(static_cast<int>(i));
        const QString then = thenText(dates_[i]);
        row.setText(2, then);
        row.setToolTip(2, TipText(then));
        const bool changes = dates_[i].Changes() && IsChosenDate(dates_[i], saved_, scope());
        for (int column = 0; column < 3; ++column)
            row.setForeground(column, palette().brush(changes ? QPalette::Text : QPalette::PlaceholderText));
    }
    const std::size_t count = chosen().size();
    lblcount->setText(count == 0   ? tr("No other date will be changed")
                      : count == 1 ? tr("1 other date will be changed")
                                   : tr("%1 other dates will be changed").arg(count));
}

std::vector<RosterDate> frmroster::chosen() const {
    std::vector<RosterDate> dates;
    std::ranges::copy_if(dates_, std::back_inserter(dates), [this](const RosterDate& date) {
        return date.Changes() && IsChosenDate(date, saved_, scope());
    });
    return dates;
}

void frmroster::tellChanged(int changed, int left) {
    QString text = changed == 1 ? tr("The members of 1 other date have been changed.")
                                : tr("The members of %1 other dates have been changed.").arg(changed);
    if (left > 0)
        text += left == 1
                    ? tr(" 1 was left as it is, because another desk has changed or deleted it.")
                    : tr(" %1 were left as they are, because another desk has changed or deleted them.").arg(left);
    ShowNotice({text, left > 0 ? Notice::Kind::Caution : Notice::Kind::Information});
}

void frmroster::cmdOk_Click() {
    const BusyPointer busy;
    const std::vector<RosterDate> dates = chosen();
    if (dates.empty())
        return accept();
    const RosterOutcome outcome = WriteRoster(change_, dates, Today());
    if (outcome.failure)
        return TellError(WriteTrouble(outcome.step), *outcome.failure);
    tellChanged(outcome.changed, static_cast<int>(dates.size()) - outcome.changed);
    accept();
}

void OfferRoster(const RosterChange& change, QWidget* parent) {
    if (change.reference < 1 || !change.Any())
        return;
    try {
        const std::vector<RestRow> rows = ReadSeries(change.reference);
        const auto saved = std::ranges::find(rows, change.key, &RestRow::key);
        std::vector<RosterDate> dates = ReadRoster(change, Today());
        if (saved == rows.end() || std::ranges::none_of(dates, &RosterDate::Changes))
            return;
        frmroster form(change, *saved, std::move(dates), parent);
        ShowModal(form);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading groups members. "), error);
    }
}
