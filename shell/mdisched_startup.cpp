#include <QAction>
#include <QLabel>
#include <QSplitter>
#include <QToolButton>

#include "people/frmsltpv.h"
#include "platform/controls/ctdate.h"
#include "platform/controls/cttaskpane.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/userstore.h"
#include "platform/theme/icon.h"
#include "session/formposition.h"
#include "session/rights.h"
#include "session/session.h"
#include "shell/mdisched.h"
#include "shell/titlebar.h"
#include "shell/viewtable.h"

void mdisched::RestorePosition() {
    if (openingSize_) {
        resize(*openingSize_);
        return;
    }
    FormPosition(*this, FormMode::Get);
    const int paneWidth = ReadUserSetting(QString::fromLatin1(TaskPaneWidthSetting)).toInt();
    if (paneWidth > 0)
        splitter_->setSizes({paneWidth, width() - paneWidth});
}

void mdisched::SetDateOrder(int order) {
    ctDate1_->SetDateOrder(order);
}

void mdisched::ChooseProvider() {
    frmsltpv providers(this);
    ShowModal(providers);
}

void mdisched::setmenuaccess() {
    pnlaccess_->setText(AccessPanelText(Session().ScreenAccess));
}

void mdisched::InitTaskPane() {
    taskPane_->AddGroup(QStringLiteral("Calandar"), QStringLiteral("CAL"));
    taskPane_->AddWidget(QStringLiteral("CAL"), ctDate1_);
    taskPane_->AddGroup(QStringLiteral("Solvane Views"), QStringLiteral("SVVIEWS"));
    taskPane_->AddGroup(QStringLiteral("Fernhall"), QStringLiteral("FHVIEWS"));
    for (const ViewEntry& entry : ViewTable) {
        const QString key = QString::fromLatin1(entry.key);
        const QString item = QString::fromLatin1(entry.item);
        const QString group = entry.view == View::Companion ? QStringLiteral("FHVIEWS") : QStringLiteral("SVVIEWS");
        taskPane_->AddItem(group, item, key, Icon(entry.icon), QString::fromLatin1(entry.hint));
        const bool exists = factories_.contains(entry.view);
        if (!exists)
            taskPane_->SetItemEnabled(key, false, tr("%1 is not available in this version").arg(item));
        else if (!ViewAvailable(entry.view))
            taskPane_->SetItemEnabled(key, false, tr("%1 needs access to all schedules").arg(item));
        if (auto* action = findChild<QAction*>(key, Qt::FindDirectChildrenOnly))
            action->setEnabled(ViewAvailable(entry.view));
    }
    taskPane_->SetGroupVisible(QStringLiteral("FHVIEWS"), !Session().FHDatabaseId.isEmpty());
}

void mdisched::MarkReady(QDate today) {
    ready_ = true;
    readSavedViews();
    SetDate(openingDate_.value_or(today));
}

void mdisched::MakeScheduleLink() {
    QFont font = pnlsched_->font();
    font.setUnderline(true);
    pnlsched_->setFont(font);
    pnlsched_->setCursor(Qt::PointingHandCursor);
    pnlsched_->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    pnlsched_->setFocusPolicy(Qt::TabFocus);
    pnlsched_->setToolTip(tr("Select the provider whose schedule is shown (Ctrl+L)"));
    title_->LetChoose();
}

void mdisched::ShowDayView() {
    openView(firstView(View::Day));
}
