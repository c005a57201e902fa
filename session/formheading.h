#pragma once

#include <QDate>
#include <QLabel>

class QDialog;
class ctDEdit;

/// Returns a date with short names: "Wed, Nov 18, 2026", with the day or the year first where the locale has it so. An
/// invalid date gives "".
[[nodiscard]] QString NamedDateText(QDate date);
/// The same without the year where that is the present one: "Wed, Nov 18".
[[nodiscard]] QString NamedDayText(QDate date);

/// The first line of an editor: what is edited, on which day and with whom, as in "Unavailable Time · Wed, Nov 18, 2026
/// · Reed". A part that is not known is left out. A long line is broken.
class FormHeading : public QLabel {
    Q_OBJECT

  public:
    /// Puts a heading above everything else in a form whose layout is a column.
    static FormHeading* Above(QDialog& form, const QString& what);

    void SetWhat(const QString& what);
    void SetDay(QDate day);
    void SetWhom(const QString& whom);
    /// Takes the day from the field, now and each time it changes.
    void FollowDay(const ctDEdit& field);

    [[nodiscard]] QSize minimumSizeHint() const override;

  private:
    explicit FormHeading(QWidget* parent);
    void write();

    QString what_;
    QString day_;
    QString whom_;
};
