#include "tests/shell/practicefixture.h"

#include <QAction>
#include <QApplication>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/userstore.h"

PracticeFixture::PracticeFixture() {
    ResetSession();
    SetUserStoreFile(folder_.filePath(QStringLiteral("store.ini")));
    SessionValues& session = Session();
    session.Connection.Open(database_.connectionText());
    session.UID = session.ProviderId = QStringLiteral("REED");
    session.UserName = session.ProviderName = QStringLiteral("Reed");
    session.ScreenAccess = 3;
    session.CurrentView = View::Day;
    session.WordUsage = QStringLiteral("Patient");
}

qint64 PracticeFixture::add(const AppointmentRow& row) {
    db::Connection& connection = Session().Connection;
    connection.Execute(db::Sql(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid{}) Values('{}', {}, {}, '{}', {}, '{}'{})",
        db::Raw{row.extraColumns}, row.date, row.start, row.end, row.text, row.code, row.clinician,
        db::Raw{row.extraValues}));
    const db::Recordset newest(QStringLiteral("Select Max(nkeyid) as newest from appointments"), connection);
    return newest[0].integer();
}

void PracticeFixture::run(const QString& statement) {
    Session().Connection.Execute(statement);
}

const CalendarItem& PracticeFixture::item(const char* text) {
    for (int index = 1; index <= calendar().ItemCount(); ++index) {
        const CalendarItem& candidate = std::as_const(calendar()).Item(index);
        if (candidate.ItemText == QString::fromUtf8(text))
            return candidate;
    }
    ADD_FAILURE() << "No such item: " << text;
    return std::as_const(calendar()).Item(0);
}

QStringList PracticeFixture::itemTexts() {
    QStringList texts;
    for (int index = 1; index <= calendar().ItemCount(); ++index)
        texts << std::as_const(calendar()).Item(index).ItemText;
    return texts;
}

void PracticeFixture::select(const char* text) {
    calendar().setSelectedItem(calendar().IndexOfKey(item(text).ItemKey));
    QApplication::processEvents();
}

QAction& PracticeFixture::command(const char* name) {
    auto* action = openView().findChild<QAction*>(QString::fromLatin1(name));
    EXPECT_NE(action, nullptr) << name;
    return *action;
}
