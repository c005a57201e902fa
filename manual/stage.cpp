#include "manual/stage.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QPainter>
#include <QPixmap>
#include <QThread>
#include <stdexcept>

#include "app/viewfactories.h"
#include "app/wiring.h"
#include "data/demo/demo.h"
#include "platform/calendar/ctmday.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"
#include "session/session.h"
#include "session/startup.h"
#include "shell/mdisched.h"

namespace {

const QDate Wednesday(2026, 3, 11);
const QTime HalfPastTen(10, 32);
constexpr QSize WindowSize{1280, 800};
constexpr int Appointments = 9000;
/// Rounds and milliseconds that a form gets to read what it shows.
constexpr int Rounds = 6, RoundMilliseconds = 4;

}  // namespace

Stage::Stage(const QString& as, QStringList wanted, const Place& place, Play provider)
    : wanted_(std::move(wanted)),
      pictures_(place.pictures),
      suffix_(place.look == ThemeMode::Dark ? QStringLiteral("-dark.png") : QStringLiteral(".png")) {
    Theme::Install(place.look);
    // A blinking cursor would make every picture another one.
    QApplication::setCursorFlashTime(0);
    answerWithoutUser();
    makePractice(place.practice);
    window_ = std::make_unique<mdisched>(MakeViewFactories());
    WireMainWindow(*window_);
    window_->OpenAt(Wednesday);
    window_->OpenWithSize(WindowSize);
    if (!StartUp(as, {place.practice, {}, false}, *window_))
        throw std::runtime_error("The demo practice does not open.");
    OnForm(QStringLiteral("frmsltpv"), std::move(provider));
    window_->SelectProvider();
    Settle();
}

Stage::~Stage() {
    window_.reset();
    ResetSession();
}

void Stage::answerWithoutUser() {
    Desktop().now = [] { return QDateTime(Wednesday, HalfPastTen); };
    Desktop().msgBox = [](const QString&, BoxStyle style, const QString&) {
        return style.buttons == BoxStyle::Buttons::YesNo ? Answer::Yes : Answer::Ok;
    };
    Desktop().showModal = [this](QDialog& form) { return Show(form); };
    Desktop().playSound = [](const QString&) {};
    Desktop().openWithShell = [](const QString&) { return true; };
    Desktop().startProgram = [](const QString&, const QString&, const QString&) { return true; };
    Desktop().chooseSaveFile = [](const QString&, const QString&, const QString&, AsksToReplace) { return QString(); };
}

void Stage::makePractice(const QString& practice) {
    demo::Options options;
    options.today = Wednesday;
    options.appointments = Appointments;
    if (!QDir(practice).exists())
        demo::MakeDemoFolder(options, practice);
}

ctMDay& Stage::Calendar() {
    for (ctMDay* calendar : window_->findChildren<ctMDay*>())
        if (calendar->isVisible())
            return *calendar;
    throw std::runtime_error("The view has no calendar.");
}

void Stage::OpenView(View view) {
    window_->changeview(view);
    Settle();
}

void Stage::Choose(int minute, int further) {
    ctMDay& calendar = Calendar();
    for (int index = 1; index <= calendar.ItemCount(); ++index)
        if (calendar.Item(index).ItemStart == minute && further-- == 0) {
            calendar.setSelectedItem(index);
            calendar.ScrollToItem(index);
            Settle();
            return;
        }
    throw std::runtime_error("No appointment begins at minute " + std::to_string(minute) + ".");
}

void Stage::Run(const char* command) {
    for (QAction* action : window_->findChildren<QAction*>(QLatin1String(command)))
        if (action->isEnabled()) {
            action->trigger();
            Settle();
            return;
        }
    std::fprintf(stderr, "The command %s cannot be used here.\n", command);
}

void Stage::Take(QWidget& widget, QString name) {
    if (name.isEmpty())
        name = QString::fromLatin1(widget.metaObject()->className());
    if (!wanted_.contains(name))
        return;
    Settle();
    save(widget.grab(), name);
}

void Stage::TakeWithMenu(const QString& name) {
    QWidget* menu = QApplication::activePopupWidget();
    if (menu == nullptr || !wanted_.contains(name))
        return;
    QPixmap picture = window_->grab();
    QPainter(&picture).drawPixmap(window_->mapFromGlobal(menu->pos()), menu->grab());
    menu->close();
    save(picture, name);
}

void Stage::save(const QPixmap& picture, const QString& name) {
    const QString file = pictures_.filePath(name + suffix_);
    if (!picture.save(file, "PNG", 0))
        throw std::runtime_error("The picture " + file.toStdString() + " cannot be written.");
    wanted_.removeAll(name);
}

int Stage::Show(QDialog& form) {
    const auto played = plays_.extract(QString::fromLatin1(form.metaObject()->className()));
    const Play play = played.empty() ? Play{} : played.mapped();
    form.show();
    Settle();
    if (play.before)
        play.before(form);
    Take(form, play.picture);
    if (play.after)
        play.after(form);
    Settle();
    if (form.isVisible())
        form.reject();
    return form.result();
}

void Stage::Settle() {
    for (int round = 0; round < Rounds; ++round) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QThread::msleep(RoundMilliseconds);
    }
    QApplication::processEvents();
}
