#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class ctList;

/// Asks for the type of a new session note. The user's own list stands first, then, below a line, the types of the
/// practice that are not in it. The first one is selected.
///
/// The line can be selected like an entry. It chooses the type 0, with which no note is made.
class frmSNoteType : public QDialog {
    Q_OBJECT

  public:
    explicit frmSNoteType(QWidget* parent = nullptr);

    /// Fills the list and selects its first entry. Types that cannot be read leave it empty, and the form says so.
    void LoadNoteTypes();
    /// The chosen type; 0 where none was chosen.
    [[nodiscard]] int NoteType() const { return noteType_; }

    ctList* List1 = nullptr;
    QLabel* lblnothing = nullptr;  ///< Why the list is empty.
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

  private:
    void buildForm();
    void addOwnTypes();
    void addAllTypes();
    [[nodiscard]] bool holds(const QString& name) const;
    void cmdOk_Click();

    int noteType_ = 0;
};
