#pragma once

#include <QDialog>

#include "platform/controls/textfield.h"

class QLabel;
class QPushButton;
class ctList;

/// Lets the user choose the provider whose schedule is shown. OK or a double click puts the selected provider's id and
/// name into the session's ProviderId and ProviderName; Cancel leaves both unchanged. The ids beside the names tell
/// providers with the same surname apart.
class frmsltpv : public QDialog {
    Q_OBJECT

  public:
    explicit frmsltpv(QWidget* parent = nullptr);

    ctList* List1 = nullptr;
    TextField* txtfind = nullptr;
    QPushButton* cmdfind = nullptr;
    QLabel* lblcount = nullptr;
    QLabel* lblnobody = nullptr;  ///< Says what to do in a practice without providers.
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

    [[nodiscard]] QSize sizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildForm();
    void loadProviders();
    /// Shows only the names that contain the text of txtfind.
    void filter();
    /// Selects the first name that starts with the text of txtfind, in any case. Without a match the selection stays.
    void cmdfind_Click();
    void cmdOk_Click();
};
