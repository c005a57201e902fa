#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <vector>

/// What a screen reader knows of one widget, list entry or menu entry.
struct Heard {
    QString role;         ///< "push button", "table cell"
    QString name;         ///< What is read aloud.
    QString description;  ///< What is read after it, for example the reason of a greyed command.
    QString label;        ///< The name of what labels it; a list box is known by that, because its name is its value.
    bool isFocusable = false;
    bool isFocused = false;
};

/// A screen reader beside the programs: a session bus with an accessibility bus (AT-SPI) of its own, on which every
/// program that starts while it lives tells what it shows. It hears what the program tells other programs, not what its
/// widgets know of themselves.
class DeskReader {
  public:
    DeskReader();
    ~DeskReader();
    DeskReader(const DeskReader&) = delete;
    DeskReader& operator=(const DeskReader&) = delete;

    /// All that is shown in the windows whose title begins like this, in the order of reading. Of a long list only the
    /// first entries are heard.
    [[nodiscard]] std::vector<Heard> Window(const QString& title) const;

  private:
    QTemporaryDir runtime_;
    QProcess session_;
    QDBusConnection bus_;
};
