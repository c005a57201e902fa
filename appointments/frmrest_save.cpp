#include <QButtonGroup>
#include <QComboBox>
#include <QPushButton>
#include <QTreeWidget>

#include "appointments/frmrest.h"
#include "appointments/serieswork.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/noticebar.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

// Enter does not leave the field in which the user stands.
void frmrest::cmdOk_Click() {
    if (change_.kind == RestChange::Kind::MoveTo)
        ctstart->setText(ctstart->Text());
    if (change_.kind == RestChange::Kind::Room)
        cborooms->Settle();
    if (!cmdOk->isEnabled() || !standsAsShown() || !mayOverlap())
        return;
    save();
    accept();
}

bool frmrest::standsAsShown() {
    const BusyPointer busy;
    const bool wasRead = !due_.isActive();
    const std::vector<RestPlan> shown = plans_;
    const auto ways = [this] {
        QStringList lines;
        for (std::size_t place = 0; place < plans_.size(); ++place)
            lines << (isTicked(place) ? inTheWay(place).join(u'\n') : QString());
        return lines;
    };
    const QStringList shownWays = ways();
    try {
        series_.rows = ReadSeries(series_.reference);
        plan();
        obstacles_.Read(plans_);
        const bool same = plans_ == shown;
        if (same)
            showRows();
        else
            fillRows();
        if (!same || (wasRead && ways() != shownWays)) {
            MsgBox(
                tr("The series, or what is booked in its way, has been changed at another desk meanwhile. Nothing has been saved. Please look at the list again."),
                ExclamationBox, windowTitle());
            return false;
        }
        return offersStill();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error checking for conflicts. Nothing has been saved. "), error);
        return false;
    }
}

// The lists of rooms and providers were read when the form opened.
bool frmrest::offersStill() {
    if (change_.kind == RestChange::Kind::Provider &&
        Recordset(Sql("Select id from provider_info Where archive = 0 And id = '{}'", change_.provider),
                  Session().Connection)
            .Eof()) {
        MsgBox(tr("%1 has been archived meanwhile. Choose another provider.").arg(cboproviders->currentText()),
               ExclamationBox, windowTitle());
        return false;
    }
    if (change_.kind == RestChange::Kind::Room && change_.room > 0 &&
        Recordset(Sql("Select room from rooms Where roomid = {}", change_.room), Session().Connection).Eof()) {
        MsgBox(tr("%1 has been deleted meanwhile. Choose another room.").arg(cborooms->Text()), ExclamationBox,
               windowTitle());
        return false;
    }
    return true;
}

bool frmrest::mayOverlap() const {
    int changed = 0;
    int taken = 0;
    for (std::size_t place = 0; place < plans_.size(); ++place) {
        changed += isTicked(place) ? 1 : 0;
        taken += isTicked(place) && !inTheWay(place).isEmpty() ? 1 : 0;
    }
    return taken == 0 || MsgBox(tr("Something is booked in the way of %1 of %2 appointments. Change them anyway?")
                                    .arg(taken)
                                    .arg(changed),
                                YesNoBox, QStringLiteral("Appointment Conflict")) == Answer::Yes;
}

SeriesWork frmrest::work() const {
    SeriesWork work;
    work.kind = SeriesWork::Kind::Rest;
    for (std::size_t place = 0; place < plans_.size(); ++place)
        if (isTicked(place))
            work.steps.push_back({plans_[place].row.key, plans_[place].row.place, plans_[place].after});
    return work;
}

void frmrest::save() {
    const std::shared_ptr<SeriesMark> mark = SeriesMark::Begin(work());
    const SeriesOutcome outcome = ChangeSeries(*mark);
    if (!outcome.failure) {
        ShowNotice({ChangedText(mark->Work(), outcome),
                    outcome.passed > 0 ? Notice::Kind::Caution : Notice::Kind::Information});
        return;
    }
    TellError(SeriesTrouble(mark->Work()), *outcome.failure);
    OfferRest(mark, outcome, rowsChanged_);
}
