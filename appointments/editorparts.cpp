#include "appointments/editorparts.h"

#include <QCoreApplication>

#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"

namespace {

constexpr int FirstValidTime = 1;
constexpr int FirstValidDate = 2;

bool refuse(const QString& message, QWidget& field) {
    MsgBox(message, ExclamationBox, QStringLiteral("Missing Data"));
    if (field.isEnabled() && field.isVisible())
        field.setFocus();
    return false;
}

}  // namespace

void LayInHalves(QDialog& form, QWidget* left, int leftShare, QWidget* right, int rightShare, QLayout* buttons) {
    auto* halves = new QWidget(&form);
    auto* row = new QHBoxLayout(halves);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space(24));
    row->addWidget(left, leftShare);
    row->addWidget(right, rightShare);
    auto* column = new QVBoxLayout(&form);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(new FormArea(halves, &form), 1);
    column->addLayout(buttons);
}

QString EntrySubject(const QString& date, const QString& time) {
    return QCoreApplication::translate("EntrySubject", "appointment on %1 at %2").arg(date, time);
}

void TellAddedAgain() {
    ShowNotice({QCoreApplication::translate(
                    "TellAddedAgain",
                    "The appointment had been deleted at another desk and was added again as a new appointment."),
                Notice::Kind::Caution});
}

CompletingCombo* EditorCombo(CompletingCombo::Entry entry, const char* name, const QString& accessibleName,
                             int characters, QWidget* parent) {
    auto* box = Named(new CompletingCombo(entry, parent), name);
    box->SetAccessibleName(accessibleName);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(characters);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

ctDEdit* EditorDate(ctDEdit::Kind kind, const char* name, const QString& accessibleName, QWidget* parent) {
    auto* field = Named(new ctDEdit(kind, parent), name);
    field->setAccessibleName(accessibleName);
    return field;
}

QHBoxLayout* InARow(std::initializer_list<QWidget*> widgets) {
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(8));
    for (QWidget* widget : widgets)
        row->addWidget(widget);
    row->setStretch(row->count() - 1, 1);
    return row;
}

bool TimesAreValid(ctDEdit& start, ctDEdit& end, ctDEdit& date) {
    if (start.Value() < FirstValidTime)
        return refuse(QStringLiteral("Enter valid start time."), start);
    if (end.Value() < FirstValidTime)
        return refuse(QStringLiteral("Enter valid end time."), end);
    if (start.Time() >= end.Time())
        return refuse(QStringLiteral("End time must be greater than start time"), start);
    if (!date.isHidden() && date.Value() < FirstValidDate)
        return refuse(QStringLiteral("Enter a valid date."), date);
    return true;
}
