#pragma once

#include <functional>
#include <optional>
#include <QDialog>
#include <vector>

#include "session/savedviews.h"

class QLabel;
class QPushButton;
class TextField;
class ctList;

/// Keeps what is on the screen under one of the keys F7 to F12, and renames and deletes what is kept there. Each button
/// writes at once. Saving closes the form.
///
/// What the same user has changed at another desk since the form was filled is not written over unseen: the user is
/// told, and the list shows it.
///
/// Keys besides those of the buttons: Up and Down choose a key while the cursor stays in the name, and F7 to F12 choose
/// their own.
class frmsviews : public QDialog {
    Q_OBJECT

  public:
    /// `shown` is what is on the screen, with a title that is proposed for it.
    explicit frmsviews(SavedView shown, QWidget* parent = nullptr);

    ctList* List1 = nullptr;  ///< Key, name and contents; a row for each key.
    TextField* txtname = nullptr;
    QLabel* lblshown = nullptr;  ///< Says what is on the screen.
    QLabel* lblkey = nullptr;    ///< Says what else answers to the chosen key.
    QPushButton* cmdsave = nullptr;
    QPushButton* cmdrename = nullptr;
    QPushButton* cmddelete = nullptr;
    QPushButton* cmdclose = nullptr;

    [[nodiscard]] QSize sizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void buildForm();
    void layOut();
    void fill();
    void chooseFirstFree();
    void followKey();
    [[nodiscard]] int chosenSlot() const;
    [[nodiscard]] std::optional<SavedView> savedAt(int slot) const;
    [[nodiscard]] QString enteredTitle() const;
    [[nodiscard]] bool isStillAsShown();
    void write(const QString& told, const std::function<void()>& step);
    void save();
    void rename();
    void remove();

    SavedView shown_;
    std::vector<SavedView> saved_;
    bool typed_ = false;  ///< Whether the user has typed a name, which then stays when another key is chosen.
};

/// Returns in a few words what a saved view shows: "Week View, Lane". `nameOf` gives a provider's name for an id.
[[nodiscard]] QString ContentsInWords(const SavedView& saved, const std::function<QString(const QString&)>& nameOf);
