#pragma once

#include "session/editordialog.h"

class QLabel;
class QLineEdit;
class QPushButton;
class ListFilter;
class ctList;

/// The lists of the practice that frmlocs edits. The numbers are the form's modes.
enum class PracticeList { Locations = 1, Rooms = 2, Events = 3, Availability = 4 };

/// Adds, renames and deletes the entries of one list of the practice. Every button writes at once. Two entries that
/// differ only in case count as the same. Whether an entry is used is not checked, because appointments keep their own
/// texts.
///
/// After a write that the database refuses, which the user is told, the list shows the stored entries.
class frmlocs : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmlocs(PracticeList list, QWidget* parent = nullptr);

    QLabel* lblhint = nullptr;
    ctList* List1 = nullptr;
    QLineEdit* txtlocation = nullptr;
    QPushButton* cmdadd = nullptr;
    QPushButton* cmdrename = nullptr;
    QPushButton* cmddelete = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;
    /// Whether a name was typed. A name that a selected entry put into the field does not count.
    [[nodiscard]] bool IsChanged() const override;

  private:
    void buildForm();
    void layOutForm();
    /// Runs loadlocations, LoadRooms, loadevents or loadavail, depending on the list.
    void loadlist();
    void followSelection();
    void followText();
    /// Returns the row with that name, in any case and without the blanks around it, or -1.
    [[nodiscard]] int rowOf(const QString& name) const;
    void cmdadd_Click();
    void cmdrename_Click();
    void cmddelete_Click();
    /// Runs a write and loads the list again, also after a failure. `step` returns whether the typed text was stored;
    /// the field is then emptied.
    template <class Write>
    void write(Write step);

    PracticeList list_;
    ListFilter* filter_ = nullptr;
    QString offered_;  ///< The text that the last selected entry put into the field.
};
