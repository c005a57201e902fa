#pragma once

#include <QScrollArea>

class QDialog;

/// Holds the fields of a large form: as large as they want to be, and scrolled where the screen is too small for that.
/// The buttons of the form stay outside, so that they are always in sight.
class FormArea : public QScrollArea {
    Q_OBJECT

  public:
    explicit FormArea(QWidget* fields, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
};

/// Gives a form that holds a FormArea the size of its contents, or what the screen has for it.
void FitToScreen(QDialog& form);
