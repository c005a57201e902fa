#pragma once

#include <QLabel>
#include <QPushButton>
#include <QString>

// The parts of a form that every dialog builds alike.

/// Gives a part the name by which the form's code and its tests know it.
template <typename Part>
Part* Named(Part* part, const QString& name) {
    part->setObjectName(name);
    return part;
}

template <typename Part>
Part* Named(Part* part, const char* name) {
    return Named(part, QString::fromLatin1(name));
}

/// A label whose Alt key goes to the field, beside which it stands.
inline QLabel* FieldLabel(const QString& text, QWidget* field) {
    auto* label = new QLabel(text, field->parentWidget());
    label->setBuddy(field);
    return label;
}

/// A button that does not become the form's default by having the focus.
inline QPushButton* FormButton(const QString& text, const char* name, QWidget* parent) {
    auto* button = Named(new QPushButton(text, parent), name);
    button->setAutoDefault(false);
    return button;
}
