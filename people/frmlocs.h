#pragma once

#include "session/editordialog.h"

class QLabel;
class QLineEdit;
class QPushButton;
class ctList;

/// The lists of the practice that frmlocs keeps, by the numbers of its modes.
enum class PracticeList { Locations = 1, Rooms = 2, Events = 3, Availability = 4 };

/// Adds, renames and deletes the entries of one list of the practice. Every button writes at once. Entries that name
/// the same thing in another case are the same; no test is made whether an entry is used, since appointments keep their
/// texts.
///
/// A write that the database refuses is told, and the list shows what is stored.
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
    /// A name that was typed, and not one that a selected entry brought.
    [[nodiscard]] bool IsChanged() const override;

  private:
    void buildForm();
    void layOutForm();
    /// loadlocations, LoadRooms, loadevents or loadavail, by the list.
    void loadlist();
    void followSelection();
    void followText();
    /// The row of that name, in any case and without the blanks around it; -1 for none.
    [[nodiscard]] int rowOf(const QString& name) const;
    void cmdadd_Click();
    void cmdrename_Click();
    void cmddelete_Click();
    /// Runs a write, which answers whether what was typed is stored, and loads the list anew, whatever came of it.
    template <class Write>
    void write(Write step);

    PracticeList list_;
    QString offered_;  ///< What the entry selected last has put into the field.
};
