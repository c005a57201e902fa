#pragma once

#include <QProcess>

#include "tests/desks/desk.h"

/// An X display of its own, 1280x800, without a window manager.
class Display {
  public:
    Display();
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// ":7"
    [[nodiscard]] const QString& name() const { return name_; }

  private:
    QProcess server_;
    QString name_;
};

/// The person at the desk: mouse and keyboard of the display, as the window system delivers them.
class Person {
  public:
    Person(Desk& desk, QString display) : desk_(desk), display_(std::move(display)) {}

    /// Waits for a form, "box" or "mdisched" and turns to it.
    void turnTo(const char* window);
    /// Keys by their X names: "Return", "ctrl+n", "alt+o".
    void press(const QStringList& keys);
    void type(const QString& text);
    /// Names the file in the dialog that asks for one, once that is in front.
    void chooseFile(const QString& file);
    void click(const QString& place, int button = 1);
    void doubleClick(const QString& place);
    void drag(const QString& from, const QString& to);
    /// Keeps a picture of the window in front where SVS_PICTURES names a folder, for who wants to look.
    void picture(const char* name);

  private:
    void xdotool(const QStringList& words);

    Desk& desk_;
    QString display_;
};
