#pragma once

#include <optional>
#include <QDialog>
#include <QStringList>

/// A dialog in which something is typed and saved.
///
/// Escape and the window's close button ask once before they throw away what was typed; a form without a change closes
/// at once, and so does its Cancel button. A save that fails closes the form as unsaved: RunEditor then keeps it with
/// all that was typed.
class EditorDialog : public QDialog {
    Q_OBJECT

  public:
    using QDialog::QDialog;

    /// Whether a field holds something else than when the form was shown first. A form that keeps more than its fields
    /// show adds that.
    [[nodiscard]] virtual bool IsChanged() const;
    /// The form was closed because its save failed.
    [[nodiscard]] bool IsUnsaved() const { return unsaved_; }
    /// What is edited, in a sentence behind "Not saved: ". It names no patient.
    [[nodiscard]] virtual QString Subject() const { return windowTitle(); }

  protected:
    /// Whether nothing would be lost by closing the form, or the user says that it may.
    [[nodiscard]] bool mayGiveUp() const;
    /// Closes the form after a save that failed, which the user has been told.
    void closeUnsaved();
    /// Whether Escape has closed something smaller in the form, which then stays. The window's close button closes that
    /// too, and goes on.
    virtual bool takesEscape() { return false; }

    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    std::optional<QStringList> firstState_;
    bool unsaved_ = false;
};
