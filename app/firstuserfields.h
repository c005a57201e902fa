#pragma once

#include <QWidget>

#include "data/upkeep/users.h"

class QCheckBox;
class QLineEdit;
class TextField;

/// The fields by which a practice's first user is named: an administrator, with a schedule of their own or without.
class FirstUserFields : public QWidget {
    Q_OBJECT

  public:
    explicit FirstUserFields(QWidget* parent = nullptr);

    /// Whether the fields that a user needs are filled in.
    [[nodiscard]] bool IsFilled() const;
    /// Whether the password was typed twice alike.
    [[nodiscard]] bool PasswordsAgree() const;
    [[nodiscard]] upkeep::NewUser User() const;

    TextField* txtuid;
    TextField* txtfirst;
    TextField* txtlast;
    TextField* txtpassword;
    TextField* txtagain;
    QCheckBox* ckschedule;

  Q_SIGNALS:
    void Changed();
};
