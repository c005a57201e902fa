#include <csignal>
#include <QFile>

#include "tests/desks/deskfront.h"

namespace {

/// Reed's kept visits, and a notes program that writes down what it was started with.
class SessionNotes : public FrontDesk {
  protected:
    SessionNotes() {
        for (const char* statement :
             {"Insert Into NoteTypes (NoteType, applyauths) Values ('Progress Note', 1)",
              "Insert Into NoteTypes (NoteType, applyauths) Values ('Intake Evaluation', 1)",
              "Insert Into NoteTypes (NoteType, applyauths) Values ('Treatment Plan Review', 1)",
              "Insert Into DocNewMenu (NoteID, NoteName, UID) Values (2, 'My Intake', 'REED')"})
            connection.Execute(QString::fromLatin1(statement));
        notesProgram("printf '%s\\n' \"$#:$1\" >> \"${0%/*}/started.txt\"\n");
    }

    /// Puts a notes program where the desk looks for it.
    void notesProgram(const QByteArray& script) {
        const QString path = folder.filePath(QStringLiteral("solvaned.exe"));
        PutFile(path, "#!/bin/sh\n" + script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    /// A kept visit, on the screen.
    QString kept(int start, int end) {
        const QString key = add(start, end, QStringLiteral("O'Brien, Anna"));
        connection.Execute(db::Sql("Update appointments Set ncolor = 49152 Where nkeyid = {}", db::Raw{key}));
        person->press({QStringLiteral("F5")});
        EXPECT_TRUE(soon([&] { return desk->tell("items").contains(key + QStringLiteral(" %1-").arg(start)); }));
        return key;
    }
    QString noteOf(const QString& key) {
        return value(db::Sql("Select NoteID from appointments Where nkeyid = {}", db::Raw{key}));
    }
    /// What a file of the folder holds, as soon as it has so many lines.
    QStringList lines(const char* name, int count) {
        QStringList found;
        EXPECT_TRUE(soon([&] {
            QFile file(folder.filePath(QLatin1String(name)));
            found = file.open(QIODevice::ReadOnly)
                        ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)
                        : QStringList();
            return found.size() >= count;
        })) << name;
        return found;
    }
    bool hasIcon(const QString& key) { return desk->tell("noteIcon", key) == QLatin1String("yes"); }
};

}  // namespace

TEST_F(SessionNotes, AKeptVisitIsNotedByKeyboard) {
    const QString key = kept(540, 590);
    person->click(itemOf(key));
    EXPECT_FALSE(hasIcon(key));

    person->press({QStringLiteral("ctrl+shift+s")});
    person->turnTo("frmSNoteType");
    person->picture("note-types");
    person->press({QStringLiteral("p"), QStringLiteral("Return")});
    person->turnTo("mdisched");

    const QString id = noteOf(key);
    EXPECT_EQ(lines("started.txt", 1), QStringList{QStringLiteral("1:%1|REED|1|10017").arg(id)});
    EXPECT_TRUE(hasIcon(key));
    EXPECT_EQ(value(QStringLiteral("Select stype from sessions")), QStringLiteral("1"));
    person->picture("note-icon");

    person->press({QStringLiteral("ctrl+shift+s")});
    EXPECT_EQ(lines("started.txt", 2).last(), QStringLiteral("1:%1|REED|2|10017").arg(id));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from sessions")), 1);
}

TEST_F(SessionNotes, AKeptVisitIsNotedByMouse) {
    const QString key = kept(600, 650);
    person->click(itemOf(key), 3);
    person->turnTo("popup");
    person->picture("note-popup");
    person->click(desk->tell("entryPlace", QStringLiteral("mnuANote")));
    person->turnTo("frmSNoteType");
    person->doubleClick(desk->tell("rowPlace", QStringLiteral("List1"), QStringLiteral("0")));
    person->turnTo("mdisched");

    EXPECT_EQ(value(QStringLiteral("Select stype from sessions")), QStringLiteral("2"));
    EXPECT_EQ(lines("started.txt", 1), QStringList{QStringLiteral("1:%1|REED|1|10017").arg(noteOf(key))});
    EXPECT_TRUE(hasIcon(key));

    // In the week the icon stands as it does here, and the command opens the note.
    person->press({QStringLiteral("ctrl+2")});
    awaitView("frmweekv");
    EXPECT_TRUE(hasIcon(key));
    person->click(itemOf(key), 3);
    person->turnTo("popup");
    person->click(desk->tell("entryPlace", QStringLiteral("mnuANote")));
    EXPECT_EQ(lines("started.txt", 2).last(), QStringLiteral("1:%1|REED|2|10017").arg(noteOf(key)));
}

TEST_F(SessionNotes, TheLineBetweenTheTypesMakesNothing) {
    const QString key = kept(540, 590);
    person->click(itemOf(key));
    person->press({QStringLiteral("alt+a"), QStringLiteral("s")});
    person->turnTo("frmSNoteType");
    person->press({QStringLiteral("Home"), QStringLiteral("Down"), QStringLiteral("Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from sessions")), 0);
    EXPECT_FALSE(hasIcon(key));
}

TEST_F(SessionNotes, ANoteOfAMissingProgramStaysLinked) {
    const QString key = kept(540, 590);
    QFile::remove(folder.filePath(QStringLiteral("solvaned.exe")));
    person->click(itemOf(key));
    person->press({QStringLiteral("ctrl+shift+s")});
    person->turnTo("frmSNoteType");
    person->press({QStringLiteral("p"), QStringLiteral("Return")});
    EXPECT_EQ(desk->answer("Ok"), QStringLiteral("Error 2 No such file or directory"));
    person->turnTo("mdisched");
    EXPECT_TRUE(hasIcon(key));

    notesProgram("printf '%s\\n' \"$#:$1\" >> \"${0%/*}/started.txt\"\n");
    person->press({QStringLiteral("ctrl+shift+s")});
    EXPECT_EQ(lines("started.txt", 1), QStringList{QStringLiteral("1:%1|REED|2|10017").arg(noteOf(key))});
}

TEST_F(SessionNotes, TheDeskWorksOnWhileTheNotesProgramRuns) {
    notesProgram("echo $$ > \"${0%/*}/process.txt\"\nexec sleep 120\n");
    const QString key = kept(540, 590);
    person->click(itemOf(key));
    person->press({QStringLiteral("ctrl+shift+s")});
    person->turnTo("frmSNoteType");
    person->press({QStringLiteral("p"), QStringLiteral("Return")});
    person->turnTo("mdisched");
    const pid_t program = lines("process.txt", 1).first().toInt();
    ASSERT_GT(program, 1);

    person->press({QStringLiteral("ctrl+m")});
    EXPECT_TRUE(soon([&] { return status(key) == 0xC0; }));
    EXPECT_EQ(::kill(program, 0), 0) << "The notes program runs still.";
    desk.reset();
    EXPECT_EQ(::kill(program, SIGTERM), 0) << "It outlives the scheduler.";
}
