#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QHash>
#include <QSet>
#include <vector>

#include "session/slot.h"
#include "shell/dayboard.h"
#include "shell/menuview.h"
#include "shell/providerpanel.h"

class DetailsPane;
class EditorDialog;
class QLabel;
class QMenu;
class QSplitter;
class QStackedWidget;
class SeriesDays;
struct CompanionEventRequest;
struct CompanionOutcome;
struct CompanionPlace;
struct CompanionRows;
struct CompanionSpan;
struct PrintOptions;
struct ScheduleSheet;

/// A provider of the companion.
struct CompanionProvider {
    int provId = 0;
    QString name;  ///< "{ProvLastName}, {ProvFirstName}"

    friend bool operator==(const CompanionProvider&, const CompanionProvider&) = default;
};

/// The schedule that the companion, Fernhall, keeps: in the day a column for each provider who is checked in the list
/// beside it, in the week seven days of one provider. It shows appointments and the events of the companion's calendar.
/// Each load reads the companion over a connection of its own, since it is another product's database and may be away.
class frmFHAppts : public MenuView {
    Q_OBJECT

  public:
    enum class Mode { Day, Week };

    explicit frmFHAppts(MainWindow& main, QWidget* parent = nullptr);
    ~frmFHAppts() override;

    // What the commands ask.

    [[nodiscard]] Mode ShownMode() const { return mode_; }
    /// The board of the mode that is shown.
    [[nodiscard]] DayBoard& Board() const { return mode_ == Mode::Day ? *day_ : *week_; }
    /// The grid of the mode that is shown, ctMDay1 or ctMDay2.
    [[nodiscard]] ctMDay& Grid() const { return Board().Grid(); }
    /// Returns the selected item as the grid holds it, or nothing when none is selected.
    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const { return Board().SelectedItem(); }
    /// Returns the selected range of time, or nothing when none is selected.
    [[nodiscard]] std::optional<SelectedSlot> SelectedTime() const;
    /// Returns the provider of a column of the grid, counted from 1. In the week all columns are of one provider.
    /// Returns nothing for a column that does not exist.
    [[nodiscard]] std::optional<CompanionProvider> ProviderOfColumn(int column) const;
    /// Returns the provider in whose column the user has selected a time or an item, or nothing without a selection.
    [[nodiscard]] std::optional<CompanionProvider> SelectedProvider() const;
    /// Returns the date of a column of the grid, counted from 1.
    [[nodiscard]] QDate DateOfColumn(int column) const;
    /// Whether the companion can link appointments to session notes. It is found out when the view opens.
    [[nodiscard]] bool HasSVSessionCol() const { return HasSVSessionCol_; }
    /// Selects the item of a row and scrolls to it. When the row has items in several columns, the one in `column` is
    /// preferred, if it is not 0. It does nothing when no item has the key and the colour.
    void SelectRow(const QString& key, int color, int column = 0);

    // What the view shows.

    /// Fills the list of providers and the columns, and loads the day. A user who sees only the own schedule gets the
    /// one provider who is paired with the user.
    void LoadProviders();
    /// Makes the columns of the checked providers.
    void resetcols();
    /// Shows the day of all checked providers, or the week of the provider in whose column the user has selected
    /// something. When nothing is selected, the user is asked to do so and the day stays.
    void ShowMode(Mode mode);
    /// Reads the seven days from the main window's date for one provider.
    void LoadWeekView(int ProvId);
    /// Shows the day or the week on paper in the preview.
    void printS();

    /// Reads the day or the week that is shown. A reload of the same day keeps the place and the selected item. When
    /// the companion cannot be read, the user is told once, and the grid says so.
    void Reload() override;
    void ApplyPreferences() override;
    /// Keeps the providers of the day, or the week with its provider.
    void AddContents(ViewContents& contents) const override;
    void ShowContents(const ViewContents& contents) override;
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override { return from.addDays(direction); }
    /// Greys the commands that the user's rights or an older companion forbid.
    void setmenuaccess();
    /// Adds an appointment at the selected time, as mnuAddAppt does. A user without the right is told so.
    void AddAppointment() override;
    [[nodiscard]] bool CanAdd() const override;
    void PrintSchedule() override { printS(); }
    [[nodiscard]] bool CanPrint() const override { return true; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void reloadWhole() override;
    void showLegend() override;

  private:
    // frmfhappts_layout.cpp
    void layOut();
    void makeBoards();
    QWidget* makeWeekPage();
    void shareWidth();
    void bindView();
    void bindGrid(ctMDay& grid);
    void bindPanel();

    // frmfhappts.cpp
    void open();
    void setGrids();
    [[nodiscard]] QString GetTherapistList();
    void SaveTherapistList();
    void readProviders(db::Connection& companion);
    void takeContents(const ViewContents& contents);
    void setMode(Mode mode);
    void showChosen();
    void checkAll();
    void chooseColumn(int column);
    void showModeCommands();
    void showTitles();
    [[nodiscard]] ScheduleSheet sheet(const PrintOptions& options) const;
    /// Opens the report of the day of all providers, or of the week of the provider who is shown.
    void openReport();

    // frmfhappts_load.cpp
    void loadDay();
    void load(QDate date, const QString& of, const std::vector<CompanionSpan>& spans);
    /// `statements` are those of statementsOf.
    void loadSpans(db::Connection& companion, const std::vector<CompanionSpan>& spans, const QStringList& statements);
    /// Adds the items of one provider. Sets `fault` when a series is left out because its interval is 0. Throws
    /// db::DatabaseError.
    void LoadCalendar(CompanionRows& rows, SeriesDays& series, std::optional<db::DatabaseError>& fault);
    void addAppointment(const db::Recordset& row, const CompanionSpan& span);
    [[nodiscard]] int callIcon(const QString& code);
    void addEvent(const db::Recordset& row, const CompanionSpan& span, SeriesDays& series);
    void addOccurrence(const db::Recordset& row, const CompanionSpan& span, QDate day, bool widens);
    /// Returns the connection of the routine that runs, or opens one. It is closed when the outermost of the routines
    /// that ask for it has returned. Throws db::DatabaseError.
    [[nodiscard]] std::shared_ptr<db::Connection> Companion();

    // frmfhappts_details.cpp
    [[nodiscard]] static QStringList detailStatements(const CalendarItem& item);
    void showDetails(int index);
    void setclientdetails(int CtrnId);
    void addContacts(const db::Recordset& client);
    void addInsurances(db::Connection& companion, int ClntId);
    void LoadCoPayDetails(db::Connection& companion, int ClntId, double fee, double adjustment);
    void SetEventDetails(int CEveId, const QString& text);

    // frmfhappts_commands.cpp
    /// Tells in the bar what another user has done to a row, in the place of what was told before.
    static void tellInBar(const QString& text);
    static void dropNotice();
    void bindCommands();
    void bindCommandsOf(ctMDay& grid);
    void makePopups();
    /// Returns the selected time for something new. Without it, or without the right to add, the user is told so.
    [[nodiscard]] std::optional<SelectedSlot> timeToAdd(const QString& noTime) const;
    void addEvent();
    void modify();
    void openEvent(const CompanionEventRequest& request);
    void showEditor(std::unique_ptr<EditorDialog> editor, int color, const std::function<int()>& savedKey);
    void deleteSelected();
    void deleteAppointment(int CtrnId);
    void deleteEvent(int CEveId, int ProvId);
    void showDeletion(const CompanionOutcome& outcome, const QString& trouble);

    // frmfhappts_move.cpp
    void bindMoves(ctMDay& grid);
    void tellMoveRefused(int index);
    [[nodiscard]] bool isMovable(const CalendarItem& item) const;
    void moveItem(int index, const ItemPlace& old);
    /// Tells the user of an appointment with a note that its provider changes. Throws db::DatabaseError.
    static void warnOfNote(int CtrnId, int ProvId);
    void storeMove(const QString& key, const CompanionPlace& from, const CompanionPlace& to);
    [[nodiscard]] int itemsOf(const QString& key) const;
    static void tellOfMove(const CompanionOutcome& outcome, const CompanionPlace& to);

    // frmfhappts_note.cpp
    void openNote();
    void showNote(const QString& key);

    Mode mode_ = Mode::Day;
    bool HasSVSessionCol_ = false;
    bool providersRead_ = false;
    bool choiceIsSaved_ = false;            ///< The choice is that of a saved view, and not to be stored as the user's.
    std::optional<ViewContents> contents_;  ///< What this view opens for.
    bool choiceKnown_ = false;              ///< The stored choice was read, or the user made one since.
    bool sized_ = false;                    ///< Whether the panes have sizes of their own.
    CompanionProvider weekProvider_;        ///< Whose week is shown.
    std::vector<CompanionProvider> columns_;  ///< The provider of each column of the day.
    std::weak_ptr<db::Connection> companion_;
    QHash<QString, QString> services_;  ///< The TranName of each appointment that is shown, by CtrnId.
    QSet<QString> allDayEvents_;        ///< The CEveIds of the events that last all day.
    QHash<QString, int> callIcons_;     ///< The pictures by courtesy-call code, since the load began.

    DayBoard* day_ = nullptr;
    DayBoard* week_ = nullptr;
    QStackedWidget* boards_ = nullptr;
    ProviderPanel* panel_ = nullptr;
    DetailsPane* details_ = nullptr;
    QSplitter* sides_ = nullptr;
    QMenu* itemPopup_ = nullptr;
    QMenu* timePopup_ = nullptr;
    QLabel* pnlView = nullptr;
    QLabel* lblCPT = nullptr;  ///< Hidden: the code of the selected appointment's service, which a session note takes.
};
