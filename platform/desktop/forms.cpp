#include "platform/desktop/forms.h"

#include <QApplication>
#include <QWidget>

QWidget* FindForm(const QString& name) {
    for (QWidget* form : QApplication::topLevelWidgets())
        if (form->objectName() == name && form->isVisible())
            return form;
    return nullptr;
}

bool IsFormLoaded(const QString& name) {
    return FindForm(name) != nullptr;
}
