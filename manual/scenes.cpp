#include "manual/scenes.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QPlainTextEdit>

#include "app/frmfirststart.h"
#include "appointments/frmalert.h"
#include "appointments/frmroster.h"
#include "appointments/waitbar.h"
#include "followup/frmboard.h"
#include "followup/frmcheckedin.h"
#include "followup/frmesign.h"
#include "manual/actors.h"
#include "manual/stage.h"
#include "output/frmemail.h"
#include "output/frmschrpt.h"
#include "people/frmcontact.h"
#include "people/frmnewpat.h"
#include "platform/calendar/ctmday.h"
#include "platform/desktop/forms.h"
#include "platform/spelling/spellingdialog.h"
#include "session/frmsvspl.h"
#include "shell/mdisched.h"

namespace {

/// Rounds in which a form reads what it shows.
constexpr int LongestWait = 50;

void views(Stage& stage) {
    stage.OpenView(View::Day);
    stage.Choose(540);
    stage.Take(stage.Window(), QStringLiteral("day"));
    for (const auto& [view, name] : {std::pair{View::Week, "weekview"},
                                     {View::Month, "month"},
                                     {View::AllProviders, "allproviders"},
                                     {View::Rooms, "rooms"}})
        if (stage.Wants(QLatin1String(name))) {
            stage.OpenView(view);
            stage.Take(stage.Window(), QLatin1String(name));
        }
    stage.OpenView(View::Day);
}

/// Commands that open a form, on the appointment that begins at the minute, or on none.
struct Opened {
    const char* picture;
    const char* command;
    int minute = 0;
    Actor before;
};

void forms(Stage& stage) {
    const Opened opened[] = {
        {"frmnore", "mnuAEdit", 540, {}},
        {"frmgrptx", "mnuAEdit", 780, {}},
        {"frmactsc", "mnuAEdit", 870, {}},
        {"frmmove", "mnuAMove", 570, type("ctstart", "3:30 PM")},
        {"frmRecurAppt", "mnuARepeat", 570, {}},
        {"frmrest", "mnuARest", 480, type("txtminutes", "30")},
        {"frmdelrepeat", "mnuADelete", 480, {}},
        {"frmDeleteEvent", "mnuADelete", 870, {}},
        {"frmarrivalTime", "mnuCheckediN", 570, {}},
        {"frmSNoteType", "mnuANote", 435, {}},
        {"frmmsdApt", "mnuANote", 660, type("txtreason", "Called at noon: forgot the date. New one next week.")},
        {"frmnextfree", "mnuANext", 0, {}},
        {"frmfinda", "mnuAFind", 0, inTurn({type("txtfind", "Takahashi"), click("ckall"), click("cmdfind")})},
        {"frmsavail", "mnuASearchO", 0,
         inTurn({type("ctstart", "3:00 PM"), type("ctend", "3:50 PM"), click("cmdsearch")})},
        {"frmfirstatype", "mnuASearchT", 0,
         inTurn({choose("cboatypes", 1), type("txtlength", "30"), click("cmdsearch")})},
        {"w_Item", "mnuTNew", 0, {}},
        {"frmlocs", "mnuFLoc", 0, {}},
        {"frmapttypes", "mnuFAtypes", 0, {}},
        {"frmholidays", "mnuFHolidays", 0, {}},
        {"frmaopts", "mnuFPrefs", 0, {}},
        {"frmpopts", "mnuPrntOpts", 0, {}},
        {"frmpappt", "mnuFPrintA", 570, {}},
        {"frmExportOpts", "mnuFExportiCal", 0, {}},
        {"frmcleg", "mnuVColor", 0, {}},
        {"frmabook", "mnuVABook", 0, {}},
        {"frmabout", "mnuHAbout", 0, {}},
        {"frmsviews", "mnuVSave", 0, {}},
        {"frmsltpv", "mnuFSelect", 0, type("txtfind", "re")},
    };
    for (const Opened& form : opened) {
        if (!stage.Wants(QLatin1String(form.picture)))
            continue;
        if (form.minute > 0)
            stage.Choose(form.minute);
        stage.OnForm(QLatin1String(form.picture), {form.before, {}});
        stage.Run(form.command);
    }
}

/// Forms that open from other forms.
void formsOfForms(Stage& stage) {
    struct Path {
        const char* picture;
        const char* command;
        int minute;
        const char* form;
        Actor after;
    };
    const Path paths[] = {
        {"frmRoomView", "mnuAEdit", 540, "frmnore", click("cmdrooms")},
        {"frmeConflict", "mnuAEdit", 870, "frmactsc",
         inTurn({type("ctstart", "1:00 PM"), type("ctend", "2:00 PM"), click("cmdbusy")})},
        {"AppointmentConflict", "mnuAEdit", 1070, "frmnore",
         inTurn({type("ctstart", "9:15 AM"), type("ctend", "9:45 AM"), click("cmdOk")})},
    };
    for (const Path& path : paths) {
        if (!stage.Wants(QLatin1String(path.picture)))
            continue;
        if (path.minute > 0)
            stage.Choose(path.minute);
        stage.OnForm(QLatin1String(path.form), {{}, path.after});
        stage.Run(path.command);
    }
}

/// Who waits is entered first, so that the list is not empty and an hour that falls free finds somebody.
void waitList(Stage& stage) {
    if (!stage.Wants(QStringLiteral("frmwait")) && !stage.Wants(QStringLiteral("frmwaitentry")) &&
        !stage.Wants(QStringLiteral("waitbar")))
        return;
    for (const int minute : {570, 660, 930, 435}) {
        stage.Choose(minute);
        stage.OnForm(QStringLiteral("frmwaitentry"), {type("txtnote", "Can come at short notice."), click("cmdOk")});
        stage.OnForm(QStringLiteral("frmwait"), {click("cmdadd"), {}, QStringLiteral("-")});
        stage.Run("mnuAWait");
    }
    stage.Run("mnuAWait");
}

/// What is printed stands in a preview.
void paper(Stage& stage) {
    stage.Run("mnuFPrintS");
    if (stage.Wants(QStringLiteral("frmschrpt"))) {
        frmschrpt report({ReportMode::Schedule, QDate(2026, 3, 9), QDate(2026, 3, 13), QStringLiteral("REED")},
                         &stage.Window());
        report.show();
        for (int round = 0; round < LongestWait && report.IsGenerating(); ++round)
            Stage::Settle();
        stage.Take(report, QStringLiteral("frmschrpt"));
    }
}

void rooms(Stage& stage) {
    stage.OpenView(View::Rooms);
    stage.Calendar().selectRange(1, 600, 660);
    stage.OnForm(QStringLiteral("frmRoomAppt"), {type("txtsubject", "Staff training"), {}});
    stage.Run("mnuNew");
    stage.OnForm(QStringLiteral("frmfroom"), {inTurn({type("txtfind", "Dalca"), click("cmdfind")}), {}});
    stage.Run("mnuFind");
    stage.OpenView(View::Day);
}

void companion(Stage& stage) {
    stage.OpenView(View::Companion);
    stage.Choose(435);
    stage.Take(stage.Window(), QStringLiteral("companion"));
    stage.Calendar().selectRange(1, 780, 830);
    stage.OnForm(QStringLiteral("frmFHClients"), {type("txtfind", "an"), inTurn({mark("List1", 0), click("cmdOk")})});
    stage.Run("mnuAddAppt");
    stage.Calendar().selectRange(1, 780, 830);
    stage.OnForm(QStringLiteral("frmFHEvents"), {type("txtevent", "Meeting with the school"), {}});
    stage.Run("mnuAddEvent");
    stage.OpenView(View::Day);
}

void popup(Stage& stage) {
    ctMDay& calendar = stage.Calendar();
    stage.Choose(570);
    const QPoint place = calendar.ItemRect(calendar.SelectedItem()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, calendar.mapToGlobal(place));
    QApplication::sendEvent(&calendar, &event);
    Stage::Settle();
    stage.TakeWithMenu(QStringLiteral("daypopup"));
}

/// Windows that stay open beside the main window, and the bars and panels in it.
void windowsBeside(Stage& stage) {
    if (stage.Wants(QStringLiteral("frmboard"))) {
        stage.Window().OpenBoard();
        Stage::Settle();
        if (auto* board = stage.Window().findChild<frmboard*>()) {
            for (int round = 0; round < LongestWait && board->IsReading(); ++round)
                Stage::Settle();
            board->resize(1180, 720);
            stage.Take(*board);
            board->close();
        }
    }
    if (stage.Wants(QStringLiteral("frmCheckedIn"))) {
        stage.Run("mnuVCheckedin");
        if (QWidget* list = FindForm(QStringLiteral("frmCheckedIn"))) {
            stage.Take(*list);
            list->close();
        }
    }
}

/// Forms that the program shows by itself, with what they would show then.
void formsOfTheirOwn(Stage& stage) {
    if (stage.Wants(QStringLiteral("frmAlert"))) {
        frmAlert form(&stage.Window());
        form.lblalert->setText(
            QStringLiteral("Collect the copay of two visits.\nNew insurance card: copy both sides."));
        stage.Show(form);
    }
    if (stage.Wants(QStringLiteral("frmsvspl"))) {
        frmsvspl form(&stage.Window());
        stage.Show(form);
    }
    if (stage.Wants(QStringLiteral("frmnewpat"))) {
        frmnewpat form({QStringLiteral("Novak"), QStringLiteral("Eva")}, &stage.Window());
        stage.Show(form);
    }
    if (stage.Wants(QStringLiteral("frmcontact"))) {
        frmcontact form(frmcontact::NewContact, &stage.Window());
        stage.Show(form);
    }
    if (stage.Wants(QStringLiteral("frmEmail"))) {
        frmEmail form({QStringLiteral("eva.novak@mail.example"), QStringLiteral("Your appointment"),
                       QStringLiteral("This is to confirm your appointment on Thursday, March 12, 2026 at 4:00 PM.")},
                      &stage.Window());
        stage.Show(form);
    }
    if (stage.Wants(QStringLiteral("frmesign"))) {
        SignatureRequest request;
        request.CallerName = QStringLiteral("frmmsdApt");
        request.ProviderName = QStringLiteral("Amara Reed");
        request.UserName = QStringLiteral("REED");
        request.DateText = QStringLiteral("Mar 11, 2026");
        request.Message = QStringLiteral(
            "By clicking SIGN, you hereby confirm that you have reviewed and verified the contents of the data entered in this document on Mar 11, 2026 10:32 AM");
        frmesign form(request, &stage.Window());
        stage.Show(form);
    }
    if (stage.Wants(QStringLiteral("frmroster"))) {
        RosterChange change;
        change.key = 1;
        change.group = QStringLiteral("Mindfulness Skills Group");
        change.provider = QStringLiteral("REED");
        change.removed.push_back({QStringLiteral("1"), {}, QStringLiteral("Hawthorne, Irina V.")});
        const auto row = [&change](qint64 weeks) {
            RestRow date;
            date.key = static_cast<int>(weeks) + 1;
            date.text = QStringLiteral("Mindfulness Skills Group");
            date.place.date = QDate(2026, 3, 11).addDays(7 * weeks);
            date.place.start = 780;
            date.place.end = 855;
            date.place.provider = change.provider;
            return date;
        };
        std::vector<RosterDate> dates;
        for (const qint64 weeks : {-1, 1, 2, 3, 4}) {
            RosterDate& date = dates.emplace_back();
            date.row = row(weeks);
            date.stay = weeks < 0 ? Stay::Past : Stay::No;
            date.removes = change.removed;
        }
        frmroster form(change, row(0), dates, &stage.Window());
        stage.Show(form);
    }
    if (stage.Wants(QStringLiteral("SpellingDialog"))) {
        QPlainTextEdit note(QStringLiteral("Did not recieve the letter."));
        SpellingDialog form(note,
                            {.isMisspelt = [](const QString& word) { return word == QLatin1String("recieve"); },
                             .suggestions =
                                 [](const QString&) {
                                     return QStringList{QStringLiteral("receive"), QStringLiteral("relieve")};
                                 },
                             .ignoreAll = [](const QString&) {},
                             .add = [](const QString&) { return true; }},
                            &stage.Window());
        stage.Show(form);
    }
    if (stage.Wants(QStringLiteral("frmfirststart"))) {
        frmfirststart form(QStringLiteral("/home/practice"), 1, {}, &stage.Window());
        form.show();
        stage.Take(form, QStringLiteral("frmfirststart"));
    }
}

/// What a command leaves in the main window comes last, because it changes the practice.
void changes(Stage& stage) {
    if (stage.Wants(QStringLiteral("shelf"))) {
        stage.Choose(610);
        stage.Run("mnuAShelve");
        stage.Take(stage.Window(), QStringLiteral("shelf"));
    }
    if (stage.Wants(QStringLiteral("movedbar"))) {
        stage.Choose(570);
        stage.OnForm(QStringLiteral("frmmove"),
                     {{}, inTurn({type("ctdate", "3/12/2026"), type("ctstart", "4:00 PM"), click("cmdOk")})});
        stage.Run("mnuAMove");
        stage.Take(stage.Window(), QStringLiteral("movedbar"));
    }
    if (stage.Wants(QStringLiteral("waitbar"))) {
        stage.Choose(1070);
        stage.Run("mnuAPCancel");
        for (int round = 0; round < LongestWait && !stage.Window().findChild<WaitBar*>()->isVisible(); ++round)
            Stage::Settle();
        stage.Take(stage.Window(), QStringLiteral("waitbar"));
    }
}

using Scene = void (*)(Stage&);

/// Plays the scenes for a user, and returns the names of the pictures that none of them gives.
QStringList played(const QString& as, const QStringList& names, const Stage::Place& place,
                   std::initializer_list<Scene> scenes) {
    const Stage::Play provider{inTurn({type("txtfind", "Reed"), click("cmdfind")}), click("cmdOk"),
                               QStringLiteral("-")};
    Stage stage(as, names, place, provider);
    for (const Scene scene : scenes)
        scene(stage);
    return stage.Untaken();
}

}  // namespace

QStringList TakePictures(const QStringList& names, ThemeMode look, const QString& folder, const QString& practice) {
    const Stage::Place place{look, folder, practice};
    // The front desk works on all schedules; notes and the companion's calendar are a therapist's.
    const QStringList rest =
        played(QStringLiteral("1|DESK"), names, place,
               {views, waitList, forms, formsOfForms, paper, popup, rooms, windowsBeside, formsOfTheirOwn, changes});
    return rest.isEmpty() ? rest : played(QStringLiteral("1|REED"), rest, place, {views, forms, companion});
}
