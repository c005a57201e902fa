#include "shell/mdisched.h"

#include <algorithm>
#include <optional>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "bridge/link.h"
#include "data/codes.h"
#include "platform/controls/ctdate.h"
#include "platform/controls/cttaskpane.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/manual.h"
#include "platform/desktop/opendialog.h"
#include "platform/desktop/userstore.h"
#include "platform/text/plaintext.h"
#include "platform/theme/icon.h"
#include "session/errorbox.h"
#include "session/formposition.h"
#include "session/hiddennames.h"
#include "session/session.h"
#include "shell/frmaopts.h"
#include "shell/titlebar.h"
#include "shell/viewtable.h"

bool mdisched::ViewAvailable(View view) const {
    if (!factories_.contains(view))
        return false;
    if (view == View::AllProviders)
        return Session().AllProviders;
    return view != View::Companion || !Session().FHDatabaseId.isEmpty();
}

void mdisched::AddBar(QWidget* bar) {
    viewPlace_->insertWidget(viewPlace_->indexOf(notices_) + 1 + static_cast<int>(bars_.size()), bar);
    bars_.push_back(bar);
}

QDate mdisched::Date() const {
    return ctDate1_->Date();
}

void mdisched::SetDate(QDate date) {
    ctDate1_->SetDate(date);
}

void mdisched::ShowDateText(const QString& text) {
    pnldate_->setText(text);
}

void mdisched::ShowTitle(const QString& text) {
    title_->ShowTitle(text);
}

void mdisched::WritePanels() {
    pnluser_->setText(QStringLiteral(" User: ") + OneLine(Session().UserName));
    pnlsched_->setText(QStringLiteral(" Schedule for: ") + CaptionText(Session().ProviderName));
    showWhose();
}

// The views of one provider say in large letters whose schedule they are.
void mdisched::showWhose() {
    const View view = Session().CurrentView;
    const bool ofOne = view == View::Day || view == View::Week || view == View::Month;
    title_->ShowWhose(ofOne ? Session().ProviderName : QString());
}

void mdisched::changeview(View view) {
    if (view_ == nullptr) {
        // Start-up has looked for the pair itself; a companion that was to open first may not open at all.
        openView(firstView(ViewAvailable(view) ? view : View::Day));
        return;
    }
    if (Session().CurrentView == view) {
        showOwnHours();
        return;
    }
    if (!ViewAvailable(view))
        return;
    if (view == View::Companion && !findCompanionProvider())
        return;
    const Stage before = stage();
    useOwnHours();
    if (openView(view))
        KeepLastView(view);
    else
        setStage(before);
}

// The companion's view refuses a provider without a counterpart with a box, which nobody expects at the start.
View mdisched::firstView(View asTold) const {
    const bool opens = firstView_ != View::None && ViewAvailable(firstView_) &&
                       (firstView_ != View::Companion || Session().FHProviderId >= 1);
    return opens ? firstView_ : asTold;
}

bool mdisched::openView(View view) {
    const auto factory = factories_.find(view);
    if (factory == factories_.end() || !unloadView())
        return false;
    const BusyPointer busy;
    applyInterfaceFont();
    Session().CurrentView = view;
    const ViewEntry& entry = *FindView(view);
    taskPane_->SetSelectedKey(QString::fromLatin1(entry.key));
    previous_->setText(QString::fromLatin1(entry.previous));
    next_->setText(QString::fromLatin1(entry.next));
    ShowTitle(view == View::Rooms ? QStringLiteral("Room Scheduler") : QString());
    showWhose();
    view_ = factory->second(*this).release();
    connect(view_, &ViewWindow::DatabaseOpenedAgain, this, &mdisched::DatabaseOpenedAgain);
    viewPlace_->addWidget(view_, 1);
    splitter_->show();
    putStatusLinkLast();
    fillMenus();
    showCommandsOfView();
    view_->show();
    view_->setFocus();
    Q_EMIT ViewOpened();
    return true;
}

// A view may be unloaded by one of its own commands: it goes when that command has returned.
bool mdisched::unloadView() {
    if (view_ == nullptr)
        return true;
    // What opened the dialog goes on with the view when it has closed.
    if (OpenDialog::Any() || !view_->close())
        return false;
    viewPlace_->removeWidget(view_);
    view_->deleteLater();
    view_ = nullptr;
    return true;
}

// A new view's fields stand last in the order of Tab, and the status bar below them.
void mdisched::putStatusLinkLast() {
    QWidget* last = view_;
    for (QWidget* next = view_->nextInFocusChain(); view_->isAncestorOf(next); next = next->nextInFocusChain())
        last = next;
    setTabOrder(last, pnlsched_);
}

void mdisched::fillMenus() {
    // The old menu bar is freed later too, with the menus of the command that is running.
    auto* menus = new QMenuBar(this);
    setMenuBar(menus);
    view_->FillMenus(*menus);
    yieldKeys();
}

// Two commands on one key would answer to neither. A view may own its commands itself, so they are looked for in the
// menus that show them.
void mdisched::yieldKeys() {
    QList<QAction*> menuActions;
    for (const QMenu* menu : menuBar()->findChildren<QMenu*>())
        menuActions += menu->actions();
    for (const auto& [action, key] : keys_) {
        const bool taken = std::any_of(menuActions.begin(), menuActions.end(), [&key = key](const QAction* menuAction) {
            return !key.isEmpty() && menuAction->shortcuts().contains(key);
        });
        action->setShortcut(taken ? QKeySequence() : key);
    }
}

void mdisched::showCommandsOfView() {
    const ViewEntry& entry = *FindView(Session().CurrentView);
    const bool steps = entry.next[0] != '\0';
    for (QAction* action : {previous_, next_}) {
        action->setVisible(steps);
        action->setToolTip(
            QStringLiteral("%1 (%2)").arg(action->text(), keys_[action].toString(QKeySequence::NativeText)));
        toolBar_->widgetForAction(action)->setAccessibleName(action->text());
    }
    for (QAction* action : {today_, previous_, next_, hideNames_})
        action->setEnabled(true);
    add_->setVisible(Session().CurrentView != View::Rooms && Session().CurrentView != View::Month);
    print_->setVisible(add_->isVisible());
    add_->setEnabled(view_->CanAdd());
    find_->setEnabled(view_->CanFind());
    print_->setEnabled(view_->CanPrint());
    checkedIn_->setEnabled(true);
    day_->setEnabled(Session().CurrentView != View::Day);
    hideNames_->setChecked(Session().HidePatientNames);
}

// The look of forms that the practice has set for all its users. The parts of every calendar (title, headings, hours,
// entries) take their fonts from it and their colours from the palette, so no form sets fonts or colours of its own.
void mdisched::applyInterfaceFont() {
    if (interfaceFontApplied_ || !Session().InterfaceSizing)
        return;
    interfaceFontApplied_ = true;
    QApplication::setFont(QFont(Session().InterfaceFontName, Session().InterfaceFontSize));
}

void mdisched::chooseFromTaskPane(const QString& key) {
    if (const ViewEntry* entry = FindViewByKey(key))
        changeview(entry->view);
    // A view that did not open leaves the selection with the one that is.
    if (const ViewEntry* current = FindView(Session().CurrentView))
        taskPane_->SetSelectedKey(QString::fromLatin1(current->key));
}

bool mdisched::findCompanionProvider() {
    SessionValues& session = Session();
    const QString& provider = session.UserType == SystemAdministrator ? session.ProviderId : session.UID;
    const QString unread = tr("The provider could not be looked up for Fernhall. ");
    std::optional<db::DatabaseError> failure;
    const int paired = GetFHProviderId(session.Connection, session.FHDatabaseId, provider, &failure);
    if (failure) {
        TellInBar(unread, *failure);
        return false;
    }
    DropNotice(unread);
    session.FHProviderId = paired;
    if (session.FHProviderId >= 1)
        return true;
    MsgBox(QStringLiteral("Unable to find Fernhall scheduling data for this provider."), InformationBox,
           QStringLiteral("Provider Schedule Not Found in Fernhall"));
    return false;
}

void mdisched::cycledate(int direction) {
    if (view_ == nullptr)
        return;
    if (direction == 0 || direction == 1) {
        const int step = direction == 0 ? -1 : 1;
        if (!view_->StepOwnDate(step)) {
            SetDate(view_->Stepped(Date(), step));
            reloadView();
        }
        playSound("/whoosh.wav");
        return;
    }
    reloadView();
}

void mdisched::GoToToday() {
    if (view_ != nullptr && view_->ShownDay(Date()) == Today()) {
        ctDate1_->ShowMonth(Date());
        return;
    }
    SetDate(Today());
    dateClicked();
}

void mdisched::dateClicked() {
    if (!ready_ || view_ == nullptr)
        return;
    const BusyPointer busy;
    view_->CommitEdits();
    view_->ShowDate(Date());
}

void mdisched::reloadView() {
    if (view_ == nullptr)
        return;
    const BusyPointer busy;
    view_->CommitEdits();
    view_->Reload();
}

void mdisched::tellReplaced(const QString& why) {
    notices_->Show({.text = why,
                    .kind = Notice::Kind::Failure,
                    .actions = {{tr("Open again"), [this] { openDatabaseAgain(); }}},
                    .subject = ViewWindow::ReplacedDatabase});
}

void mdisched::openDatabaseAgain() {
    const BusyPointer busy;
    if (view_ != nullptr)
        view_->OpenDatabaseAgain();
    else
        Session().Connection.OpenAgain();
}

void mdisched::ToggleTaskPane() {
    taskPane_->setVisible(!TaskPaneShown());
    WriteUserSetting(QString::fromLatin1(TaskPaneSetting), TaskPaneShown() ? QStringLiteral("1") : QStringLiteral("0"));
    if (view_ == nullptr)
        return;
    view_->FollowMainWindow();
    if (!TaskPaneShown())
        view_->setFocus();
}

bool mdisched::TaskPaneShown() const {
    return !taskPane_->isHidden();
}

void mdisched::ToggleHidePatientNames() {
    SetNamesHidden(!Session().HidePatientNames);
    hideNames_->setChecked(Session().HidePatientNames);
    hideNames_->setIcon(Icon(Session().HidePatientNames ? "eyeoff" : "eye"));
    if (view_ != nullptr)
        view_->FollowMainWindow();
    // Under a dialog the view stays as the dialog found it; what it shows has changed with the switch.
    if (QApplication::activeModalWidget() == nullptr &&
        (Session().CurrentView == View::Day || Session().CurrentView == View::Companion))
        reloadView();
}

// The command's key is dead while another window is in front, where names stand as well.
bool mdisched::eventFilter(QObject* watched, QEvent* event) {
    const bool inFront = QApplication::activeWindow() == this && QApplication::activeModalWidget() == nullptr;
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType() || inFront ||
        QApplication::activePopupWidget() != nullptr)
        return QMainWindow::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const QKeySequence pressed(key->keyCombination());
    if (pressed == QKeySequence(Qt::Key_F1)) {
        if (!key->isAutoRepeat())
            ShowHelp();
    } else if (pressed == keys_[hideNames_] && hideNames_->isEnabled()) {
        ToggleHidePatientNames();
    } else {
        return QMainWindow::eventFilter(watched, event);
    }
    return true;
}

void mdisched::SelectProvider() {
    if (!Session().AllProviders)
        return;
    const QString before = Session().ProviderId;
    ChooseProvider();
    if (Session().ProviderId != before)
        ProviderChosen();
}

void mdisched::ProviderChosen() {
    WritePanels();
    KeepLastProvider(Session().ProviderId);
    cycledate(2);
    playSound("/softbell.wav");
}

void mdisched::ShowPreferences() {
    const auto refresh = [this] {
        if (view_ != nullptr && Session().CurrentView != View::Rooms)
            view_->ApplyPreferences();
    };
    // What the user prefers is shown and stored, not what a saved view shows.
    const Stage saved = stage();
    useOwnHours();
    frmaopts preferences(refresh, this);
    if (ShowModal(preferences) != QDialog::Accepted && saved.savedHours)
        setStage(saved);
}

void mdisched::playSound(const char* fileName) const {
    if (Session().SoundEffects)
        PlaySound(Session().AppPath + QString::fromLatin1(fileName));
}

void mdisched::cyclePanes(int direction) {
    std::vector<QWidget*> panes;
    std::vector<QWidget*> targets;
    const auto add = [&](QWidget* pane, QWidget* target) {
        if (pane == nullptr || !pane->isVisible() || !target->isEnabled() || target->focusPolicy() == Qt::NoFocus)
            return;
        panes.push_back(pane);
        targets.push_back(target);
    };
    add(toolBar_, toolBar_->widgetForAction(today_));
    add(taskPane_, ctDate1_);
    if (QWidget* first = notices_->FocusTarget())
        add(notices_, first);
    for (QWidget* bar : bars_)
        add(bar, bar->focusProxy());
    if (view_ != nullptr)
        add(view_, view_->focusProxy() != nullptr ? view_->focusProxy() : view_);
    for (QWidget* pane : view_ != nullptr ? view_->SidePanes() : QList<QWidget*>())
        add(pane, pane);
    add(pnlsched_, pnlsched_);
    const auto count = static_cast<int>(panes.size());
    if (count == 0)
        return;

    const QWidget* focus = QApplication::focusWidget();
    int at = direction > 0 ? -1 : count;
    for (int pane = 0; pane < count; ++pane)
        if (focus != nullptr && (panes[static_cast<std::size_t>(pane)] == focus ||
                                 panes[static_cast<std::size_t>(pane)]->isAncestorOf(focus)))
            at = pane;
    targets[static_cast<std::size_t>((at + direction + count) % count)]->setFocus(Qt::TabFocusReason);
}

namespace {

// The heading in a page has to stay apart from the page's file.
QString addressOf(const QString& page) {
    if (!page.contains(QLatin1Char('#')))
        return page;
    QUrl address = QUrl::fromLocalFile(page.section(QLatin1Char('#'), 0, 0));
    address.setFragment(page.section(QLatin1Char('#'), 1));
    return address.toString(QUrl::FullyEncoded);
}

}  // namespace

// The manual takes the place of the help file, which stays as what is opened where no manual is installed.
void mdisched::ShowHelp() {
    const QWidget* from = QApplication::activeModalWidget();
    if (from == nullptr)
        from = QApplication::activeWindow();
    const QString page = ManualPageOf(from == nullptr || from == this ? view_ : from);
    if (!page.isEmpty()) {
        if (!OpenWithShell(addressOf(page)))
            MsgBox(tr("No browser could be started for the manual. Its page is %1.").arg(page), InformationBox,
                   windowTitle());
    } else if (!QFileInfo::exists(helpFile_) || !OpenWithShell(helpFile_)) {
        MsgBox(tr("The manual is not installed on this computer. Its first page would be %1.")
                   .arg(QDir::cleanPath(ManualFolder() + QStringLiteral("/index.html"))),
               InformationBox, windowTitle());
    }
}

void mdisched::closeEvent(QCloseEvent* event) {
    if (OpenDialog::Any()) {  // The end of the desktop's session asks even then.
        event->ignore();
        return;
    }
    if (!openingSize_)
        FormPosition(*this, FormMode::Set);
    if (!openingSize_ && TaskPaneShown() && ready_)
        WriteUserSetting(QString::fromLatin1(TaskPaneWidthSetting), QString::number(taskPane_->width()));
    if (!notices_->MayLeave() || !unloadView()) {
        event->ignore();
        return;
    }
    if (ready_ && Session().CurrentView != View::None) {
        KeepLastView(Session().CurrentView);
        KeepLastProvider(Session().ProviderId);
    }
    Session().Connection.Close();
    event->accept();
}
