#pragma once

#include <optional>
#include <QDialog>
#include <QLineEdit>

class AddressEdit;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QListWidget;
class QPushButton;
class ctDEdit;
class ctMEdit;

/// Adds a patient while an appointment is being made: a row of patient_info, the first row of incident_hx, and, where
/// the companion link is on, a client of the companion.
///
/// The caller passes the names that are already known, shows the form modally and asks for the NewPatientId. Both rows
/// are written in one transaction, because a patient without an episode would be invisible to a user who sees only
/// their own patients. Only a successful save closes the form. After a failure, a "No" to a duplicate name, and a wish
/// to save incomplete data, it stays open with everything that was typed.
class frmnewpat : public QDialog {
    Q_OBJECT

  public:
    /// What is known of the patient before the form opens.
    struct Names {
        QString last;
        QString first;
        QString provider = {};  ///< The id of the provider with whom the appointment is made. It may be empty.
    };

    explicit frmnewpat(const Names& known, QWidget* parent = nullptr);
    ~frmnewpat() override;

    /// The `patient_info.id` of the patient who was added; nothing where nobody was.
    [[nodiscard]] const std::optional<QString>& NewPatientId() const { return newPatientId_; }

    QLabel* lblid = nullptr;
    QLabel* lblage = nullptr;
    /// The data that is still missing, or that will not be saved as it was typed.
    QLabel* lblmissing = nullptr;
    QLineEdit* txtid = nullptr;
    QLineEdit* txtlname = nullptr;
    QLineEdit* txtfname = nullptr;
    QLineEdit* txtmi = nullptr;
    QLineEdit* txtsal = nullptr;
    ctDEdit* txtdob = nullptr;
    ctMEdit* txtssn = nullptr;
    AddressEdit* txtaddress = nullptr;
    QLineEdit* txtcity = nullptr;
    QLineEdit* txtstate = nullptr;
    QLineEdit* txtzip = nullptr;
    ctMEdit* txthphone = nullptr;
    ctMEdit* txtwphone = nullptr;
    ctMEdit* txtcphone = nullptr;
    QLineEdit* txtemail = nullptr;
    QComboBox* cbosex = nullptr;
    QComboBox* cboprovider = nullptr;
    /// The ids of the providers in the rows of cboprovider; never shown.
    QListWidget* lstproviders = nullptr;
    QCheckBox* ckactive = nullptr;
    ctDEdit* txtdic = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

    /// Handles Escape, Cancel and the window's close button. Asks whether to save when something was changed.
    void reject() override;

    /// Whether all required fields are filled: a last and a first name, a provider, a sex, and a date of birth that is
    /// a date and not after today.
    [[nodiscard]] bool IsRequiredFields() const { return missingFields().isEmpty(); }
    /// Whether a patient has these names, in any case. Throws DatabaseError.
    [[nodiscard]] static bool dupname(const QString& last, const QString& first);

  private:
    struct MissingField {
        QString name;
        QWidget* field;
    };

    // Building the form; these members are in frmnewpat_form.cpp.
    void buildForm();
    void addName(QGridLayout& grid, int row);
    void addIdentity(QGridLayout& grid, int row);
    void addAddress(QGridLayout& grid, int row);
    void addContact(QGridLayout& grid, int row);
    void addProvider(QGridLayout& grid, int row);
    [[nodiscard]] QWidget* buttonRow();
    void setTabOrders();

    void watchChanges();
    void loadprovlist();
    void presetProvider(const QString& id);
    void loadAccountLabel();
    void changed();
    void txtdob_Leave();
    void showMissing();
    void cmdOk_Click();

    // Saving; these members are in frmnewpat_save.cpp.
    /// Returns true when the patient is stored. Otherwise the user has been told the reason.
    bool savenewpatient();
    bool mayAddName() const;
    void insertPatient(const QString& id);
    void insertEpisode(const QString& id);
    [[nodiscard]] bool wantsExport() const;
    /// Exports the patient where the link is on: at once when the practice exports without a question, otherwise after
    /// one. A failing export leaves the patient saved.
    void exportPatient(const QString& id);

    /// Invalid unless the date of birth is a date and not after today.
    [[nodiscard]] QDate birthDate() const;
    [[nodiscard]] QString providerId() const;
    [[nodiscard]] QList<MissingField> missingFields() const;
    [[nodiscard]] QStringList warnings() const;

    bool dirty = false;
    std::optional<QString> newPatientId_;
    /// The reason why the last date of birth was removed. It stays until the next date is typed.
    QString birthDateNote_;
};
