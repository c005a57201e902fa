#pragma once

#include "platform/controls/noticebar.h"

class QToolButton;

/// One notice in a NoticeBar: its picture, text and buttons, and a button to close it.
class NoticeRow : public QWidget {
    Q_OBJECT

  public:
    NoticeRow(const Notice& notice, QWidget* parent);

    [[nodiscard]] QWidget* FirstButton() const;

  Q_SIGNALS:
    void Taken(std::size_t action);
    void Closed();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void elide();

    QString text_;
    Notice::Kind kind_;
    QLabel* label_;
    QToolButton* close_;
    std::vector<QWidget*> buttons_;
};
