#pragma once

#include <functional>
#include <QWidget>

class QLabel;
class QPushButton;

/// Covers a widget whose contents could not be read, so that an empty page is not taken for an empty day. It says so
/// and offers to try again. The covered widget takes neither mouse nor keys meanwhile.
///
/// The notice is a child of the host, in which the covered widget stands at any depth, and it follows the covered
/// widget's place and size. The host must not lay out its children by itself, as a splitter does.
class UnreadNotice : public QWidget {
    Q_OBJECT

  public:
    UnreadNotice(QWidget& covered, QWidget& host);

    /// Covers the widget and shows the reason `why`. "Try again", or Enter on it, calls `again` after the click.
    void Cover(const QString& why, std::function<void()> again);
    /// Removes the cover once the contents can be read again.
    void Uncover();
    [[nodiscard]] bool Covers() const { return covers_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void follow();

    QWidget& covered_;
    QLabel* lblUnread_;
    QLabel* lblWhy_;
    QPushButton* cmdTryAgain_;
    std::function<void()> again_;
    bool covers_ = false;
    bool hadFocus_ = false;
};
