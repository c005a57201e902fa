#pragma once

#include "session/editordialog.h"

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class ctList;

/// The colour (0xBBGGRR) under which a type with the picked colour is stored: one that the system reserves for a status
/// or a kind is moved by one or so, so that no type can be mistaken for it. White becomes 0x1000000, which no picker
/// shows and which paints as black.
[[nodiscard]] int StoredTypeColor(int picked);

/// The appointment types and their colours. The colour of a type is its identity in appointments, so no two types may
/// have the same, and a changed colour is changed in all of the type's appointments with it.
class frmapttypes : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmapttypes(QWidget* parent = nullptr);

    void loadtypes();
    /// Greys the fields and what belongs to them until a type is added or edited.
    void disablebuttons();
    /// Whether an appointment has the type with this colour. Throws db::DatabaseError.
    [[nodiscard]] static bool IsTypeBeingUsed(int color);

    ctList* fg = nullptr;
    QLineEdit* txttype = nullptr;
    QPushButton* PnlPickColor = nullptr;
    QLabel* lblcode = nullptr;
    QPushButton* cmdadd = nullptr;
    QPushButton* cmdedit = nullptr;
    QPushButton* cmddelete = nullptr;
    QPushButton* cmdsave = nullptr;
    QPushButton* cmdcancel = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;

    /// Escape first gives up what is being added or edited.
    void reject() override;
    /// Whether what is being added or edited has another name or colour by now.
    [[nodiscard]] bool IsChanged() const override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    static constexpr int NoColor = -1;

    void buildForm();
    void layOutForm();
    void connectControls();
    void openFields(int typeId, const QString& name, int color);
    void showColor(int color);
    [[nodiscard]] int selectedColor() const;
    [[nodiscard]] static bool mayChange();
    [[nodiscard]] bool colorIsTaken() const;
    void pickColor();
    void cmdadd_Click();
    void cmdedit_Click();
    void cmddelete_Click();
    void cmdsave_Click();
    void store(const QString& name);

    int typeId_ = 0;       ///< Being edited; 0: a new one.
    int color_ = NoColor;  ///< 0xBBGGRR, as it would be stored.
    int oldColor_ = NoColor;
    QString oldName_;
};
