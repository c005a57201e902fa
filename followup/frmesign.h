#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;
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
};
