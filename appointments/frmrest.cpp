#include "appointments/frmrest.h"

#include <algorithm>
#include <QAbstractButton>
#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QTreeWidget>

#include "appointments/appointmentrows.h"
#include "appointments/apptlists.h"
#include "appointments/seriestexts.h"
#include "data/namedpatients.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/formarea.h"
#include "platform/database/error.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int PauseMilliseconds = 150;

std::optional<RestSeries> readSeries(int key) {
    const Recordset row(AppointmentStatement(key), Session().Connection);
    if (row.Eof()) {
        MsgBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
               ExclamationBox, QStringLiteral("Error"));
        return std::nullopt;
    }
    const int reference = row["repeating"].integer() == 1 ? static_cast<int>(row["repeating_ref"].integer()) : 0;
    RestSeries series{key, reference, reference > 0 ? ReadSeries(reference) : std::vector<RestRow>()};
    if (std::ranges::find(series.rows, key, &RestRow::key) != series.rows.end())
        return series;
    MsgBox(QObject::tr("This appointment does not belong to a series."), ExclamationBox, QObject::tr("Rest of Series"));
    return std::nullopt;
}

}  // namespace

std::optional<RestSeries> OpenSeries(int key) {
    const BusyPointer busy;
    try {
        return readSeries(key);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error opening database. "), error);
        return std::nullopt;
    }
}

frmrest::frmrest(RestSeries series, std::function<void()> rowsChanged, QWidget* parent)
    : QDialog(parent), series_(std::move(series)), rowsChanged_(std::move(rowsChanged)) {
    due_.setSingleShot(true);
    due_.setInterval(PauseMilliseconds);
    buildForm();
    load();
    limitToRights();
    connectControls();
    FollowHiddenNames(this, [this](bool) {
        showSource();
        showRows();
    });
    plan();
    fillRows();
    txtminutes->setFocus();
    FitToScreen(*this);
}

// Nothing is chosen for the user that would change anything yet.
void frmrest::load() {
    radWhat->button(static_cast<int>(RestChange::Kind::Shift))->setChecked(true);
    radWhich->button(static_cast<int>(RestScope::Following))->setChecked(true);
    txtminutes->setValue(0);
    cborooms->AddItem(tr("(no room)"));
    LoadRooms(*cborooms);
    const auto chosen = std::ranges::find(series_.rows, series_.chosen, &RestRow::key);
    const SeriesPlace& place = chosen->place;
    ctstart->setTime(place.start);
    cborooms->SetListIndex(std::max(0, cborooms->FindItemData(place.room)));
    loadProviders();
    const auto provider = std::ranges::find_if(providers_, [&](const BookedProvider& offered) {
        return offered.id.compare(place.provider, Qt::CaseInsensitive) == 0;
    });
    cboproviders->setCurrentIndex(provider == providers_.end() ? -1 : static_cast<int>(provider - providers_.begin()));
}

void frmrest::loadProviders() {
    try {
        for (
            Recordset rows(
                Sql("Select id, prov_lastname from provider_info Where archive = 0 and ((ExcludeFromScheduler is  Null or ExcludeFromScheduler = 0) or id = '{}') Order by prov_lastname",
                    Session().UID),
                Session().Connection);
            !rows.Eof(); rows.MoveNext()) {
            providers_.push_back({rows["id"].text(), rows["prov_lastname"].text()});
            cboproviders->addItem(providers_.back().name);
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading providers. "), error);
    }
}

void frmrest::showSource() {
    const auto chosen = std::ranges::find(series_.rows, series_.chosen, &RestRow::key);
    if (chosen == series_.rows.end())
        return;
    const SeriesPlace& place = chosen->place;
    const bool named = NamesPatient(place.code, !chosen->patientId.isEmpty());
    const MinuteSpan time{static_cast<double>(place.start), static_cast<double>(place.end)};
    lblsource->setText(
        QStringLiteral("%1, %2, %3")
            .arg(named ? ShownName(chosen->text) : chosen->text, WeekdayAndDate(place.date), TimesText(time)));
    const auto number = chosen - series_.rows.begin() + 1;
    lblseries->setText(
        tr("Appointment %1 of %2 in this series, from %3 to %4")
            .arg(number)
            .arg(series_.rows.size())
            .arg(WeekdayAndDate(series_.rows.front().place.date), WeekdayAndDate(series_.rows.back().place.date)));
}

void frmrest::choose(RestChange::Kind kind) {
    QAbstractButton* button = radWhat->button(static_cast<int>(kind));
    if (button->isChecked())
        planAnew();
    else
        button->setChecked(true);
}

RestChange frmrest::wanted() const {
    RestChange change;
    change.kind = static_cast<RestChange::Kind>(radWhat->checkedId());
    switch (change.kind) {
        case RestChange::Kind::Shift:
            change.minutes = static_cast<int>(txtminutes->Value()) * (cmblater->currentIndex() == 0 ? 1 : -1);
            break;
        case RestChange::Kind::MoveTo:
            // A time that is not understood moves nothing.
            if (ctstart->Time() < 0)
                break;
            change.weekday = cmbweekday->currentIndex();
            change.start = ctstart->Time();
            break;
        case RestChange::Kind::Room:
            change.room = cborooms->ListIndex() < 0 ? -1 : cborooms->ItemData();
            break;
        case RestChange::Kind::Provider:
            if (const int place = cboproviders->currentIndex(); place >= 0)
                change.provider = providers_[static_cast<std::size_t>(place)].id;
            break;
        default:
            break;
    }
    return change;
}

void frmrest::plan() {
    // What was taken out had something in the way elsewhere.
    if (const RestChange change = wanted(); change != change_) {
        change_ = change;
        leftOut_.clear();
    }
    plans_ = PlanRest(series_.rows, series_.chosen, static_cast<RestScope>(radWhich->checkedId()), change_, Today(),
                      Session().AllProviders);
    obstacles_ = RestObstacles();
}

// The bookings are read after a pause, so that typing does not wait for them.
void frmrest::planAnew() {
    plan();
    showRows();
    due_.start();
}

std::optional<db::DatabaseError> frmrest::ReadObstacles() {
    due_.stop();
    try {
        obstacles_.Read(plans_);
        showRows();
        return std::nullopt;
    } catch (const db::DatabaseError& error) {
        lblcount->setText(tr("What stands in the way cannot be read now. %1").arg(error.description));
        return error;
    }
}
