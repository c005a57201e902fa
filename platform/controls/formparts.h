#pragma once

#include <initializer_list>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QString>

// Parts of a form that every dialog builds in the same way.

/// Sets the name by which the form's code and its tests find a part.
template <typename Part>
Part* Named(Part* part, const QString& name) {
    part->setObjectName(name);
    return part;
}

template <typename Part>
Part* Named(Part* part, const char* name) {
    return Named(part, QString::fromLatin1(name));
}

/// Makes a label that stands beside a field. The label's Alt key moves to the field.
inline QLabel* FieldLabel(const QString& text, QWidget* field) {
    auto* label = new QLabel(text, field->parentWidget());
    label->setBuddy(field);
    return label;
}

/// Makes a button that does not become the form's default when it has the focus.
inline QPushButton* FormButton(const QString& text, const char* name, QWidget* parent) {
    auto* button = Named(new QPushButton(text, parent), name);
    button->setAutoDefault(false);
    return button;
}

/// Makes the row of buttons at the foot of a form. The buttons stand at its right, in this order.
inline QHBoxLayout* ButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton* button : buttons)
        row->addWidget(button);
    return row;
}
