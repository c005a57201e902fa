#pragma once

#include <functional>
#include <QDate>
#include <QList>
#include <QWidget>

class QMenuBar;
class UnreadNotice;
class ViewContents;

/// A calendar view in the main window. It is made when the user changes to it, and unloaded when another view is
/// opened.
class ViewWindow : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    /// Fills the view's own menus into the main window's empty menu bar.
    virtual void FillMenus(QMenuBar& menus) = 0;
    /// Reads the view's rows anew for the main window's date.
    virtual void Reload() = 0;
    /// Returns the date that is one step of this view back (-1) or forward (+1) from the date `from`.
    [[nodiscard]] virtual QDate Stepped(QDate from, int direction) const = 0;
    /// Shows a date that the user chose in the month calendar.
    virtual void ShowDate(QDate /*date*/) { Reload(); }
    /// A view that has its own date goes one step back (-1) or forward (+1) from it, reads anew and returns true. The
    /// other views return false, and the main window steps its own date.
    virtual bool StepOwnDate(int /*direction*/) { return false; }
    /// Returns the date that the view shows while the main window has the date `mainDate`.
    [[nodiscard]] virtual QDate ShownDay(QDate mainDate) const { return mainDate; }
    /// Takes over changed preferences (interval, hours, 24-hour flag) and reloads.
    virtual void ApplyPreferences() = 0;
    /// Adds to the contents of a saved view what this view alone has: its columns, its providers, its filters.
    virtual void AddContents(ViewContents& /*contents*/) const {}
    /// Shows what AddContents has kept, and reads anew. A view that opens for saved contents takes them from the main
    /// window instead (MainWindow::TakeContents), so that it is not loaded twice.
    virtual void ShowContents(const ViewContents& /*contents*/) { ApplyPreferences(); }
    /// Scrolls to the present time. The main window has gone to today.
    virtual void ShowNow() {}
    /// Sets the captions and ticks of the menus after the task pane or the patients' names were hidden or shown, or the
    /// saved views have changed.
    virtual void FollowMainWindow() {}
    // The toolbar's commands. A view that does not have one of them leaves its routines as they are.
    virtual void AddAppointment() {}
    virtual void FindAppointment() {}
    virtual void PrintSchedule() {}
    [[nodiscard]] virtual bool CanAdd() const { return false; }
    [[nodiscard]] virtual bool CanFind() const { return false; }
    [[nodiscard]] virtual bool CanPrint() const { return false; }
    /// Returns the widgets beside the view's own that the key for the next pane goes to, in their order.
    [[nodiscard]] virtual QList<QWidget*> SidePanes() const { return {}; }
    /// Stores the text that is being typed in place. It is called before something else is read or written.
    void CommitEdits();
    /// Opens the database again after its file was replaced, and reads everything anew, so that no row of the old file
    /// is written by its key into the new one. Text that is being typed belongs to the old file: storing it is refused.
    void OpenDatabaseAgain();

    /// The subject of the notice which says that the database's file was replaced (ShowNotice).
    static const QString ReplacedDatabase;

  Q_SIGNALS:
    /// Raised after this view opened the database again.
    void DatabaseOpenedAgain();

  protected:
    /// Calls `read`, which reads the contents of `place`, and returns whether that succeeded. When it throws a
    /// DatabaseError, the user is told `told` with the reason, and `place` is covered with a notice that it could not
    /// be read and a button that calls `again`. The cover goes when a later call succeeds.
    bool readInto(QWidget& place, const QString& told, const std::function<void()>& read,
                  const std::function<void()>& again);
    /// The same with Reload for `again`.
    bool readInto(QWidget& place, const QString& told, const std::function<void()>& read);
    /// Whether a part of the view is covered because its contents could not be read.
    [[nodiscard]] bool hasUnread() const;
    /// Reads everything anew, including what Reload keeps.
    virtual void reloadWhole() { Reload(); }

  private:
    void tryAgain(const std::function<void()>& again);

    UnreadNotice* unread_ = nullptr;
};
