#pragma once

#include <functional>
#include <QListWidget>
#include <QTimer>

/// The list of a ShelfPanel: a row of several lines for each appointment, which the user can drag to another widget of
/// the window. Rows are counted from 0. A drag holds on to the appointment, of which the row keeps the key in
/// Qt::UserRole, because the shelf may be read anew meanwhile; it ends when the appointment leaves the shelf.
class ShelfList : public QListWidget {
    Q_OBJECT

  public:
    explicit ShelfList(QWidget* parent = nullptr);

    /// What a row is dragged to. Without one, rows cannot be dragged.
    struct Target {
        /// Shows what a drop here would do, and returns whether a drop is possible. It is called again while the
        /// pointer rests.
        std::function<bool(int key, QPoint globalPos)> over;
        std::function<void(int key, QPoint globalPos)> drop;
        std::function<void()> leave;  ///< Ends what `over` shows.
    };
    void SetTarget(Target target) { target_ = std::move(target); }

  Q_SIGNALS:
    /// Raised by Enter or a double click on a row.
    void ShowRequested(int row);
    /// Raised when Delete was pressed on a row.
    void RemoveRequested(int row);
    /// Raised by Escape.
    void LeaveRequested();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void hover();
    void endDrag();
    [[nodiscard]] bool holdsPressed() const;

    Target target_;
    QPoint pressedAt_;
    QPoint draggedTo_;    ///< On the screen.
    int pressedKey_ = 0;  ///< 0 where no row was pressed.
    bool dragging_ = false;
    QTimer rest_;  ///< Runs while a row is dragged.
};
