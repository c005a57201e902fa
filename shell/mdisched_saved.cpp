#include <algorithm>
#include <iterator>

#include "data/schema.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/opendialog.h"
#include "session/errorbox.h"
#include "session/offeredprovider.h"
#include "session/session.h"
#include "shell/frmsviews.h"
#include "shell/mdisched.h"
#include "shell/viewtable.h"

namespace {

constexpr int TimeUnits[] = {5, 10, 15, 30, 60};
const QString SavedNotice = QStringLiteral("saved view");
const QString NotShown = QStringLiteral("The saved view could not be shown. ");

void tell(const QString& text) {
    Notice notice{text};
    notice.subject = SavedNotice;
    ShowNotice(std::move(notice));
}

bool isOfOneProvider(View view) {
    return view == View::Day || view == View::Week || view == View::Month;
}

}  // namespace

ShownHours mdisched::hours() {
    return Session().SavedHours.value_or(ShownHours{Session().DayStartHour, Session().DayEndHour});
}

mdisched::Stage mdisched::stage() {
    return {Session().ProviderId, Session().ProviderName, Session().SavedHours, Session().TimeUnit};
}

void mdisched::setStage(const Stage& stage) {
    Session().ProviderId = stage.providerId;
    Session().ProviderName = stage.providerName;
    Session().SavedHours = stage.savedHours;
    Session().TimeUnit = stage.timeUnit;
}

void mdisched::useOwnHours() {
    if (!Session().SavedHours)
        return;
    Session().SavedHours.reset();
    Session().TimeUnit = ownTimeUnit_;
}

// A view that is chosen plainly while it is open with the hours of a saved one.
void mdisched::showOwnHours() {
    if (!Session().SavedHours)
        return;
    view_->CommitEdits();
    useOwnHours();
    view_->ApplyPreferences();
}

// Hours that make no grid, from another hand than the program's, leave the user's own.
void mdisched::useHoursOf(const ViewContents& contents) {
    useOwnHours();
    const ShownHours own = hours();
    const ShownHours wanted{contents.Number(savedname::FirstHour, own.first),
                            contents.Number(savedname::LastHour, own.last)};
    const int timeUnit = contents.Number(savedname::TimeUnit, Session().TimeUnit);
    const bool isGrid = wanted.first >= 0 && wanted.first < wanted.last && wanted.last <= 24 &&
                        std::ranges::find(TimeUnits, timeUnit) != std::end(TimeUnits);
    if (!isGrid || (wanted == own && timeUnit == Session().TimeUnit))
        return;
    ownTimeUnit_ = Session().TimeUnit;
    Session().SavedHours = wanted;
    Session().TimeUnit = timeUnit;
}

void mdisched::readSavedViews() {
    db::Connection& connection = Session().Connection;
    if (!connection.IsOpen())
        return;
    try {
        setSavedViews(ReadSavedViews());
        whyNoSavedViews_.clear();
    } catch (const db::DatabaseError&) {
        db::Ignoring([&] {
            if (!HasTable(connection, QStringLiteral("SavedViews")))
                whyNoSavedViews_ = tr(
                    "This practice's database has no place for saved views yet. The administrator makes it with \"svscheduler-admin upgrade\".");
        });
    }
}

void mdisched::setSavedViews(std::vector<SavedView> views) {
    if (views == savedViews_)
        return;
    savedViews_ = std::move(views);
    if (view_ == nullptr)
        return;
    view_->FollowMainWindow();
    yieldKeys();
}

QString mdisched::whyNotShown(const SavedView& saved) const {
    if (saved.Shows() == View::None)
        return tr("\"%1\" was saved by another version of the program, with a view that this one does not have.")
            .arg(saved.title);
    const ViewEntry& entry = *FindView(saved.Shows());
    if (!ViewAvailable(saved.Shows()))
        return tr("\"%1\" was not opened: the %2 is not available to you.")
            .arg(saved.title, QString::fromLatin1(entry.item));
    return {};
}

void mdisched::ShowSavedView(int slot) {
    if (view_ == nullptr || OpenDialog::Any())
        return;
    // Another desk may have changed what is saved.
    readSavedViews();
    const auto found = std::ranges::find(savedViews_, slot, &SavedView::slot);
    if (found == savedViews_.end()) {
        tell(tr("Nothing is saved on F%1 any more.").arg(slot));
        return;
    }
    const SavedView saved = *found;
    if (const QString why = whyNotShown(saved); !why.isEmpty()) {
        tell(why);
        return;
    }
    DropNotice(SavedNotice);
    open(saved);
}

// Returns false, and has told the user, when the database refused. A provider who is gone leaves the one who is shown.
bool mdisched::takeProvider(const ViewContents& contents) {
    const QString id = contents.Value(savedname::Provider);
    if (id.isEmpty())
        return true;
    try {
        if (const std::optional<BookedProvider> provider = OfferedProvider(id)) {
            Session().ProviderId = provider->id;
            Session().ProviderName = provider->name;
        } else {
            tell(tr("The provider of the saved view is not among those whom you may choose. %1's schedule stays.")
                     .arg(Session().ProviderName));
        }
    } catch (const db::DatabaseError& error) {
        TellInBar(NotShown, error);
        return false;
    }
    DropNotice(NotShown);
    return true;
}

void mdisched::open(const SavedView& saved) {
    const View view = saved.Shows();
    const bool isOpen = Session().CurrentView == view;
    view_->CommitEdits();
    if (view == View::Companion && !isOpen && !findCompanionProvider())
        return;
    const Stage before = stage();
    if (isOfOneProvider(view) && !takeProvider(saved.contents))
        return;
    const BusyPointer busy;
    useHoursOf(saved.contents);
    WritePanels();
    LeaveContents(isOpen ? std::nullopt : std::optional(saved.contents));
    if (isOpen) {
        view_->ShowContents(saved.contents);
    } else if (!openView(view)) {
        setStage(before);
        WritePanels();
    }
    LeaveContents({});
    KeepLastView(Session().CurrentView);
    if (Session().ProviderId != before.providerId)
        KeepLastProvider(Session().ProviderId);
}

SavedView mdisched::shownView() const {
    SavedView shown;
    const View view = Session().CurrentView;
    shown.viewNumber = static_cast<int>(view);
    shown.title = QString::fromLatin1(FindView(view)->item);
    if (isOfOneProvider(view)) {
        shown.title += QStringLiteral(", ") + Session().ProviderName;
        shown.contents.Set(savedname::Provider, Session().ProviderId);
    }
    if (view != View::Month) {
        shown.contents.Set(savedname::FirstHour, hours().first);
        shown.contents.Set(savedname::LastHour, hours().last);
        shown.contents.Set(savedname::TimeUnit, Session().TimeUnit);
    }
    view_->AddContents(shown.contents);
    return shown;
}

void mdisched::SaveThisView() {
    if (view_ == nullptr)
        return;
    frmsviews form(shownView(), this);
    ShowModal(form);
    readSavedViews();
}
