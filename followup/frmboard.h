#pragma once

#include <array>
#include <memory>
#include <QAction>
#include <QDateTime>
#include <QTimer>
#include <QWidget>

#include "appointments/appointmentitem.h"
#include "appointments/appointmentwrites.h"
#include "followup/boardvisits.h"
#include "platform/database/backgroundreader.h"

class BoardList;
class MainWindow;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolBar;
struct BoardCard;
struct CardButton;

/// The commands of the board on one card. Pend goes back from a status that was chosen by mistake.
enum class BoardCommand { CheckIn, Keep, Miss, PatientCancel, TherapistCancel, Pend, Edit, GoTo, Note };

/// Today's board: who is due, late, waiting, in session and gone, the notes that are missing, and the series that end
/// (BoardPlace). It shows all providers, or the user's own schedule without the right to all.
///
/// The window stays open beside the main window. It is read anew each minute of the clock, after each write of this
/// program, and by F5, on a thread of its own: a busy database never holds up what the user does. While it cannot be
/// read it says so, shows what it knows dimly, and tries again each minute. What depends on the time is reckoned each
/// minute even then. It is hidden when it is closed, and opens again as it was.
///
/// A command reads its row first. When another desk has changed the status, the provider, the patient or the time since
/// the card was shown, the user is told and nothing is written.
class frmboard : public QWidget {
    Q_OBJECT

  public:
    /// `main` is the main window, and is also `parent` in the program.
    explicit frmboard(MainWindow& main, QWidget* parent = nullptr);
    ~frmboard() override;

    /// Opens the board of the main window, or brings the open one to the front.
    static void Open(MainWindow& main, QWidget* parent);
    /// Drops the session with the database and what was read, and reads anew, because the database was opened again.
    static void OpenAgain(const QWidget& parent);

    /// Begins to read the board anew. A read that is under way is followed by another.
    void Load();
    [[nodiscard]] bool IsReading() const;
    /// How many visits stand in a place for the chosen provider, whatever is searched for.
    [[nodiscard]] int Count(BoardPlace place) const;
    [[nodiscard]] BoardList& List(BoardPlace place) const;
    [[nodiscard]] QAction& Command(BoardCommand command) const;
    /// Runs a command on the visit with this key in this place.
    void Run(BoardCommand command, BoardPlace place, int key);

    [[nodiscard]] QSize sizeHint() const override;

    QLabel* lblday = nullptr;
    QLabel* lblclock = nullptr;
    QComboBox* cboprovider = nullptr;  ///< The item data is the provider's id, "" for all.
    QLineEdit* txtfind = nullptr;
    QLabel* lblstatus = nullptr;
    QWidget* pnlproblem = nullptr;  ///< Shown while the board could not be read.
    QLabel* lblproblem = nullptr;
    QPushButton* cmdtryagain = nullptr;
    QToolBar* toolbar = nullptr;

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Place {
        QWidget* panel = nullptr;
        QLabel* title = nullptr;
        QLabel* number = nullptr;  ///< How many cards, and where some are not found, of how many.
        BoardList* list = nullptr;
        std::vector<BoardVisit> visits;  ///< Of the chosen provider.
    };

    // frmboard_layout.cpp
    void buildForm();
    [[nodiscard]] QWidget* buildHead();
    [[nodiscard]] QWidget* buildProblem();
    void buildCommands();
    void buildPlace(BoardPlace place);
    [[nodiscard]] std::vector<CardButton> cardButtons() const;
    void arrange();
    void connectPlace(BoardPlace place);

    // frmboard.cpp
    void tick();
    void waitForMinute();
    void begin();
    void take(QDate date, db::BackgroundReader::Answer answer);
    void tellProblem(const QString& why);
    void fillProviders();
    /// Shows these providers, the name and the id of each.
    void setProviders(const std::vector<std::pair<QString, QString>>& items, const QString& chosen);
    void refresh();
    void refreshPlace(BoardPlace place);
    void stepAside(BoardPlace from, int direction);
    void findTyped(const QString& letter);
    void leaveSearch();
    [[nodiscard]] Place& at(BoardPlace place) { return places_[static_cast<std::size_t>(place)]; }
    [[nodiscard]] const Place& at(BoardPlace place) const { return places_[static_cast<std::size_t>(place)]; }
    [[nodiscard]] const BoardVisit* visitOf(BoardPlace place, int key) const;

    // frmboard_commands.cpp
    void suitCommands();
    void runOnSelected(BoardCommand command);
    [[nodiscard]] QString whyNot(BoardCommand command, BoardPlace place, const BoardVisit& visit) const;
    [[nodiscard]] std::optional<ShownAppointment> currentRow(BoardCommand command, const BoardVisit& shown);
    void checkIn(const ShownAppointment& row);
    void saveStatus(const ShownAppointment& row, int code);
    void changeStatus(const ShownAppointment& row, int code);
    void edit(const ShownAppointment& row);
    void openNote(const ShownAppointment& row);
    void goTo(const BoardVisit& visit);
    void noteTrouble(const WriteOutcome& outcome);
    void written();

    MainWindow& main_;
    std::unique_ptr<db::BackgroundReader> reader_;
    BoardContents contents_;
    QString trouble_;   ///< Why the last status was not saved.
    QDateTime readAt_;  ///< When the contents were read; invalid before.
    bool again_ = false;
    bool ticking_ = false;
    QTimer soon_;  ///< Runs out shortly after a write, so that several are followed by one read.
    std::array<Place, BoardPlaces> places_;
    std::array<QAction*, 9> commands_{};
    BoardPlace active_ = BoardPlace::Due;  ///< The place whose list had the focus last.
    QGridLayout* head_ = nullptr;
    QWidget* filter_ = nullptr;
    QGridLayout* grid_ = nullptr;
    int columns_ = 0;
};
