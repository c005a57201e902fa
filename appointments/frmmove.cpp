#include "appointments/frmmove.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "appointments/holdingshelf.h"
#include "data/minutetime.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/formheading.h"
#include "session/hiddennames.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

const QString Title = QStringLiteral("Move Appointment");

QString timeText(double minutes) {
    return MinutesToTimeText(static_cast<int>(minutes), Session().MilitaryTime);
}

bool isSame(const QString& provider, const QString& other) {
    return provider.compare(other, Qt::CaseInsensitive) == 0;
}

}  // namespace

frmmove::frmmove(MoveRequest request, QWidget* parent) : QDialog(parent), request_(std::move(request)) {
    setObjectName(QStringLiteral("frmmove"));
    setWindowTitle(Title);
    buildFields();
    buildList();
    layOutForm();
    loadProviders();
    ctdate->setDate(request_.row.stored.ItemDay);
    ctstart->setTime(request_.row.stored.ItemStart);
    FollowHiddenNames(this, [this](bool) { showHeading(); });
    look();
    connect(ctdate, &ctDEdit::Change, this, &frmmove::look);
    connect(ctstart, &ctDEdit::Change, this, &frmmove::look);
    connect(cboprovider, &QComboBox::currentIndexChanged, this, &frmmove::look);
    connect(cmdOk, &QPushButton::clicked, this, &frmmove::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

// Whoever may work on one schedule only keeps its provider. The one who has the appointment is offered in any case.
void frmmove::loadProviders() {
    const QString& own = request_.provider.id;
    if (Session().AllProviders && !request_.keepsProvider) {
        db::Ignoring([this] {
            for (
                Recordset rows(
                    Sql("Select * from provider_info Where archive = 0 and ((ExcludeFromScheduler is  Null or ExcludeFromScheduler = 0) or id = '{}') Order by prov_lastname",
                        Session().UID),
                    Session().Connection);
                !rows.Eof(); rows.MoveNext())
                cboprovider->addItem(rows["prov_lastname"].text(), rows["id"].text());
        });
    }
    int at = cboprovider->count() - 1;
    while (at >= 0 && !isSame(cboprovider->itemData(at).toString(), own))
        --at;
    if (at < 0) {
        cboprovider->insertItem(0, request_.provider.name, own);
        at = 0;
    }
    cboprovider->setCurrentIndex(at);
    cboprovider->setEnabled(cboprovider->count() > 1);
    if (request_.keepsProvider)
        cboprovider->setToolTip(tr("An activity stays with those who attend it."));
    else if (!cboprovider->isEnabled())
        cboprovider->setToolTip(tr("You may work on this schedule only."));
}

void frmmove::showHeading() {
    const CalendarItem& item = request_.row.stored;
    const QString text = NamesPatient(item) ? ShownName(item.ItemText) : item.ItemText;
    lblheading->setText(QStringLiteral("%1 · %2 · %3")
                            .arg(Title, NamedDateText(item.ItemDay), text.isEmpty() ? request_.provider.name : text));
    lblfrom->setText(
        tr("Now %1 to %2 with %3, %4.")
            .arg(timeText(item.ItemStart), timeText(item.ItemEnd), request_.provider.name, MinutesText(length())));
}

int frmmove::length() const {
    return request_.row.stored.ItemEnd - request_.row.stored.ItemStart;
}

std::optional<MoveTarget> frmmove::chosen() const {
    const QDate date = ctdate->Date();
    const int start = ctstart->Time();
    if (!date.isValid() || !IsTimeOfDay(start, start + length()))
        return std::nullopt;
    return MoveTarget{{date, start, start + length()},
                      {cboprovider->currentData().toString(), cboprovider->currentText()}};
}

bool frmmove::isWhereItWas(const MoveTarget& target) const {
    const CalendarItem& item = request_.row.stored;
    return target.slot == SelectedSlot{item.ItemDay, item.ItemStart, item.ItemEnd} &&
           isSame(target.provider.id, request_.provider.id);
}

void frmmove::look() {
    unread_ = false;
    const std::optional<MoveTarget> target = chosen();
    lblend->setText(target ? tr("to %1, %2").arg(timeText(target->slot.end), MinutesText(length())) : QString());
    if (!target) {
        show({});
        return say(ctdate->Date().isValid() && ctstart->Time() >= 0
                       ? tr("An appointment must end after it starts, on the same day.")
                       : tr("Enter a date and a time."));
    }
    if (isWhereItWas(*target)) {
        show({});
        return say(tr("This is where it is now."));
    }
    try {
        show(FindMoveObstacles(request_.row, *target));
    } catch (const db::DatabaseError& error) {
        show({});
        unread_ = true;
        return say(tr("What is in the way could not be read. %1").arg(error.description));
    }
    say(shown_.empty() ? tr("Nothing is in the way.")
        : shown_.size() == 1
            ? tr("One thing is in the way. OK moves the appointment all the same.")
            : tr("%1 things are in the way. OK moves the appointment all the same.").arg(shown_.size()));
}

void frmmove::show(const std::vector<MoveObstacle>& obstacles) {
    shown_ = obstacles;
    ctList1->Clear();
    for (const MoveObstacle& obstacle : obstacles) {
        const bool wholeDay = obstacle.time == MinuteSpan{0, MinutesPerDay};
        const int row =
            ctList1->AddRow({wholeDay ? tr("All day") : timeText(obstacle.time.start),
                             wholeDay ? QString() : timeText(obstacle.time.end), obstacle.text, obstacle.place});
        if (obstacle.namesPatient)
            ctList1->NameCell(row, TextColumn);
    }
}

// The line is told to who cannot see it, because the focus stays in the field.
void frmmove::say(const QString& text) {
    if (lblway->text() == text)
        return;
    lblway->setText(text);
    if (!isVisible())
        return;
    QAccessibleEvent event(lblway, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

bool frmmove::validate() {
    const auto refuse = [](const QString& text, QWidget& field) {
        MsgBox(text, ExclamationBox, Title);
        field.setFocus();
        return false;
    };
    if (!ctdate->Date().isValid())
        return refuse(QStringLiteral("Enter a valid date."), *ctdate);
    if (ctstart->Time() < 0)
        return refuse(QStringLiteral("Enter a start time"), *ctstart);
    if (!chosen())
        return refuse(
            QStringLiteral("An appointment must end after it starts, on the same day. Open it to change its times."),
            *ctstart);
    return true;
}

void frmmove::cmdOk_Click() {
    if (!validate())
        return;
    const std::optional<MoveTarget> target = chosen();
    if (isWhereItWas(*target))
        return reject();
    const std::vector<MoveObstacle> before = shown_;
    look();
    if (unread_) {
        MsgBox(lblway->text(), ErrorBox, QStringLiteral("Error"));
        return;
    }
    if (shown_ != before) {
        MsgBox(QStringLiteral("What is in the way has changed. See the list, and choose OK again or another time."),
               ExclamationBox, Title);
        return;
    }
    accept();
}

std::optional<MoveTarget> frmmove::Target() const {
    return result() == Accepted ? chosen() : std::nullopt;
}
