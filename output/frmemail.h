#pragma once

#include <memory>
#include <optional>
#include <QPointer>

#include "output/company.h"
#include "output/smtpsettings.h"
#include "platform/mail/sending.h"
#include "session/editordialog.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

/// What a new message holds when its form opens.
struct NewMessage {
    QString to;  ///< Addresses, separated by "," or ";".
    QString subject;
    QString body;
};

/// Writes one plain message and sends it over the practice's mail server, from the practice's own address.
///
/// The form lives while it sends, and Cancel, Escape and the window's close button then end the sending and not the
/// form. It closes once the server has taken the message for everybody. After a failure it stays open with everything
/// that was typed.
class frmEmail : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmEmail(const NewMessage& message, QWidget* parent = nullptr);
    ~frmEmail() override;

    [[nodiscard]] QSize sizeHint() const override;
    /// Whether a message is on its way.
    [[nodiscard]] bool IsSending() const { return sending_ != nullptr; }

    QLabel* lblfrom = nullptr;
    QLineEdit* txtto = nullptr;
    QLineEdit* txtcc = nullptr;
    QLineEdit* txtbcc = nullptr;
    QLineEdit* txtsubject = nullptr;
    QPlainTextEdit* txtbody = nullptr;
    QProgressBar* pnlprogress = nullptr;  ///< How far the sending is; hidden while none is on its way.
    QLabel* lblstatus = nullptr;          ///< What the sending does, or why the last one failed.
    QPushButton* SSRibbon1 = nullptr;
    QPushButton* cmdCancel = nullptr;

  protected:
    [[nodiscard]] QString giveUpQuestion() const override;
    bool takesEscape() override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // Building the form.
    void buildForm(const NewMessage& message);
    [[nodiscard]] QWidget* fieldArea();
    void layOutForm();

    // Sending; these members are in frmemail_send.cpp.
    void loadSettings();
    void loadCompany();
    void SSRibbon1_Click();
    void cmdCancel_Click();
    /// Returns the message, or nothing where a field has to be mended first, of which the user has been told.
    [[nodiscard]] std::optional<mail::Message> message();
    [[nodiscard]] std::optional<std::vector<mail::Address>> addressesOf(QLineEdit& field);
    void SendPlainMail(const mail::Message& message);
    void SendSecureMail(const mail::Message& message);
    void send(const mail::Message& message, void (frmEmail::*tell)(const mail::Outcome&));
    void tellPlain(const mail::Outcome& outcome);
    void tellSecure(const mail::Outcome& outcome);
    void showStep(mail::Step step);
    void showSending(bool isSending);
    void showStatus(const QString& text);

    std::optional<SmtpSettings> settings_;  ///< Nothing while they could not be read.
    std::optional<Company> company_;        ///< Likewise.
    std::unique_ptr<mail::Sending> sending_;
    QPointer<QWidget> focusBefore_;  ///< The field that had the focus when the sending began.
};
