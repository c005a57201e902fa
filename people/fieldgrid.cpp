#include "people/fieldgrid.h"

#include <QGridLayout>
#include <QLabel>

#include "platform/controls/ctmedit.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"

namespace {

QString withoutMnemonic(QString text) {
    return text.remove(QLatin1Char('&'));
}

QLabel* labelFor(QWidget* field, const FieldCaption& caption) {
    const bool required = caption.need == FieldNeed::Required;
    QLabel* label = FieldLabel(required ? caption.text + QStringLiteral(" *") : caption.text, field);
    field->setAccessibleName(withoutMnemonic(caption.text));
    if (required)
        field->setAccessibleDescription(QStringLiteral("Required"));
    return label;
}

}  // namespace

QGridLayout* FieldGrid(QWidget* fields) {
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(Space(16), Space(16), Space(16), Space(8));
    grid->setHorizontalSpacing(Space(4));
    grid->setVerticalSpacing(Space(12));
    for (int part = 1; part <= FieldParts; ++part)
        grid->setColumnStretch(part, 1);
    return grid;
}

void AddHeading(QGridLayout& grid, int row, const QString& text) {
    auto* heading = new QLabel(text, grid.parentWidget());
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setContentsMargins(0, 0, Space(8), 0);
    grid.addWidget(heading, row, 0, Qt::AlignTop);
}

QLabel* PlaceField(QGridLayout& grid, int row, int part, int parts, const FieldCaption& caption, QWidget* field) {
    QLabel* label = labelFor(field, caption);
    auto* cell = new QVBoxLayout;
    cell->setSpacing(Space(4) / 2);
    cell->addWidget(label);
    cell->addWidget(field);
    cell->addStretch(1);
    grid.addLayout(cell, row, 1 + part, 1, parts);
    return label;
}

TextField* LimitedField(const char* name, int mostCharacters, QWidget* parent) {
    auto* field = Named(new TextField(parent), name);
    field->SetMost(mostCharacters);
    return field;
}

ctMEdit* MaskedField(const char* name, const FieldMask& mask, int mostCharacters, QWidget* parent) {
    auto* field = Named(new ctMEdit(parent), name);
    field->SetMost(mostCharacters);
    field->setMask(mask.mask, mask.extension);
    return field;
}
