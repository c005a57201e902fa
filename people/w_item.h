#pragma once

#include "session/editordialog.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class ctDEdit;

/// One task of a provider: a new one of the session's provider, or the one of a key. OK stores it and accepts the form;
/// a failure is told and leaves what was typed for another attempt. The task list is the caller's to reload.
class w_Item : public EditorDialog {
    Q_OBJECT

  public:
    static constexpr int NewTask = -1;

    /// `CurrentTaskId` is the key of the task, NewTask for one that is to be added.
    explicit w_Item(int CurrentTaskId, QWidget* parent = nullptr);

    QLineEdit* txtTaskDesc = nullptr;
    QPlainTextEdit* txtnotes = nullptr;
    ctDEdit* ctDEditComp = nullptr;  ///< When the task is due; may stay empty.
    QRadioButton* Option4 = nullptr;
    QRadioButton* Option3 = nullptr;
    QRadioButton* Option2 = nullptr;
    QRadioButton* option1 = nullptr;
    QLabel* lbldate = nullptr;  ///< When it was entered.
    QPushButton* btnOK = nullptr;
    QPushButton* btnCancel = nullptr;

  private:
    void buildForm();
    void layOutForm();
    void loadTask();
    [[nodiscard]] bool isNew() const { return taskId_ == NewTask; }
    [[nodiscard]] int priority() const;
    [[nodiscard]] QString notes() const;
    void btnOK_Click();
    /// Both answer whether the task is stored.
    [[nodiscard]] bool addTask() const;
    [[nodiscard]] bool changeTask() const;

    const int taskId_;
};
