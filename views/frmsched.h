#pragma once

#include "shell/detailspane.h"
#include "views/calendarview.h"

class QSplitter;
class ctList;

/// The day view: one day of one provider as a column of time. Beside it are the details of the selected appointment,
/// its note and the provider's tasks. The contents of the day are held by the calendar only, and only LoadDayView reads
/// them anew.
class frmsched : public CalendarView {
    Q_OBJECT

  public:
    explicit frmsched(MainWindow& main, QWidget* parent = nullptr);

    /// Reads the main window's date for the session's provider. A reload of the day that is shown keeps the place and
    /// the selected item. Another day or provider starts at its first minute. When appointments cannot be read, the
    /// user is told, so that nobody books into a day that only looks free. When the holiday or the working hours cannot
    /// be read, they are left out without a message.
    void LoadDayView();
    /// Shades the time outside the provider's working hours on that weekday.
    void LoadWorkSchedule(QDate day);
    /// Fills the task list of the session's provider.
    void LoadToDo();
    /// Shows the date in the title: "March 11, 2026", in English in every locale.
    void changedate(QDate date);

    void displayapptinfo(int index) override;
    void Reload() override;
    /// Reads the tasks anew too, since the preferences may hide the completed ones.
    void ApplyPreferences() override;
    [[nodiscard]] bool CanPrint() const override { return true; }
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override;

  protected:
    /// Heads the column with the provider's name, because the day stands in the title.
    [[nodiscard]] ScheduleSheet sheet(const PrintOptions& options) const override;
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
    void addSeries(const CalendarItem& item);
    void addContacts(const CalendarItem& item, const ShownAppointment& facts);
    void getgroumembers(const QString& key);

    QSplitter* SSSplitter1 = nullptr;
    DetailsPane* details_ = nullptr;
    bool panesChosen_ = false;  ///< Whether the user has moved the splitter.
    ctList* ctList1 = nullptr;

    QString tasksOf_;
};
