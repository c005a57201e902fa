#pragma once

#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "appointments/frmrest.h"
#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/noticebar.h"
#include "tests/appointments/appointmentfixture.h"

/// Mary Jones's weekly hour with Dr. Reed, on Wednesdays at 9 from February 25 on. Today is the third of them,
/// March 11.
class RestOfSeries : public AppointmentFixture {
  protected:
    RestOfSeries() {
        Session().ProviderId = QStringLiteral("REED");
        Session().UID = QStringLiteral("REED");
        Session().ScreenAccess = 3;
        Session().AllProviders = true;
        Session().ConnectionString = database.connectionText();
        desk.setNow(QDateTime(day, QTime(8, 0)));
        provider(QStringLiteral("LANE"), QStringLiteral("Lane"));
        for (int week = -2; week <= 3; ++week)
            keys.push_back(join(appointment({.date = day.addDays(7 * week)})));
    }

    /// Makes a row a member of the series.
    int join(int key, int code = ncolor::Pending) {
        run(db::Sql("Update appointments Set repeating = 1, repeating_ref = {}, ncolor = {} Where nkeyid = {}",
                    keys.empty() ? key : keys.front(), code, key));
        return key;
    }
    void run(const QString& statement) { database.connection().Execute(statement); }
    void set(int key, const char* what) {
        run(db::Sql("Update appointments Set {} Where nkeyid = {}", db::Raw{QString::fromLatin1(what)}, key));
    }
    /// The form on the appointment of today or on another.
    std::unique_ptr<frmrest> open(int key = 0) {
        std::optional<RestSeries> series = OpenSeries(key > 0 ? key : today());
        return series ? std::make_unique<frmrest>(*series, [this] { ++reloads; }) : nullptr;
    }
    [[nodiscard]] int today() const { return keys[2]; }

    static void choose(frmrest& form, RestChange::Kind kind) {
        form.radWhat->button(static_cast<int>(kind))->click();
        EXPECT_FALSE(form.ReadObstacles());
    }
    static void choose(frmrest& form, RestScope scope) {
        form.radWhich->button(static_cast<int>(scope))->click();
        EXPECT_FALSE(form.ReadObstacles());
    }
    static void moveBy(frmrest& form, int minutes) {
        form.txtminutes->setValue(std::abs(minutes));
        form.cmblater->setCurrentIndex(minutes < 0 ? 1 : 0);
        EXPECT_FALSE(form.ReadObstacles());
    }
    /// The list, each row's date, what then happens and what is in the way behind its tick: x or -, none where it
    /// stays.
    static QStringList listed(const frmrest& form) {
        QStringList rows;
        for (int i = 0; i < form.lstrows->topLevelItemCount(); ++i) {
            const QTreeWidgetItem& row = *form.lstrows->topLevelItem(i);
            const QVariant tick = row.data(0, Qt::CheckStateRole);
            QStringList cells{row.text(0).section(QLatin1Char(' '), 1).section(QLatin1Char('/'), 0, 1), row.text(2)};
            if (!row.text(3).isEmpty())
                cells << row.text(3);
            rows << (tick.isValid() ? QStringLiteral("-?x").mid(tick.toInt(), 1) + QLatin1Char(' ') : QString()) +
                        cells.join(QStringLiteral(" | "));
        }
        return rows;
    }
    static void pressSpaceOn(frmrest& form, int n) {
        form.lstrows->setCurrentItem(form.lstrows->topLevelItem(n));
        QTest::keyClick(form.lstrows, Qt::Key_Space);
    }
    void ok(frmrest& form) { form.cmdOk->click(); }
    /// Date, start and provider of the rows in order, "03/11 540 REED".
    QStringList stored(const char* columns = "nStartTime") {
        QStringList rows;
        for (db::Recordset row(
                 db::Sql(
                     "Select dapptdate, {} from appointments Where repeating_ref = {} Order by dapptdate, nStartTime",
                     db::Raw{QString::fromLatin1(columns)}, keys.front()),
                 database.connection());
             !row.Eof(); row.MoveNext())
            rows << row[0].date().toString(QStringLiteral("MM/dd ")) + row[1].text();
        return rows;
    }
    QStringList audit() {
        QStringList lines;
        for (db::Recordset log(QStringLiteral("Select LogDescription from AuditLog"), database.connection());
             !log.Eof(); log.MoveNext())
            lines << log[0].text();
        return lines;
    }
    void expectConflicts(const char* counts, Answer answer) {
        desk.expectBox(QStringLiteral("Something is booked in the way of %1 appointments. Change them anyway?")
                           .arg(QLatin1String(counts)),
                       QStringLiteral("Appointment Conflict"), answer);
    }
    void expectChanged() {
        desk.expectBox(
            QStringLiteral(
                "The series, or what is booked in its way, has been changed at another desk meanwhile. Nothing has been saved. Please look at the list again."),
            QStringLiteral("Rest of Series"));
    }

    NoticeBar bar;
    std::vector<int> keys;
    int reloads = 0;
};
