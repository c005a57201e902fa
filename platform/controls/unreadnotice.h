#pragma once

#include <functional>
#include <QWidget>

class QLabel;
class QPushButton;

/// Stands in the place of what could not be read, so that an empty page is not taken for an empty day: says so, and
/// offers to try again. What it covers takes neither mouse nor keys meanwhile.
///
/// It belongs to the host, in which the covered widget stands at any depth, and follows that one's place and size. The
/// host lays nothing out by itself, as a splitter does with whatever it is given.
class UnreadNotice : public QWidget {
    Q_OBJECT

  public:
    UnreadNotice(QWidget& covered, QWidget& host);

    /// Covers the place and tells `why`; Try again, or Enter on it, calls `again` once the click is over.
    void Cover(const QString& why, std::function<void()> again);
    /// What stands there can be read again.
    void Uncover();

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
