#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "people/frmabook.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/fillprogress.h"
#include "session/hiddennames.h"
#include "session/listfiller.h"
#include "session/session.h"

QSize frmabook::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 204, fontMetrics().height() * 36};
}

void frmabook::buildForm() {
    buildCommands();
    buildToolBar();
    cbogroups = Named(new QComboBox(this), "cbogroups");
    const QString word = Session().WordUsage.trimmed();
    cbogroups->addItems({QStringLiteral("Personal"), (word.isEmpty() ? QStringLiteral("Patient") : word) + u's',
                         QStringLiteral("Referral Sources"), QStringLiteral("Insurance Companies")});
    cbogroups->setAccessibleName(tr("List"));
    auto* search = Named(new TextField(this), "Text1");
    search->setClearButtonEnabled(true);
    search->setPlaceholderText(tr("First letters of a name"));
    search->setAccessibleName(tr("Find"));
    search->installEventFilter(this);
    Text1 = search;
    ctList1 = Named(new ctList(this), "ctList1");
    FollowHiddenNames(ctList1);
    // Delete in the search box removes a letter, so the key of the command belongs to the list.
    ctList1->addAction(mnuFDelete);
    pnlcount = Named(new QLabel(this), "pnlcount");
    filler_ = new ListFiller(*ctList1, this);
    pnlprogress = new FillProgress(*filler_, this);
    layOutForm();
}

QAction* frmabook::command(QMenu& menu, const char* name, const QString& text, const char* icon,
                           const QKeySequence& key) {
    QAction* action = Named(menu.addAction(Icon(icon), text), name);
    action->setShortcut(key);
    return action;
}

void frmabook::buildCommands() {
    menus = Named(new QMenuBar(this), "menus");
    mnuFile = Named(menus->addMenu(tr("&File")), "mnuFile");
    QMenu& file = *mnuFile;
    mnuFPrint = command(file, "mnuFPrint", tr("&Print..."), "print", tr("Ctrl+P"));
    mnuFemail = command(file, "mnuFemail", tr("E-&Mail..."), "mail", tr("Ctrl+M"));
    file.addSeparator();
    mnuFNew = command(file, "mnuFNew", tr("&New..."), "add", tr("Ctrl+N"));
    mnuFEdit = command(file, "mnuFEdit", tr("&Edit..."), "edit", tr("Ctrl+E"));
    mnuFDelete = command(file, "mnuFDelete", tr("&Delete"), "delete", QKeySequence(Qt::Key_Delete));
    mnuFDelete->setShortcutContext(Qt::WidgetShortcut);
    file.addSeparator();
    mnuFExit = command(file, "mnuFExit", tr("E&xit\tEsc"), "exit", {});
}

void frmabook::buildToolBar() {
    btn = Named(new QToolBar(tr("Commands"), this), "btn");
    btn->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    btn->setIconSize({Space(16) + 2, Space(16) + 2});
    const std::pair<QAction*, QString> buttons[]{{mnuFPrint, tr("Print")},   {mnuFemail, tr("E-Mail")},
                                                 {mnuFNew, tr("New")},       {mnuFEdit, tr("Edit")},
                                                 {mnuFDelete, tr("Delete")}, {mnuFExit, tr("Exit")}};
    for (const auto& [action, text] : buttons) {
        if (action == mnuFNew || action == mnuFExit)
            btn->addSeparator();
        action->setIconText(text);
        btn->addAction(action);
        auto* button = qobject_cast<QToolButton*>(btn->widgetForAction(action));
        button->setObjectName(QStringLiteral("btn") + text);
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(text);
    }
}

void frmabook::layOutForm() {
    auto* choice = new QHBoxLayout;
    choice->setContentsMargins(Space(12), Space(8), Space(12), Space(8));
    choice->setSpacing(Space(8));
    choice->addWidget(FieldLabel(tr("&List:"), cbogroups));
    choice->addWidget(cbogroups);
    choice->addSpacing(Space(16));
    choice->addWidget(FieldLabel(tr("F&ind:"), Text1));
    choice->addWidget(Text1, 1);
    auto* state = new QHBoxLayout;
    state->setContentsMargins(Space(12), Space(8), Space(12), Space(12));
    state->setSpacing(Space(12));
    state->addWidget(pnlcount);
    state->addWidget(pnlprogress, 1);
    auto* list = new QHBoxLayout;
    list->setContentsMargins(Space(12), 0, Space(12), 0);
    list->addWidget(ctList1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->setMenuBar(menus);
    column->addWidget(btn);
    column->addLayout(choice);
    column->addLayout(list, 1);
    column->addLayout(state);
    FitToScreen(*this);
    Text1->setFocus();
}
