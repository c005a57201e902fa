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
enum class ReportMode;
struct ExportRequest;
struct MoveTarget;
struct NextFree;
struct NextFreeRequest;
struct ReportOpening;
struct ShelvedAppointment;
struct WriteOutcome;
class ShelfPanel;
enum class RoomQuestion;

/// The base of the views that show appointments on a board. It holds the commands on appointments, applies the user's
/// rights to them, and makes items of rows. A derived view adds only its differences.
class CalendarView : public MenuView {
    Q_OBJECT

  public:
    CalendarView(MainWindow& main, std::span<const MenuEntry> menus, QWidget* parent);
    ~CalendarView() override;

    void FillMenus(QMenuBar& menus) override;
    void ApplyPreferences() override;
    /// Opens the editor for a new patient appointment at the selected time.
    void AddAppointment() override;
    [[nodiscard]] bool CanAdd() const override;
    /// Scrolls so that what has just begun stands above the middle of the grid.
    void ShowNow() override;
    /// Finds an appointment by its text and goes to it.
    void FindAppointment() override;
    [[nodiscard]] bool CanFind() const override { return true; }
    [[nodiscard]] QList<QWidget*> SidePanes() const override;
    /// Shows the print preview of the view's schedule.
    void PrintSchedule() override { printS(); }

    /// Returns the selected item as the view holds it, or nothing when none is selected.
    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const { return board_->SelectedItem(); }
    /// Returns the selected range of time, or nothing when none is selected.
    [[nodiscard]] std::optional<SelectedSlot> SelectedTime() const;
    /// Returns the provider in whose schedule this view books. It is the session's provider unless the view has a
    /// choice of its own.
    [[nodiscard]] virtual BookedProvider Provider() const;
    /// Clears the selection, for example the selected time of an appointment that was not made after all.
    void DropSelection();

    /// Greys or hides the commands that the user's rights forbid. A user who may not write can set no status and delete
    /// nothing.
    void setmenuaccess();

    /// Shows the details of an item if the view has a place for them. An index below 1 empties that place.
    virtual void displayapptinfo(int index);
    /// Deletes the selected appointment after a question. A single appointment is deleted in one transaction with its
    /// room and its members, and a line is written to the audit log. For an appointment of a series, frmdelrepeat lets
    /// the user choose which ones to delete. With `IsNewAppt`, the appointment is still being added: its unfinished row
    /// is deleted without a question and without a line in the log. When a deletion fails, the user is told and
    /// everything stays as it was. A row that another desk has already deleted is removed from the calendar without a
    /// message.
    void DeleteSelectedAppointment(bool IsNewAppt);

  protected:
    /// Returns the date of a column, counted from 1. The columns have different dates only when they are days.
    [[nodiscard]] virtual QDate dateOfColumn(int column) const;
    /// Returns the date of an item: its own, or that of the view.
    [[nodiscard]] QDate dateOf(const CalendarItem& item) const;
    /// Returns the provider of a column when the columns are providers, and nothing otherwise. An appointment that is
    /// dropped on the column becomes this provider's.
    [[nodiscard]] virtual std::optional<BookedProvider> providerOfColumn(int column) const;

    /// Asks before an item is dropped at a place, and returns whether it may be. A view without a question says yes.
    [[nodiscard]] virtual bool mayDrop(const CalendarItem& /*item*/, const ItemPlace& /*place*/) { return true; }

    /// Returns the name of the provider with this id, or the id when the view does not know the name.
    [[nodiscard]] virtual QString nameOfProvider(const QString& id) const { return id; }

    /// Returns what the search for the next free hour begins with.
    [[nodiscard]] virtual NextFreeRequest nextFreeRequest() const;
    /// Returns the column that shows a day of a provider, or 0 when the view has none.
    [[nodiscard]] virtual int columnFor(QDate date, const QString& provider) const;

    /// Tells that the opening that was chosen is on a day that this view does not show.
    virtual void tellUnseenOpening(QDate /*date*/) {}

    /// Brings the column of the session's provider into sight when the columns are providers.
    virtual void followProvider() {}
    /// Selects an appointment that was found and scrolls to it. When the view does not show it, the user is told why.
    void showFound(const FoundAppointment& found);
    /// Returns the reason why this view cannot show the appointment although it exists, or "" when it can show it.
    [[nodiscard]] virtual QString whyUnseen(const FoundAppointment& found) const;

    /// Binds the exports of what this view shows. `request` tells what that is.
    void bindExports(const std::function<ExportRequest()>& request, const std::function<void()>& html);
    /// Returns the key of the selected appointment, or 0 when none is selected.
    [[nodiscard]] int selectedKey() const;

    /// Returns what the reports begin with: the days and the provider that this view shows.
    [[nodiscard]] virtual ReportOpening reportOpening() const;

    /// Returns the schedule to be printed: all columns of the view on one page, under its date. The provider stands at
    /// the foot.
    [[nodiscard]] virtual ScheduleSheet sheet(const PrintOptions& options) const;
    /// Shows the print preview of the sheet. A schedule that could not be read is not printed, and the user is told.
    virtual void printS();

    /// Empties the board for a load of this date and provider. `provider` is "" in a view of all providers. The load
    /// ends with endLoad.
    void beginLoad(QDate date, const QString& provider);
    /// Returns the statements that a load of this date and provider will need besides the view's own, as far as they
    /// are known before it begins. They read the pictures of the courtesy-call codes that earlier loads met and, in a
    /// reload, the details of the selected item.
    [[nodiscard]] QStringList statementsOfLoad(QDate date, const QString& provider) const;
    /// Returns the statements by which displayapptinfo reads the details of an item.
    [[nodiscard]] virtual QStringList detailStatements(const CalendarItem& /*item*/) const { return {}; }
    void endLoad();
    /// Returns whether the item of this row is to be shown. It may change the item.
    using Accept = std::function<bool(const db::Recordset& row, CalendarItem& item)>;
    /// Adds an item for each row that is accepted. A row that a join gives more than once makes one item. A row that
    /// starts before the first hour widens the grid even when it is not accepted.
    void addAppointments(db::Recordset rows, const Accept& accept = {});
    /// Adds a banner to these columns when the day is a holiday, and returns whether it is one. The column -1 stands
    /// for the column of the day. Throws DatabaseError.
    bool addHoliday(QDate date, const std::vector<int>& columns = {-1});
    /// Whether this view prints slips of appointments with this `ncolor` and `appttype`. Only the view of all providers
    /// prints those of Tentative ones.
    [[nodiscard]] virtual bool givesSlip(int code, int apptType) const;
    /// Whether a courtesy call is shown only on appointments that are still awaited. The day view shows it on every
    /// row.
    [[nodiscard]] virtual bool showsCallsOfAwaitedOnly() const { return false; }
    /// Returns how the rows of one load are painted. Each courtesy-call code is looked up once in a load.
    [[nodiscard]] ItemPainting painting() const;

    /// Stores a change that was made to an item in place: its text by the user, or its colour by a status command.
    /// Returns false when the change was not stored. The user has then been told why, and the item is as it was before
    /// or is gone. A text that was emptied comes back without a message.
    ///
    /// Only the changed values are written, so that no other desk's work is overwritten. When both desks changed the
    /// same value, the user is told an error and the view reads anew. After a save the item shows the row as it is
    /// stored. The view also reads anew when another desk has moved the row meanwhile, so the caller must find the item
    /// by its key afterwards.
    ///
    /// An error of the database is told in a box, or in the notice bar under `subject` when that is not empty.
    bool saveappt(int index, const QString& subject = {});

    /// Returns the grid with the holding shelf beside it, for the view's layout.
    [[nodiscard]] QWidget* calendarWithShelf();

    DayBoard* board_;
    ctMDay* ctMDay1;                          ///< The board's grid.
    QHash<QString, ShownAppointment> facts_;  ///< The rows of the items, by ItemKey.

  private:
    void bindCommands();
    /// The exports can be used while the view shows what it has read.
    void allowExports(bool allowed);
    void lock(CalendarItem& item) const;

    // calendarview_reports.cpp
    void bindReports();
    /// The reports can be used while the view shows what it has read.
    void allowReports(bool allowed);
    void openReport(ReportMode mode);

    // calendarview_edit.cpp
    void bindEditing();
    void suitEditing(int index);
    void popupOnEmptyTime(int index, const QPoint& place);
    void newappt(int kind);
    void newGroup();
    /// Calls `open` for a new appointment of this kind at the selected time, and selects the appointment that was
    /// added.
    void addBy(void (CalendarView::*open)(const EditorRequest&), int kind);
    /// Calls `open` for a new appointment, and selects the appointment that was added.
    void openNew(void (CalendarView::*open)(const EditorRequest&), const EditorRequest& request);
    void openEditor(const EditorRequest& request);
    void newActivity();
    /// Opens the Activity Scheduler for an Activity, or for a new one when `key` is 0. `slot` is the time that the user
    /// selected or dragged the Activity to.
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
    void storeMove(const CalendarItem& item);
    static void tellNoTimeOfDay();
    /// Returns the statements that a save of an item in place reads, and those of the details shown after it.
    [[nodiscard]] QStringList savingStatements(const CalendarItem& item) const;
    void showRow(ShownAppointment row);
    void putBack(const QString& key);
    void tellUnsaved(const QString& key, const WriteOutcome& outcome, const QString& subject = {});
    /// Keeps a text that was typed in place and could not be saved (KeepTyped). `read` is the item as it was read.
    void keepText(const CalendarItem& read, const QString& text) const;

    // calendarview_shelf.cpp
    void bindShelf();
    void followShelf();
    void suitMoves(int index);
    /// Why an item cannot be moved; empty where it can.
    [[nodiscard]] QString whyNoMove(int index) const;
    [[nodiscard]] BookedProvider providerNamed(const QString& id) const;
    void moveCommand();
    void move(const ShownAppointment& row, const MoveTarget& target, const QString& providerBefore,
              RoomQuestion question);
    void shelve(int index);
    void leaveShelf(int key);
    std::optional<ItemPlace> placeIncoming(int key, QPoint at);
    void dropIncoming(int key, QPoint at);
    void landAtSelection();
    void land(const ShelvedAppointment& shelved, const ItemPlace& place);
    void landActivity(const ShelvedAppointment& shelved, const SelectedSlot& slot);

    // calendarview_commands.cpp
    void bindLists();
    void bindSearches();
    void tellUnseen(const FoundAppointment& found);
    void searchOpening();
    void searchType();

    // calendarview_series.cpp
    void bindSeries();
    void suitRest(int index);
    void changeRest();
    /// "Series: 5 of 12" for the tip, read when the tip is first shown after a load.
    [[nodiscard]] QString seriesTip(int index) const;
    // calendarview_next.cpp
    void bindNextFree();
    void findNextFree();
    void bookOpening(const NextFree& found);

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

    // calendarview_note.cpp
    void bindNotes();
    void openNote();
    /// Shows that the appointment has a note now.
    void showNote(const QString& key, int icon);

    // calendarview_wait.cpp
    void bindWaitList();
    void suitWaitList();
    void openWaitList();
    void askWhoWaits();
    /// Keeps which times were held, before the same days are read again, so that tellFreedTimes can tell the bar of the
    /// wait list which of them are not any more.
    void keepHeldTimes();
    void tellFreedTimes();

    // calendarview_slip.cpp
    void bindSlip();
    void suitSlip(int index);
    [[nodiscard]] bool hasSlip(int index) const;
    [[nodiscard]] QString whyNoSlip() const;
    void printSlip();

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
    /// Returns whether the deletion succeeded. When it failed, the user is told why.
    [[nodiscard]] static bool isDeleted(const WriteOutcome& outcome);
    void removeItemsOf(int key);

    ShelfPanel* shelf_;
    bool exports_ = false;  ///< Whether this view has exports.
    QMenu* newPopup_ = nullptr;
    QMenu* itemPopup_ = nullptr;
    QAction* waitForHour_ = nullptr;  ///< Stands in the popup of free time alone.
    std::vector<ShownAppointment> heldBefore_;
    mutable QHash<QString, QString> seriesTips_;  ///< By the key of the item.

    mutable QHash<QString, int> callIcons_;  ///< The pictures by code, since the load began.
    QSet<QString> callCodes_;                ///< The courtesy-call codes of all loads.
    [[nodiscard]] QStringList callStatements() const;
};
