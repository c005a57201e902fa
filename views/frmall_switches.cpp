#include <algorithm>
#include <QAction>
#include <QComboBox>

#include "appointments/workinghours.h"
#include "platform/controls/noticebar.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/localefacts.h"
#include "session/preferences.h"
#include "session/session.h"
#include "views/frmall.h"

using db::Recordset;

namespace {

const QString Category = QStringLiteral("Scheduler");
const QString FitDetail = QStringLiteral("AllFit");
const QString WorkingDetail = QStringLiteral("AllWorking");
const QString NobodyWorks = QStringLiteral("nobody works");

bool isOn(const QString& detail) {
    return GetPreference({}, detail, Category) == QLatin1String("1");
}

void keep(const QString& detail, bool on) {
    SetPreference(on ? QStringLiteral("1") : QStringLiteral("0"), detail, Category);
}

}  // namespace

QStringList frmall::switchStatements() {
    return {PreferenceStatement(FitDetail, Category), PreferenceStatement(WorkingDetail, Category)};
}

void frmall::readSwitches() {
    menus().Command(menu::mnuVFit).setChecked(isOn(FitDetail));
    menus().Command(menu::mnuVWorking).setChecked(isOn(WorkingDetail));
}

void frmall::bindSwitches() {
    QAction& fit = menus().Command(menu::mnuVFit);
    QAction& working = menus().Command(menu::mnuVWorking);
    fit.setCheckable(true);
    working.setCheckable(true);
    menus().Bind(menu::mnuVFit, [this, &fit] {
        keep(FitDetail, fit.isChecked());
        showColumns();
    });
    menus().Bind(menu::mnuVWorking, [this, &working] {
        keep(WorkingDetail, working.isChecked());
        followed_.clear();
        Reload();
    });
}

bool frmall::showsWorkingOnly() const {
    return menus_.Command(menu::mnuVWorking).isChecked();
}

/// Returns the ids, in small letters, of the listed who work on the day or have a row that this view shows. Throws
/// DatabaseError.
QSet<QString> frmall::whoWorks(QDate date) const {
    QSet<QString> working{followed_};
    const WorkingHours hours = WorkingHours::Read();
    for (const ListedProvider& provider : panel_->Providers())
        if (hours.On(provider.id, date))
            working.insert(provider.id.toLower());
    for (Recordset rows(appointmentsStatement(date), Session().Connection); !rows.Eof(); rows.MoveNext())
        if (!rows["allday"].boolean())
            working.insert(rows["clinicianid"].text().toLower());
    return working;
}

// The columns are made anew only where the day changes them, so that the place and the chosen provider stay. A day on
// which nobody works shows everybody, because a view without columns could not be booked in.
void frmall::leaveOutIdle(QDate date) {
    QSet<QString> idle;
    bool someoneWorks = false;
    if (showsWorkingOnly()) {
        db::Ignoring([&] {
            const QSet<QString> working = whoWorks(date);
            for (const ListedProvider& provider : panel_->Providers()) {
                const bool works = working.contains(provider.id.toLower());
                someoneWorks = someoneWorks || (works && provider.shown);
                if (!works)
                    idle.insert(provider.id.toLower());
            }
        });
    }
    DropNotice(NobodyWorks);
    if (!idle.isEmpty() && !someoneWorks) {
        idle.clear();
        Notice notice{tr("Nobody who is checked works on %1, so all of them are shown.").arg(LongDateText(date))};
        notice.subject = NobodyWorks;
        ShowNotice(std::move(notice));
    }
    if (idle == idle_)
        return;
    idle_ = std::move(idle);
    const QString chosen = Provider().id;
    resetcols();
    selectColumn(columnOf(chosen));
}

void frmall::AddContents(ViewContents& contents) const {
    const auto isOnInMenu = [this](MenuName name) { return menus_.Command(name).isChecked(); };
    const std::vector<ListedProvider> providers = panel_->Providers();
    if (cbodisc->currentIndex() > 0)
        contents.Set(savedname::Discipline, cbodisc->currentText());
    if (!std::ranges::all_of(providers, &ListedProvider::shown))
        contents.Set(savedname::Providers, panel_->Choice());
    contents.Set(savedname::Column, Provider().id);
    contents.Set(savedname::Columns, wantedColumns());
    if (isOnInMenu(menu::mnuVFit))
        contents.Set(savedname::Fit, 1);
    if (isOnInMenu(menu::mnuVWorking))
        contents.Set(savedname::Working, 1);
    if (!isOnInMenu(menu::mnuVDisplay))
        contents.Set(savedname::Panel, 0);
}

// Nothing is read here. Providers who are gone are passed over; where all of them are, everybody has a column.
void frmall::takeContents(const ViewContents& contents) {
    const QString discipline = contents.Value(savedname::Discipline);
    cbodisc->setCurrentIndex(std::max(cbodisc->findText(discipline, Qt::MatchFixedString), 0));
    panel_->Choose(contents.Value(savedname::Providers));
    if (panel_->Choice().isEmpty())
        panel_->CheckAll();
    const int columns = contents.Number(savedname::Columns, 0);
    savedColumns_ = columns >= FewestColumns && columns <= MostColumns ? std::optional(columns) : std::nullopt;
    menus().Command(menu::mnuVFit).setChecked(contents.Number(savedname::Fit, 0) == 1);
    menus().Command(menu::mnuVWorking).setChecked(contents.Number(savedname::Working, 0) == 1);
    const bool panel = contents.Number(savedname::Panel, 1) != 0;
    menus().Command(menu::mnuVDisplay).setChecked(panel);
    panel_->setVisible(panel);
    followed_.clear();
    idle_.clear();
    showColumns();
    resetcols();
}

void frmall::ShowContents(const ViewContents& contents) {
    if (!providersRead_)
        LoadProviders();
    takeContents(contents);
    CalendarView::ApplyPreferences();
    goToColumnOf(contents);
}

void frmall::goToColumnOf(const ViewContents& contents) {
    if (const int column = columnOf(contents.Value(savedname::Column)); column > 0) {
        selectColumn(column);
        ctMDay1->ScrollToColumn(column);
    }
}
