#pragma once

#include <QLineEdit>
#include <utility>
#include <vector>

#include "session/editordialog.h"

class AddressEdit;
class NoteField;
class QGridLayout;
class QPushButton;
class QStackedWidget;
class TextField;
class ctMEdit;

/// Adds a contact of the logged-on user, or edits one. The fields stand on two pages, "Basic Information" and "Notes",
/// whose buttons change between them.
///
/// OK closes the form in any case. Without a change nothing is written. When the save fails, the user has been told
/// why, and the form is closed as unsaved (EditorDialog) with all that was typed. When the contact had been deleted
/// meanwhile, a later OK adds it as a new one.
class frmcontact : public EditorDialog {
    Q_OBJECT

  public:
    static constexpr int NewContact = 0;

    /// `EditContactId` is the `cid` of the contact to edit, or NewContact. The user is told when the contact cannot be
    /// read, is gone or belongs to another user. The form must not be shown then (IsLoaded).
    explicit frmcontact(int EditContactId, QWidget* parent = nullptr);

    /// Whether the form holds the contact that it was opened for. A new contact counts as loaded.
    [[nodiscard]] bool IsLoaded() const { return loaded_; }
    /// The `cid` of the contact; NewContact until a new one is saved.
    [[nodiscard]] int ContactId() const { return contactId_; }
    [[nodiscard]] bool IsChanged() const override;
    [[nodiscard]] QString Subject() const override { return tr("a contact"); }

    QPushButton* SSRibbon1 = nullptr;
    QPushButton* SSRibbon2 = nullptr;
    TextField* txtco = nullptr;
    TextField* txttitle = nullptr;
    TextField* txtdept = nullptr;
    TextField* txtlname = nullptr;
    TextField* txtfname = nullptr;
    TextField* txtmi = nullptr;
    AddressEdit* txtaddress = nullptr;
    TextField* txtcity = nullptr;
    TextField* txtstate = nullptr;
    TextField* txtzip = nullptr;
    ctMEdit* txthphone = nullptr;
    ctMEdit* txtwphone = nullptr;
    ctMEdit* txtfax = nullptr;
    ctMEdit* txtmphone = nullptr;
    ctMEdit* txtpager = nullptr;
    TextField* txtemail = nullptr;
    NoteField* txtnotes = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

  protected:
    /// Drops a ";" or "|" that is typed into a field.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A column of ContactList and its text in the form, as it is stored.
    using ColumnText = std::pair<const char*, QString>;

    // Building the form; these members are in frmcontact_form.cpp.
    void buildForm();
    void buildPages();
    void addWork(QGridLayout& grid, int row);
    void addName(QGridLayout& grid, int row);
    void addAddress(QGridLayout& grid, int row);
    void addPhones(QGridLayout& grid, int row);
    void addMail(QGridLayout& grid, int row);
    [[nodiscard]] QWidget* pageOfNotes();
    [[nodiscard]] QWidget* buttonRow();
    void setTabOrders();

    void loadcontact(int cid);
    /// These return whether the contact is stored. They throw DatabaseError.
    bool savecontacts();
    bool updatecontact(int cid);
    void cmdOk_Click();
    void showPage(int page);
    /// The columns in the order in which they are written.
    [[nodiscard]] std::vector<ColumnText> columns() const;

    QStackedWidget* pages_ = nullptr;
    std::vector<ColumnText> before_;  ///< The columns as they were shown first.
    int contactId_;
    bool loaded_ = true;
};
