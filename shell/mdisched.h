#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <QDate>
#include <QMainWindow>
#include <QSize>
#include <vector>

#include "session/lastplace.h"
#include "session/session.h"
#include "session/startup.h"
#include "shell/mainwindow.h"
#include "shell/viewwindow.h"

class NoticeBar;
class QAction;
class QLabel;
class QSplitter;
class QToolBar;
class QToolButton;
class QVBoxLayout;
class ctDate;
class TitleBar;
class ctTaskPane;

/// The routines that make the views. A view without an entry is shown as not available.
using ViewFactories = std::map<View, std::function<std::unique_ptr<ViewWindow>(MainWindow&)>>;

/// The main window. It holds the toolbar, the task pane with the month calendar, the title, the status panels and one
/// calendar view at a time. The bar between title and view shows the notices (ShowNotice), which stay when the view is
/// changed.
///
/// Its keys: Ctrl+1 to Ctrl+6 the views, Ctrl+T today, Alt+Left and Alt+Right one step back and forward, F5 reload,
/// Ctrl+N add, Ctrl+F find, Ctrl+P print, Ctrl+I check-in list, Ctrl+H hide names, Ctrl+L provider, Ctrl+, preferences,
/// F7 to F12 the saved views, F9 the task pane while no view is saved on it, F6 and Shift+F6 from pane to pane, F1
/// the manual, Ctrl+Q leave. Ctrl+H and F1 work in every window of the program, also while a dialog is in front. When a
/// menu item of the open view has one of these keys, the key belongs to the menu item.
class mdisched : public QMainWindow, public MainWindow, public StartUpWindow {
    Q_OBJECT

  public:
    explicit mdisched(ViewFactories factories);
    ~mdisched() override;

    /// Sets the date of the first view. Without it, the first view shows today.
    void OpenAt(QDate date) { openingDate_ = date; }
    /// Sets the size to open with instead of the remembered place. The window's place is then not remembered either.
    void OpenWithSize(QSize size) { openingSize_ = size; }
    /// Sets the view to open first in the place of start-up's own, if the user may open it then.
    void StartWith(View view) { firstView_ = view; }
    /// Whether the view exists and the user may open it.
    [[nodiscard]] bool ViewAvailable(View view) const;
    [[nodiscard]] ViewWindow* ShownView() const { return view_; }
    /// Puts a bar below the notices. The window owns it. F6 goes to its focus proxy while it is visible.
    void AddBar(QWidget* bar);

    // StartUpWindow
    void RestorePosition() override;
    void SetHelpFile(const QString& path) override { helpFile_ = path; }
    void SetDateOrder(int order) override;
    void ShowMainWindow() override { show(); }
    void ChooseProvider() override;
    void setmenuaccess() override;
    void InitTaskPane() override;
    void MarkReady(QDate today) override;
    void MakeScheduleLink() override;
    void ReturnTo(const LastPlace& place) override { firstView_ = place.view; }
    void ShowDayView() override;

    // MainWindow
    [[nodiscard]] QDate Date() const override;
    void SetDate(QDate date) override;
    void ShowDateText(const QString& text) override;
    void ShowTitle(const QString& text) override;
    void changeview(View view) override;
    void cycledate(int direction) override;
    void GoToToday() override;
    void ToggleTaskPane() override;
    [[nodiscard]] bool TaskPaneShown() const override;
    void ToggleHidePatientNames() override;
    void SelectProvider() override;
    void ProviderChosen() override;
    void ShowPreferences() override;
    void ShowHelp() override;
    void OpenBoard() override { Q_EMIT BoardRequested(); }
    void WritePanels() override;
    void Leave() override { close(); }
    [[nodiscard]] const std::vector<SavedView>& SavedViews() const override { return savedViews_; }
    [[nodiscard]] QString WhyNoSavedViews() const override { return whyNoSavedViews_; }
    void ShowSavedView(int slot) override;
    void SaveThisView() override;

  Q_SIGNALS:
    /// Raised after a view was loaded and shown.
    void ViewOpened();
    /// Raised when the user asks for the list of the patients who have checked in.
    void CheckedInRequested();
    /// Raised when the user asks for today's board.
    void BoardRequested();
    /// Raised after the open view opened the database again because its file was replaced. Other windows that show rows
    /// have to read them anew.
    void DatabaseOpenedAgain();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // These routines build the window, once.
    void buildActions();
    void buildToolBar();
    void buildCentre();
    void buildStatusBar();
    /// Makes a command. A command without `run` has no screen in this version.
    QAction* command(const char* name, const QString& text, const char* icon, const QKeySequence& key,
                     std::function<void()> run);
    void addToToolBar(QAction* action, const char* name);

    // These routines change the view.
    [[nodiscard]] View firstView(View asTold) const;
    /// Returns whether the view was opened: the open one may refuse to be left.
    bool openView(View view);
    [[nodiscard]] bool unloadView();
    void putStatusLinkLast();
    void fillMenus();
    void yieldKeys();
    void showCommandsOfView();
    void showWhose();
    void applyInterfaceFont();
    void chooseFromTaskPane(const QString& key);
    [[nodiscard]] bool findCompanionProvider();

    void reloadView();
    void tellReplaced(const QString& why);
    void openDatabaseAgain();
    void dateClicked();
    void playSound(const char* fileName) const;
    void cyclePanes(int direction);

    // mdisched_saved.cpp
    /// What of the session a saved view changes.
    struct Stage {
        QString providerId, providerName;
        std::optional<ShownHours> savedHours;
        int timeUnit = 0;
    };
    [[nodiscard]] static ShownHours hours();
    [[nodiscard]] static Stage stage();
    static void setStage(const Stage& stage);
    void useOwnHours();
    void showOwnHours();
    void useHoursOf(const ViewContents& contents);
    void readSavedViews();
    void setSavedViews(std::vector<SavedView> views);
    [[nodiscard]] QString whyNotShown(const SavedView& saved) const;
    [[nodiscard]] bool takeProvider(const ViewContents& contents);
    void open(const SavedView& saved);
    [[nodiscard]] SavedView shownView() const;

    ViewFactories factories_;
    ViewWindow* view_ = nullptr;
    std::optional<QDate> openingDate_;
    std::optional<QSize> openingSize_;
    View firstView_ = View::None;
    std::vector<SavedView> savedViews_;
    QString whyNoSavedViews_;
    int ownTimeUnit_ = 0;  ///< The user's own rows, while there are SavedHours.
    QString helpFile_;
    bool ready_ = false;
    bool interfaceFontApplied_ = false;

    ctTaskPane* taskPane_ = nullptr;
    ctDate* ctDate1_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    QSplitter* splitter_ = nullptr;
    QVBoxLayout* viewPlace_ = nullptr;
    TitleBar* title_ = nullptr;
    NoticeBar* notices_ = nullptr;
    std::vector<QWidget*> bars_;
    QLabel* pnluser_ = nullptr;
    QToolButton* pnlsched_ = nullptr;
    QLabel* pnlaccess_ = nullptr;
    QLabel* pnldate_ = nullptr;

    QAction* today_ = nullptr;
    QAction* previous_ = nullptr;
    QAction* next_ = nullptr;
    QAction* add_ = nullptr;
    QAction* find_ = nullptr;
    QAction* print_ = nullptr;
    QAction* checkedIn_ = nullptr;
    QAction* hideNames_ = nullptr;
    QAction* day_ = nullptr;
    std::map<QAction*, QKeySequence> keys_;  ///< The keys of the window's own commands.
};
