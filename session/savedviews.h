#pragma once

#include <QString>
#include <utility>
#include <vector>

#include "session/view.h"

/// What a view shows, as lines "name=value". The lines of another version of the program are kept as they stand.
class ViewContents {
  public:
    ViewContents() = default;
    explicit ViewContents(const QString& lines);

    /// Returns the value of a name, or "" when there is none.
    [[nodiscard]] QString Value(const QString& name) const;
    /// Returns a value that is a whole number, or `otherwise`.
    [[nodiscard]] int Number(const QString& name, int otherwise) const;
    /// Sets a value, in which line breaks become blanks. An empty value removes the line.
    void Set(const QString& name, const QString& value);
    void Set(const QString& name, int value) { Set(name, QString::number(value)); }
    /// Adds the lines of `older` whose names this program does not know (SavedName).
    void KeepUnknown(const ViewContents& older);
    [[nodiscard]] QString Lines() const;

    friend bool operator==(const ViewContents&, const ViewContents&) = default;

  private:
    std::vector<std::pair<QString, QString>> lines_;  ///< A line without "=" is a name with the value null.
};

/// The names in the contents of a saved view.
namespace savedname {
inline const QString Provider = QStringLiteral("provider");  ///< The id of the provider whose schedule is shown.
inline const QString Providers =
    QStringLiteral("providers");                         ///< "REED|LANE|": who has a column. Without it, all have.
inline const QString Column = QStringLiteral("column");  ///< The id of the provider who is chosen among them.
inline const QString Discipline = QStringLiteral("discipline");  ///< The filter of all providers.
inline const QString Columns = QStringLiteral("columns");        ///< How many columns share the width.
inline const QString Fit = QStringLiteral("fit");                ///< 1: as many columns as fit.
inline const QString Working = QStringLiteral("working");        ///< 1: only who works on the day.
inline const QString Panel = QStringLiteral("panel");            ///< 0: the list of providers is hidden.
inline const QString FirstHour = QStringLiteral("starthour");
inline const QString LastHour = QStringLiteral("endhour");
inline const QString TimeUnit = QStringLiteral("timeunit");  ///< The minutes of a row.
inline const QString Room = QStringLiteral("room");          ///< The RoomID.
inline const QString Mode = QStringLiteral("mode");          ///< "week" for the week of the companion's schedule.
}  // namespace savedname

/// A view that a user shows with one key.
struct SavedView {
    int id = 0;
    int slot = 0;  ///< The number of the function key, 7 to 12.
    QString title;
    int viewNumber = 0;  ///< The number of a View, or one that only another version of the program knows.
    ViewContents contents;

    static constexpr int FirstSlot = 7;
    static constexpr int LastSlot = 12;
    static constexpr int MostCharacters = 100;  ///< The most characters of a title.

    /// Returns the view, or View::None when this program does not have it.
    [[nodiscard]] View Shows() const;
    friend bool operator==(const SavedView&, const SavedView&) = default;
};

/// Returns the statement that ReadSavedViews reads.
[[nodiscard]] QString SavedViewsStatement();
/// Returns the saved views of the logged-on user by their keys. A row of no function key is left out, and of two rows
/// of one key the newer counts. Throws db::DatabaseError, also where the practice has no table for them.
[[nodiscard]] std::vector<SavedView> ReadSavedViews();
/// Stores a view under its key in the place of what was there. Throws db::DatabaseError.
void StoreSavedView(const SavedView& view);
/// Gives the views of a key another title. Returns false when nothing is saved there. Throws db::DatabaseError.
bool RenameSavedView(int slot, const QString& title);
/// Deletes what is saved under a key. Throws db::DatabaseError.
void DeleteSavedView(int slot);
