#include "rooms/frmfroom.h"

#include <QLabel>
#include <vector>

#include "data/minutetime.h"
#include "data/namedpatients.h"
#include "platform/controls/datefield.h"
#include "platform/database/error.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

frmfroom::frmfroom(GoTo goTo, QWidget* parent)
    : FindDialog({tr("Find bookings of any room whose description contains:"), QStringLiteral("|Room Schedule|"),
                  tr("1 booking"), tr("%1 bookings"), tr("Select the bookings to print."),
                  QStringLiteral("Error finding bookings. "), QStringLiteral("2880|1440|1440|1440|2880;"),
                  QStringLiteral("Description|Date|Start|End|Room;")},
                 {{QStringLiteral("Description")},
                  {QStringLiteral("Date"), ListColumn::Kind::Text, 13},
                  {QStringLiteral("Start"), ListColumn::Kind::Text, 15},
                  {QStringLiteral("End"), ListColumn::Kind::Text, 15},
                  {QStringLiteral("Room"), ListColumn::Kind::Text, 24}},
                 parent),
      goTo_(std::move(goTo)) {
    setObjectName(QStringLiteral("frmfroom"));
    setWindowTitle(QStringLiteral("Find Room"));
}

QString frmfroom::statementFor(const QString& text) const {
    return Sql("Select * from roomschedule, rooms Where croomid = roomid AND CroomText Like '%{}%' Order by napptdate",
               db::LikeText(text));
}

QStringList frmfroom::listLine(const Recordset& row) const {
    const auto time = [&row, military = Session().MilitaryTime](const char* column) {
        return MinutesToTimeText(static_cast<int>(row[column].integer()), military);
    };
    return {row["croomtext"].text(),
            DateFieldText(row["napptdate"].date(), static_cast<DateOrder>(Session().DateOrder)), time("nstarttime"),
            time("nendtime"), row["room"].text()};
}

void frmfroom::nameHits(Recordset& rows) {
    std::vector<qint64> owners;
    for (; !rows.Eof(); rows.MoveNext())
        owners.push_back(rows["apptid"].integer());
    // When the owner of a slot cannot be read, the slot counts as a patient's.
    QSet<qint64> others;
    db::Ignoring([&] { others = KeysWithoutPatient(Session().Connection, {owners.begin(), owners.end()}); });
    for (std::size_t line = 0; line < owners.size(); ++line)
        if (owners[line] > 0 && !others.contains(owners[line]))
            ctList1->NameCell(static_cast<int>(line), DescriptionColumn);
}

void frmfroom::goTo(qint64 key) {
    const Recordset hit(Sql("Select * from roomschedule, rooms Where croomid = roomid AND nKeyId = {}", key),
                        Session().Connection);
    if (hit.Eof() || !hit["napptdate"].date().isValid()) {
        lblcount->setText(tr("This booking is not there any more. Another user may have deleted it or its room."));
        return;
    }
    const QString obstacle =
        goTo_({static_cast<int>(hit["nkeyid"].integer()), static_cast<int>(hit["roomid"].integer()),
               hit["napptdate"].date(), static_cast<int>(hit["nstarttime"].integer())});
    lblcount->setText(obstacle);
    if (obstacle.isEmpty())
        accept();
}
