#pragma once

#include <functional>

#include "session/editordialog.h"
#include "shell/printoptions.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class TextField;

/// What the view that opens the print options tells the form.
struct PrintOptionsRequest {
    bool weekends = false;       ///< Whether ckweekends is shown. Only the week view can be printed without weekends.
    std::function<void()> help;  ///< Opens the help.
};

/// The form of the print options of the user who is logged on. The white sample shows title and time as they will be on
/// paper. OK stores all options as the user's own, all or none; when that fails, the form stays open and says so.
/// Cancel stores nothing.
class frmpopts : public EditorDialog {
    Q_OBJECT

  public:
    explicit frmpopts(PrintOptionsRequest request, QWidget* parent = nullptr);

    [[nodiscard]] bool IsChanged() const override;

    QLabel* lblTitle = nullptr;      ///< The sample of a title line.
    QLabel* lbltime = nullptr;       ///< The sample of the time column.
    QLabel* lbltitlefont = nullptr;  ///< "Arial, 12 points, bold"
    QLabel* lbltimefont = nullptr;
    QPushButton* cmdtitlefont = nullptr;
    QPushButton* cmdtimefont = nullptr;
    QComboBox* cboalign = nullptr;
    QComboBox* cbounits = nullptr;
    TextField* txtcols = nullptr;
    QCheckBox* ckweekends = nullptr;
    QCheckBox* ckTaskBar = nullptr;
    QPushButton* cmdok = nullptr;
    QPushButton* cmdcancel = nullptr;
    QPushButton* cmdhelp = nullptr;

  private:
    void buildForm();
    QWidget* buildTitles();
    QWidget* buildSample(QWidget* parent);
    QWidget* buildPage();
    void loadOptions();
    void chooseFont(QFont& font, const QString& title);
    void showSample();
    void cmdok_Click();
    /// Returns the number in txtcols when it is from 1 to 9.
    [[nodiscard]] std::optional<int> enteredColumns() const;
    [[nodiscard]] PrintOptions entered(int columns) const;

    PrintOptionsRequest request_;
    PrintOptions read_;  ///< The options when the form was opened.
    QFont titleFont_;
    QFont timeFont_;
};
