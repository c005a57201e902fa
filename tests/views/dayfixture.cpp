#include "tests/views/dayfixture.h"

#include <QAction>
#include <QApplication>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/userstore.h"
#include "session/session.h"

DayFixture::DayFixture() {
    ResetSession();
    SetUserStoreFile(folder_.filePath(QStringLiteral("store.ini")));
    SessionValues& session = Session();
    session.Connection.Open(database_.connectionText());
    session.UID = session.ProviderId = QStringLiteral("REED");
    session.UserName = session.ProviderName = QStringLiteral("Reed");
    session.ScreenAccess = 3;
    session.CurrentView = 1;
    session.WordUsage = QStringLiteral("Patient");
}

DayFixture::~DayFixture() {
    view_.reset();
    ResetSession();
}

qint64 DayFixture::add(const AppointmentRow& row) {
    db::Connection& connection = Session().Connection;
    connection.Execute(db::Sql(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid{}) Values('{}', {}, {}, '{}', {}, '{}'{})",
        db::Raw{row.extraColumns}, row.date, row.start, row.end, row.text, row.code, row.clinician,
        db::Raw{row.extraValues}));
    const db::Recordset newest(QStringLiteral("Select Max(nkeyid) as newest from appointments"), connection);
    return newest[0].integer();
}

void DayFixture::run(const QString& statement) {
    Session().Connection.Execute(statement);
}

CalendarView& DayFixture::open() {
    view_ = makeView();
    view_->resize(1000, 700);
    view_->show();
    QApplication::processEvents();
    return *view_;
}

ctMDay& DayFixture::calendar() {
    return *view_->findChild<ctMDay*>(QStringLiteral("ctMDay1"));
}

const CalendarItem& DayFixture::item(const char* text) {
    for (int index = 1; index <= calendar().ItemCount(); ++index) {
        const CalendarItem& candidate = std::as_const(calendar()).Item(index);
        if (candidate.ItemText == QString::fromUtf8(text))
            return candidate;
    }
    ADD_FAILURE() << "No such item: " << text;
    return std::as_const(calendar()).Item(0);
}

QStringList DayFixture::itemTexts() {
    QStringList texts;
    for (int index = 1; index <= calendar().ItemCount(); ++index)
        texts << std::as_const(calendar()).Item(index).ItemText;
    return texts;
}

QStringList DayFixture::info() {
    const auto* list = view_->findChild<ctList*>(QStringLiteral("ctListInfo"));
    QStringList rows;
    for (int row = 0; row < list->RowCount(); ++row)
        rows << list->RowText(row);
    return rows;
}

void DayFixture::select(const char* text) {
    calendar().setSelectedItem(calendar().IndexOfKey(item(text).ItemKey));
    QApplication::processEvents();
}

QAction& DayFixture::command(const char* name) {
    auto* action = view_->findChild<QAction*>(QString::fromLatin1(name));
    EXPECT_NE(action, nullptr) << name;
    return *action;
}
