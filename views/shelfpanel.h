#pragma once

#include <optional>
#include <QWidget>

#include "appointments/holdingshelf.h"
#include "shell/mainwindow.h"
#include "shell/viewmenus.h"
#include "views/shelflist.h"

class QLabel;
class QPushButton;

/// The holding shelf beside a calendar: the appointments that the user has put aside, with the day, the length and the
/// provider of each. It is kept in the database. The shelf shows itself while something is on it, unless the user hid
/// it; the user may also have it shown always. Which of these is kept for each user. Putting something on it always
/// shows it.
class ShelfPanel : public QWidget {
    Q_OBJECT

  public:
    explicit ShelfPanel(QWidget* parent = nullptr);
    ~ShelfPanel() override;

    /// The statements that Read needs, for a load that reads them together with its own. None where the practice has
    /// no shelf.
    [[nodiscard]] QStringList Statements() const;
    /// Reads the shelf anew, and tells in the bar what became of its appointments elsewhere. What was read before stays
    /// when the database does not answer.
    void Read();
    /// Whether the practice's database has a shelf.
    [[nodiscard]] bool Exists() const { return exists_; }
    [[nodiscard]] bool IsEmpty() const { return shelf_.appointments.empty(); }
    /// Whether the appointment with this key is on the shelf.
    [[nodiscard]] bool Holds(const QString& key) const;
    /// The selected appointment, or nothing where the shelf is empty.
    [[nodiscard]] std::optional<ShelvedAppointment> Selected() const;
    /// The appointment of a row of the list, or nothing where there is none.
    [[nodiscard]] std::optional<ShelvedAppointment> At(int row) const;
    /// The appointment with this key, or nothing where it is not on the shelf.
    [[nodiscard]] std::optional<ShelvedAppointment> Find(int key) const;

    /// Puts an appointment on the shelf, selects it there and shows the shelf. A failure is told in the bar.
    void Put(const ShownAppointment& row);
    /// Takes an appointment off the shelf. A failure is told in the bar.
    void TakeOff(int key);

    [[nodiscard]] bool IsShown() const { return shown_; }
    /// Shows or hides the shelf, and keeps that for the user.
    void SetShown(bool shown);
    [[nodiscard]] ShelfList& List() const { return *list_; }

  Q_SIGNALS:
    /// Raised when the shelf was read, shown or hidden.
    void Changed();
    /// Raised when the user wants to go to where an appointment is booked.
    void ShowRequested(const ShelvedAppointment& shelved);

  private:
    void build();
    void fill();
    void followSelection();
    void applyShown();
    void showRow(int row);
    void removeRow(int row);

    bool exists_ = true;
    bool shown_ = false;
    HoldingShelf shelf_;
    ShelfList* list_ = nullptr;
    QLabel* lblempty = nullptr;
    QPushButton* cmdshow = nullptr;
    QPushButton* cmdremove = nullptr;
};

/// Puts a calendar and its shelf side by side; the calendar takes the room.
[[nodiscard]] QWidget* BesideShelf(QWidget* calendar, ShelfPanel* shelf);

/// Binds the command that shows and hides the shelf.
void BindShelfCommand(ViewMenus& menus, ShelfPanel& shelf);
/// Goes to where an appointment of the shelf is booked, and selects it.
void GoToShelved(MainWindow& main, const ShelvedAppointment& shelved);

/// Why a command of the shelf cannot be used in a practice without one.
[[nodiscard]] QString WhyNoShelf();
