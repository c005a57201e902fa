#pragma once

#include <QScrollArea>

class QDialog;

/// Holds the fields of a large form at their full size and scrolls them where the screen is too small. The buttons of
/// the form stay outside, so that they are always in sight. A field that gets the focus other than by the mouse comes
/// into sight.
class FormArea : public QScrollArea {
    Q_OBJECT

  public:
    explicit FormArea(QWidget* fields, QWidget* parent = nullptr);
    ~FormArea() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  private:
    void followFocus(QWidget* now);

    QMetaObject::Connection following_;
};

/// Gives a form that holds a FormArea the size of its contents, or as much of it as the screen offers.
void FitToScreen(QDialog& form);
