#include "manual/actors.h"

#include <cstdio>
#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "manual/stage.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/fieldedit.h"

namespace {

void tellMissing(const QDialog& form, const char* name) {
    std::fprintf(stderr, "%s has no %s.\n", form.metaObject()->className(), name);
}

void typeInto(QWidget& field, const QString& text) {
    if (auto* ours = qobject_cast<FieldEdit*>(&field))
        ours->setText(text);
    else if (auto* line = qobject_cast<QLineEdit*>(&field))
        line->setText(text);
    else if (auto* note = qobject_cast<QPlainTextEdit*>(&field))
        note->setPlainText(text);
    else if (auto* inside = field.findChild<QLineEdit*>())
        inside->setText(text);
}

/// Does something with the widget of this name; the form is left as it is, and told, where it has none.
template <class Widget, class Act>
Actor with(const char* name, Act act) {
    return [name, act](QDialog& form) {
        if (auto* widget = form.findChild<Widget*>(QLatin1String(name)))
            act(*widget);
        else
            tellMissing(form, name);
        Stage::Settle();
    };
}

}  // namespace

Actor click(const char* name) {
    return with<QAbstractButton>(name, [](QAbstractButton& button) { button.click(); });
}

Actor type(const char* name, const char* text) {
    return with<QWidget>(name, [text](QWidget& field) { typeInto(field, QLatin1String(text)); });
}

Actor choose(const char* name, int index) {
    return with<QComboBox>(name, [index](QComboBox& box) { box.setCurrentIndex(index); });
}

Actor mark(const char* name, int row) {
    return with<ctList>(name, [row](ctList& list) { list.SelectRow(row); });
}

Actor inTurn(std::vector<Actor> actors) {
    return [actors = std::move(actors)](QDialog& form) {
        for (const Actor& actor : actors)
            actor(form);
    };
}
