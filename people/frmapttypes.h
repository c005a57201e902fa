#pragma once

#include "session/editordialog.h"

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class ListFilter;
class ctList;

/// Returns the colour (0xBBGGRR) that is stored for a type with the picked colour. A colour that the system reserves
/// for a status or a kind is changed by one or so, so that no type can be mistaken for it. White becomes 0x1000000,
/// which no picker offers and which is still painted as white.
[[nodiscard]] int StoredTypeColor(int picked);

/// Edits the appointment types and their colours. Appointments know their type by its colour, so no two types may have
/// the same colour, and a changed colour is changed in all appointments of the type.
class frmapttypes : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmapttypes(QWidget* parent = nullptr);

    void loadtypes();
    /// Disables the fields and their buttons until a type is added or edited.
    void disablebuttons();
    /// Whether an appointment has the type with this colour. Throws db::DatabaseError.
    [[nodiscard]] static bool IsTypeBeingUsed(int color);

    ctList* fg = nullptr;
    ListFilter* filter_ = nullptr;
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

    /// Closes the form. While a type is being added or edited, Escape only ends that.
    void reject() override;
    /// Whether the type that is being added or edited has another name or colour by now.
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

    int typeId_ = 0;       ///< The type that is being edited; 0 for a new one.
    int color_ = NoColor;  ///< The chosen colour 0xBBGGRR, as it would be stored.
    int oldColor_ = NoColor;
    QString oldName_;
};
