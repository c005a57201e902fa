#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <QDate>
#include <QMainWindow>
#include <QSize>

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
class ctTaskPane;

/// Makes the views. A view without an entry is shown as not available.
using ViewFactories = std::map<View, std::function<std::unique_ptr<ViewWindow>(MainWindow&)>>;

/// The main window: toolbar, task pane with the month calendar, title, status panels, and one calendar view at a time.
/// Between title and view stands what the user is told in passing (ShowNotice); it stays when the view is changed.
///
/// Its keys: Ctrl+1 to Ctrl+6 the views, Ctrl+T today, Alt+Left and Alt+Right one step back and forward, F5 reload,
/// Ctrl+N add, Ctrl+F find, Ctrl+P print, Ctrl+I check-in list, Ctrl+H hide names, Ctrl+L provider, Ctrl+, preferences,
/// F9 task pane, F6 and Shift+F6 from pane to pane, F1 help, Ctrl+Q leave. Names are hidden from every window of the
/// program, a dialog in front too. A menu item of the open view that carries
/// one of these keys takes it over.
class mdisched : public QMainWindow, public MainWindow, public StartUpWindow {
    Q_OBJECT

  public:
    explicit mdisched(ViewFactories factories);
    ~mdisched() override;

    /// The date of the first view; today unless told.
    void OpenAt(QDate date) { openingDate_ = date; }
    /// The size to open with instead of the remembered place; the place is not remembered either.
    void OpenWithSize(QSize size) { openingSize_ = size; }
    /// Whether the view exists and is open to the user.
    [[nodiscard]] bool ViewAvailable(View view) const;
    [[nodiscard]] ViewWindow* ShownView() const { return view_; }

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
    void WritePanels() override;
    void Leave() override { close(); }

  Q_SIGNALS:
    /// A view has been loaded and shown.
    void ViewOpened();
    /// The user wants the list of those who have checked in.
    void CheckedInRequested();
    /// The view has opened the database again after its file was replaced: what else shows rows reads anew.
    void DatabaseOpenedAgain();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // Building, once.
    void buildActions();
    void buildToolBar();
    void buildCentre();
    void buildStatusBar();
    /// Without `run` the command's screen is not part of this version.
    QAction* command(const char* name, const QString& text, const char* icon, const QKeySequence& key,
                     std::function<void()> run);
    void addToToolBar(QAction* action, const char* name);

    // One view after the other.
    void openView(View view);
    [[nodiscard]] bool unloadView();
    void putStatusLinkLast();
    void fillMenus();
    void yieldKeys(const QList<QAction*>& menuActions);
    void showCommandsOfView();
    void applyInterfaceFont();
    void chooseFromTaskPane(const QString& key);
    [[nodiscard]] bool findCompanionProvider();

    void reloadView();
    void tellReplaced(const QString& why);
    void openDatabaseAgain();
    void dateClicked();
    void playSound(const char* fileName) const;
    void cyclePanes(int direction);

    ViewFactories factories_;
    ViewWindow* view_ = nullptr;
    std::optional<QDate> openingDate_;
    std::optional<QSize> openingSize_;
    QString helpFile_;
    bool ready_ = false;
    bool interfaceFontApplied_ = false;

    ctTaskPane* taskPane_ = nullptr;
    ctDate* ctDate1_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    QSplitter* splitter_ = nullptr;
    QVBoxLayout* viewPlace_ = nullptr;
    QLabel* pnltitle_ = nullptr;
    NoticeBar* notices_ = nullptr;
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
    std::map<QAction*, QKeySequence> keys_;  ///< Of the window's own commands.
};
