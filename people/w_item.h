#pragma once

#include "session/editordialog.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class ctDEdit;

/// Edits one task of a provider: the task with the key in the session's CurrentTaskId, or a new one where that is -1.
/// OK stores it and accepts the form. After a failure, which the user is told, the typed text stays for another
/// attempt. The caller reloads the task list.
class w_Item : public EditorDialog {
    Q_OBJECT

  public:
    explicit w_Item(QWidget* parent = nullptr);

    QLineEdit* txtTaskDesc = nullptr;
    QPlainTextEdit* txtnotes = nullptr;
    ctDEdit* ctDEditComp = nullptr;  ///< The date when the task is due; may stay empty.
    QRadioButton* Option4 = nullptr;
    QRadioButton* Option3 = nullptr;
    QRadioButton* Option2 = nullptr;
    QRadioButton* option1 = nullptr;
    QLabel* lbldate = nullptr;  ///< The date when the task was entered.
    QPushButton* btnOK = nullptr;
    QPushButton* btnCancel = nullptr;

  private:
    void buildForm();
    void layOutForm();
    void loadTask();
    [[nodiscard]] bool isNew() const;
    [[nodiscard]] int priority() const;
    [[nodiscard]] QString notes() const;
    void btnOK_Click();
    /// These two return whether the task was stored.
    [[nodiscard]] bool addTask() const;
    [[nodiscard]] bool changeTask() const;
};
