#pragma once

#include <functional>
#include <memory>
#include <QHash>
#include <QSet>
#include <vector>

#include "appointments/appointmentitem.h"
#include "platform/calendar/ctmday.h"
#include "platform/database/recordset.h"
#include "session/slot.h"
#include "shell/dayboard.h"
#include "shell/menuview.h"
#include "shell/schedulesheet.h"

class EditorDialog;
struct EditorRequest;
struct WriteOutcome;

/// What the views on a board of appointments share: the commands on them and what the user's rights leave of these, and
/// how rows become items. A view states only its difference.
class CalendarView : public MenuView {
    Q_OBJECT

  public:
    CalendarView(MainWindow& main, std::span<const MenuEntry> menus, QWidget* parent);

    void ApplyPreferences() override;
    /// A new patient appointment at the selected time.
    void AddAppointment() override;
    [[nodiscard]] bool CanAdd() const override;
    /// Finds an appointment by its text and goes to it.
    void FindAppointment() override;
    [[nodiscard]] bool CanFind() const override { return true; }
    /// Shows what the view holds as it will be on paper.
    void PrintSchedule() override { printS(); }

    /// The selected item as the view holds it; nothing where none is selected.
    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const { return board_->SelectedItem(); }
    /// The selected range of time; nothing where none is selected.
    [[nodiscard]] std::optional<SelectedSlot> SelectedTime() const;
    /// The provider in whose schedule this view books: the session's, unless the view has a choice of its own.
    [[nodiscard]] virtual BookedProvider Provider() const;
    /// Gives up the selection, the provisional one of an appointment that is not made after all among them.
    void DropSelection();

    /// Greys and hides the commands that the user's rights forbid. Who may not write can set no status and delete
    /// nothing.
    void setmenuaccess();

    /// Fills the details of an item, where the view has a place for them; an index below 1 empties them.
    virtual void displayapptinfo(int index);
    /// Deletes the selected appointment. Normally it asks first: a row of its own goes in one transaction, with its
    /// room and its members, and leaves a line in the audit log; of a series, frmdelrepeat lets the user choose. Of an
    /// appointment that is being added (IsNewAppt) it takes the unfinished row away, without a question and without a
    /// line. A deletion that fails is told and leaves everything as it was. A row that another desk has deleted already
    /// leaves the calendar without a word.
    void DeleteSelectedAppointment(bool IsNewAppt);

  protected:
    /// The date of a column, counted from 1; days as columns have one each.
    [[nodiscard]] virtual QDate dateOfColumn(int column) const;
    /// The provider of a column where providers stand as columns: what is dropped there becomes this provider's.
    [[nodiscard]] virtual std::optional<BookedProvider> providerOfColumn(int column) const;

    /// The name of a provider of such a column, by the id; the id where nobody knows it.
    [[nodiscard]] virtual QString nameOfProvider(const QString& id) const { return id; }

    /// Brings the column of the session's provider into sight, where providers stand as columns.
    virtual void followProvider() {}
    /// Selects an appointment that was found and scrolls to it; where the view cannot show it, tells why.
    void showFound(const FoundAppointment& found);
    /// Why the view does not show an appointment that is there; "" where it would.
    [[nodiscard]] virtual QString whyUnseen(const FoundAppointment& found) const;

    /// The view on paper: all its columns on one page, under its date.
    [[nodiscard]] virtual ScheduleSheet sheet() const;
    virtual void printS();

    /// Empties the board for a load of what stands under this date and, where the view has one, this provider. The load
    /// ends by endLoad.
    void beginLoad(QDate date, const QString& provider);
    /// What a load of this date and provider will ask for besides the view's own rows, as far as that is known before
    /// it begins: the pictures of the calls that were met before and, when it is a reload, the details of the selected
    /// item.
    [[nodiscard]] QStringList statementsOfLoad(QDate date, const QString& provider) const;
    /// The statements by which displayapptinfo fills the details of an item.
    [[nodiscard]] virtual QStringList detailStatements(const CalendarItem& /*item*/) const { return {}; }
    void endLoad();
    /// Whether an item of this row is to be shown; it may be changed before.
    using Accept = std::function<bool(const db::Recordset& row, CalendarItem& item)>;
    /// Adds an item for each row that is accepted. A row that a join gives more than once makes one item, and a row
    /// that starts before the first hour widens the grid, accepted or not.
    void addAppointments(db::Recordset rows, const Accept& accept = {});
    /// Whether the day is a holiday, which then stands as a banner in these columns; -1 is the column of the day.
    /// Throws DatabaseError.
    bool addHoliday(QDate date, const std::vector<int>& columns = {-1});
    /// Whether a courtesy call shows on appointments that are still awaited alone; the day view shows it on every row.
    [[nodiscard]] virtual bool showsCallsOfAwaitedOnly() const { return false; }
    /// How the rows of one load are painted; each courtesy-call code is looked up once a load.
    [[nodiscard]] ItemPainting painting() const;

    /// Stores what was changed on an item in place: its text by the user, its colour by a status command. False when it
    /// was not stored: the user has been told why (a text that was emptied comes back without a word), and the item is
    /// as it was or is gone.
    ///
    /// Only what was changed here is written, so that no other desk's work is overwritten; what both desks changed is
    /// told as an error and the view reads anew. The item then shows the row. Where another desk has moved the row
    /// meanwhile the view reads anew too: after this, find the item by its key.
    ///
    /// What the database refuses is told in a box, or in the bar under `subject` where that is not empty.
    bool saveappt(int index, const QString& subject = {});

    DayBoard* board_;
    ctMDay* ctMDay1;                          ///< The board's grid.
    QHash<QString, ShownAppointment> facts_;  ///< By ItemKey.

  private:
    void bindCommands();
    void lock(CalendarItem& item) const;

    // calendarview_edit.cpp
    void bindEditing();
    void suitEditing(int index);
    void popupOnEmptyTime(int index, const QPoint& place);
    void newappt(int kind);
    void newGroup();
    /// Opens an editor on a new appointment of the kind at the selected time.
    void addBy(void (CalendarView::*open)(const EditorRequest&), int kind);
    void openEditor(const EditorRequest& request);
    void newActivity();
    /// Opens the Activity Scheduler, for a new Activity where `key` is 0, at a time that was chosen or dragged to.
    void scheduleActivity(int key, const std::optional<SelectedSlot>& slot = std::nullopt);
    void selectAddedTo(const QSet<QString>& before);
    void editCommand();
    void editappt2(int index);
    void editappt(int index);
    void editgroup(const EditorRequest& request);
    void showEditor(std::unique_ptr<EditorDialog> editor, const std::function<void()>& closed = {},
                    const std::function<void()>& closedAgain = {});

    // calendarview_move.cpp
    void bindInPlaceWork();
    void moveappt(int index);
    void storeMove(const CalendarItem& item, bool room);
    /// What a save of an item in place reads, and the details that are shown behind it.
    [[nodiscard]] QStringList savingStatements(const CalendarItem& item) const;
    void showRow(ShownAppointment row);
    void putBack(const QString& key);
    void tellUnsaved(const QString& key, const WriteOutcome& outcome, const QString& subject = {});
    /// Keeps a text that was typed in place and could not be saved; `read` is the item as it was read.
    void keepText(const CalendarItem& read, const QString& text) const;

    // calendarview_commands.cpp
    void bindLists();
    void bindSearches();
    void bindSeries();
    void tellUnseen(const FoundAppointment& found);
    void searchOpening();
    void searchType();

    // calendarview_status.cpp
    void bindStatusCommands();
    void suitCommands(int index);
    [[nodiscard]] bool hasStatus(int index) const;
    [[nodiscard]] int itemForStatus();
    void changeStatus(MenuName command, int code);
    void checkIn();
    void keepAppointment();
    void saveStatus(int index, MenuName command, int code);
    void tickStatus(MenuName command);
    void showStatus(int index, int code);

    // calendarview_popup.cpp
    void makeItemPopup();
    void popupOnItem(int index, const QPoint& place);
    void endPopup();

    // calendarview_delete.cpp
    void bindDeletion();
    void deleteCommand();
    void deleteAppointment(const CalendarItem& item);
    void deleteActivity(int key);
    [[nodiscard]] bool deleteFromSeries(int key, int ref);
    /// Tells why a deletion failed; whether it went well.
    [[nodiscard]] static bool isDeleted(const WriteOutcome& outcome);
    void removeItemsOf(int key);

    QMenu* newPopup_ = nullptr;
    QMenu* itemPopup_ = nullptr;

    mutable QHash<QString, int> callIcons_;  ///< By code, since the load began.
    QSet<QString> callCodes_;                ///< Met in any load.
    [[nodiscard]] QStringList callStatements() const;
};
