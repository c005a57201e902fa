#pragma once

#include "shell/detailspane.h"
#include "views/calendarview.h"

class QSplitter;
class ctList;

/// The day view: one provider's one day as a column of time, beside it the details of the selected appointment, its
/// note and the provider's tasks. The day's content lives in the calendar alone; it is read anew by LoadDayView and by
/// nothing else.
class frmsched : public CalendarView {
    Q_OBJECT

  public:
    explicit frmsched(MainWindow& main, QWidget* parent = nullptr);

    /// Reads the main window's date for the session's provider. A reload of the day that is shown keeps the place and
    /// the selected item, unless the names were hidden meanwhile; another day or provider starts at its first minute.
    /// Appointments that cannot be read are told, so that nobody books into a day that only looks free; any other read
    /// that fails leaves the day a little shorter.
    void LoadDayView();
    /// Shades the time outside the provider's working hours on that weekday.
    void LoadWorkSchedule(QDate day);
    /// Fills the task list of the session's provider.
    void LoadToDo();
    /// The date title: "March 11, 2026", in English whatever the locale.
    void changedate(QDate date);

    void displayapptinfo(int index) override;
    void Reload() override;
    /// The tasks are read anew too: the preferences may hide the done ones.
    void ApplyPreferences() override;
    [[nodiscard]] bool CanPrint() const override { return true; }
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    // frmsched_layout.cpp
    void layOut();
    void addTaskPane();
    void rememberPanes();
    void sharePanes();

    // frmsched.cpp
    [[nodiscard]] QStringList dayStatements() const;

    // frmsched_tasks.cpp
    void bindTaskCommands();
    [[nodiscard]] static QString tasksStatement();
    void tickTask(int row, bool done);
    void openTask(int taskId);
    void deleteTask();
    void offerTaskPrint();
    void printTasks();

    // frmsched_info.cpp
    [[nodiscard]] QStringList detailStatements(const CalendarItem& item) const override;
    void showNote(const QString& note, DetailsPane::About about);
    void addRoom(const QString& key);
    void addContacts(const CalendarItem& item, const RowFacts& facts);
    void getgroumembers(const QString& key);

    QSplitter* SSSplitter1 = nullptr;
    DetailsPane* details_ = nullptr;
    bool panesChosen_ = false;  ///< The user has put the splitter somewhere.
    ctList* ctList1 = nullptr;

    QString tasksOf_;
};
