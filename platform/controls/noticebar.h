#pragma once

#include <functional>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <vector>

class NoticeRow;
class QLabel;
class QTimer;
class QVBoxLayout;

/// A message of one line that does not interrupt the user, with the actions that it offers.
///
/// A notice never names a patient, because it stays on the screen while names may be hidden.
struct Notice {
    enum class Kind { Information, Caution, Failure };
    struct Action {
        QString text;  ///< The button's text, such as "Open again".
        /// Called after the click, when the notice has disappeared, so that it may open a dialog.
        std::function<void()> run;
    };

    QString
        text;  ///< Plain text; line breaks become blanks. A text that does not fit in its line is also shown as a tip.
    Kind kind = Kind::Information;
    std::vector<Action> actions = {};  ///< At most two.
    QString subject = {};  ///< A notice replaces an older one of the same subject, unless the subject is empty.
    /// Set where something would be lost with the notice. It is asked when the user closes the notice and when the
    /// program is to end. Returning false keeps the notice.
    std::function<bool()> mayClose = {};
    std::function<void()> dismissed =
        {};  ///< Called when the user closed the notice without taking one of its actions.
};

/// Shows a notice in the bar of the main window. Returns false when there is no such bar; the notice is then dropped.
bool ShowNotice(Notice notice);
/// Takes away the notice of that subject, because its matter has been settled. It does nothing where there is none.
void DropNotice(const QString& subject);
/// Whether a notice of that subject is in the bar.
[[nodiscard]] bool NoticeStands(const QString& subject);

/// A quiet bar between the heading and the view of the main window. It is hidden while it has no notice.
///
/// The newest notice stands on top. Three are shown; the others wait below and come up as those above are closed. When
/// there are more than twenty, the oldest without an action is dropped. While a mouse button is down the bar neither
/// appears nor disappears, because that would move what is under the pointer.
///
/// Keys: Tab goes through the buttons, Enter and Space press one, Escape closes the notice that has the focus.
class NoticeBar : public QWidget {
    Q_OBJECT

  public:
    /// The newest bar becomes the one that ShowNotice writes to, until it is destroyed.
    explicit NoticeBar(QWidget* parent = nullptr);
    ~NoticeBar() override;

    void Show(Notice notice);
    void Drop(const QString& subject);
    /// Takes all notices away without asking their mayClose.
    void Clear();

    /// The texts of all notices, the newest first.
    [[nodiscard]] QStringList Texts() const;
    [[nodiscard]] bool Stands(const QString& subject) const;
    /// Whether the notices let the program end. Each is asked until one refuses.
    [[nodiscard]] bool MayLeave() const;
    /// The widget that takes the focus when the user goes to the bar: the first button of the newest notice. Null while
    /// the bar is empty.
    [[nodiscard]] QWidget* FocusTarget() const;

    static constexpr std::size_t Seen = 3;
    static constexpr std::size_t Kept = 20;

  Q_SIGNALS:
    /// Raised when the notice with the focus has disappeared and no other is left to take the focus.
    void FocusGivenBack();

  private:
    struct Entry {
        int number = 0;
        Notice notice;
        NoticeRow* row = nullptr;  ///< Null while the notice waits below.
    };
    using Place = std::vector<Entry>::iterator;

    void settle();
    void showRows();
    void makeRow(Entry& entry);
    void freeRow(NoticeRow* row);
    void giveFocusOn();
    void tellAssistants();
    void take(int number, std::size_t action);
    void close(int number);
    void remove(Place entry);
    void dropOverflow();
    [[nodiscard]] Place find(int number);
    [[nodiscard]] Place find(const QString& subject);

    std::vector<Entry> entries_;       ///< The newest first.
    std::vector<NoticeRow*> leaving_;  ///< Rows whose notices are gone, kept until the mouse button is up.
    int lastNumber_ = 0;
    int told_ = 0;  ///< The newest notice that assistive programs were told of.
    QVBoxLayout* rows_;
    QLabel* more_;
    QTimer* waiting_;
};
