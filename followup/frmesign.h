#pragma once

#include <QDialog>
#include <QString>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedLayout;
class SigPlus;
class TextField;
class WebSurface;

/// How a note is signed.
enum class SignatureWay { Password = 0, Pad = 1, Web = 2 };

/// What is to be signed, and by whom.
struct SignatureRequest {
    SignatureWay way = SignatureWay::Password;
    int SessionId = 0;     ///< sessions.id of the note.
    QString CallerName;    ///< The form that asks. Signatures are stored for "frmmsdApt".
    QString ProviderName;  ///< First and last name of the note's provider.
    QString ProviderId;
    QString UserName;  ///< The provider's login. Empty where the provider has none.
    QString DateText;  ///< The date of signing, as the form shows it.
    QString Message;   ///< What is confirmed by signing.
};

/// Signs a note, by the provider's password, on a pad, or on the page of a web signature service. Sign writes the
/// signature and closes the form; Cancel closes it and writes nothing. What the database refuses is told in the
/// window's bar, and the note then stays as it was.
class frmesign : public QDialog {
    Q_OBJECT

  public:
    explicit frmesign(const SignatureRequest& request, QWidget* parent = nullptr);
    ~frmesign() override;

    /// Sets `ok` to whether the typed password is that of the user. The user is told where it is not.
    void VerifyPassword(const QString& userid, bool& ok) const;
    void done(int result) override;

    // The password. Only the panel of the request's way is shown.
    QWidget* pnlpassword = nullptr;
    QLabel* lblusername = nullptr;
    TextField* txtuserid = nullptr;
    TextField* txtpw = nullptr;
    QLabel* lblmessage1 = nullptr;
    QPushButton* cmdSign = nullptr;
    QPushButton* cmdcancel = nullptr;

    // The signature pad.
    QWidget* pnlpad = nullptr;
    QLabel* pnlSigName = nullptr;
    QLabel* lblDateSigned = nullptr;
    SigPlus* SigPlus1 = nullptr;
    QWidget* picPin = nullptr;
    TextField* txtpin = nullptr;
    QLabel* lblmessage2 = nullptr;
    QPushButton* cmdClear = nullptr;
    QPushButton* cmdsign2 = nullptr;
    QPushButton* cmdcancel2 = nullptr;

    // The web surface.
    QWidget* pnlweb = nullptr;
    QLabel* pnlname3 = nullptr;
    QLabel* pnldate3 = nullptr;
    QLabel* pnlwait = nullptr;      ///< Shown instead of the page while it loads, and where it cannot be shown.
    WebSurface* webMain = nullptr;  ///< Null where there is none, and in the other ways: "about:blank" needs none.
    SigPlus* SigPlus2 = nullptr;
    QLabel* lblmessage3 = nullptr;
    QPushButton* cmdClearPic = nullptr;
    QPushButton* cmdSign3 = nullptr;
    QPushButton* cmdCancel3 = nullptr;

  private:
    void buildForm();
    QWidget* passwordPanel();
    QWidget* padPanel();
    QWidget* webPanel();
    void connectButtons();

    void cmdSign_Click();
    void cmdsign2_Click();
    /// Seals the drawn signature under the note's key, writes it and closes the form. An empty pad, and a note whose
    /// key cannot be read, are told, and the form stays.
    void signWith(SigPlus& pad);
    /// Writes the signature for the caller that signatures are stored for, and closes the form.
    void write(const QString& name, const QString& text);
    [[nodiscard]] bool isStored() const;

    void openPage();
    void webMain_DocumentComplete(const QString& address);
    void webMain_LoadFailed(const QString& reason);
    /// Whether a signature that came from the page waits to be written. Until Clear, the page behind it may go where it
    /// likes: what the user drew stays on the screen.
    [[nodiscard]] bool holdsDrawing() const;
    void takePage(const QString& text);
    void cmdSign3_Click();
    void cmdClearPic_Click();
    void showWaiting();
    void showTrouble(const QString& text);
    void showOnSurface(QWidget* shown);

    const SignatureRequest request_;
    QStackedLayout* surface_ = nullptr;
    QString address_;      ///< The page of the signature service.
    bool closed_ = false;  ///< What a page still says is no longer heard.
};
