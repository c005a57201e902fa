// Takes the manual's pictures: manualpictures FOLDER light|dark USER. The folder has a list of the wanted ones
// (wanted.txt), of which those are taken that belong to this user: the program runs on a demo practice of its own,
// opens its windows by their commands, and leaves each as soon as its picture is there. A window that does not come
// ends the program with an error.

#include <cstdio>
#include <functional>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "app/firststart.h"
#include "app/viewfactories.h"
#include "app/wiring.h"
#include "data/demo/demo.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"
#include "session/session.h"
#include "session/startup.h"
#include "shell/mdisched.h"

namespace {

const QDate Today{2026, 11, 18};
const QTime Morning{10, 20};
constexpr QSize WindowSize{1280, 800};
constexpr int SettleMilliseconds = 250;  ///< What is read behind a window comes meanwhile.

void settle() {
    QElapsedTimer time;
    for (time.start(); time.elapsed() < SettleMilliseconds;)
        QApplication::processEvents(QEventLoop::AllEvents, SettleMilliseconds);
}

/// Where the pictures of one run go.
class Album {
  public:
    Album(const QDir& folder, bool dark) : folder_(folder), ending_(dark ? "-dark.png" : ".png") {
        QFile list(folder.filePath(QStringLiteral("wanted.txt")));
        if (list.open(QIODevice::ReadOnly))
            wanted_ = QString::fromUtf8(list.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    [[nodiscard]] bool wants(const QString& name) const { return wanted_.contains(name); }
    void take(QWidget& window, const QString& name) {
        settle();
        if (has(name))
            return;
        if (wants(name) && !window.grab().save(folder_.filePath(name + QLatin1String(ending_)), "PNG"))
            std::fprintf(stderr, "%s cannot be written\n", qUtf8Printable(name));
        taken_ << name;
    }
    [[nodiscard]] bool has(const QString& name) const { return taken_.contains(name); }

  private:
    QDir folder_;
    const char* ending_;
    QStringList wanted_, taken_;
};

/// The program in front of the camera.
class Stage {
  public:
    Stage(Album& album, const QString& folder) : album_(album), window_(MakeViewFactories()) {
        Desktop().now = [] { return QDateTime(Today, Morning); };
        Desktop().msgBox = [](const QString&, BoxStyle style, const QString&) {
            return style.buttons == BoxStyle::Buttons::YesNo ? Answer::No : Answer::Ok;
        };
        Desktop().showModal = [this](QDialog& form) { return showForm(form); };
        Desktop().playSound = [](const QString&) {};
        Desktop().startProgram = [](const QString&, const QString&, const QString&) { return true; };
        WireMainWindow(window_);
        window_.OpenAt(Today);
        window_.OpenWithSize(WindowSize);
        folder_ = folder;
    }

    [[nodiscard]] bool open(const QString& user) { return StartUp(user, {folder_, {}, false}, window_); }

    void view(View view, const char* name) {
        window_.changeview(view);
        settle();
        album_.take(window_, QString::fromLatin1(name));
    }
    /// Runs a command of the open view and takes the window that it opens, after `fill` has filled it.
    void form(const char* command, const char* name, std::function<void(QDialog&)> fill = {}) {
        const QString picture = QString::fromLatin1(name);
        if (!album_.wants(picture))
            return;
        fill_ = std::move(fill);
        for (QAction* action : window_.findChildren<QAction*>(QString::fromLatin1(command)))
            if (action->isEnabled() && !album_.has(picture))
                action->trigger();
        settle();
        if (!album_.has(picture) && !quiet_) {
            std::fprintf(stderr, "%s did not open %s\n", command, name);
            ++missing;
        }
    }
    /// Goes from appointment to appointment until the command opens this window.
    void untilTaken(const char* command, const char* name, const std::function<void(QDialog&)>& fill = {}) {
        constexpr int MostAppointments = 14;
        quiet_ = true;
        for (int tries = 0; tries < MostAppointments && !has(name); ++tries) {
            next();
            form(command, name, fill);
        }
        quiet_ = false;
        if (!has(name))
            form(command, name, fill);
    }
    /// A window that stays open beside the main one.
    void besides(const char* command, const char* name) {
        if (!album_.wants(QString::fromLatin1(name)))
            return;
        for (QAction* action : window_.findChildren<QAction*>(QString::fromLatin1(command)))
            if (action->isEnabled())
                action->trigger();
        settle();
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->metaObject()->className() == QLatin1String(name)) {
                album_.take(*window, QString::fromLatin1(name));
                window->close();
                return;
            }
        std::fprintf(stderr, "%s did not open %s\n", command, name);
        ++missing;
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        for (auto* board : window_.findChildren<QWidget*>(QRegularExpression(QStringLiteral("^ctM?Days?1$"))))
            board->setFocus();
        QWidget* calendar = window_.focusWidget();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers);
            if (calendar != nullptr)
                QApplication::sendEvent(calendar, &event);
        }
        settle();
    }
    /// Selects the next appointment.
    void next() { press(Qt::Key_Tab); }
    void run(const char* command) {
        if (auto* action = window_.findChild<QAction*>(QString::fromLatin1(command)))
            action->trigger();
        settle();
    }
    /// The main window as it is now.
    void picture(const char* name) { album_.take(window_, QString::fromLatin1(name)); }
    [[nodiscard]] bool has(const char* name) const { return album_.has(QString::fromLatin1(name)); }
    mdisched& window() { return window_; }

    int missing = 0;

  private:
    int showForm(QDialog& form) {
        // The screen of this platform is small, and nobody has to reach the form's foot.
        form.resize(form.size().expandedTo(form.sizeHint()));
        form.show();
        if (fill_)
            fill_(form);
        album_.take(form, QString::fromLatin1(form.metaObject()->className()));
        form.hide();
        auto* ok = form.findChild<QPushButton*>(QStringLiteral("cmdOk"));
        if (form.objectName() == QLatin1String("frmsltpv") && ok != nullptr && !started_) {
            started_ = true;
            ok->click();
            return form.result();
        }
        return QDialog::Rejected;
    }

    Album& album_;
    mdisched window_;
    QString folder_;
    std::function<void(QDialog&)> fill_;
    bool started_ = false;
    bool quiet_ = false;  ///< Another try follows.
};

/// Clicks a button of a form, if it is there, so that the form behind it opens.
std::function<void(QDialog&)> clicks(const char* button) {
    return [button](QDialog& form) {
        if (auto* found = form.findChild<QAbstractButton*>(QString::fromLatin1(button)))
            found->click();
    };
}

void takeBooking(Stage& stage) {
    stage.view(View::Day, "day");
    stage.form("mnuFSelect", "frmsltpv");
    stage.next();
    stage.form("mnuAEdit", "frmnore");
    stage.form("mnuAMove", "frmmove");
    stage.form("mnuARepeat", "frmRecurAppt");
    stage.form("mnuFPrintA", "frmpappt");
    stage.form("mnuCheckediN", "frmarrivalTime");
    stage.press(Qt::Key_Escape);
    stage.press(Qt::Key_Down);
    stage.form("mnuANPat", "frmnewpat", clicks("cmdnewpat"));
    stage.form("mnuANPat", "frmspatnt", clicks("cmdPatientList"));
    stage.form("mnuANPat", "frmRoomView", clicks("cmdrooms"));
    stage.form("mnuANext", "frmnextfree");
    stage.form("mnuASearchO", "frmsavail");
    stage.form("mnuASearchT", "frmfirstatype");
    stage.form("mnuAFind", "frmfinda");
    stage.form("mnuASGroup", "frmgrptx");
    stage.form("mnuAWait", "frmwait");
    stage.form("mnuAWait", "frmwaitentry", clicks("cmdadd"));
    stage.form("mnuTNew", "w_Item");
    stage.untilTaken("mnuARest", "frmrest");
}

void takeLists(Stage& stage) {
    stage.form("mnuVSave", "frmsviews");
    stage.form("mnuFLoc", "frmlocs");
    stage.form("mnuFAtypes", "frmapttypes");
    stage.form("mnuFHolidays", "frmholidays");
    stage.form("mnuFPrefs", "frmaopts");
    stage.form("mnuPrntOpts", "frmpopts");
    stage.form("mnuFRSched", "frmschrpt");
    stage.form("mnuFExportiCal", "frmExportOpts");
    stage.form("mnuVColor", "frmcleg");
    stage.form("mnuVABook", "frmabook");
    stage.form("mnuVABook", "frmcontact", clicks("cmdadd"));
    stage.form("mnuFPrintS", "frmpreview");
    stage.form("mnuVActivity", "frmactsc");
    stage.form("mnuHAbout", "frmabout");
    stage.besides("mnuVBoard", "frmboard");
    stage.besides("mnuVCheckedin", "frmCheckedIn");
}

void takeNotes(Stage& stage) {
    stage.window().cycledate(0);
    stage.next();
    stage.run("mnuAMissed");
    stage.untilTaken("mnuANote", "frmmsdApt");
    stage.untilTaken("mnuANote", "frmesign", [](QDialog& form) {
        if (auto* reason = form.findChild<QPlainTextEdit*>(QStringLiteral("txtreason")))
            reason->setPlainText(QStringLiteral("The bus did not come. A new time was found by telephone."));
        clicks("btnsign0")(form);
    });
    stage.window().cycledate(1);
}

void takeMoves(Stage& stage) {
    stage.next();
    stage.run("mnuAShelve");
    stage.picture("shelf");
    stage.press(Qt::Key_Escape);
    stage.press(Qt::Key_Home);
    stage.run("mnuALand");
    stage.picture("movedbar");
}

void takeAdministrators(Stage& stage) {
    takeBooking(stage);
    takeLists(stage);
    takeMoves(stage);
    stage.view(View::Week, "weekview");
    stage.view(View::Month, "month");
    stage.view(View::AllProviders, "allproviders");
    stage.view(View::Rooms, "rooms");
    stage.press(Qt::Key_Down);
    stage.form("mnuNew", "frmRoomAppt");
    stage.form("mnuFind", "frmfroom");
}

void takeTherapists(Stage& stage) {
    takeNotes(stage);
    stage.view(View::Companion, "companion");
    stage.press(Qt::Key_Down);
    stage.form("mnuAddAppt", "frmFHClients");
    stage.form("mnuAddEvent", "frmFHEvents");
    stage.untilTaken("mnuModify", "frmFHAppt");
}

int run(const QDir& folder, bool dark, const QString& user) {
    const QTemporaryDir practice;
    demo::Options options;
    options.today = Today;
    demo::MakeDemoFolder(options, practice.path());
    Album album(folder, dark);
    Stage stage(album, practice.path());
    const bool isAdministrator = user == QLatin1String("ADMIN");
    if (user == QLatin1String("NOBODY")) {
        static_cast<void>(BeginPractice({}));
        static_cast<void>(stage.open({}));  // The logon is given up.
        return album.has(QStringLiteral("frmfirststart")) && album.has(QStringLiteral("frmsvspl")) ? 0 : 1;
    }
    if (!stage.open(QStringLiteral("%1|%2").arg(isAdministrator ? 2 : 1).arg(user)))
        return 1;
    isAdministrator ? takeAdministrators(stage) : takeTherapists(stage);
    return stage.missing == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "manualpictures FOLDER light|dark USER\n");
        return 2;
    }
    // The pictures are of a user who has never changed anything.
    const QTemporaryDir home;
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, home.path().toLocal8Bit());
    QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Solvane Scheduler"));
    const bool dark = qstrcmp(argv[2], "dark") == 0;
    Theme::Install(dark ? ThemeMode::Dark : ThemeMode::Light);
    return run(QDir(QString::fromLocal8Bit(argv[1])), dark, QString::fromLatin1(argv[3]));
}
