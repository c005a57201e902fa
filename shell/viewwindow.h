#pragma once

#include <functional>
#include <QDate>
#include <QWidget>

class QMenuBar;
class UnreadNotice;

/// One calendar view as the main window holds it: it is made when the user changes to it and unloaded when another is
/// opened.
class ViewWindow : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    /// Fills the view's own menus into the main window's empty menu bar.
    virtual void FillMenus(QMenuBar& menus) = 0;
    /// Reads the database anew for the main window's date (LoadDayView and its kin).
    virtual void Reload() = 0;
    /// One step back (-1) or forward (+1) from the view's date: the date the main window goes to.
    [[nodiscard]] virtual QDate Stepped(QDate from, int direction) const = 0;
    /// The user chose this date in the month calendar.
    virtual void ShowDate(QDate /*date*/) { Reload(); }
    /// A view with a date of its own goes one step back or forward from it, and reads anew: true. The others follow the
    /// main window's date.
    virtual bool StepOwnDate(int /*direction*/) { return false; }
    /// The day that the view shows while the main window has this date.
    [[nodiscard]] virtual QDate ShownDay(QDate mainDate) const { return mainDate; }
    /// After the preferences changed: interval, hours and the 24-hour flag, then a reload.
    virtual void ApplyPreferences() = 0;
    /// The task pane or the patients' names were hidden or shown: captions and ticks of the menus follow.
    virtual void FollowMainWindow() {}
    /// The toolbar's commands; a view that lacks one leaves it.
    virtual void AddAppointment() {}
    virtual void FindAppointment() {}
    virtual void PrintSchedule() {}
    [[nodiscard]] virtual bool CanAdd() const { return false; }
    [[nodiscard]] virtual bool CanFind() const { return false; }
    [[nodiscard]] virtual bool CanPrint() const { return false; }
    /// Stores what is being typed in place, before something else is read or written.
    void CommitEdits();
    /// Opens the database again after its file was replaced, and reads anew what the view shows: a row of the old file
    /// is not written by its key into the new one. What is being typed is of the old file, and is refused.
    void OpenDatabaseAgain();

    /// The subject of the notice that the database's file was replaced.
    static const QString ReplacedDatabase;

  Q_SIGNALS:
    /// The database was opened again, by this view.
    void DatabaseOpenedAgain();

  protected:
    /// Reads what `place` shows, and answers whether that went well. Where the database refuses, the user is told the
    /// routine's own text; the place says that it could not be read until it is read well, and offers `again`.
    bool readInto(QWidget& place, const QString& told, const std::function<void()>& read,
                  const std::function<void()>& again);
    bool readInto(QWidget& place, const QString& told, const std::function<void()>& read);  ///< Again is Reload.
    /// Reads everything anew, what Reload keeps too.
    virtual void reloadWhole() { Reload(); }

  private:
    void tryAgain(const std::function<void()>& again);

    UnreadNotice* unread_ = nullptr;
};
