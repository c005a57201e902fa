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

}  // namespace

Actor click(const char* name) {
    return [name](QDialog& form) {
        if (auto* button = form.findChild<QAbstractButton*>(QLatin1String(name)))
            button->click();
        else
            tellMissing(form, name);
        Stage::Settle();
    };
}

Actor type(const char* name, const char* text) {
    return [name, text](QDialog& form) {
        if (auto* field = form.findChild<QWidget*>(QLatin1String(name)))
            typeInto(*field, QLatin1String(text));
        else
            tellMissing(form, name);
        Stage::Settle();
    };
}

Actor choose(const char* name, int index) {
    return [name, index](QDialog& form) {
        if (auto* box = form.findChild<QComboBox*>(QLatin1String(name)))
            box->setCurrentIndex(index);
        else
            tellMissing(form, name);
        Stage::Settle();
    };
}

Actor mark(const char* name, int row) {
    return [name, row](QDialog& form) {
        if (auto* list = form.findChild<ctList*>(QLatin1String(name)))
            list->SelectRow(row);
        else
            tellMissing(form, name);
        Stage::Settle();
    };
}

Actor inTurn(std::vector<Actor> actors) {
    return [actors = std::move(actors)](QDialog& form) {
        for (const Actor& actor : actors)
            actor(form);
    };
}
