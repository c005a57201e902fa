#pragma once

#include <optional>
#include <QDialog>
#include <QStringList>

/// A dialog in which the user types and saves.
///
/// Escape and the window's close button ask once before they discard what was typed. A form without a change closes at
/// once, and so does its Cancel button. A failing save closes the form as unsaved; RunEditor then keeps the form with
/// all that was typed.
class EditorDialog : public QDialog {
    Q_OBJECT

  public:
    using QDialog::QDialog;

    /// Whether a field differs from its contents when the form was first shown. A form that holds more than its fields
    /// show overrides this.
    [[nodiscard]] virtual bool IsChanged() const;
    /// Whether the form was closed because its save failed.
    [[nodiscard]] bool IsUnsaved() const { return unsaved_; }
    /// Returns what is edited, as the end of the sentence "Not saved: ...". It names no patient.
    [[nodiscard]] virtual QString Subject() const { return windowTitle(); }

  protected:
    /// Returns the question that the user is asked before what was typed is lost.
    [[nodiscard]] virtual QString giveUpQuestion() const;
    /// Whether the form may be closed: nothing would be lost, or the user agrees.
    [[nodiscard]] bool mayGiveUp() const;
    /// Closes the form after a failed save, of which the user has been told.
    void closeUnsaved();
    /// Closes a smaller part of the form that is open, if any. Returns whether Escape is used up by that, so that the
    /// form stays. The window's close button closes such a part too, and then goes on.
    virtual bool takesEscape() { return false; }

    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    std::optional<QStringList> firstState_;
    bool unsaved_ = false;
};
