#pragma once

#include "data/scramble.h"
#include "tests/desks/deskfront.h"

/// How a signed note begins to say so.
inline const QString SignedLine = QStringLiteral("Electronically signed by Anna Reed on ");

/// Reed's missed visits and their notes, at a desk on a real display.
class NoteDesk : public FrontDesk {
  protected:
    NoteDesk() {
        connection.Execute(
            QStringLiteral("Update provider_info Set pfirst_name = 'Anna', plast_name = 'Reed' Where id = 'REED'"));
        connection.Execute(db::Sql("Update passwords Set pswd_password = '{}' Where pswd_user_id = 'REED'",
                                   ScramblePassword(QStringLiteral("secret"), DefaultScrambleKey)));
        connection.Execute(
            QStringLiteral("Insert Into report_headers (header, [default]) Values ('|Hill Street Practice|', 1)"));
    }

    /// A visit that the person has just marked as missed, selected on the screen.
    QString missed(int start) {
        const QString key = add(start, start + 50, QStringLiteral("O'Brien, Anna"));
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(soon([&] { return desk->tell("items").contains(key + QStringLiteral(" %1-").arg(start)); }));
        person->click(itemOf(key));
        person->press({QStringLiteral("ctrl+m")});
        EXPECT_TRUE(soon([&] { return status(key) == 0xC0; }));
        return key;
    }
    void openNote() {
        person->press({QStringLiteral("ctrl+shift+s")});
        person->turnTo("frmmsdApt");
    }
    void closeNote() {
        person->press({QStringLiteral("ctrl+Return")});
        person->turnTo("mdisched");
    }
    QString shown(const char* label) { return desk->tell("text", QLatin1String(label)); }
    QString reason() { return value(QStringLiteral("Select reason from MissedAppt")); }
    qint64 audited(const char* what) {
        return number(db::Sql("Select Count(*) from AuditLog Where LogListId = '{}'", QString::fromLatin1(what)));
    }
};
