#pragma once

#include <initializer_list>
#include <QDialog>

class FillProgress;
class ListFiller;
class QLabel;
class QPushButton;
class TextField;
class ctList;
namespace db {
class Recordset;
}

/// Lets the user choose the client of a new companion appointment. With the right to all schedules the list holds every
/// active client of the companion, otherwise the clients who are paired with a patient of the provider, or with one to
/// whom the provider was given access. The list can be used while it is still being filled.
///
/// A provider who is paired with nobody here has no clients, of which the user is told, unless all clients are listed.
class frmFHClients : public QDialog {
    Q_OBJECT

  public:
    /// `ProvId` and `providerName` are the companion's provider in whose column the appointment is to stand.
    frmFHClients(int ProvId, const QString& providerName, QWidget* parent = nullptr);

    /// The ClntId of the chosen client; 0 before a choice and after Cancel.
    [[nodiscard]] int ClientId() const { return clientId_; }
    /// "{ClntLastName}, {ClntFirstName}" of the chosen client.
    [[nodiscard]] const QString& ClientName() const { return clientName_; }

    QLabel* lblProvider = nullptr;
    TextField* txtfind = nullptr;
    ctList* List1 = nullptr;
    QLabel* lblnobody = nullptr;  ///< Says why the list is empty.
    FillProgress* pnlprogress = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

    [[nodiscard]] QSize sizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildForm(const QString& providerName);
    void layOutForm();
    /// Returns the id of our provider that is paired with the companion's, or an empty text.
    [[nodiscard]] QString GetSVProviderID() const;
    void load();
    void LoadClients(const QString& svProviderId);
    void addClient(const db::Recordset& row);
    /// Shows the ClntId of clients who have one name.
    void showNumbers(std::initializer_list<int> rows);
    /// Selects the first client whose name begins with the text of txtfind, as soon as that client is on the list.
    /// While there is none, nobody is selected, so that OK cannot take another client than the one who was typed.
    void findTyped();
    void enterPressed();
    void cmdOk_Click();

    const int provId_;
    ListFiller* filler_ = nullptr;
    int clientId_ = 0;
    QString clientName_;
};
