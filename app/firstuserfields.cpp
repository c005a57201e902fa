#include "app/firstuserfields.h"

#include <QCheckBox>
#include <QFormLayout>

#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/theme/theme.h"

namespace {

constexpr int LongestId = 20;
constexpr int LongestName = 50;

TextField* fieldOf(const char* name, int most, QWidget* parent) {
    auto* field = Named(new TextField(parent), name);
    field->SetMost(most);
    return field;
}

}  // namespace

FirstUserFields::FirstUserFields(QWidget* parent)
    : QWidget(parent),
      txtuid(fieldOf("txtuid", LongestId, this)),
      txtfirst(fieldOf("txtfirst", LongestName, this)),
      txtlast(fieldOf("txtlast", LongestName, this)),
      txtpassword(fieldOf("txtpassword", LongestName, this)),
      txtagain(fieldOf("txtagain", LongestName, this)),
      ckschedule(Named(new QCheckBox(tr("I have a schedule of my ow&n"), this), "ckschedule")) {
    ckschedule->setChecked(true);
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(Space(12));
    form->setVerticalSpacing(Space(8));
    form->addRow(tr("&User id"), txtuid);
    form->addRow(tr("F&irst name"), txtfirst);
    form->addRow(tr("&Last name"), txtlast);
    form->addRow(tr("&Password"), txtpassword);
    form->addRow(tr("Password a&gain"), txtagain);
    form->addRow(QString(), ckschedule);
    for (TextField* password : {txtpassword, txtagain})
        password->setEchoMode(QLineEdit::Password);
    for (TextField* field : {txtuid, txtfirst, txtlast, txtpassword, txtagain})
        connect(field, &TextField::textChanged, this, &FirstUserFields::Changed);
    // Other programs of the practice write user ids in capitals.
    connect(txtuid, &TextField::textEdited, txtuid, [this](const QString& typed) {
        const int cursor = txtuid->cursorPosition();
        txtuid->setText(typed.toUpper());
        txtuid->setCursorPosition(cursor);
    });
}

bool FirstUserFields::IsFilled() const {
    return !txtuid->text().trimmed().isEmpty() && !txtlast->text().trimmed().isEmpty() &&
           !txtpassword->text().isEmpty();
}

bool FirstUserFields::PasswordsAgree() const {
    return txtpassword->text() == txtagain->text();
}

upkeep::NewUser FirstUserFields::User() const {
    return {.id = txtuid->text().trimmed(),
            .firstName = txtfirst->text().trimmed(),
            .lastName = txtlast->text().trimmed(),
            .password = txtpassword->text(),
            .isAdministrator = true,
            .isProvider = ckschedule->isChecked()};
}
