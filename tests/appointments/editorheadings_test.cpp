// The first line of each editor: what it is, on which day, with whom.

#include <QLabel>
#include <QListWidget>

#include "appointments/attendeelist.h"
#include "data/codes.h"
#include "platform/controls/ctdedit.h"
#include "session/formheading.h"
#include "session/session.h"
#include "tests/appointments/activityfixture.h"
#include "tests/appointments/groupfixture.h"

namespace {

QString headingOf(const QDialog& form) {
    return form.findChild<FormHeading*>()->text();
}

class EditorHeadings : public EditorFixture {};
class GroupHeading : public GroupFixture {};
class ActivityHeading : public ActivityFixture {};

}  // namespace

TEST_F(EditorHeadings, EachKindOfEntrySaysWhatItIs) {
    Session().WordUsage = QStringLiteral("Client");
    EXPECT_EQ(headingOf(openNew(apptkind::Patient)),
              QString::fromUtf8("Client Appointment · Wed, Mar 11, 2026 · Reed"));
    EXPECT_EQ(headingOf(openNew(apptkind::Activity)), QString::fromUtf8("Activity/Event · Wed, Mar 11, 2026 · Reed"));
    EXPECT_EQ(headingOf(openNew(apptkind::Unavailable)),
              QString::fromUtf8("Unavailable Time · Wed, Mar 11, 2026 · Reed"));
    EXPECT_EQ(headingOf(openNew(apptkind::TypeSlot)), QString::fromUtf8("Appointment Type · Wed, Mar 11, 2026 · Reed"));
}

TEST_F(EditorHeadings, AnEntryThatIsEditedShowsItsOwnDay) {
    const int key = savedPatientAppointment();
    database.connection().Execute(db::Sql("Update appointments Set dapptdate = '2026/03/13' Where nkeyid = {}", key));
    EXPECT_TRUE(headingOf(openRow(key, apptkind::Patient)).contains("Fri, Mar 13, 2026"));
}

TEST_F(EditorHeadings, TheDayFollowsTheDateField) {
    const frmnore& editor = openNew(apptkind::Unavailable);
    editor.ctedate->setDate(QDate(2026, 3, 20));
    EXPECT_EQ(headingOf(editor), QString::fromUtf8("Unavailable Time · Fri, Mar 20, 2026 · Reed"));
}

TEST_F(EditorHeadings, TheLineIsAboveEverythingElseAndSeen) {
    const frmnore& editor = openNew(apptkind::Patient);
    const auto* heading = editor.findChild<FormHeading*>();
    EXPECT_TRUE(heading->isVisible());
    EXPECT_LT(heading->geometry().bottom(), editor.txtpatients->mapTo(&editor, QPoint()).y());
}

TEST_F(GroupHeading, SaysTheDayAndTheProvider) {
    const frmgrptx& group = openNewGroup();
    EXPECT_EQ(headingOf(group), QString::fromUtf8("Group Therapy · Wed, Mar 11, 2026 · Reed"));
    group.ctedate->setDate(QDate(2026, 3, 12));
    EXPECT_EQ(headingOf(group), QString::fromUtf8("Group Therapy · Thu, Mar 12, 2026 · Reed"));
}

TEST_F(ActivityHeading, FollowsWhoAttends) {
    const frmactsc& activity = openNewActivity();
    activity.List1->clearSelection();
    EXPECT_EQ(headingOf(activity), QString::fromUtf8("Activity/Event · Wed, Mar 11, 2026"));
    clickProvider("Lane");
    EXPECT_TRUE(headingOf(activity).endsWith(QString::fromUtf8(" · Lane")));
    clickProvider("Reed");
    EXPECT_TRUE(headingOf(activity).endsWith(QString::fromUtf8(" · Lane and Reed")));
    clickProvider("Stone");
    EXPECT_TRUE(headingOf(activity).endsWith(QString::fromUtf8(" · 3 providers")));
    activity.ctDEditComp->setDate(QDate(2026, 3, 13));
    EXPECT_EQ(headingOf(activity), QString::fromUtf8("Activity/Event · Fri, Mar 13, 2026 · 3 providers"));
}
