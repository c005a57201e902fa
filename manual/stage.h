#pragma once

#include <functional>
#include <map>
#include <memory>
#include <QDir>
#include <QSet>
#include <QString>
#include <QStringList>

#include "platform/theme/colours.h"
#include "session/view.h"

class QDialog;
class QPixmap;
class QWidget;
class ctMDay;
class mdisched;

/// The program on a demo practice whose clock stands still, without a user: whatever opens is photographed where its
/// picture is wanted, and closed.
class Stage {
  public:
    /// What is played with a form that opens: `before` its picture is taken, and `after` it.
    struct Play {
        std::function<void(QDialog&)> before = {};
        std::function<void(QDialog&)> after = {};
        QString picture = {};  ///< Its name; empty for the name of the class.
    };
    /// Where the pictures go and how they look. The practice is made in a folder that does not exist yet.
    struct Place {
        ThemeMode look = ThemeMode::Light;
        QString pictures;
        QString practice;
    };
    /// Starts the program for a user ("1|REED"). `wanted` names the pictures, and `provider` plays the choice of the
    /// provider whose schedule is shown.
    Stage(const QString& as, QStringList wanted, const Place& place, Play provider);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Plays the next forms of a class so.
    void OnForm(const QString& className, Play play) { plays_[className] = std::move(play); }

    [[nodiscard]] mdisched& Window() { return *window_; }
    /// The calendar of the open view.
    [[nodiscard]] ctMDay& Calendar();
    void OpenView(View view);
    /// Chooses the appointment of the open view that begins at the minute, or the one that is `further` below it.
    void Choose(int minute, int further = 0);
    /// Runs a command of the open view's menus, or of the main window.
    void Run(const char* command);
    /// Takes a picture of a window or of a part of one, if it is wanted and not taken yet. The name of the class is its
    /// name where none is given.
    void Take(QWidget& widget, QString name = {});
    /// Takes a picture of the main window with the menu that is open over it.
    void TakeWithMenu(const QString& name);
    /// Shows a form as the program does, takes its picture and closes it.
    int Show(QDialog& form);
    /// Lets the windows do what they have begun.
    static void Settle();

    [[nodiscard]] bool Wants(const QString& name) const { return wanted_.contains(name); }
    /// The pictures that have not been taken yet.
    [[nodiscard]] QStringList Untaken() const { return wanted_; }

  private:
    void answerWithoutUser();
    void makePractice(const QString& practice);
    void save(const QPixmap& picture, const QString& name);

    QStringList wanted_;
    QDir pictures_;
    QString suffix_;
    std::map<QString, Play> plays_;
    std::unique_ptr<mdisched> window_;
};
