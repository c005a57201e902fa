#pragma once

#include <QComboBox>

#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "tests/views/dayhand.h"
#include "views/frmall.h"

/// The practice of Baker, Lane and Reed on Wednesday, March 11, 2026, at Reed's desk.
class AllProviders : public DayHand {
  protected:
    AllProviders() {
        Session().CurrentView = View::AllProviders;
        Session().AllProviders = true;
        Session().ALEnabled = true;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        addProvider("BAKER", "Baker", "Nursing");
        addProvider("LANE", "Lane", "Psychology");
        addProvider("REED", "Reed", "Psychology");
    }

    std::unique_ptr<CalendarView> makeView() override { return std::make_unique<frmall>(main); }
    frmall& all() { return dynamic_cast<frmall&>(*view_); }

    void addProvider(const char* id, const char* name, const char* discipline) {
        run(db::Sql("Insert Into provider_info (id, prov_lastname, discipline, archive) Values('{}', '{}', '{}', 0)",
                    id, name, discipline));
    }
    /// Twenty providers altogether, Xu00 to Xu16 behind the three.
    void addMany() {
        for (int i = 0; i < 17; ++i)
            run(QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values('P%1', 'Xu%2', 0)")
                    .arg(i)
                    .arg(i, 2, 10, QLatin1Char('0')));
    }
    /// Chooses the provider in cboprovs.
    void choose(const char* provider) {
        QComboBox& providers = box("cboprovs");
        providers.setCurrentText(QString::fromLatin1(provider));
        Q_EMIT providers.activated(providers.currentIndex());
    }
    ctList& panel() { return *view_->findChild<ctList*>(QStringLiteral("ctList1")); }
    QComboBox& box(const char* name) { return *view_->findChild<QComboBox*>(QLatin1String(name)); }
    /// The titles of the columns, which cboprovs must hold too.
    QString columns() {
        QStringList titles;
        for (int column = 1; column <= calendar().ColumnCount(); ++column)
            titles << calendar().ColumnTitle(column);
        QStringList offered;
        for (int i = 0; i < box("cboprovs").count(); ++i)
            offered << box("cboprovs").itemText(i);
        EXPECT_EQ(offered, titles);
        return titles.join(QLatin1Char(' '));
    }
    void filter(const char* discipline) {
        QComboBox& disciplines = box("cbodisc");
        disciplines.setCurrentText(QString::fromLatin1(discipline));
        Q_EMIT disciplines.activated(disciplines.currentIndex());
    }
    void turn(const char* provider) {
        for (int row = 0; row < panel().RowCount(); ++row)
            if (panel().Cell(row, 2) == QLatin1String(provider)) {
                panel().SelectRow(row);
                QTest::keyClick(&panel(), Qt::Key_Space);
            }
    }
    [[nodiscard]] int columnOf(const char* text) {
        return calendar().ColumnOfItem(calendar().IndexOfKey(item(text).ItemKey));
    }
    void dragTo(const char* text, int column, int minute) {
        const QRect from = calendar().CellRect(columnOf(text), item(text).ItemStart);
        const QPoint press = rectOf(text).center();
        mouseDrag(press, press + (calendar().CellRect(column, minute).topLeft() - from.topLeft()));
    }
    [[nodiscard]] QString times(qint64 key) {
        return stored(key, "clinicianid") + QLatin1Char(' ') + stored(key, "nStartTime") + QLatin1Char('-') +
               stored(key, "nEndTime");
    }
    void book(qint64 key, int start, int end) {
        run(QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, croomtext, nStartTime, nEndTime, nApptDate) Values(%1, 1, 'Reed', %2, %3, '2026/03/11')")
                .arg(key)
                .arg(start)
                .arg(end));
    }
    void hours(const char* provider, const char* start, const char* end) {
        run(QStringLiteral(
                "Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('%1', 4, %2, %3)")
                .arg(QLatin1String(provider), QLatin1String(start), QLatin1String(end)));
    }
    [[nodiscard]] QStringList shaded() {
        QStringList ranges;
        for (const TimeRange& range : calendar().TimeRanges())
            ranges << QStringLiteral("%1: %2-%3").arg(range.column).arg(range.start).arg(range.end);
        return ranges;
    }
    [[nodiscard]] QString audit() { return database_.text("Select LogDescription from AuditLog"); }
};
