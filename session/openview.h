#pragma once

#include <optional>
#include <QDate>
#include <QString>

#include "platform/calendar/item.h"
#include "session/view.h"

/// A range of time that the user has selected in the open view, in minutes since midnight.
struct SelectedSlot {
    QDate date;
    int start = 0;
    int end = 0;

    friend bool operator==(const SelectedSlot&, const SelectedSlot&) = default;
};

/// The provider in whose schedule the open view books.
struct BookedProvider {
    QString id;
    QString name;
};

/// What a dialog may ask of the calendar view that is open, so that no dialog knows a view. The view of the moment
/// registers itself; the caller of a dialog reloads the view when the dialog has closed.
class OpenView {
  public:
    OpenView() = default;
    virtual ~OpenView();
    OpenView(const OpenView&) = delete;
    OpenView& operator=(const OpenView&) = delete;

    /// The selected item as the view holds it; nothing where none is selected.
    [[nodiscard]] virtual std::optional<CalendarItem> SelectedItem() const = 0;
    /// The selected range of time; nothing where none is selected.
    [[nodiscard]] virtual std::optional<SelectedSlot> SelectedTime() const = 0;
    /// The date chosen in the main window; here that of the selected time, else today.
    [[nodiscard]] virtual QDate ShownDate() const;
    /// The session's provider, unless the view has a choice of its own (all providers).
    [[nodiscard]] virtual BookedProvider Provider() const;
    /// Gives up the provisional selection of an appointment that is not made after all.
    virtual void DropSelection() = 0;

  protected:
    /// Makes this the open view; it stays so until it goes or another registers.
    void registerOpenView();
};

/// The open view; null while there is none.
[[nodiscard]] OpenView* TheOpenView();

/// Whether appointments are booked and edited in this view: in the day, the week and all providers.
[[nodiscard]] bool ViewHasEditor(View view);
/// The `nkeyid` of the selected item of a view that has the editor; 0 for other views, without a view or without a
/// selected item.
[[nodiscard]] int SelectedItemKey(View view);
/// The `nkeyid` of the appointment that an editor is opened on, 0 for a new one. It is the selected item's, or the
/// session's CurrentApptKey where the view has lost its selection: a key of 0 would add the appointment once more.
[[nodiscard]] int EditedApptKey();

/// The provider of the open view, or the session's where no view is open.
[[nodiscard]] BookedProvider ProviderOfView();
