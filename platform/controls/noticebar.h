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

/// One line that the user is told without being interrupted, and what can be done about it.
///
/// A notice names no patient, since it stays while names may be hidden.
struct Notice {
    enum class Kind { Information, Caution, Failure };
    struct Action {
        QString text;  ///< "Open again".
        /// Called once the click is over and the notice has gone, so that it may open a dialog.
        std::function<void()> run;
    };

    QString text;  ///< Plain text; line breaks become blanks. What does not fit its line is shown as a tip.
    Kind kind = Kind::Information;
    std::vector<Action> actions = {};  ///< At most two.
    QString subject = {};              ///< A notice takes the place of an older one of the same subject, unless empty.
    /// Where the notice holds what would be lost with it: asked when the user closes it, or the program; false keeps
    /// it.
    std::function<bool()> mayClose = {};
    std::function<void()> dismissed = {};  ///< The user closed the notice without taking one of its actions.
};

/// Tells it in the bar of the main window. False without one (no window is open): the notice is dropped.
bool ShowNotice(Notice notice);
/// Takes the notice of that subject away: what it told has been settled. Nothing where there is none.
void DropNotice(const QString& subject);
/// Whether a notice of that subject stands in the bar.
[[nodiscard]] bool NoticeStands(const QString& subject);

/// A calm bar between the heading and the view of the main window. It is not there until it has something to tell.
///
/// The newest notice stands on top; three are seen, the others wait below and come up as those above are closed. Where
/// more than twenty wait, the oldest that offers nothing to do goes. While a mouse button is down the bar neither comes
/// nor goes, since what is under the pointer would move.
///
/// Keys: Tab goes through the buttons, Enter and Space press one, Escape closes the notice that has the focus.
class NoticeBar : public QWidget {
    Q_OBJECT

  public:
    /// The newest bar is the one that ShowNotice writes to, until it goes.
    explicit NoticeBar(QWidget* parent = nullptr);
    ~NoticeBar() override;

    void Show(Notice notice);
    void Drop(const QString& subject);
    /// Takes all away, without a question.
    void Clear();

    /// All notices, the newest first.
    [[nodiscard]] QStringList Texts() const;
    [[nodiscard]] bool Stands(const QString& subject) const;
    /// Whether the program may end as far as the notices go; each is asked until one refuses.
    [[nodiscard]] bool MayLeave() const;
    /// What takes the focus when the user goes to the bar: the first button of the newest notice. Null while empty.
    [[nodiscard]] QWidget* FocusTarget() const;

    static constexpr std::size_t Seen = 3;
    static constexpr std::size_t Kept = 20;

  Q_SIGNALS:
    /// The notice with the focus has gone, and no other is left to take it.
    void FocusGivenBack();

  private:
    struct Entry {
        int number = 0;
        Notice notice;
        NoticeRow* row = nullptr;  ///< Null while it waits below.
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
    std::vector<NoticeRow*> leaving_;  ///< Their notices have gone; the mouse button is still down.
    int lastNumber_ = 0;
    int told_ = 0;  ///< The newest number that assistive programs have been told of.
    QVBoxLayout* rows_;
    QLabel* more_;
    QTimer* waiting_;
};
