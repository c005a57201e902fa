#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/controls/ctdate.h"
#include "platform/controls/cttaskpane.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/userstore.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/session.h"
#include "shell/mdisched.h"
#include "shell/titlebar.h"
#include "shell/viewtable.h"

namespace {

QLabel* panel(QWidget* parent, const char* name, const QString& accessibleName) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setAccessibleName(accessibleName);
    label->setContentsMargins(Space(8), 0, Space(8), 0);
    return label;
}

QString tipWithKey(const QString& text, const QKeySequence& key) {
    return key.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText));
}

}  // namespace

mdisched::mdisched(ViewFactories factories) : factories_(std::move(factories)) {
    setObjectName(QStringLiteral("mdisched"));
    setWindowTitle(QStringLiteral("Solvane Scheduler"));
    setWindowIcon(Icon("scheduler"));
    resize(QSize(1240, 780).boundedTo(screen()->availableSize()));
    // In the order of the eye, which is the order of Tab.
    buildActions();
    buildToolBar();
    buildCentre();
    buildStatusBar();
    Session().Connection.OnReplaced([this](const QString& why) { tellReplaced(why); });
}

mdisched::~mdisched() {
    Session().Connection.OnReplaced({});
    // The view asks its main window while it is being closed, and itself for what is being typed: it has to go first,
    // and to be hidden while it is whole.
    if (view_ != nullptr)
        view_->hide();
    delete view_;
}

QAction* mdisched::command(const char* name, const QString& text, const char* icon, const QKeySequence& key,
                           std::function<void()> run) {
    auto* action = new QAction(icon[0] == '\0' ? QIcon() : Icon(icon), text, this);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(key);
    action->setToolTip(tipWithKey(text, key));
    if (run) {
        connect(action, &QAction::triggered, this, std::move(run));
    } else {
        action->setEnabled(false);
        action->setToolTip(tr("%1 is not available in this version").arg(text));
    }
    addAction(action);
    keys_[action] = key;
    return action;
}

void mdisched::buildActions() {
    today_ = command("today", tr("Go to Today"), "today", tr("Ctrl+T"), [this] { GoToToday(); });
    previous_ = command("previous", tr("Previous Day"), "previous", tr("Alt+Left"), [this] { cycledate(0); });
    next_ = command("next", tr("Next Day"), "next", tr("Alt+Right"), [this] { cycledate(1); });
    add_ = command("add", tr("Add Appointment"), "add", tr("Ctrl+N"), [this] {
        if (view_ != nullptr)
            view_->AddAppointment();
    });
    find_ = command("find", tr("Find"), "find", tr("Ctrl+F"), [this] {
        if (view_ != nullptr)
            view_->FindAppointment();
    });
    print_ = command("print", tr("Print"), "print", tr("Ctrl+P"), [this] {
        if (view_ != nullptr)
            view_->PrintSchedule();
    });
    checkedIn_ =
        command("checkedin", tr("Checked-In"), "checkedin", tr("Ctrl+I"), [this] { Q_EMIT CheckedInRequested(); });
    hideNames_ =
        command("hidenames", tr("Hide Patient Names"), "eye", tr("Ctrl+H"), [this] { ToggleHidePatientNames(); });
    hideNames_->setCheckable(true);
    qApp->installEventFilter(this);
    day_ = command("day", tr("Day View"), "day", {}, [this] { changeview(View::Day); });
    // Before the first view there is nothing to do them on.
    for (QAction* action : {today_, previous_, next_, add_, find_, print_, checkedIn_, hideNames_, day_})
        action->setEnabled(false);

    for (const ViewEntry& entry : ViewTable)
        command(entry.key, QString::fromLatin1(entry.item), entry.icon, tr("Ctrl+%1").arg(static_cast<int>(entry.view)),
                [this, key = entry.key] { chooseFromTaskPane(QString::fromLatin1(key)); });
    command("reload", tr("Reload"), "refresh", QKeySequence(Qt::Key_F5), [this] { cycledate(2); });
    command("provider", tr("Select Provider"), "user", tr("Ctrl+L"), [this] { SelectProvider(); });
    command("preferences", tr("Preferences"), "preferences", tr("Ctrl+,"), [this] { ShowPreferences(); });
    command("taskpane", tr("Task Pane"), "pane", QKeySequence(Qt::Key_F9), [this] { ToggleTaskPane(); });
    command("nextpane", tr("Next Pane"), "", QKeySequence(Qt::Key_F6), [this] { cyclePanes(1); });
    command("previouspane", tr("Previous Pane"), "", tr("Shift+F6"), [this] { cyclePanes(-1); });
    // A key that is held down must not open a browser again and again.
    command("help", tr("Help"), "help", QKeySequence(Qt::Key_F1), [this] { ShowHelp(); })->setAutoRepeat(false);
    command("leave", tr("Exit"), "exit", tr("Ctrl+Q"), [this] { Leave(); });
}

void mdisched::buildToolBar() {
    toolBar_ = new QToolBar(tr("Commands"), this);
    toolBar_->setObjectName(QStringLiteral("toolbar"));
    toolBar_->setMovable(false);
    toolBar_->setContextMenuPolicy(Qt::PreventContextMenu);
    toolBar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolBar_->setIconSize({Space(16) + 2, Space(16) + 2});
    toolBar_->setContentsMargins(Space(4), Space(4), Space(4), Space(4));
    addToToolBar(today_, "cmdtoday");
    addToToolBar(previous_, "btnNav0");
    addToToolBar(next_, "btnNav1");
    toolBar_->addSeparator();
    addToToolBar(add_, "cmdadd");
    addToToolBar(find_, "cmdfind");
    addToToolBar(print_, "cmdprint");
    addToToolBar(checkedIn_, "cmdCheckedin");
    addToToolBar(hideNames_, "btnHidePats");
    toolBar_->addSeparator();
    addToToolBar(day_, "cmdday");
    addToolBar(toolBar_);
}

void mdisched::addToToolBar(QAction* action, const char* name) {
    toolBar_->addAction(action);
    auto* button = qobject_cast<QToolButton*>(toolBar_->widgetForAction(action));
    button->setObjectName(QString::fromLatin1(name));
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(action->text());
}

void mdisched::buildCentre() {
    taskPane_ = new ctTaskPane(this);
    taskPane_->setObjectName(QStringLiteral("taskpane"));
    taskPane_->SetHeading(QStringLiteral("Calendar"), QStringLiteral("ADVANCED"));
    ctDate1_ = new ctDate(taskPane_);
    ctDate1_->setObjectName(QStringLiteral("ctDate1"));
    connect(taskPane_, &ctTaskPane::ItemChosen, this, &mdisched::chooseFromTaskPane);
    connect(taskPane_, &ctTaskPane::CloseRequested, this, &mdisched::ToggleTaskPane);
    connect(ctDate1_, &ctDate::Click, this, &mdisched::dateClicked);

    auto* right = new QWidget(this);
    viewPlace_ = new QVBoxLayout(right);
    viewPlace_->setContentsMargins(0, 0, 0, 0);
    viewPlace_->setSpacing(0);
    title_ = new TitleBar(right);
    connect(title_, &TitleBar::ChoiceRequested, this, [this] {
        SelectProvider();
        if (view_ != nullptr)
            view_->setFocus();
    });
    viewPlace_->addWidget(title_);
    notices_ = new NoticeBar(right);
    connect(notices_, &NoticeBar::FocusGivenBack, this, [this] {
        if (view_ != nullptr)
            view_->setFocus();
    });
    viewPlace_->addWidget(notices_);

    splitter_ = new QSplitter(Qt::Horizontal, this);
    splitter_->setObjectName(QStringLiteral("SSSplitter1"));
    splitter_->addWidget(taskPane_);
    splitter_->addWidget(right);
    splitter_->setStretchFactor(1, 1);
    splitter_->setCollapsible(0, false);
    splitter_->setCollapsible(1, false);
    setCentralWidget(splitter_);
    splitter_->hide();  // Until there is a view to show.
    taskPane_->setVisible(ReadUserSetting(QString::fromLatin1(TaskPaneSetting)) != QLatin1String("0"));
}

void mdisched::buildStatusBar() {
    pnluser_ = panel(this, "pnluser", tr("User"));
    pnlaccess_ = panel(this, "pnlaccess", tr("Access"));
    pnldate_ = panel(this, "pnldate", tr("Date"));
    pnlsched_ = new QToolButton(this);
    pnlsched_->setObjectName(QStringLiteral("pnlsched"));
    pnlsched_->setAutoRaise(true);
    pnlsched_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    pnlsched_->setFocusPolicy(Qt::NoFocus);
    pnlsched_->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(pnlsched_, &QToolButton::clicked, this, &mdisched::SelectProvider);
    statusBar()->setSizeGripEnabled(false);
    for (QWidget* widget :
         {static_cast<QWidget*>(pnluser_), static_cast<QWidget*>(pnlsched_), static_cast<QWidget*>(pnlaccess_)})
        statusBar()->addWidget(widget);
    statusBar()->addPermanentWidget(pnldate_);
}
