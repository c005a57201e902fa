#pragma once

#include <QDialog>

#include "platform/controls/textfield.h"

class QLabel;
class QPushButton;
class ctList;

/// The choice of the provider whose schedule is shown. OK or a double click puts the selected provider's id and name
/// into the session's ProviderId and ProviderName; Cancel leaves both alone. Two providers of one surname are told
/// apart by their ids beside the names.
class frmsltpv : public QDialog {
    Q_OBJECT

  public:
    explicit frmsltpv(QWidget* parent = nullptr);

    ctList* List1 = nullptr;
    TextField* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    QLabel* lblnobody = nullptr;  ///< What to do in a practice without providers.
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

    [[nodiscard]] QSize sizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildForm();
    void loadProviders();
    /// Selects the first name that starts with the text of txtfind, in any case; none leaves the selection.
    void cmdfind_Click();
    void cmdOk_Click();
};
